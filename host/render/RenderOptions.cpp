#include "render/RenderOptions.h"

#include <filesystem>
#include <system_error>

#include "cli/CommandLine.h"
#include "cli/OptionValues.h"
#include "options/ViewTypes.h"
#include "render/script/Script.h"
#include "render/script/ScriptVerbs.h"

namespace fovix_host {
namespace {

int parseFrames(const std::string& text) {
    const auto frames = numberIn<int>(text);
    if (!frames || *frames < 1 || *frames > kMaxFrames)
        refuse("--frames", text, "a number from 1 to " + std::to_string(kMaxFrames));
    return *frames;
}

int parseEvery(const std::string& text) {
    if (text == "last") return 0;
    const auto every = numberIn<int>(text);
    if (!every || *every < 1) refuse("--every", text, "a number of at least 1, or last");
    return *every;
}

void describeFrames(CommandLine& line, RenderOptions& options) {
    line.addText("--size", "WxH", "size of the surface in pixels [1280x720]",
                 [&](const std::string& value) { options.surface = parseSize(value); });
    line.addText("--frames", "N", "number of frames to render [1; videos: all]",
                 [&](const std::string& value) { options.frames = parseFrames(value); });
    line.addText("--start", "TIME", "start position in the video; seconds or [H:]M:S",
                 [&](const std::string& value) { options.start = parseTime("--start", value); });
    line.addText("--duration", "TIME", "length of the part to render",
                 [&](const std::string& value) { options.duration = parseTime("--duration", value); });
    line.addText("--every", "N|last", "write every Nth frame, or only the last [1]",
                 [&](const std::string& value) { options.every = parseEvery(value); });
    line.addText("--background", "RRGGBB", "colour around the image [000000]",
                 [&](const std::string& value) { options.background = parseBackground(value); });
}

void describeProgram(CommandLine& line, RenderOptions& options) {
    line.addText("--script", "FILE", "replay a timeline of calls while rendering", options.script);
    line.addList("--list", "list types, mounts, shapes and draw modes", namesToList);
    line.addList("--list-verbs", "explain scripts and list their verbs", scriptVerbList);
    line.addFlag("--quiet", "print no progress, summary or notices", options.quiet);
    line.addFlag("--verbose", "print the library's diagnostics to standard error", options.verbose);
}

void checkFindLens(const CommandLine& line, const InputOptions& input) {
    for (const std::string& name : line.given()) {
        const bool fits = name == "INPUT" || name == "--find-lens" || name == "--camera" ||
                          name == "--quiet" || name == "--verbose";
        if (!fits) throw UsageError("--find-lens only prints the lens circle; remove " + name);
    }
    if (input.inputs.size() != 1) throw UsageError("--find-lens needs one input, an image or a video");
}

void checkScript(const RenderOptions& options) {
    if (!options.input.sample && options.input.inputs.empty() && options.script.empty())
        throw UsageError("no input; name an image or a video, or use --sample");
    if (!options.script.empty() && options.view.setsViews())
        throw UsageError(
            "--ptz, --rotate-zoom and --logic-zoom cannot be combined with --script; make these calls in the "
            "script");
}

void checkFrames(const RenderOptions& options) {
    if (options.frames > 0 && options.duration)
        throw UsageError("--frames and --duration both set the end; give only one");
    if (options.duration && *options.duration == 0) refuse("--duration", "0", "a time above 0");
    if (options.start && options.input.inputs.empty())
        throw UsageError("--start needs a video as input; the sample and scripts have a fixed start");
    if (options.every != 1 && options.output.kind == OutputKind::kVideo)
        throw UsageError("--every does not apply to -o " + options.output.name +
                         ", since a video contains every frame; use it with .png or -");
}

void checkSelection(const RenderOptions& options) {
    const auto [width, height] = options.surface;
    for (const auto& [x, y] : options.view.select)
        if (x < 0 || y < 0 || x >= static_cast<float>(width) || y >= static_cast<float>(height))
            throw UsageError("--select needs a pixel of the surface, from 0,0 to " +
                             std::to_string(width - 1) + "," + std::to_string(height - 1));
}

void checkNoInputIsReplaced(const RenderOptions& options) {
    std::error_code ignored;
    for (const std::string& input : options.input.inputs)
        if (std::filesystem::equivalent(input, options.output.name, ignored))
            throw UsageError("-o " + options.output.name +
                             " would overwrite an input; choose another name for the output");
}

}  // namespace

RenderOptions parseRenderOptions(int argc, const char* const* argv) {
    RenderOptions options;
    ViewTexts texts;
    CommandLine line("fovix-render", "Renders dewarped views of fisheye images and videos.",
                     "Examples:\n"
                     "  fovix-render --sample -o hall.png\n"
                     "  fovix-render in.mp4 --type 360 --shape strip -o strip.mp4");
    describeInputOptions(line, options.input);
    line.addFlag("--find-lens", "print the lens circle of INPUT; render nothing", options.findLens);
    describeViewOptions(line, texts);
    describeOutputOptions(line, options.output);
    describeFrames(line, options);
    describeProgram(line, options);
    line.parse(argc, argv);
    if (options.quiet && options.verbose)
        throw UsageError("--quiet and --verbose contradict each other; give only one");
    if (options.findLens) checkFindLens(line, options.input);
    options.view = readViewOptions(texts);
    checkInputOptions(options.input, options.view);
    if (options.findLens) return options;
    checkScript(options);
    checkFrames(options);
    checkOutputOptions(options.output, options.surface.width, options.surface.height);
    checkSelection(options);
    checkNoInputIsReplaced(options);
    return options;
}

}  // namespace fovix_host
