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
    MediaSource(const std::string& input, const MediaOptions& demands)
        : _demands(demands), _packer(demands.formats, demands.maxSide) {
        openReader(input);
        if (demands.start > 0 && motion() != Motion::kStill) goToStart(input);
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
        _reader = std::make_unique<MediaReader>(input, _demands.interrupted);
    }

    // Some inputs only seek to about a time. Where no picture is found right there, all before it are read.
    void goToStart(const std::string& input) {
        if (_reader->seek(_demands.start)) {
            _first = _reader->next();
            if (_first && _reader->seconds() < _demands.start + 1 / frameRate() - kTimeRounding) return;
            if (!_first && _reader->framesRead() > 0) refuseStart();
        }
        // A failed attempt may have moved it, too.
        if (motion() == Motion::kEnds) openReader(input);
        do _first = _reader->next();
        while (_first && _reader->seconds() < _demands.start - kTimeRounding);
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
            const PackedFrame picture = _packer.pack(frame);
            if (picture.width != frame.width && !std::exchange(_saidScaled, true))
                notify("has frames of " + sizeText(frame.width, frame.height) +
                       ", larger than the maximum texture size; they are scaled down to " +
                       sizeText(picture.width, picture.height));
            return picture;
        } catch (const std::runtime_error& problem) {
            throw std::runtime_error("'" + _reader->input() + "' cannot be shown: " + problem.what());
        }
    }

    void notify(const std::string& what) const {
        if (_demands.notify) _demands.notify("'" + _reader->input() + "' " + what);
    }

    MediaOptions _demands;
    std::unique_ptr<MediaReader> _reader;
    FramePacker _packer;
    const AVFrame* _first = nullptr;  // already read
    std::optional<double> _begin;     // when the first picture is due
    bool _saidScaled = false;
};

PackedFrame packed(const RgbaImage& picture) {
    return {FOVIX_FORMAT_RGBA, picture.pixels.data(), static_cast<int>(picture.pixels.size()), picture.width,
            picture.height};
}

class SampleSource final : public FrameSource {
  public:
    SampleSource(SampleScene::Camera camera, int width, int height, int firstFrame)
        : _scene(camera, width, height), _firstFrame(firstFrame), _frame(firstFrame) {}

    std::optional<PackedFrame> next() override { return packed(_scene.picture(_frame++)); }

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
        : _upper(upper, width, height), _lower(lower, width, height), _picture(width, 2 * height) {}

    std::optional<PackedFrame> next() override {
        const auto& upper = _upper.picture(_frame).pixels;
        const auto& lower = _lower.picture(_frame++).pixels;
        std::copy(lower.begin(), lower.end(), std::copy(upper.begin(), upper.end(), _picture.pixels.begin()));
        return packed(_picture);
    }

    std::optional<LensCircle> lens() const override { return _upper.lens(); }
    double seconds() const override { return (_frame - 1) / frameRate(); }

  private:
    SampleScene _upper, _lower;
    RgbaImage _picture;
    int _frame = 0;
};

}  // namespace

std::unique_ptr<FrameSource> openMedia(const std::string& input, const MediaOptions& demands) {
    return std::make_unique<MediaSource>(input, demands);
}

std::unique_ptr<FrameSource> openSample(SampleScene::Camera camera, int width, int height, int firstFrame) {
    return std::make_unique<SampleSource>(camera, width, height, firstFrame);
}

std::unique_ptr<FrameSource> openStackedSample(SampleScene::Camera upper, SampleScene::Camera lower,
                                               int width, int height) {
    return std::make_unique<StackedSample>(upper, lower, width, height);
}

}  // namespace fovix_host
