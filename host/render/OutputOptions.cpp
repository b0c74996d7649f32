#include "render/OutputOptions.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <utility>

#include "cli/CommandLine.h"
#include "cli/OptionValues.h"

namespace fovix_host {
namespace {

// In lower case, with its dot; empty for names such as ".png".
std::string endingOf(const std::string& name) {
    std::string ending = std::filesystem::path(name).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return ending;
}

OutputKind parseKind(const std::string& name) {
    const std::string ending = endingOf(name);
    if (name == "-") return OutputKind::kPipe;
    if (ending == ".png") return OutputKind::kImages;
    if (ending != ".mp4" && ending != ".mkv")
        refuse("--output", name, "a name ending in .png, .mp4 or .mkv, or - for raw RGBA on standard output");
    return OutputKind::kVideo;
}

VideoCodec parseCodec(const std::string& text) {
    if (text != "h264" && text != "ffv1") refuse("--codec", text, "h264 or ffv1");
    return text == "h264" ? VideoCodec::kH264 : VideoCodec::kFfv1;
}

int parseQuality(const std::string& text) {
    const auto quality = numberIn<int>(text);
    constexpr int kWorstQuality = 51;  // of H.264
    if (!quality || *quality < 0 || *quality > kWorstQuality)
        refuse("--quality", text, "a number from 0 (best) to 51");
    return *quality;
}

double parseFrameRate(const std::string& text) {
    const auto rate = numberIn<double>(text);
    if (!rate || *rate < 0.01 || *rate > 1000)
        refuse("--fps", text, "a number of frames per second from 0.01 to 1000");
    return *rate;
}

}  // namespace

void describeOutputOptions(CommandLine& line, OutputOptions& options) {
    line.addText("-o,--output", "FILE", ".png, .mp4, .mkv, or - for raw RGBA [fovix.png]",
                 [&](const std::string& value) {
                     options.kind = parseKind(value);
                     options.name = value;
                 });
    line.addText("--codec", "h264|ffv1", "video: ffv1 is lossless and needs .mkv [h264]",
                 [&](const std::string& value) { options.codec = parseCodec(value); });
    line.addText("--quality", "N", "h264 video: from 0 (best) to 51 [20]",
                 [&](const std::string& value) { options.quality = parseQuality(value); });
    line.addText("--fps", "N", "video: frames per second [those of the input]",
                 [&](const std::string& value) { options.frameRate = parseFrameRate(value); });
}

void checkOutputOptions(const OutputOptions& options, int width, int height) {
    if (options.kind != OutputKind::kVideo) {
        for (const auto& [option, given] : {std::pair{"--codec", options.codec.has_value()},
                                            std::pair{"--quality", options.quality.has_value()},
                                            std::pair{"--fps", options.frameRate.has_value()}})
            if (given)
                throw UsageError(std::string(option) + " does not apply to -o " + options.name +
                                 "; use it with a video (.mp4 or .mkv)");
        return;
    }
    if (options.codec == VideoCodec::kFfv1) {
        if (endingOf(options.name) == ".mp4")
            throw UsageError("--codec ffv1 does not apply to -o " + options.name + "; use it with .mkv");
        if (options.quality)
            throw UsageError("--quality does not apply to --codec ffv1, which is lossless; use it with h264");
    } else if (width % 2 != 0 || height % 2 != 0) {
        throw UsageError("H.264 video cannot have a --size of " + sizeText(width, height) +
                         "; use even numbers (" + sizeText(width + width % 2, height + height % 2) +
                         "), or --codec ffv1 with .mkv");
    }
}

}  // namespace fovix_host
