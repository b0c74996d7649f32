#include "render/FrameOutput.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "media/PngWriter.h"
#include "media/VideoWriter.h"

namespace fovix_host {
namespace {

// view.png, or view-0001.png and so on where several are written.
class PngFiles final : public FrameOutput {
  public:
    PngFiles(const RenderOptions& options, int frames, OwnOutput& out)
        : _name(options.output.name), _isNumbered(frames != 1 && options.every != 0), _out(out) {
        _digits = std::max<std::size_t>(4, std::to_string(frames).size());
        if (!_isNumbered) return;
        for (const std::string& input : options.input.inputs) checkIsNotReplaced(input, frames);
    }

    void write(const RgbaImage& picture, int frame, double) override {
        const std::string file = _isNumbered ? numbered(frame + 1) : _name;
        writePng(file, picture);
        _out.line(file);
    }

  private:
    std::string numbered(int number) const {
        const std::string digits = std::to_string(number);
        const std::string zeros(_digits - std::min(_digits, digits.size()), '0');
        const std::size_t ending = _name.rfind('.');
        return _name.substr(0, ending) + "-" + zeros + digits + _name.substr(ending);
    }

    // One of a series may be the input of the next.
    void checkIsNotReplaced(const std::string& input, int frames) const {
        const std::string stem = std::filesystem::path(input).stem().string();
        const auto number = numberIn<int>(std::string_view(stem).substr(stem.rfind('-') + 1));
        std::error_code ignored;
        if (number && *number > 0 && (frames == 0 || *number <= frames) &&
            std::filesystem::equivalent(input, numbered(*number), ignored))
            throw UsageError("-o " + _name + " would overwrite the input '" + input +
                             "'; choose another name for the output");
    }

    std::string _name;
    bool _isNumbered;
    std::size_t _digits;
    OwnOutput& _out;
};

VideoSettings settingsFor(const RenderOptions& options, double frameRate) {
    VideoSettings settings{options.surface.width, options.surface.height,
                           options.output.frameRate.value_or(frameRate)};
    settings.codec = options.output.codec.value_or(settings.codec);
    settings.quality = options.output.quality.value_or(settings.quality);
    return settings;
}

class VideoFile final : public FrameOutput {
  public:
    VideoFile(const RenderOptions& options, double frameRate, OwnOutput& out)
        : _settings(settingsFor(options, frameRate)),
          _isEven(options.output.frameRate.has_value()),
          _writer(options.output.name, _settings),
          _out(out) {}

    // At the input's own times, to the nearest multiple of its frame rate; or one after the other.
    void write(const RgbaImage& picture, int, double seconds) override {
        const std::int64_t next = _due + 1;
        _due = _isEven ? next : std::max<std::int64_t>(next, std::llround(seconds * _settings.frameRate));
        _writer.write(picture, _due);
    }

    void finish() override {
        if (_due < 0) return;
        _writer.finish();
        _out.line(_writer.file());
    }

  private:
    VideoSettings _settings;
    bool _isEven;
    VideoWriter _writer;
    std::int64_t _due = -1;
    OwnOutput& _out;
};

class RawPipe final : public FrameOutput {
  public:
    explicit RawPipe(OwnOutput& out) : _out(out) {}

    void write(const RgbaImage& picture, int, double) override {
        _out.bytes(picture.pixels.data(), picture.pixels.size());
    }

  private:
    OwnOutput& _out;
};

}  // namespace

std::unique_ptr<FrameOutput> openOutput(const RenderOptions& options, int frames, double frameRate,
                                        OwnOutput& out) {
    switch (options.output.kind) {
        case OutputKind::kVideo:
            return std::make_unique<VideoFile>(options, frameRate, out);
        case OutputKind::kPipe:
            return std::make_unique<RawPipe>(out);
        default:
            return std::make_unique<PngFiles>(options, frames, out);
    }
}

}  // namespace fovix_host
