#include "viewer/window/Window.h"

#include <SDL_opengl.h>

#include <cstdlib>
#include <stdexcept>

#include "surface/SurfacePixels.h"

namespace fovix_host {
namespace {

[[noreturn]] void fail(const std::string& what, const std::string& hint) {
    throw std::runtime_error(what + " (" + SDL_GetError() + "); " + hint);
}

Uint32 fullScreenFlag(bool fullScreen) {
    return fullScreen ? static_cast<Uint32>(SDL_WINDOW_FULLSCREEN_DESKTOP) : 0;
}

void askForContext() {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 2);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 1);
    for (const SDL_GLattr colour : {SDL_GL_RED_SIZE, SDL_GL_GREEN_SIZE, SDL_GL_BLUE_SIZE})
        SDL_GL_SetAttribute(colour, 8);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
}

// Otherwise SDL tries drivers that are invisible or print their own errors.
void chooseDriver() {
#ifdef __linux__
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value && *value != 0;
    };
    if (!isSet("SDL_VIDEODRIVER"))
        SDL_SetHint(SDL_HINT_VIDEODRIVER, isSet("WAYLAND_DISPLAY") ? "x11,wayland" : "x11");
#endif
}

}  // namespace

Window::Library::Library() {
    chooseDriver();
    SDL_SetHint(SDL_HINT_APP_NAME, "fovix-view");
    // Disable SDL's touch/mouse emulation in both directions.
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
    // A click that raises the window also steers the view.
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
        fail("no window: no display is available",
             "start an X server or a Wayland compositor and set DISPLAY or WAYLAND_DISPLAY; fovix-render "
             "needs "
             "neither");
}

Window::Library::~Library() {
    SDL_Quit();
}

Window::Window(const std::string& title, SurfaceSize size, bool fullScreen) {
    askForContext();
    const Uint32 flags =
        SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI | fullScreenFlag(fullScreen);
    const int middle = static_cast<int>(SDL_WINDOWPOS_CENTERED);
    _window.reset(SDL_CreateWindow(title.c_str(), middle, middle, size.width, size.height, flags));
    constexpr const char* kDriverHint =
        "install a GL driver (on Debian the packages libgl1-mesa-dri and libglx-mesa0; software rendering is "
        "enough)";
    if (!_window) fail("no window: OpenGL is not available", kDriverHint);
    _context = SDL_GL_CreateContext(_window.get());
    if (!_context) fail("no OpenGL 2.1 context of the compatibility profile", kDriverHint);
    SDL_GL_SetSwapInterval(1);
}

Window::~Window() {
    if (_context) SDL_GL_DeleteContext(_context);
}

SurfaceScale Window::scale() const {
    int width = 0, height = 0, pixelWidth = 0, pixelHeight = 0;
    SDL_GetWindowSize(_window.get(), &width, &height);
    SDL_GL_GetDrawableSize(_window.get(), &pixelWidth, &pixelHeight);
    return scaleOf(width, height, pixelWidth, pixelHeight);
}

int Window::maxTextureSize() const {
    GLint size = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &size);
    return size;
}

bool Window::isVisible() const {
    return (SDL_GetWindowFlags(_window.get()) & (SDL_WINDOW_HIDDEN | SDL_WINDOW_MINIMIZED)) == 0;
}

bool Window::isFullScreen() const {
    return (SDL_GetWindowFlags(_window.get()) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
}

void Window::setFullScreen(bool fullScreen) {
    SDL_SetWindowFullscreen(_window.get(), fullScreenFlag(fullScreen));
    SDL_ShowCursor(SDL_ENABLE);
}

void Window::setTitle(const std::string& title) {
    SDL_SetWindowTitle(_window.get(), title.c_str());
}

void Window::present() {
    SDL_GL_SwapWindow(_window.get());
}

RgbaImage Window::readPixels() const {
    const SurfaceScale size = scale();
    return readSurface(size.pixelWidth(), size.pixelHeight());
}

void wakeEventLoop() {
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    SDL_PushEvent(&event);
}

}  // namespace fovix_host
