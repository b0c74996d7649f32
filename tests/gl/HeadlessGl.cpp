#include "HeadlessGl.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>
#include <utility>

#include "ApiCalls.h"
#include "ViewTable.h"
#include "surface/GlContext.h"

namespace fovix_test {

HeadlessGl::HeadlessGl(int width, int height)
    : _context(std::make_unique<fovix_host::GlContext>(width, height)) {}

HeadlessGl::~HeadlessGl() = default;

Image HeadlessGl::readPixels() const {
    Image image(_context->width(), _context->height());
    image.bytes = _context->readPixels().pixels;
    return image;
}

std::string printedBy(const std::function<void()>& call) {
    testing::internal::CaptureStdout();
    call();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

View::View(void (*create)(VRHANDLE*)) {
    printedBy([&] { create(&_handle); });
    if (!_handle) throw std::runtime_error("no handle was made");
}

void View::release() {
    if (_handle) Fovix_Release(std::exchange(_handle, nullptr));
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

void Stage::show(const Image& picture, int pixelFmt) {
    lines = printedBy([&] { submit(view, picture, pixelFmt); });
}

void Stage::show(int pixelFmt, const Bytes& bytes, int width, int height) {
    const int size = static_cast<int>(bytes.size());
    lines = printedBy([&] { Fovix_SetTexture(view, pixelFmt, bytes.data(), size, width, height); });
}

void Stage::play(const std::string& script) {
    const Verbs verbs = {{"draw", [&](const Numbers& count) {
                              for (int frame = 0; frame < count.at(0); ++frame) Fovix_Drawself(view);
                          }}};
    lines = printedBy([&] { fovix_test::play(view, script, verbs); });
}

}  // namespace fovix_test
