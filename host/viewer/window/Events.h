// Translates SDL events for the viewer: pointers in surface pixels, keys by name, dropped files.
#pragma once

#include <SDL.h>

#include <optional>
#include <string>
#include <variant>

#include "viewer/window/PointerEvent.h"
#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

struct KeyEvent {
    std::string name;  // the typed character, or SDL's name of a key that types none
    bool repeated = false;
};
struct DropEvent {
    std::string file;
};
struct SensorEvent {
    float x = 0, y = 0;  // metres per second squared
};
enum class WindowEvent { kQuit, kExposed, kWoken };

using ViewerEvent = std::variant<PointerEvent, KeyEvent, DropEvent, SensorEvent, WindowEvent>;

// Keeps the state that connects events, such as the cursor position.
class EventReader {
  public:
    std::optional<ViewerEvent> read(const SDL_Event& event, const SurfaceScale& scale);

  private:
    std::optional<ViewerEvent> readMouse(const SDL_Event& event, const SurfaceScale& scale);
    std::optional<ViewerEvent> readTouch(const SDL_Event& event, const SurfaceScale& scale);
    std::optional<ViewerEvent> readKey(const SDL_Event& event);

    SurfacePosition _cursor;
    bool _repeats = false;  // of the key whose text event comes next
};

double secondsNow();

}  // namespace fovix_host
