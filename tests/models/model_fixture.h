// A model with the lens of a picture, its operations as a frame calls them, and what it prints and hands to
// GL: GL's entries for uniforms are replaced, so that the draw operations run without a context.
#pragma once

#include <GL/glew.h>

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
        __glewUniformMatrix4fv = [](GLint, GLsizei, GLboolean, const GLfloat* values) {
            std::copy(values, values + 16, drawn.emplace_back().m.begin());
        };
        __glewUniform1f = [](GLint, GLfloat) {};
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
    bool isMoving() { return ops.needsVertexUpdate(*model) != 0; }

    std::size_t draw() {
        drawn.clear();
        ops.drawSelf(*model, 1, 2);
        for (int i = 0; i < ops.getOverlayCount(*model); ++i) ops.drawOverlay(*model, i, 1, 2);
        return drawn.size();
    }

    View rotateZoomOf(int screen) {
        View view = {-1, -1, -1, -1};
        ops.getRotateZoom(*model, screen, &view[0], &view[1], &view[2], &view[3]);
        return view;
    }

    static inline std::vector<Mat4> drawn;
    FishEyeConfig lens;
    ModelPtr model = create(lens);
    const FovixModelOperations& ops = model->operations;
    Params& params = paramsOf<Params>(*model);
};

}  // namespace fovix
