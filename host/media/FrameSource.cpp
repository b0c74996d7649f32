#include "media/FrameSource.h"

#include <Fovix.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include "media/MediaReader.h"

namespace fovix_host {
namespace {

class MediaSource final : public FrameSource {
  public:
    MediaSource(const std::string& input, const MediaOptions& options)
        : _options(options), _packer(options.formats, options.maxSide) {
        openReader(input);
        if (options.start > 0 && motion() != Motion::kStill) goToStart(input);
    }

    std::optional<PackedFrame> next() override {
        const AVFrame* frame = _first ? _first : _reader->next();
        _first = nullptr;
        if (!frame) {
            if (_reader->isLost())
                notify("broke off after " + std::to_string(_reader->framesRead()) + " frames");
            return std::nullopt;
        }
        if (!_begin) _begin = _reader->seconds();
        return packed(*frame);
    }

    Motion motion() const override {
        return _reader->isStill() ? Motion::kStill : _reader->isLive() ? Motion::kEndless : Motion::kEnds;
    }
    double frameRate() const override { return _reader->frameRate(); }
    double seconds() const override { return _reader->seconds() - _begin.value_or(0); }
    std::optional<double> duration() const override {
        const auto whole = _reader->duration();
        return whole ? std::optional(*whole - _begin.value_or(0)) : std::nullopt;
    }

  private:
    void openReader(const std::string& input) {
        _reader = std::make_unique<MediaReader>(input, _options.interrupted);
    }

    // Some inputs seek only approximately. If there is no frame at the start, read all frames before it.
    void goToStart(const std::string& input) {
        if (_reader->seek(_options.start)) {
            _first = _reader->next();
            if (_first && _reader->seconds() < _options.start + 1 / frameRate() - kTimeRounding) return;
            if (!_first && _reader->framesRead() > 0) refuseStart();
        }
        // Reopen, because even a failed attempt may have moved the position.
        if (motion() == Motion::kEnds) openReader(input);
        do _first = _reader->next();
        while (_first && _reader->seconds() < _options.start - kTimeRounding);
        if (!_first) refuseStart();
    }

    [[noreturn]] void refuseStart() const {
        char end[32];
        std::snprintf(end, sizeof end, "%.3f", _reader->seconds());
        throw std::runtime_error("--start is past the end of '" + _reader->input() +
                                 "'; its last frame is at " + end + " seconds");
    }

    PackedFrame packed(const AVFrame& frame) {
        try {
            const PackedFrame packed = _packer.pack(frame);
            if (packed.width != frame.width && !std::exchange(_reportedScaling, true))
                notify("has frames of " + sizeText(frame.width, frame.height) +
                       ", larger than the maximum texture size; they are scaled down to " +
                       sizeText(packed.width, packed.height));
            return packed;
        } catch (const std::runtime_error& problem) {
            throw std::runtime_error("'" + _reader->input() + "' cannot be shown: " + problem.what());
        }
    }

    void notify(const std::string& what) const {
        if (_options.notify) _options.notify("'" + _reader->input() + "' " + what);
    }

    MediaOptions _options;
    std::unique_ptr<MediaReader> _reader;
    FramePacker _packer;
    const AVFrame* _first = nullptr;  // already read
    std::optional<double> _begin;     // time of the first frame
    bool _reportedScaling = false;
};

PackedFrame packed(const RgbaImage& image) {
    return {FOVIX_FORMAT_RGBA, image.pixels.data(), static_cast<int>(image.pixels.size()), image.width,
            image.height};
}

class SampleSource final : public FrameSource {
  public:
    SampleSource(SampleScene::Camera camera, int width, int height, int firstFrame)
        : _scene(camera, width, height), _firstFrame(firstFrame), _frame(firstFrame) {}

    std::optional<PackedFrame> next() override { return packed(_scene.image(_frame++)); }

    std::optional<LensCircle> lens() const override { return _scene.lens(); }
    double seconds() const override { return (_frame - 1 - _firstFrame) / frameRate(); }

  private:
    SampleScene _scene;
    int _firstFrame;
    int _frame;
};

class StackedSample final : public FrameSource {
  public:
    StackedSample(SampleScene::Camera upper, SampleScene::Camera lower, int width, int height)
        : _upper(upper, width, height), _lower(lower, width, height), _both(width, 2 * height) {}

    std::optional<PackedFrame> next() override {
        const auto& upper = _upper.image(_frame).pixels;
        const auto& lower = _lower.image(_frame++).pixels;
        std::copy(lower.begin(), lower.end(), std::copy(upper.begin(), upper.end(), _both.pixels.begin()));
        return packed(_both);
    }

    std::optional<LensCircle> lens() const override { return _upper.lens(); }
    double seconds() const override { return (_frame - 1) / frameRate(); }

  private:
    SampleScene _upper, _lower;
    RgbaImage _both;
    int _frame = 0;
};

}  // namespace

std::unique_ptr<FrameSource> openMedia(const std::string& input, const MediaOptions& options) {
    return std::make_unique<MediaSource>(input, options);
}

std::unique_ptr<FrameSource> openSample(SampleScene::Camera camera, int width, int height, int firstFrame) {
    return std::make_unique<SampleSource>(camera, width, height, firstFrame);
}

std::unique_ptr<FrameSource> openStackedSample(SampleScene::Camera upper, SampleScene::Camera lower,
                                               int width, int height) {
    return std::make_unique<StackedSample>(upper, lower, width, height);
}

}  // namespace fovix_host
