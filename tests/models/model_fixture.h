// A model with the lens of a frame, its operations as a frame calls them, what it prints, and the matrices
// that it draws with: they go to a device that only keeps them.
#pragma once

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "model/FovixModel.h"
#include "projection.h"

namespace fovix {

using View = std::array<double, 4>;

template <class Params, ModelPtr (*create)(const FishEyeConfig&)>
class ModelTest : public testing::Test {
  protected:
    ModelTest(int displayType, int width, int height) {
        device.operations.setViewport = [](Device&, const DeviceRect&) {};
        device.operations.drawMesh = [](Device&, const Mat4& matrix, const char*, int) {
            drawn.push_back(matrix);
        };
        testing::internal::CaptureStdout();
        lens.displayType = displayType;
        lens.TextureWidth = width;
        lens.TextureHeight = height;
        RefreshConfig(lens);
        ops.init(*model);
    }
    ~ModelTest() override { testing::internal::GetCapturedStdout(); }

    std::string takeLines() {
        std::string lines = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        return lines;
    }

    VertexCachePtr fetch() { return ops.getVerticesCache(*model); }
    bool isMoving() { return model->needsVertexUpdate(); }

    std::size_t draw() {
        drawn.clear();
        model->drawSelf(device);
        for (int i = 0; i < model->getOverlayCount(); ++i) model->drawOverlay(i, device);
        return drawn.size();
    }

    View rotateZoomOf(int screen) {
        View view = {-1, -1, -1, -1};
        ops.getRotateZoom(*model, screen, &view[0], &view[1], &view[2], &view[3]);
        return view;
    }

    static inline std::vector<Mat4> drawn;
    Device device;
    FishEyeConfig lens;
    ModelPtr model = create(lens);
    const FovixModelOperations& ops = model->operations;
    Params& params = paramsOf<Params>(*model);
};

}  // namespace fovix
