// Sources of packed frames: media inputs and the procedural sample.
#pragma once

#include <climits>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "circle/LensCircle.h"
#include "media/FramePacker.h"
#include "media/FrameRate.h"
#include "sample/SampleScene.h"

namespace fovix_host {

enum class Motion {
    kStill,   // a single frame
    kEnds,    // a recording
    kEndless  // a live stream, or the sample
};

class FrameSource {
  public:
    virtual ~FrameSource() = default;

    // The next frame, valid until the next call; nullopt after the last one. Throws std::runtime_error with a
    // message that names the source.
    virtual std::optional<PackedFrame> next() = 0;

    // The lens circle of the frames; nullopt if unknown.
    virtual std::optional<LensCircle> lens() const { return std::nullopt; }

    virtual Motion motion() const { return Motion::kEndless; }
    virtual double frameRate() const { return kDefaultFrameRate; }
    // Time of the last frame, relative to the first one.
    virtual double seconds() const = 0;
    // Seconds from the first frame to the end; nullopt if unknown.
    virtual std::optional<double> duration() const { return std::nullopt; }
};

struct MediaOptions {
    PackedFormats formats = PackedFormats::kAll;
    int maxSide = INT_MAX;                             // frames with a longer side are scaled down
    double start = 0;                                  // earliest time of the first frame of a video
    std::function<void(const std::string&)> notify{};  // receives messages for the user
    std::function<bool()> interrupted{};               // see MediaReader
};

constexpr int kSampleSize = 1280;

std::unique_ptr<FrameSource> openMedia(const std::string& input, const MediaOptions& options);
std::unique_ptr<FrameSource> openSample(SampleScene::Camera camera, int width, int height,
                                        int firstFrame = 0);
// Two samples in one frame, one above the other; the lens circle is that of each half.
std::unique_ptr<FrameSource> openStackedSample(SampleScene::Camera upper, SampleScene::Camera lower,
                                               int width, int height);

}  // namespace fovix_host
