// The one view that the program draws, released at the end. Its handle stays readable after a release, so
// that a timeline of calls can go on with it: the library answers that it is not live.
#pragma once

#include <Fovix.h>

#include <stdexcept>

namespace fovix_host {

class View {
  public:
    using Creator = void (*)(VRHANDLE*);

    explicit View(Creator creator) { create(creator); }
    ~View() {
        if (_live) Fovix_Release(_handle);
    }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    VRHANDLE handle() const { return _handle; }

    // In place of the one before.
    void create(Creator creator) {
        if (_live) release();
        creator(&_handle);
        if (!_handle) throw std::runtime_error("out of memory for a view");
        _live = true;
    }

    // Called again, it hands the library a handle that is not live any more.
    void release() {
        _live = false;
        Fovix_Release(_handle);
    }

  private:
    VRHANDLE _handle = nullptr;
    bool _live = false;
};

}  // namespace fovix_host
