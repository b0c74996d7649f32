#include "surface/GlContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "surface/SurfacePixels.h"

namespace fovix_host {

struct GlContext::Handles {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLSurface surface = EGL_NO_SURFACE;
    EGLContext context = EGL_NO_CONTEXT;

    ~Handles() {
        if (display == EGL_NO_DISPLAY) return;
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if (context != EGL_NO_CONTEXT) eglDestroyContext(display, context);
        if (surface != EGL_NO_SURFACE) eglDestroySurface(display, surface);
        // The display stays open: closing it would destroy all other contexts of the process.
    }
};

namespace {

constexpr const char* kInstallHint =
    "; install a GL driver (on Debian the packages libegl1 and libgl1-mesa-dri; software rendering is "
    "enough)";

bool hasSurfacelessPlatform() {
    const char* names = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    return names && std::string_view(names).find("EGL_MESA_platform_surfaceless") != std::string_view::npos;
}

EGLDisplay initialised(EGLDisplay display) {
    const bool works = display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr);
    return works ? display : EGL_NO_DISPLAY;
}

EGLDisplay openDisplay() {
    // Errors are reported by our caller; silence the driver.
    setenv("EGL_LOG_LEVEL", "fatal", 0);
    EGLDisplay display = EGL_NO_DISPLAY;
    if (hasSurfacelessPlatform())
        display =
            initialised(eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr));
    if (display == EGL_NO_DISPLAY) display = initialised(eglGetDisplay(EGL_DEFAULT_DISPLAY));
    if (display == EGL_NO_DISPLAY)
        throw std::runtime_error(std::string("no OpenGL: EGL finds no display") + kInstallHint);
    return display;
}

EGLConfig chooseConfig(EGLDisplay display) {
    constexpr EGLint kAttributes[] = {EGL_SURFACE_TYPE,
                                      EGL_PBUFFER_BIT,
                                      EGL_RENDERABLE_TYPE,
                                      EGL_OPENGL_BIT,
                                      EGL_RED_SIZE,
                                      8,
                                      EGL_GREEN_SIZE,
                                      8,
                                      EGL_BLUE_SIZE,
                                      8,
                                      EGL_DEPTH_SIZE,
                                      24,
                                      EGL_NONE};
    EGLConfig config = nullptr;
    EGLint found = 0;
    if (!eglBindAPI(EGL_OPENGL_API) || !eglChooseConfig(display, kAttributes, &config, 1, &found) ||
        found < 1)
        throw std::runtime_error(
            std::string("no OpenGL: the driver has no off-screen surfaces with 8 bits per colour") +
            kInstallHint);
    return config;
}

[[noreturn]] void failSize(int width, int height, int maxWidth, int maxHeight) {
    throw std::runtime_error("cannot create a " + sizeText(width, height) +
                             " surface; the maximum of this OpenGL is " + sizeText(maxWidth, maxHeight));
}

EGLSurface makeSurface(EGLDisplay display, EGLConfig config, int width, int height) {
    EGLint maxWidth = 0;
    EGLint maxHeight = 0;
    eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_WIDTH, &maxWidth);
    eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_HEIGHT, &maxHeight);
    if (width > maxWidth || height > maxHeight) failSize(width, height, maxWidth, maxHeight);
    const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    const EGLSurface surface = eglCreatePbufferSurface(display, config, size);
    if (surface == EGL_NO_SURFACE)
        throw std::runtime_error("cannot create a " + sizeText(width, height) +
                                 " surface; try a smaller one");
    return surface;
}

}  // namespace

GlContext::GlContext(int width, int height)
    : _egl(std::make_unique<Handles>()), _width(width), _height(height) {
    _egl->display = openDisplay();
    const EGLConfig config = chooseConfig(_egl->display);
    _egl->surface = makeSurface(_egl->display, config, width, height);
    // Without attributes, drivers create the newest compatibility profile.
    _egl->context = eglCreateContext(_egl->display, config, EGL_NO_CONTEXT, nullptr);
    if (_egl->context == EGL_NO_CONTEXT ||
        !eglMakeCurrent(_egl->display, _egl->surface, _egl->surface, _egl->context))
        throw std::runtime_error(std::string("no OpenGL: the driver has no desktop GL context") +
                                 kInstallHint);
    GLint maxSize[2] = {0, 0};
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, maxSize);
    if (width > maxSize[0] || height > maxSize[1]) failSize(width, height, maxSize[0], maxSize[1]);
}

GlContext::~GlContext() = default;

RgbaImage GlContext::readPixels() const {
    return readSurface(_width, _height);
}

void GlContext::setDrawnPart(int width, int height) const {
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, width, height);
}

int GlContext::maxTextureSize() const {
    GLint size = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &size);
    return size;
}

std::string GlContext::description() const {
    const auto text = [](GLenum name) {
        const GLubyte* words = glGetString(name);
        return words ? std::string(reinterpret_cast<const char*>(words)) : std::string("unknown");
    };
    return text(GL_RENDERER) + ", OpenGL " + text(GL_VERSION);
}

}  // namespace fovix_host
