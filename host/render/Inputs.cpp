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
Inputs::Inputs(const RenderOptions& options, const MediaOptions& demands)
    : _options(options), _notify(demands.notify), _interrupted(demands.interrupted) {
    open(demands);
    for (std::size_t i = 0; i < _sources.size(); ++i) {
        _pictures.push_back(_sources[i]->next());
        if (!_pictures.back())
            throw std::runtime_error("'" + options.input.inputs.at(i) + "' contains no frame");
    }
    if (!_pictures.empty()) {
        _width = _pictures.front()->width;
        _height = _pictures.front()->height;
    }
    _lens = chooseLens();
    sayMisfit();
}

void Inputs::open(MediaOptions demands) {
    const ViewOptions& view = _options.view;
    // The lenses take RGBA only, and the grid shows either RGBA or YUV in all of its cells.
    demands.formats = view.takesSeveralInputs() ? PackedFormats::kRgba : PackedFormats::kAll;
    for (const std::string& input : _options.input.inputs) _sources.push_back(openMedia(input, demands));
    if (_options.start && motion() == Motion::kStill)
        throw UsageError("--start needs a video; " + quotedName(_options.input.inputs.front()) +
                         " is a single image");
    for (auto& sample : openSamples(_options.input, view)) _sources.push_back(std::move(sample));
}

std::optional<LensCircle> Inputs::chooseLens() const {
    const auto& [inputs, sample, samplesDiffer, given, camera] = _options.input;
    if (!camera.empty() || (!given && !inputs.empty() && _options.view.showsLensCircle())) {
        const LensChoice choice = askForLens();
        _notify(choice.message);
        return choice.lens;
    }
    if (given || _sources.empty()) return given;
    if (const auto lens = _sources.front()->lens(); lens && _options.view.type != FOVIX_TYPE_MULTI_IMAGE)
        return lens;
    return lensOfType(_options.view, count(), _width, _height);
}

void Inputs::sayMisfit() const {
    if (!_lens || _pictures.empty() || !_options.view.showsLensCircle()) return;
    if (const std::string misfit = misfitOf(*_lens, _width, _height); !misfit.empty()) _notify(misfit);
}

LensChoice Inputs::askForLens() const {
    const LensRequest request{_options.input.lens, _options.input.camera};
    if (const auto choice = lensWithoutSearch(request)) return *choice;
    // A stream or a device cannot be opened a second time, so that its first picture must do.
    const std::string& input = _options.input.inputs.front();
    std::error_code ignored;
    if (std::filesystem::is_regular_file(input, ignored))
        return lensAfterSearch(request, findLens(input, _interrupted));
    LensFinder finder;
    finder.add(lumaOf(*_pictures.front()));
    return lensAfterSearch(request, finder.result());
}

void Inputs::handIn(VRHANDLE view) const {
    for (int slot = 0; slot < count(); ++slot) {
        const auto& picture = _pictures[static_cast<std::size_t>(slot)];
        if (picture) setPicture(view, slot, *picture);
    }
}

void Inputs::setPicture(VRHANDLE view, int slot, const PackedFrame& picture) const {
    if (_options.view.takesSeveralInputs())
        Fovix_Multi_SetRGBTexture(view, slot, picture.data, picture.size, picture.width, picture.height);
    else
        Fovix_SetTexture(view, picture.pixelFormat, picture.data, picture.size, picture.width,
                         picture.height);
}

bool Inputs::advance(int framesDrawn, int framesLeft) {
    std::vector<std::size_t> ended;
    bool anyMoves = false;
    for (std::size_t i = 0; i < _sources.size(); ++i) {
        if (!_pictures[i]) continue;
        _pictures[i] = _sources[i]->next();
        if (_pictures[i]) anyMoves = true;
        // A still picture is meant to stay; a video that ends early is worth a word.
        if (!_pictures[i] && framesDrawn > 1) ended.push_back(i);
    }
    const std::size_t clock = leader();
    _seconds =
        clock < _sources.size() && _pictures[clock] ? _sources[clock]->seconds() : _seconds + 1 / frameRate();
    if (anyMoves || framesLeft > 0)
        for (const std::size_t slot : ended) sayEnded(slot, framesDrawn, framesLeft);
    return anyMoves || motion() == Motion::kStill;
}

void Inputs::sayEnded(std::size_t slot, int framesDrawn, int framesLeft) const {
    if (!_notify) return;
    const std::string rest = framesLeft > 0 ? " for the remaining " + std::to_string(framesLeft) : "";
    _notify(quotedName(_options.input.inputs[slot]) + " ends after " + std::to_string(framesDrawn) +
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
    return _sources.empty() ? 25 : _sources[leader()]->frameRate();
}

std::optional<double> Inputs::duration() const {
    return _sources.empty() ? std::nullopt : _sources[leader()]->duration();
}

}  // namespace fovix_host
