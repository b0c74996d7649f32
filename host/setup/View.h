// Owner of the program's library handle. The handle stays readable after a release, so a script can go on
// using it and see how the library rejects it.
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

    // Replaces the current handle.
    void create(Creator creator) {
        if (_live) release();
        creator(&_handle);
        if (!_handle) throw std::runtime_error("out of memory for a view");
        _live = true;
    }

    // Calling it twice releases a stale handle on purpose.
    void release() {
        _live = false;
        Fovix_Release(_handle);
    }

  private:
    VRHANDLE _handle = nullptr;
    bool _live = false;
};

}  // namespace fovix_host
