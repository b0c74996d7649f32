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
        refuse("--frames", text, "a number from 1 to 1000000");
    return *frames;
}

int parseEvery(const std::string& text) {
    if (text == "last") return 0;
    const auto every = numberIn<int>(text);
    if (!every || *every < 1) refuse("--every", text, "a number from 1 on, or last");
    return *every;
}

void describeFrames(CommandLine& line, RenderOptions& options) {
    line.addText("--size", "WxH", "size of the surface to draw on [1280x720]",
                 [&](const std::string& value) { options.surface = parseSize(value); });
    line.addText("--frames", "N", "draw N, animations too [1, or the whole video]",
                 [&](const std::string& value) { options.frames = parseFrames(value); });
    line.addText("--start", "TIME", "begin there in the video; seconds or [H:]M:S",
                 [&](const std::string& value) { options.start = parseTime("--start", value); });
    line.addText("--duration", "TIME", "draw so much of the video",
                 [&](const std::string& value) { options.duration = parseTime("--duration", value); });
    line.addText("--every", "N|last", "write every Nth frame, or only the last one [1]",
                 [&](const std::string& value) { options.every = parseEvery(value); });
    line.addText("--background", "RRGGBB", "colour around the picture [000000]",
                 [&](const std::string& value) { options.background = parseBackground(value); });
}

void describeProgram(CommandLine& line, RenderOptions& options) {
    line.addText("--script", "FILE", "make the calls of a timeline while drawing", options.script);
    line.addList("--list", "list types, mounts, shapes and draw modes", namesToList);
    line.addList("--list-verbs", "explain scripts and list their verbs", scriptVerbList);
    line.addFlag("--quiet", "no progress, summary and notices", options.quiet);
    line.addFlag("--verbose", "show the library's diagnostics (standard error)", options.verbose);
}

void checkFindLens(const CommandLine& line, const InputOptions& input) {
    for (const std::string& name : line.given()) {
        const bool fits = name == "INPUT" || name == "--find-lens" || name == "--camera" ||
                          name == "--quiet" || name == "--verbose";
        if (!fits)
            throw UsageError("--find-lens looks at a picture or video and draws nothing; leave out " + name);
    }
    if (input.inputs.size() != 1) throw UsageError("--find-lens wants one picture or video to look at");
}

void checkScript(const RenderOptions& options) {
    if (!options.input.sample && options.input.inputs.empty() && options.script.empty())
        throw UsageError("no input; give a picture or video, or --sample");
    if (!options.script.empty() && options.view.setsViews())
        throw UsageError(
            "--ptz, --rotate-zoom and --logic-zoom do not last with --script; make these calls in the "
            "script");
}

void checkFrames(const RenderOptions& options) {
    if (options.frames > 0 && options.duration)
        throw UsageError("--frames and --duration both say where to end; give one of them");
    if (options.duration && *options.duration == 0)
        throw UsageError("--duration cannot be 0; it wants a time above");
    if (options.start && options.input.inputs.empty())
        throw UsageError("--start goes with a video as input; the sample and scripts have one beginning");
    if (options.every != 1 && options.output.kind == OutputKind::kVideo)
        throw UsageError("--every does not fit -o " + options.output.name +
                         "; it goes with .png and with -, while a video takes every frame");
}

void checkSelection(const RenderOptions& options) {
    const auto [width, height] = options.surface;
    for (const auto& [x, y] : options.view.select)
        if (x < 0 || y < 0 || x >= static_cast<float>(width) || y >= static_cast<float>(height))
            throw UsageError("--select wants a pixel of the surface, from 0,0 to " +
                             std::to_string(width - 1) + "," + std::to_string(height - 1));
}

void checkNoInputIsReplaced(const RenderOptions& options) {
    std::error_code ignored;
    for (const std::string& input : options.input.inputs)
        if (std::filesystem::equivalent(input, options.output.name, ignored))
            throw UsageError("-o " + options.output.name +
                             " would replace an input; give the output another name");
}

}  // namespace

RenderOptions parseRenderOptions(int argc, const char* const* argv) {
    RenderOptions options;
    ViewTexts texts;
    CommandLine line("fovix-render",
                     "Draws corrected views of fisheye pictures and videos as pictures or video.",
                     "Examples:\n"
                     "  fovix-render --sample -o hall.png\n"
                     "  fovix-render in.mp4 --type 360 --shape strip -o strip.mp4");
    describeInputOptions(line, options.input);
    line.addFlag("--find-lens", "print the lens circle of INPUT, and draw nothing", options.findLens);
    describeViewOptions(line, texts);
    describeOutputOptions(line, options.output);
    describeFrames(line, options);
    describeProgram(line, options);
    line.parse(argc, argv);
    if (options.quiet && options.verbose)
        throw UsageError("--quiet and --verbose contradict each other; give one of them");
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
