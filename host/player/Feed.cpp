#include "player/Feed.h"

#include <utility>

#include "media/MediaReader.h"

namespace fovix_host {
namespace {

class MediaFeed final : public Feed {
  public:
    MediaFeed(const std::string& input, FramePacker packer, MediaReader::Interrupted interrupted)
        : _reader(input, std::move(interrupted)), _packer(std::move(packer)) {}

    std::optional<double> next() override {
        _frame = _reader.next();
        return _frame ? std::optional(_reader.seconds()) : std::nullopt;
    }
    PackedFrame pack() override { return _packer.pack(*_frame); }
    double frameLength() const override { return 1 / _reader.frameRate(); }
    std::optional<double> duration() const override {
        return isStill() || _reader.isLive() ? std::nullopt : _reader.duration();
    }
    bool isStill() const override { return _reader.isStill(); }
    bool isRealTime() const override { return _reader.isRealTime(); }
    bool isLost() const override { return _reader.isLost(); }
    bool isSeekable() const override { return duration().has_value(); }
    bool seek(double seconds) override { return _reader.seek(seconds); }
    void setHurry(bool hurry) override { _reader.setHurry(hurry); }

  private:
    MediaReader _reader;
    FramePacker _packer;
    const AVFrame* _frame = nullptr;
};

class SourceFeed final : public Feed {
  public:
    explicit SourceFeed(FrameSource& source) : _source(source) {}

    std::optional<double> next() override {
        const auto frame = _source.next();
        if (!frame) return std::nullopt;
        _frame = *frame;
        return frameLength() * _number++;
    }
    PackedFrame pack() override { return _frame; }
    double frameLength() const override { return 1 / _source.frameRate(); }

  private:
    FrameSource& _source;
    PackedFrame _frame;
    double _number = 0;
};

}  // namespace

std::unique_ptr<Feed> openMediaFeed(const std::string& input, FramePacker packer,
                                    std::function<bool()> interrupted) {
    return std::make_unique<MediaFeed>(input, std::move(packer), std::move(interrupted));
}

std::unique_ptr<Feed> makeSourceFeed(FrameSource& source) {
    return std::make_unique<SourceFeed>(source);
}

}  // namespace fovix_host
