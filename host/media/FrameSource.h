// Where the pictures of a view come from: a media file or the procedural sample, ready for the library.
#pragma once

#include <climits>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "circle/LensCircle.h"
#include "media/FramePacker.h"
#include "sample/SampleScene.h"

namespace fovix_host {

enum class Motion {
    kStill,   // one picture and no more
    kEnds,    // a recording
    kEndless  // a live stream, or the sample
};

class FrameSource {
  public:
    virtual ~FrameSource() = default;

    // The next picture, valid until the next call; nothing after the last one. Throws
    // std::runtime_error with a sentence that names the source.
    virtual std::optional<PackedFrame> next() = 0;

    // The lens circle of the pictures, where the source knows it.
    virtual std::optional<LensCircle> lens() const { return std::nullopt; }

    virtual Motion motion() const { return Motion::kEndless; }
    virtual double frameRate() const { return 25; }
    // When the last picture is due, counted from the first one.
    virtual double seconds() const = 0;
    // From the first picture on; nothing where nobody knows.
    virtual std::optional<double> duration() const { return std::nullopt; }
};

struct MediaOptions {
    PackedFormats formats = PackedFormats::kAll;
    int maxSide = INT_MAX;                             // pictures with a longer side are scaled down
    double start = 0;                                  // of a video: the first picture is due then or later
    std::function<void(const std::string&)> notify{};  // takes sentences for the user
    std::function<bool()> interrupted{};               // see MediaReader
};

constexpr int kSampleSize = 1280;

std::unique_ptr<FrameSource> openMedia(const std::string& input, const MediaOptions& demands);
std::unique_ptr<FrameSource> openSample(SampleScene::Camera camera, int width, int height,
                                        int firstFrame = 0);
// Two samples in one picture, one above the other; the lens circle is that of each half.
std::unique_ptr<FrameSource> openStackedSample(SampleScene::Camera upper, SampleScene::Camera lower,
                                               int width, int height);

}  // namespace fovix_host
