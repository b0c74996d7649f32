// A GL context without a window for tests: EGL on Mesa's surfaceless platform with an off-screen surface.
// Where GL is missing the constructor throws, so that the test fails and says what to install.
#pragma once

#include <GL/glew.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Fovix.h"
#include "Image.h"

namespace fovix_test {

/// One context of the compatibility profile and its surface; current on the thread that made it. There may be
/// several: the newest is current. Whichever is current when it is destroyed leaves none current.
class HeadlessGl {
  public:
    HeadlessGl(int width, int height);

    Image readPixels() const;  ///< the whole surface
    int width() const { return width_; }
    int height() const { return height_; }

  private:
    using Resource = std::unique_ptr<void, void (*)(void*)>;
    Resource surface_, context_;
    int width_, height_;
};

/// What a call prints on standard output.
std::string printedBy(const std::function<void()>& call);

template <class... Parameters, class... Arguments>
std::string printedBy(void (*function)(Parameters...), const Arguments&... arguments) {
    return printedBy([&] { function(arguments...); });
}

/// A handle that is released at the end of its scope; made quietly.
class View {
  public:
    explicit View(void (*create)(VRHANDLE*) = Fovix_CreateNoTouchEvent);
    ~View() { release(); }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    operator VRHANDLE() const { return handle_; }
    VRHANDLE operator->() const { return handle_; }  ///< for tests of internals, which know the record
    void release();                                  ///< now; the destructor does no more then

  private:
    VRHANDLE handle_ = nullptr;
};

/// A prepared and sized view of one display type on the surface of a GL context. What set-up prints is kept
/// off the test's output.
class Stage {
  public:
    Stage(int type, int width, int height, void (*create)(VRHANDLE*) = Fovix_CreateNoTouchEvent);

    Image draw();             ///< one frame, read back; what it printed is in lines
    void show(const Image&);  ///< hands an RGBA picture in
    void show(int pixelFmt, const std::vector<std::uint8_t>& bytes, int width, int height);
    void show(int slot, const Image&);  ///< for a cell or a lens

    HeadlessGl gl;
    View view;
    std::string lines;
};

}  // namespace fovix_test
