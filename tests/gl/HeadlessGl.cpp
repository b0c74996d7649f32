#include "HeadlessGl.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>
#include <vector>

namespace fovix_test {

namespace {

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error("no OpenGL for the tests: " + what +
                             "; install libegl1 and libgl1-mesa-dri (software rendering is enough)");
}

/// Opened once and left open: closing it would take every context of the process along.
EGLDisplay openDisplay() {
    static const EGLDisplay display =
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (display == EGL_NO_DISPLAY) fail("EGL knows no surfaceless Mesa platform");
    if (!eglInitialize(display, nullptr, nullptr)) fail("the EGL display cannot be initialised");
    return display;
}

EGLConfig chooseConfig(EGLDisplay display) {
    const EGLint wanted[] = {EGL_SURFACE_TYPE,
                             EGL_PBUFFER_BIT,
                             EGL_RENDERABLE_TYPE,
                             EGL_OPENGL_BIT,
                             EGL_RED_SIZE,
                             8,
                             EGL_GREEN_SIZE,
                             8,
                             EGL_BLUE_SIZE,
                             8,
                             EGL_ALPHA_SIZE,
                             8,
                             EGL_DEPTH_SIZE,
                             24,
                             EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (!eglChooseConfig(display, wanted, &config, 1, &count) || count < 1) fail("no off-screen surfaces");
    return config;
}

}  // namespace

struct HeadlessGl::Handles {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLSurface surface = EGL_NO_SURFACE;
    EGLContext context = EGL_NO_CONTEXT;

    ~Handles() {
        if (eglGetCurrentContext() == context)
            eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if (context != EGL_NO_CONTEXT) eglDestroyContext(display, context);
        if (surface != EGL_NO_SURFACE) eglDestroySurface(display, surface);
    }
};

HeadlessGl::HeadlessGl(int width, int height)
    : egl_(std::make_unique<Handles>()), width_(width), height_(height) {
    if (!eglBindAPI(EGL_OPENGL_API)) fail("EGL offers no desktop GL");
    egl_->display = openDisplay();
    const EGLConfig config = chooseConfig(egl_->display);
    const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    egl_->surface = eglCreatePbufferSurface(egl_->display, config, size);
    if (egl_->surface == EGL_NO_SURFACE) fail("no off-screen surface of this size");
    egl_->context = eglCreateContext(egl_->display, config, EGL_NO_CONTEXT, nullptr);
    if (egl_->context == EGL_NO_CONTEXT) fail("no context of the compatibility profile");
    makeCurrent();
    // GLEW misses a GLX display under EGL; the entry points are loaded by then.
    const GLenum result = glewInit();
    if ((result != GLEW_OK && result != GLEW_ERROR_NO_GLX_DISPLAY) || !glCreateShader) fail("no OpenGL 2.0");
}

HeadlessGl::~HeadlessGl() = default;

void HeadlessGl::makeCurrent() const {
    eglBindAPI(EGL_OPENGL_API);  // a setting of each thread
    if (!eglMakeCurrent(egl_->display, egl_->surface, egl_->surface, egl_->context))
        fail("the context cannot be made current");
}

void HeadlessGl::releaseCurrent() const {
    eglMakeCurrent(egl_->display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

Image HeadlessGl::readPixels() const {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
    // GL's first row is the lowest one.
    Image image;
    image.width = width_;
    image.height = height_;
    const std::ptrdiff_t row = std::ptrdiff_t{width_} * 4;
    for (auto end = bytes.end(); end != bytes.begin(); end -= row)
        image.bytes.insert(image.bytes.end(), end - row, end);
    return image;
}

std::string printedBy(const std::function<void()>& call) {
    testing::internal::CaptureStdout();
    try {
        call();
    } catch (...) {
        testing::internal::GetCapturedStdout();
        throw;
    }
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

View::View(void (*create)(VRHANDLE*)) {
    printedBy([&] { create(&handle_); });
    if (!handle_) throw std::runtime_error("no handle was made");
}

View::~View() {
    release();
}

void View::release() {
    if (!handle_) return;
    Fovix_Release(handle_);
    handle_ = nullptr;
}

Stage::Stage(int type, int width, int height, void (*create)(VRHANDLE*)) : gl(width, height), view(create) {
    lines = printedBy([&] {
        Fovix_Prepare(view);
        Fovix_Init(view, width, height);
        Fovix_SetType(view, type);
    });
}

Image Stage::draw() {
    lines = printedBy([&] { Fovix_Drawself(view); });
    return gl.readPixels();
}

void Stage::show(const Image& picture) {
    lines = printedBy([&] {
        Fovix_SetRGBTexture(view, picture.bytes.data(), picture.size(), picture.width, picture.height);
    });
}

}  // namespace fovix_test
