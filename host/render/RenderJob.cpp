#include "RenderJob.h"

#include <Fovix.h>

#include <algorithm>
#include <cstdio>

#include "GlContext.h"
#include "Inputs.h"
#include "PngWriter.h"
#include "ScriptPlayer.h"
#include "View.h"
#include "ViewSetup.h"

namespace fovix_host {
namespace {

std::string sizeText(int width, int height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

// view.png, or view-0001.png and so on where several are written.
std::string fileOf(const Options& options, int frame) {
    if (options.frames == 1 || options.every == 0) return options.output;
    const std::string number = std::to_string(frame + 1);
    const std::size_t digits = std::max<std::size_t>(4, std::to_string(options.frames).size());
    std::string numbered = options.output.substr(0, options.output.rfind('.')) + '-';
    return numbered.append(digits - number.size(), '0') + number + ".png";
}

bool isWritten(const Options& options, int frame) {
    return options.every == 0 ? frame + 1 == options.frames : (frame + 1) % options.every == 0;
}

void report(const Options& options, const std::string& text) {
    if (options.verbose) std::fprintf(stderr, "fovix-render: %s\n", text.c_str());
}

// Draws until nothing moves by itself any more; the frames are not seen, so a corner of them is enough.
void settle(VRHANDLE handle, const ViewOptions& options, const GlContext& gl) {
    gl.setDrawnPart(1, 1);
    for (int frame = 0; frame < framesToSettle(options); ++frame) {
        setViews(handle, options);
        Fovix_Drawself(handle);
    }
    gl.setDrawnPart(gl.width(), gl.height());
}

}  // namespace

void render(const Options& asked, OwnOutput& out) {
    Options options = asked;
    const Script script = options.script.empty() ? Script{} : readScript(options.script);
    const bool settled = options.frames == 0 && options.script.empty();
    if (options.frames == 0) options.frames = script.lastFrame();
    Inputs inputs(options);
    const GlContext gl(options.width, options.height);
    const int maxTextureSize = gl.maxTextureSize();
    report(options, "drawing with " + gl.description());
    if (inputs.count() > 0) {
        const auto& picture = inputs.firstPicture();
        report(options, "pictures of " + sizeText(picture->width, picture->height) + " in format " +
                            std::to_string(picture->pixelFormat));
    }

    View view(creatorFor(options));
    setUpView(view.handle(), options, inputs);
    ScriptPlayer player(script, view, out);
    for (int frame = 0; frame < options.frames; ++frame) {
        inputs.handIn(view.handle(), maxTextureSize);
        if (settled) settle(view.handle(), options.view, gl);
        player.playBefore(frame + 1);
        setViews(view.handle(), options.view);
        Fovix_Drawself(view.handle());
        if (isWritten(options, frame)) {
            const std::string file = fileOf(options, frame);
            writePng(file, gl.readPixels());
            out.line(file);
        }
        if (frame + 1 < options.frames) inputs.advance(frame + 1, options.frames - frame - 1);
    }
}

}  // namespace fovix_host
