#include "setup/SampleInputs.h"

#include <algorithm>

namespace fovix_host {
namespace {

constexpr int kSmallSampleSize = 640;  // for one of several
constexpr int kDefaultSamples = 4;
constexpr int kFramesApart = 40;  // so that several samples differ

using Camera = SampleScene::Camera;

Camera otherThan(Camera camera) {
    return camera == Camera::kCeiling ? Camera::kWall : Camera::kCeiling;
}

int sampleCount(const ViewOptions& view) {
    if (view.grid) return view.grid->rows * view.grid->columns;
    return std::max(kDefaultSamples, view.lensShown.value_or(0) + 1);
}

}  // namespace

std::vector<std::unique_ptr<FrameSource>> openSamples(const InputOptions& input, const ViewOptions& view,
                                                      int maxSide) {
    std::vector<std::unique_ptr<FrameSource>> sources;
    if (!input.sample) return sources;
    const Camera camera = *input.sample;
    if (view.type == FOVIX_TYPE_TWO_LENSES)
        sources.push_back(openStackedSample(camera, otherThan(camera), maxSide, maxSide * 9 / 16));
    else if (!view.takesSeveralInputs())
        sources.push_back(openSample(camera, maxSide, maxSide));
    else
        for (int i = 0; i < sampleCount(view); ++i) {
            const Camera from = input.samplesDiffer && i % 2 == 1 ? otherThan(camera) : camera;
            sources.push_back(openSample(from, kSmallSampleSize, kSmallSampleSize, i * kFramesApart));
        }
    return sources;
}

}  // namespace fovix_host
