#include "render/Inputs.h"

#include <Fovix.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "media/FrameLuma.h"
#include "media/InputName.h"
#include "media/LensInMedia.h"
#include "setup/SampleInputs.h"
#include "setup/ViewLayout.h"

namespace fovix_host {

Inputs::Inputs(const RenderOptions& options, const MediaOptions& media)
    : _options(options), _notify(media.notify), _interrupted(media.interrupted) {
    open(media);
    for (std::size_t i = 0; i < _sources.size(); ++i) {
        _frames.push_back(_sources[i]->next());
        if (!_frames.back())
            throw std::runtime_error("'" + options.input.inputs.at(i) + "' contains no frame");
    }
    if (!_frames.empty()) {
        _width = _frames.front()->width;
        _height = _frames.front()->height;
    }
    _lens = chooseLens();
    warnOfMisfit();
}

void Inputs::open(MediaOptions media) {
    const ViewOptions& view = _options.view;
    // Type lenses accepts only RGBA, and all cells of the grid must have the same format.
    media.formats = view.takesSeveralInputs() ? PackedFormats::kRgba : PackedFormats::kAll;
    for (const std::string& input : _options.input.inputs) _sources.push_back(openMedia(input, media));
    if (_options.start && motion() == Motion::kStill)
        throw UsageError("--start needs a video; " + quotedName(_options.input.inputs.front()) +
                         " is a single image");
    for (auto& sample : openSamples(_options.input, view)) _sources.push_back(std::move(sample));
}

std::optional<LensCircle> Inputs::chooseLens() const {
    const auto& [inputs, sample, samplesDiffer, given, camera] = _options.input;
    if (!camera.empty() || (!given && !inputs.empty() && _options.view.showsLensCircle())) {
        const LensChoice choice = searchLens();
        _notify(choice.message);
        return choice.lens;
    }
    if (given || _sources.empty()) return given;
    if (const auto lens = _sources.front()->lens(); lens && _options.view.type != FOVIX_TYPE_MULTI_IMAGE)
        return lens;
    return lensOfType(_options.view, count(), _width, _height);
}

void Inputs::warnOfMisfit() const {
    if (!_lens || _frames.empty() || !_options.view.showsLensCircle()) return;
    if (const std::string misfit = misfitOf(*_lens, _width, _height); !misfit.empty()) _notify(misfit);
}

LensChoice Inputs::searchLens() const {
    const LensRequest request{_options.input.lens, _options.input.camera};
    if (const auto choice = lensWithoutSearch(request)) return *choice;
    // A stream or device cannot be opened a second time: search only its first frame.
    const std::string& input = _options.input.inputs.front();
    std::error_code ignored;
    if (std::filesystem::is_regular_file(input, ignored))
        return lensAfterSearch(request, findLens(input, _interrupted));
    LensFinder finder;
    finder.add(lumaOf(*_frames.front()));
    return lensAfterSearch(request, finder.result());
}

void Inputs::submit(VRHANDLE view) const {
    for (int slot = 0; slot < count(); ++slot) {
        const auto& frame = _frames[static_cast<std::size_t>(slot)];
        if (frame) submitFrame(view, slot, *frame);
    }
}

void Inputs::submitFrame(VRHANDLE view, int slot, const PackedFrame& frame) const {
    if (_options.view.takesSeveralInputs())
        Fovix_Multi_SetRGBTexture(view, slot, frame.data, frame.size, frame.width, frame.height);
    else
        Fovix_SetTexture(view, frame.pixelFormat, frame.data, frame.size, frame.width, frame.height);
}

bool Inputs::advance(int framesRendered, int framesLeft) {
    std::vector<std::size_t> ended;
    bool anyMoves = false;
    for (std::size_t i = 0; i < _sources.size(); ++i) {
        if (!_frames[i]) continue;
        _frames[i] = _sources[i]->next();
        if (_frames[i]) anyMoves = true;
        // Warn about videos that end early; stills simply stay.
        if (!_frames[i] && framesRendered > 1) ended.push_back(i);
    }
    const std::size_t clock = leader();
    _seconds =
        clock < _sources.size() && _frames[clock] ? _sources[clock]->seconds() : _seconds + 1 / frameRate();
    if (anyMoves || framesLeft > 0)
        for (const std::size_t slot : ended) warnOfEnd(slot, framesRendered, framesLeft);
    return anyMoves || motion() == Motion::kStill;
}

void Inputs::warnOfEnd(std::size_t slot, int framesRendered, int framesLeft) const {
    if (!_notify) return;
    const std::string rest = framesLeft > 0 ? " for the remaining " + std::to_string(framesLeft) : "";
    _notify(quotedName(_options.input.inputs[slot]) + " ends after " + std::to_string(framesRendered) +
            " frames; its last frame is repeated" + rest);
}

Motion Inputs::motion() const {
    Motion motion = Motion::kStill;
    for (const auto& source : _sources) motion = std::max(motion, source->motion());
    return motion;
}

// The first source that moves, else the first of all.
std::size_t Inputs::leader() const {
    const auto moves = [](const auto& source) { return source->motion() != Motion::kStill; };
    const auto found = std::find_if(_sources.begin(), _sources.end(), moves);
    return found == _sources.end() ? 0 : static_cast<std::size_t>(found - _sources.begin());
}

double Inputs::frameRate() const {
    return _sources.empty() ? kDefaultFrameRate : _sources[leader()]->frameRate();
}

std::optional<double> Inputs::duration() const {
    return _sources.empty() ? std::nullopt : _sources[leader()]->duration();
}

}  // namespace fovix_host
