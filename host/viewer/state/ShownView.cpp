#include "viewer/state/ShownView.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <utility>

#include "circle/LensChoice.h"
#include "options/ViewTypes.h"
#include "setup/ViewLayout.h"
#include "viewer/state/ViewChoices.h"

namespace fovix_host {
namespace {

constexpr std::array<unsigned int, 5> kBackgrounds{0x000000, 0x202830, 0x606468, 0xFFFFFF, 0x103050};

constexpr double kCruiseStep = 0.5, kMaxCruise = 5;
// Type pip cruises by offsets of about one, the other types by degrees.
constexpr double kInsetCruise = 0.02;

}  // namespace

ShownView::ShownView(VRHANDLE handle, const ViewerOptions& options, const std::unique_ptr<Playback>& playback)
    : _handle(handle),
      _options(options),
      _playback(playback),
      _view(options.view),
      _background(options.background) {}

void ShownView::setType(int type) const {
    // Set a different type first, so that the view is reset even if the type stays the same. The library also
    // rejects type korvel directly after a panorama.
    Fovix_SetType(_handle, type == FOVIX_TYPE_ORIGINAL ? FOVIX_TYPE_SINGLE_PIP : FOVIX_TYPE_ORIGINAL);
    Fovix_SetType(_handle, type);
}

void ShownView::apply() {
    _cruising = false;
    // No player may submit a frame for the old type before this is complete.
    const FrameRelay::Hold hold(_playback->frames());
    setType(_view.type);
    Fovix_SetBackground(_handle, _background);
    setLayout(_handle, _view, inputs());
}

void ShownView::applyLens() {
    if (const auto circle = lens())
        setLensCircle(_handle, *circle);
    else
        Fovix_SetFecParams(_handle, 0, 0, 0, 0, 0);
}

void ShownView::setLens(const std::optional<LensCircle>& lens) {
    _lens = lens;
    applyLens();
}

std::string ShownView::misfit() const {
    const FrameRelay::Size size = _playback->frames().size();
    if (!_lens || size.width < 1 || !showsWholeFrame()) return {};
    return misfitOf(*_lens, size.width, size.height);
}

bool ShownView::showsWholeFrame() const {
    return _view.type != FOVIX_TYPE_TWO_LENSES && _view.type != FOVIX_TYPE_MULTI_IMAGE;
}

std::optional<LensCircle> ShownView::lens() const {
    // The sample with two lenses fits only this type.
    const bool isStacked = _options.view.type == FOVIX_TYPE_TWO_LENSES;
    const bool fits =
        isStacked == (_view.type == FOVIX_TYPE_TWO_LENSES) && _view.type != FOVIX_TYPE_MULTI_IMAGE;
    if (fits && _playback->lensOfSample()) return _playback->lensOfSample();
    if (_lens && (showsWholeFrame() || _options.input.lens)) return _lens;
    const FrameRelay::Size size = _playback->frames().size();
    return lensOfType(_view, inputs(), size.width, size.height);
}

ViewOptions ShownView::options() const {
    ViewOptions view = _view;
    if (view.type == FOVIX_TYPE_360VR) view.mount = Fovix_GetCameraMount(_handle);
    if (view.type == FOVIX_TYPE_360VR || view.type == FOVIX_TYPE_180VR) view.shape = Fovix_GetShape(_handle);
    const int screen = Fovix_GetTwoLensesScreen(_handle);
    if (screen != FOVIX_TWO_LENSES_SCREEN_NONE) view.twoLensesScreen = screen;
    return view;
}

bool ShownView::change(const ViewOptions& wanted) {
    const ViewOptions before = options();
    if (describe(wanted, inputs()) == describe(before, inputs())) return false;
    _view = wanted;
    // Layouts blend into each other, unless a cruise is still moving to its path.
    const bool mustReset = wanted.type != before.type || wanted.mount != before.mount || _cruising;
    stopCruise();
    if (mustReset)
        reset();
    else
        setLayout(_handle, wanted, inputs());
    return true;
}

void ShownView::reset() {
    apply();
    applyLens();
}

void ShownView::startCruise() const {
    Fovix_StartAutoCruise(_handle, _cruiseSpeed * (_view.type == FOVIX_TYPE_SINGLE_PIP ? kInsetCruise : 1));
}

bool ShownView::toggleCruise() {
    if (_cruising) {
        stopCruise();
        return true;
    }
    if (!canCruise(options())) return false;
    _cruising = true;
    startCruise();
    return true;
}

void ShownView::stopCruise() {
    if (std::exchange(_cruising, false)) Fovix_StopAutoCruise(_handle);
}

// Skips 0: the speed changes its sign instead.
void ShownView::changeCruiseSpeed(int steps) {
    _cruiseSpeed = std::clamp(_cruiseSpeed + steps * kCruiseStep, -kMaxCruise, kMaxCruise);
    if (_cruiseSpeed == 0) _cruiseSpeed = steps * kCruiseStep;
    if (_cruising) startCruise();
}

void ShownView::nextBackground() {
    const auto* at = std::find(kBackgrounds.begin(), kBackgrounds.end(), _background);
    _background = at == kBackgrounds.end() || std::next(at) == kBackgrounds.end() ? kBackgrounds.front()
                                                                                  : *std::next(at);
    Fovix_SetBackground(_handle, _background);
}

std::string ShownView::description() const {
    return describe(options(), inputs());
}

std::string ShownView::cruiseDescription() const {
    char text[64];
    std::snprintf(text, sizeof text, "cruise %s, speed %.1f", _cruising ? "on" : "off", _cruiseSpeed);
    return text;
}

}  // namespace fovix_host
