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

// view.png, or view-0001.png and so on for several frames.
class PngFiles final : public FrameOutput {
  public:
    PngFiles(const RenderOptions& options, int frames, OwnOutput& out)
        : _name(options.output.name), _isNumbered(frames != 1 && options.every != 0), _out(out) {
        constexpr std::size_t kMinDigits = 4;
        _digits = std::max(kMinDigits, std::to_string(frames).size());
        if (!_isNumbered) return;
        for (const std::string& input : options.input.inputs) checkNotOverwritten(input, frames);
    }

    void write(const RgbaImage& image, int frame, double) override {
        const std::string file = _isNumbered ? numbered(frame + 1) : _name;
        writePng(file, image);
        _out.line(file);
    }

  private:
    std::string numbered(int number) const {
        const std::string digits = std::to_string(number);
        const std::string zeros(_digits - std::min(_digits, digits.size()), '0');
        const std::size_t ending = _name.rfind('.');
        return _name.substr(0, ending) + "-" + zeros + digits + _name.substr(ending);
    }

    // The input may be one of an earlier series.
    void checkNotOverwritten(const std::string& input, int frames) const {
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
          _isConstantRate(options.output.frameRate.has_value()),
          _writer(options.output.name, _settings),
          _out(out) {}

    // With --fps, frames follow each other evenly; else at the input's times, rounded to its frame rate.
    void write(const RgbaImage& image, int, double seconds) override {
        const std::int64_t next = _time + 1;
        _time = _isConstantRate ? next
                                : std::max<std::int64_t>(next, std::llround(seconds * _settings.frameRate));
        _writer.write(image, _time);
    }

    void finish() override {
        if (_time < 0) return;
        _writer.finish();
        _out.line(_writer.file());
    }

  private:
    VideoSettings _settings;
    bool _isConstantRate;
    VideoWriter _writer;
    std::int64_t _time = -1;  // of the last frame, in units of 1/frameRate
    OwnOutput& _out;
};

class RawPipe final : public FrameOutput {
  public:
    explicit RawPipe(OwnOutput& out) : _out(out) {}

    void write(const RgbaImage& image, int, double) override {
        _out.bytes(image.pixels.data(), image.pixels.size());
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
