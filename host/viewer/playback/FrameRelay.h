// Submits the newest frame of each input to the view. The players' threads deliver frames; the viewer's
// thread can block them for a moment, after which the newest frames are submitted again.
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
    // wake() notifies the viewer's thread of a new frame; it is called on any thread.
    FrameRelay(VRHANDLE view, int inputs, std::function<void()> wake);

    void show(int slot, const PackedFrame& frame);

    // Returns true if a frame has arrived since the last call.
    bool takeNew() { return _new.exchange(false); }

    struct Size {
        int width = 0, height = 0;
        bool operator==(const Size&) const = default;
    };
    Size size() const;  // of the first input's frame; 0 before its first one
    int count() const { return static_cast<int>(_slots.size()); }

    // While it exists, players do not change the view, and the viewer may submit other frames. Its destructor
    // submits the newest frames again.
    class Hold {
      public:
        explicit Hold(FrameRelay& frames) : _frames(frames), _lock(frames._mutex) {}
        ~Hold() { _frames.submitAll(); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

      private:
        FrameRelay& _frames;
        std::lock_guard<std::mutex> _lock;
    };

  private:
    struct Slot {
        std::vector<unsigned char> bytes;
        PackedFrame frame;  // refers to these bytes
    };
    void submit(int slot) const;
    void submitAll() const;

    VRHANDLE _view;
    std::function<void()> _wake;
    mutable std::mutex _mutex;  // guards the slots
    std::vector<Slot> _slots;
    std::atomic<bool> _new = false;
};

}  // namespace fovix_host
