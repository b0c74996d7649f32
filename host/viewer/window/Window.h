// The window: SDL, an OpenGL context (compatibility profile), and the size of the surface.
#pragma once

#include <SDL.h>

#include <memory>
#include <string>

#include "cli/OptionValues.h"
#include "image/RgbaImage.h"
#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

class Window {
  public:
    // Makes the context current on the calling thread. Throws std::runtime_error with a message that names
    // what is missing.
    Window(const std::string& title, SurfaceSize size, bool fullScreen);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    SurfaceScale scale() const;
    int maxTextureSize() const;
    bool isVisible() const;  // neither hidden nor minimised
    bool isFullScreen() const;
    void setFullScreen(bool fullScreen);
    void setTitle(const std::string& title);

    void present();
    // The current content of the back buffer, top row first.
    RgbaImage readPixels() const;

  private:
    struct Library {
        Library();
        ~Library();
    };
    struct WindowCloser {
        void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
    };
    Library _library;
    std::unique_ptr<SDL_Window, WindowCloser> _window;
    SDL_GLContext _context = nullptr;
};

// Wakes the thread that waits for events; can be called from any thread while a window exists.
void wakeEventLoop();

}  // namespace fovix_host
