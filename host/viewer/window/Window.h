// The window: SDL, its OpenGL context of the compatibility profile, and how large the surface is.
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
    // The context is current on the calling thread afterwards. Throws std::runtime_error with a sentence that
    // says what is missing.
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
    // What has been drawn since the last present(), first row at the top.
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

// Ends the wait for events in another thread; any thread may call it while a window lives.
void wakeEventLoop();

}  // namespace fovix_host
