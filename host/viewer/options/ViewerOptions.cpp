#include "viewer/options/ViewerOptions.h"

#include <algorithm>

#include "cli/CommandLine.h"
#include "cli/OptionValues.h"
#include "options/ViewTypes.h"

namespace fovix_host {
namespace {

SurfaceSize parseWindowSize(const std::string& text) {
    constexpr int kMaxSide = 16384;  // limit of SDL
    const SurfaceSize size = parseSize(text);
    if (std::max(size.width, size.height) > kMaxSide)
        refuse("--size", text, "a window of at most " + sizeText(kMaxSide, kMaxSide) + " pixels");
    return size;
}

void describeViewer(CommandLine& line, ViewerOptions& options) {
    line.addText("--size", "WxH", "size of the window in pixels [1280x720]",
                 [&](const std::string& value) { options.window = parseWindowSize(value); });
    line.addText("--background", "RRGGBB", "colour around the image [000000]",
                 [&](const std::string& value) { options.background = parseBackground(value); });
    line.addText("--start", "TIME", "start position in a video; seconds or [H:]M:S",
                 [&](const std::string& value) { options.start = parseTime("--start", value); });
    line.addFlag("--full-screen", "start in full-screen mode", options.fullScreen);
    line.addFlag("--loop", "repeat videos", options.loop);
    line.addFlag("--keep-open", "stay open at the end of a video", options.keepOpen);
    line.addFlag("--sensors", "steer by tilting the device", options.sensors);
    line.addList("--list", "list types, mounts, shapes and draw modes", namesToList);
    line.addFlag("--verbose", "print the library's diagnostics to standard error", options.verbose);
}

// The panorama suits most cameras; several inputs are shown side by side.
void chooseType(ViewTexts& texts, const InputOptions& input) {
    if (!texts.type.empty()) return;
    texts.type = !texts.showLens.empty()                          ? "lenses"
                 : input.inputs.size() > 1 || !texts.grid.empty() ? "grid"
                                                                  : "360";
}

}  // namespace

ViewerOptions parseViewerOptions(int argc, const char* const* argv) {
    ViewerOptions options;
    ViewTexts texts;
    CommandLine line("fovix-view", "Interactive viewer for fisheye images, videos, streams and cameras.",
                     "Press ? for the list of keys, q to quit.\n"
                     "Examples:\n"
                     "  fovix-view --sample\n"
                     "  fovix-view rtsp://camera/live --mount wall\n"
                     "  fovix-view hall.mp4 --loop --shape four-screens");
    describeInputOptions(line, options.input);
    describeViewOptions(line, texts, ViewOptionSet::kLayout);
    describeViewer(line, options);
    line.parse(argc, argv);
    chooseType(texts, options.input);
    const bool onWall = options.input.sample == SampleScene::Camera::kWall;
    if (onWall && texts.type == "360" && texts.mount.empty() && texts.shape.empty()) texts.mount = "wall";
    options.view = readViewOptions(texts);
    if (options.input.inputs.empty() && !options.input.sample)
        throw UsageError("no input; name an image, video, stream or device, or use --sample");
    checkInputOptions(options.input, options.view);
    if (options.start > 0 && options.input.sample)
        throw UsageError("--start needs a video as input; the sample has a fixed start");
    return options;
}

}  // namespace fovix_host
