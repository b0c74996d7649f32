#include "render/RenderJob.h"

#include <Fovix.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

#include "media/InputName.h"
#include "media/MediaReader.h"
#include "render/FrameOutput.h"
#include "render/Inputs.h"
#include "render/Reporter.h"
#include "render/StopSignals.h"
#include "render/ViewSetup.h"
#include "render/script/ScriptPlayer.h"
#include "setup/View.h"
#include "surface/GlContext.h"

namespace fovix_host {
namespace {

// How much to render: a number of frames, or up to a time or the end of the inputs.
struct Extent {
    int frames = 0;  // 0: unknown in advance
    double seconds = std::numeric_limits<double>::infinity();
    bool settled = false;  // let animations end before the first frame
};

std::string nameOf(const InputOptions& input) {
    if (input.sample) return "the sample";
    return input.inputs.size() == 1 ? quotedName(input.inputs.front()) : "one of the inputs";
}

std::string nothingWritten(int every, int frames) {
    return "--every " + std::to_string(every) + " writes none of " + std::to_string(frames) +
           (frames == 1 ? " frame" : " frames") + "; use a smaller number, or last";
}

Extent knownExtent(const RenderOptions& options, const Script& script, const Inputs& inputs) {
    Extent extent;
    extent.frames = options.frames;
    extent.settled = options.frames == 0 && options.script.empty();
    if (options.frames > 0) return extent;
    if (options.duration) {
        extent.seconds = *options.duration;
        return extent;
    }
    const bool takesAll = options.output.kind != OutputKind::kImages && options.script.empty();
    const bool isSingle = options.output.kind == OutputKind::kPipe && inputs.motion() == Motion::kStill;
    if (!takesAll || isSingle) {
        extent.frames = script.lastFrame();
    } else if (inputs.motion() != Motion::kEnds) {
        throw UsageError(nameOf(options.input) +
                         (inputs.motion() == Motion::kStill ? " is a single image" : " has no end") +
                         "; set the length with --frames or --duration");
    }
    return extent;
}

Extent extentOf(const RenderOptions& options, const Script& script, const Inputs& inputs) {
    const Extent extent = knownExtent(options, script, inputs);
    if (extent.frames > 0 && options.every > extent.frames)
        throw UsageError(nothingWritten(options.every, extent.frames));
    return extent;
}

// For the progress bar; 0 if unknown.
int expectedFrames(const Extent& extent, const Inputs& inputs) {
    if (extent.frames > 0) return extent.frames;
    const bool ends = inputs.motion() == Motion::kEnds;
    const double seconds =
        ends ? std::min(extent.seconds, inputs.duration().value_or(extent.seconds)) : extent.seconds;
    const double frames = std::round(seconds * inputs.frameRate());
    return frames <= kMaxFrames ? std::max(1, static_cast<int>(frames)) : 0;
}

bool isWritten(const RenderOptions& options, int frame, bool isLast) {
    return options.every == 0 ? isLast : (frame + 1) % options.every == 0;
}

// Renders until all animations have ended. Nobody sees these frames, so one pixel of each is enough.
void settle(VRHANDLE handle, const ViewOptions& options, const GlContext& gl) {
    gl.setDrawnPart(1, 1);
    for (int frame = 0; frame < framesToSettle(options); ++frame) {
        setViews(handle, options);
        Fovix_Drawself(handle);
    }
    gl.setDrawnPart(gl.width(), gl.height());
}

Reporter::Amount amountOf(const RenderOptions& options) {
    return options.quiet     ? Reporter::Amount::kNothing
           : options.verbose ? Reporter::Amount::kAll
                             : Reporter::Amount::kNotices;
}

// Returns true if files or results of scripts are listed during rendering.
bool printsLines(const RenderOptions& options) {
    return options.output.kind == OutputKind::kImages || !options.script.empty();
}

void describe(Reporter& reporter, const GlContext& gl, const Inputs& inputs) {
    reporter.detail("rendering with " + gl.description());
    if (inputs.count() == 0) return;
    const auto& frame = inputs.firstFrame();
    reporter.detail("frames of " + sizeText(frame->width, frame->height) + " in format " +
                    std::to_string(frame->pixelFormat));
}

class RenderJob {
  public:
    RenderJob(const RenderOptions& options, OwnOutput& out, Reporter& reporter)
        : _options(options),
          _reporter(reporter),
          _script(options.script.empty() ? Script{} : readScript(options.script)),
          _gl(options.surface.width, options.surface.height),
          _inputs(options, mediaOptions(options.start.value_or(0))),
          _extent(extentOf(options, _script, _inputs)),
          _output(openOutput(options, _extent.frames, _inputs.frameRate(), out)),
          _view(creatorFor(options)),
          _player(_script, _view, out, mediaOptions(0)) {
        describe(reporter, _gl, _inputs);
        setUpView(_view.handle(), options, _inputs);
    }

    void run() {
        const int expected = expectedFrames(_extent, _inputs);
        int frames = 0, written = 0;
        for (bool isLast = false; !isLast && stopSignal() == 0;) {
            const double seconds = _inputs.seconds();
            render(frames++);
            isLast = !advance(frames);
            if (isWritten(_options, frames - 1, isLast)) {
                _output->write(_gl.readPixels(), frames - 1, seconds);
                ++written;
            }
            _reporter.progress(frames, expected);
        }
        _reporter.hideBar();
        _output->finish();
        if (stopSignal() != 0)
            reportStop(written);
        else if (written == 0)
            throw std::runtime_error(nothingWritten(_options.every, frames));
        _reporter.summary(frames);
    }

  private:
    MediaOptions mediaOptions(double start) {
        MediaOptions media;
        media.maxSide = _gl.maxTextureSize();
        media.start = start;
        // After a stop signal, interrupted inputs are not worth a notice.
        media.notify = [this](const std::string& text) {
            if (stopSignal() == 0) _reporter.notice(text);
        };
        media.interrupted = [] { return stopSignal() != 0; };
        return media;
    }

    void render(int frame) {
        const VRHANDLE handle = _view.handle();
        _inputs.submit(handle);
        if (frame == 0 && _extent.settled) settle(handle, _options.view, _gl);
        _player.playBefore(frame + 1);
        setViews(_view.handle(), _options.view);
        Fovix_Drawself(_view.handle());
    }

    // Reads the next frames; returns false after the last one to render.
    bool advance(int frames) {
        if (_extent.frames == 0) {
            return _inputs.advance(frames, 0) && _inputs.seconds() < _extent.seconds - kTimeRounding;
        }
        if (frames == _extent.frames) return false;
        _inputs.advance(frames, _extent.frames - frames);
        return true;
    }

    void reportStop(int written) {
        const std::string count = std::to_string(written) + (written == 1 ? " frame" : " frames");
        const bool isVideo = _options.output.kind == OutputKind::kVideo && written > 0;
        _reporter.notice(stopText() + "; " +
                         (isVideo ? "'" + _options.output.name + "' contains " + count : "wrote " + count));
    }

    const RenderOptions& _options;
    Reporter& _reporter;
    Script _script;
    GlContext _gl;
    Inputs _inputs;
    Extent _extent;
    std::unique_ptr<FrameOutput> _output;
    View _view;
    ScriptPlayer _player;
};

}  // namespace

void render(const RenderOptions& options, OwnOutput& out) {
    const bool breaksBar = printsLines(options) && out.isTerminal();
    Reporter reporter(amountOf(options), !breaksBar);
    RenderJob(options, out, reporter).run();
}

}  // namespace fovix_host
