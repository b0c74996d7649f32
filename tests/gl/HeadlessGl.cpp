#include "HeadlessGl.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>
#include <utility>

namespace fovix_test {

namespace {

void require(bool works, const std::string& what) {
    if (works) return;
    throw std::runtime_error("no OpenGL for the tests: " + what +
                             "; install libegl1 and libgl1-mesa-dri (software rendering is enough)");
}

/// Opened once and left open: closing it would take every context of the process along.
EGLDisplay display() {
    static const EGLDisplay opened =
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    require(opened && eglInitialize(opened, nullptr, nullptr), "no display of EGL's surfaceless platform");
    return opened;
}

void destroySurface(EGLSurface surface) {
    eglDestroySurface(display(), surface);
}

void destroyContext(EGLContext context) {
    if (eglGetCurrentContext() == context)
        eglMakeCurrent(display(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(display(), context);
}

}  // namespace

HeadlessGl::HeadlessGl(int width, int height)
    : surface_(nullptr, destroySurface), context_(nullptr, destroyContext), width_(width), height_(height) {
    const EGLint wanted[][2] = {{EGL_SURFACE_TYPE, EGL_PBUFFER_BIT},
                                {EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT},
                                {EGL_BUFFER_SIZE, 32},
                                {EGL_ALPHA_SIZE, 8},
                                {EGL_DEPTH_SIZE, 24},
                                {EGL_NONE}};
    const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    require(eglBindAPI(EGL_OPENGL_API), "EGL offers no desktop GL");
    require(eglChooseConfig(display(), wanted[0], &config, 1, &count) && count, "no off-screen surfaces");
    surface_.reset(eglCreatePbufferSurface(display(), config, size));
    context_.reset(eglCreateContext(display(), config, EGL_NO_CONTEXT, nullptr));
    require(eglMakeCurrent(display(), surface_.get(), surface_.get(), context_.get()), "no context");
    // GLEW misses a GLX display under EGL; the entry points are loaded by then.
    const GLenum result = glewInit();
    require((result == GLEW_OK || result == GLEW_ERROR_NO_GLX_DISPLAY) && glCreateShader, "no OpenGL 2.0");
}

Image HeadlessGl::readPixels() const {
    Image upsideDown(width_, height_), image = upsideDown;
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, upsideDown.bytes.data());
    const std::ptrdiff_t row = std::ptrdiff_t{width_} * 4;
    for (auto from = upsideDown.bytes.begin(), to = image.bytes.end(); to != image.bytes.begin(); from += row)
        to = std::copy_backward(from, from + row, to);
    return image;
}

std::string printedBy(const std::function<void()>& call) {
    testing::internal::CaptureStdout();
    call();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

View::View(void (*create)(VRHANDLE*)) {
    printedBy([&] { create(&handle_); });
    if (!handle_) throw std::runtime_error("no handle was made");
}

void View::release() {
    if (handle_) Fovix_Release(std::exchange(handle_, nullptr));
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
    show(FOVIX_FORMAT_RGBA, picture.bytes, picture.width, picture.height);
}

void Stage::show(int pixelFmt, const std::vector<std::uint8_t>& bytes, int width, int height) {
    const int size = static_cast<int>(bytes.size());
    lines = printedBy([&] { Fovix_SetTexture(view, pixelFmt, bytes.data(), size, width, height); });
}

void Stage::show(int slot, const Image& picture) {
    lines = printedBy([&] {
        Fovix_Multi_SetRGBTexture(view, slot, picture.bytes.data(), picture.size(), picture.width,
                                  picture.height);
    });
}

}  // namespace fovix_test
