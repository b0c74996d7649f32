#include "viewer/pointer/Gestures.h"

#include <algorithm>
#include <cmath>

namespace fovix_host {
namespace {

using Kind = PointerEvent::Kind;

constexpr double kWheelRest = 0.2;       // seconds; ends a zoom with the wheel
constexpr float kWheelPlace = 24;        // pixels; a cursor further away may be over a different screen
constexpr float kMinFling = 120;         // pixels per second
constexpr double kDoubleTapTime = 0.35;  // seconds
constexpr float kTapPlace = 32;          // pixels
constexpr float kFingersApart = 200;     // pixels between the two fingers that simulate the wheel
constexpr float kMinBand = 4;            // pixels; a smaller rectangle is a slip of the hand

float distance(SurfacePosition a, SurfacePosition b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// Flat types return from moderate zooms to the whole frame at the end of a gesture.
bool isFlat(int type) {
    return type != FOVIX_TYPE_360VR && type != FOVIX_TYPE_180VR && type != FOVIX_TYPE_SINGLE_PIP;
}

}  // namespace

float zoomOfNotch(int type) {
    // The 360-degree type treats a ratio above 1.2 as a flick. Flat types react more weakly to pinches.
    constexpr float kFlatNotch = 1.4f, kNotch = 1.15f;
    return isFlat(type) ? kFlatNotch : kNotch;
}

void Gestures::handle(const PointerEvent& event) {
    switch (event.kind) {
        case Kind::kPress:
            return press(event);
        case Kind::kMove:
            return drag(event);
        case Kind::kRelease:
            return release(event);
        case Kind::kCancel:
            return cancel(event);
        case Kind::kWheel:
            return zoomBy(event, std::pow(zoomOfNotch(_view.type()), static_cast<double>(event.amount)));
        case Kind::kZoom:
            return zoomBy(event, event.amount);
        case Kind::kFingerDown:
            return fingerDown(event);
        case Kind::kFingerMove:
            return fingerMove(event);
        case Kind::kFingerUp:
            return fingerUp(event);
    }
}

void Gestures::tick(double seconds) {
    if (_wheel && seconds - _wheel->lastNotch >= kWheelRest) endWheel();
}

void Gestures::forget() {
    _dragging = _pinched = false;
    _band.reset();
    _wheel.reset();
    _tap.reset();
    _fingers.clear();
}

// With a mouse, users zoom with the wheel and then drag. Keep that zoom, unless it is smaller than the whole
// frame.
void Gestures::settle() {
    if (!isFlat(_view.type()) || _pinched || _view.zoom() < 1) _view.autoAdjust();
}

// The mouse

void Gestures::press(const PointerEvent& event) {
    if (_wheel) endWheel();
    if (_dragging || !_fingers.empty()) return;
    if (event.shift)
        _band = Band{event.at, event.at};
    else if (event.clicks == 2)
        _view.lookAt(event.at);
    else
        startDrag(event);
}

void Gestures::startDrag(const PointerEvent& event) {
    _dragging = true;
    _downAt = event.at;
    _velocity.start(event.at, event.seconds);
    _view.touchDown(event.at);
}

void Gestures::drag(const PointerEvent& event) {
    if (_band) _band->to = event.at;
    if (!_dragging) return;
    _velocity.move(event.at, event.seconds);
    _view.touchMove(event.at);
}

void Gestures::endDrag(const PointerEvent& event, bool mayFling) {
    _dragging = false;
    _view.touchUp(event.at);
    const PixelsPerSecond speed = _velocity.at(event.seconds);
    const bool flings = mayFling && std::hypot(speed.x, speed.y) >= kMinFling;
    if (flings) _view.fling(speed.x, speed.y);
    // After a fling, a flat type keeps its zoom.
    if (!flings || !isFlat(_view.type())) settle();
}

void Gestures::release(const PointerEvent& event) {
    if (_dragging) endDrag(event, true);
    if (!_band) return;
    const Band band{_band->from, event.at};
    _band.reset();
    if (std::abs(band.to.x - band.from.x) < kMinBand || std::abs(band.to.y - band.from.y) < kMinBand) return;
    _view.showRectangle({std::min(band.from.x, band.to.x), std::min(band.from.y, band.to.y)},
                        {std::max(band.from.x, band.to.x), std::max(band.from.y, band.to.y)});
}

void Gestures::cancel(const PointerEvent& event) {
    if (_wheel) endWheel();
    if (_dragging) endDrag(event, false);
    forget();
}

// Wheel and trackpad: notches in quick succession form one pinch

void Gestures::zoomBy(const PointerEvent& event, double ratio) {
    if (_dragging || _band || !_fingers.empty() || !std::isfinite(ratio) || ratio <= 0 || ratio == 1) return;
    if (_wheel && distance(_wheel->at, event.at) > kWheelPlace) endWheel();
    if (!_wheel) {
        _wheel = Wheel{event.at, 1, event.seconds};
        _view.touchDown(event.at);
        showZoom();
    }
    _wheel->lastNotch = event.seconds;
    // Pass on several notches at once one by one.
    constexpr double kMaxRatio = 1e3;  // far beyond every limit of the views
    constexpr double kRounding = 1e-6;
    const double notch = zoomOfNotch(_view.type());
    for (double left = std::clamp(ratio, 1 / kMaxRatio, kMaxRatio); left != 1;) {
        const double part = std::clamp(left, 1 / notch, notch);
        left = std::abs(std::log(left / part)) < kRounding ? 1 : left / part;
        _wheel->scale = std::clamp(_wheel->scale * static_cast<float>(part),
                                   static_cast<float>(1 / kMaxRatio), static_cast<float>(kMaxRatio));
        showZoom();
    }
}

void Gestures::showZoom() {
    if (_view.type() != FOVIX_TYPE_SINGLE_PIP) {
        if (_wheel->scale != 1) _view.pinchScale(_wheel->scale);
        return;
    }
    const float half = kFingersApart / 2 * _wheel->scale;
    _view.pinch({_wheel->at.x - half, _wheel->at.y}, {_wheel->at.x + half, _wheel->at.y});
}

void Gestures::endWheel() {
    _view.touchUp(_wheel->at);
    _wheel.reset();
    settle();
}

// Fingers on a touch screen

bool Gestures::isSecondTap(const PointerEvent& event) const {
    return _tap && event.seconds - _tap->seconds < kDoubleTapTime && distance(_tap->at, event.at) < kTapPlace;
}

void Gestures::fingerDown(const PointerEvent& event) {
    if (_wheel) endWheel();
    if (_fingers.empty()) {
        _pinched = false;
        if (isSecondTap(event)) {
            _tap.reset();
            return _view.lookAt(event.at);
        }
        startDrag(event);
    }
    _fingers.push_back({event.finger, event.at});
    if (_fingers.size() != 2) return;
    _pinched = true;
    _view.pinch(_fingers[0].at, _fingers[1].at);
}

std::vector<Gestures::Finger>::iterator Gestures::fingerOf(const PointerEvent& event) {
    return std::find_if(_fingers.begin(), _fingers.end(),
                        [&](const Finger& known) { return known.id == event.finger; });
}

void Gestures::fingerMove(const PointerEvent& event) {
    const auto finger = fingerOf(event);
    if (finger == _fingers.end()) return;
    finger->at = event.at;
    if (_fingers.size() == 1)
        drag(event);
    else if (finger - _fingers.begin() < 2)
        _view.pinch(_fingers[0].at, _fingers[1].at);
}

void Gestures::fingerUp(const PointerEvent& event) {
    const auto finger = fingerOf(event);
    if (finger == _fingers.end()) return;
    const bool counted = finger - _fingers.begin() < 2;
    _fingers.erase(finger);
    if (!_fingers.empty()) {
        // The remaining fingers continue from their positions.
        if (counted) _view.touchUp(_fingers[0].at);
        if (counted && _fingers.size() > 1) _view.pinch(_fingers[0].at, _fingers[1].at);
        return;
    }
    const bool isTap = !_pinched && distance(_downAt, event.at) < kTapPlace;
    _tap = isTap ? std::optional(Tap{event.at, event.seconds}) : std::nullopt;
    if (_dragging) endDrag(event, !_pinched);
    _pinched = false;
}

}  // namespace fovix_host
