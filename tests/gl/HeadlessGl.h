// The library in a GL context without a window: the off-screen context of the programs, a handle, and both
// together. Where GL is missing the context throws a sentence that says what to install.
#pragma once

#include <GL/glew.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Fovix.h"
#include "Image.h"

namespace fovix_host {
class GlContext;
}

namespace fovix_test {

/// A context with its surface, current on the thread that made it. The newest of several is current; the end
/// of any leaves none current.
class HeadlessGl {
  public:
    HeadlessGl(int width, int height);
    ~HeadlessGl();

    Image readPixels() const;  ///< the whole surface of the current context

  private:
    std::unique_ptr<fovix_host::GlContext> _context;
};

/// What a call prints on standard output.
std::string printedBy(const std::function<void()>& call);

template <class... Parameters, class... Arguments>
std::string printedBy(void (*function)(Parameters...), const Arguments&... arguments) {
    return printedBy([&] { function(arguments...); });
}

/// A handle that is released at the end of its scope; made silently.
class View {
  public:
    explicit View(void (*create)(VRHANDLE*) = Fovix_CreateNoTouchEvent);
    ~View() { release(); }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    operator VRHANDLE() const { return _handle; }
    VRHANDLE operator->() const { return _handle; }  ///< for tests of internals, which know the record
    void release();                                  ///< now; the destructor does nothing then

  private:
    VRHANDLE _handle = nullptr;
};

/// A prepared and sized handle of one display type on the surface of a GL context. What its calls print is
/// kept off the test's output.
class Stage {
  public:
    Stage(int type, int width, int height, void (*create)(VRHANDLE*) = Fovix_CreateNoTouchEvent);

    Image draw();  ///< one frame, read back; what it printed is in lines
    void show(const Image& picture, int pixelFmt = FOVIX_FORMAT_RGBA);
    void show(int pixelFmt, const Bytes& bytes, int width, int height);
    void play(const std::string& script);  ///< see ApiCalls.h; "draw N" draws N frames

    HeadlessGl gl;
    View view;
    std::string lines;
};

}  // namespace fovix_test
