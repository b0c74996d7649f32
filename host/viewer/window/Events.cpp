#include "viewer/window/Events.h"

namespace fovix_host {
namespace {

using Kind = PointerEvent::Kind;

constexpr double kTicksPerSecond = 1000;  // of SDL's timestamps

SurfacePosition positionOf(const SurfaceScale& scale, double x, double y) {
    return {static_cast<float>(x * scale.xPointer), static_cast<float>(y * scale.yPointer)};
}

// Indirect touch devices (trackpads) are not touch screens.
bool isTouchScreen(SDL_TouchID device) {
    return SDL_GetTouchDeviceType(device) == SDL_TOUCH_DEVICE_DIRECT;
}

std::optional<ViewerEvent> readWindow(const SDL_WindowEvent& event, SurfacePosition cursor) {
    switch (event.event) {
        case SDL_WINDOWEVENT_FOCUS_LOST:
            return PointerEvent{
                .kind = Kind::kCancel, .at = cursor, .seconds = event.timestamp / kTicksPerSecond};
        case SDL_WINDOWEVENT_SIZE_CHANGED:
        case SDL_WINDOWEVENT_DISPLAY_CHANGED:
        case SDL_WINDOWEVENT_EXPOSED:
        case SDL_WINDOWEVENT_SHOWN:
        case SDL_WINDOWEVENT_RESTORED:
            return WindowEvent::kExposed;
        default:
            return std::nullopt;
    }
}

std::optional<ViewerEvent> readDrop(const SDL_DropEvent& event) {
    if (!event.file) return std::nullopt;
    DropEvent drop{event.file};
    SDL_free(event.file);
    return drop;
}

std::optional<ViewerEvent> readSensor(const SDL_SensorEvent& event) {
    SDL_Sensor* sensor = SDL_SensorFromInstanceID(event.which);
    if (!sensor || SDL_SensorGetType(sensor) != SDL_SENSOR_ACCEL) return std::nullopt;
    return SensorEvent{event.data[0], event.data[1]};
}

}  // namespace

double secondsNow() {
    return static_cast<double>(SDL_GetTicks64()) / kTicksPerSecond;
}

std::optional<ViewerEvent> EventReader::read(const SDL_Event& event, const SurfaceScale& scale) {
    switch (event.type) {
        case SDL_QUIT:
            return WindowEvent::kQuit;
        case SDL_USEREVENT:
            return WindowEvent::kWoken;
        case SDL_WINDOWEVENT:
            return readWindow(event.window, _cursor);
        case SDL_DROPFILE:
            return readDrop(event.drop);
        case SDL_SENSORUPDATE:
            return readSensor(event.sensor);
        case SDL_KEYDOWN:
        case SDL_TEXTINPUT:
            return readKey(event);
        case SDL_FINGERDOWN:
        case SDL_FINGERMOTION:
        case SDL_FINGERUP:
        case SDL_MULTIGESTURE:
            return readTouch(event, scale);
        default:
            return readMouse(event, scale);
    }
}

std::optional<ViewerEvent> EventReader::readMouse(const SDL_Event& event, const SurfaceScale& scale) {
    PointerEvent pointer;
    pointer.seconds = event.common.timestamp / kTicksPerSecond;
    switch (event.type) {
        case SDL_MOUSEMOTION:
            if (event.motion.which == SDL_TOUCH_MOUSEID) return std::nullopt;
            pointer.kind = Kind::kMove;
            _cursor = positionOf(scale, event.motion.x, event.motion.y);
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            if (event.button.which == SDL_TOUCH_MOUSEID || event.button.button != SDL_BUTTON_LEFT)
                return std::nullopt;
            pointer.kind = event.type == SDL_MOUSEBUTTONDOWN ? Kind::kPress : Kind::kRelease;
            pointer.clicks = event.button.clicks;
            pointer.shift = (SDL_GetModState() & KMOD_SHIFT) != 0;
            _cursor = positionOf(scale, event.button.x, event.button.y);
            break;
        case SDL_MOUSEWHEEL:
            if (event.wheel.which == SDL_TOUCH_MOUSEID) return std::nullopt;
            pointer.kind = Kind::kWheel;
            pointer.amount = event.wheel.preciseY;
            if (event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED) pointer.amount = -pointer.amount;
            break;
        default:
            return std::nullopt;
    }
    pointer.at = _cursor;
    return pointer;
}

std::optional<ViewerEvent> EventReader::readTouch(const SDL_Event& event, const SurfaceScale& scale) {
    PointerEvent pointer;
    pointer.seconds = event.common.timestamp / kTicksPerSecond;
    if (event.type == SDL_MULTIGESTURE) {
        if (isTouchScreen(event.mgesture.touchId))
            return std::nullopt;                // its fingers are reported one by one
        constexpr float kRatioPerDistance = 4;  // fingers rarely spread over more than half of a trackpad
        pointer.kind = Kind::kZoom;
        pointer.amount = 1 + kRatioPerDistance * event.mgesture.dDist;
        pointer.at = _cursor;
        return pointer;
    }
    if (!isTouchScreen(event.tfinger.touchId)) return std::nullopt;
    pointer.kind = event.type == SDL_FINGERDOWN ? Kind::kFingerDown
                   : event.type == SDL_FINGERUP ? Kind::kFingerUp
                                                : Kind::kFingerMove;
    pointer.finger = event.tfinger.fingerId;
    pointer.at = {event.tfinger.x * static_cast<float>(scale.width),
                  event.tfinger.y * static_cast<float>(scale.height)};
    return pointer;
}

// Characters are read as text, so that all keyboard layouts work; other keys are read by name.
std::optional<ViewerEvent> EventReader::readKey(const SDL_Event& event) {
    if (event.type == SDL_TEXTINPUT) {
        const std::string text = event.text.text;
        if (text == " ") return std::nullopt;  // already reported as the key Space
        return KeyEvent{text, _repeats};
    }
    _repeats = event.key.repeat != 0;
    const std::string name = SDL_GetKeyName(event.key.keysym.sym);
    if (name.size() <= 1) return std::nullopt;
    return KeyEvent{name, _repeats};
}

}  // namespace fovix_host
