// The newest picture of every input on its way into the view. The players' threads hand pictures in; the
// viewer's thread may hold them back for a moment, and have the newest ones handed in again.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <vector>

#include "media/FramePacker.h"
#include "setup/View.h"

namespace fovix_host {

class FrameRelay {
  public:
    // wake tells the viewer's thread that there is something new; any thread calls it.
    FrameRelay(VRHANDLE view, int inputs, std::function<void()> wake);

    void show(int slot, const PackedFrame& picture);

    // Whether a picture has come since the last call.
    bool takeNew() { return _new.exchange(false); }

    struct Size {
        int width = 0, height = 0;
        bool operator==(const Size&) const = default;
    };
    Size size() const;  // of the first input's picture; 0 until it comes
    int count() const { return static_cast<int>(_slots.size()); }

    // While it lives no player changes what the view shows; the viewer may hand in others. At its end the
    // newest pictures are back.
    class Hold {
      public:
        explicit Hold(FrameRelay& pictures) : _pictures(pictures), _lock(pictures._mutex) {}
        ~Hold() { _pictures.handInAll(); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

      private:
        FrameRelay& _pictures;
        std::lock_guard<std::mutex> _lock;
    };

  private:
    struct Slot {
        std::vector<unsigned char> bytes;
        PackedFrame picture;  // of these bytes
    };
    void handIn(int slot) const;
    void handInAll() const;

    VRHANDLE _view;
    std::function<void()> _wake;
    mutable std::mutex _mutex;  // guards the slots
    std::vector<Slot> _slots;
    std::atomic<bool> _new = false;
};

}  // namespace fovix_host
