// Decides when each frame of an input is due on the player's clock, and which frames are too late to be
// shown. All times are in seconds; the caller reads the clock.
#pragma once

#include <optional>

namespace fovix_host {

class Pace {
  public:
    // The length of a frame as the input declares it. Frames of real-time inputs are due when they could have
    // arrived at the earliest.
    Pace(double length, bool realTime) : _length(length), _realTime(realTime) {}

    // After a seek: show the next frame immediately.
    void restart() { _next = Next::kImmediate; }
    // When a video repeats: the next frame follows the last one, whatever its time is.
    void follow() { _next = Next::kFollowing; }

    // Call it when a frame with this time in the input has been decoded.
    void take(double time, double now);
    // Time until this frame is due, and until the next one is.
    double untilDue(double now) const { return _due > now ? _due - now : 0; }
    double untilOver(double now) const { return _due + _length > now ? _due + _length - now : 0; }
    // Returns true if the frame should be shown now. If all frames are late, some are shown nevertheless.
    bool isWorthShowing(double now);
    void shown(double now);

    // Becomes false if frames arrive far too early: then the input is a recording and plays by its
    // timestamps.
    bool isRealTime() const { return _realTime; }

    // Decoding does not keep up: frames that no other frame needs should be skipped.
    bool isHurried() const { return _hurried; }

    void pause(double now);
    void resume(double now);

  private:
    enum class Next { kByTime, kFollowing, kImmediate };
    void takeInRealTime(double step, double now);
    bool mustResync(double late, double now);

    double _length;
    bool _realTime;
    Next _next = Next::kImmediate;
    double _time = 0;       // of the current frame, in the input
    double _due = 0;        // the same on the clock
    double _lastShown = 0;  // on the clock
    int _lateInRow = 0;
    double _ahead = 0;         // how far frames are ahead of the clock since the first one
    double _catchUpStart = 0;  // of the current attempt to catch up
    double _lateAtStart = 0;   // the delay at that time
    bool _hurried = false;
    std::optional<double> _pausedSince;
};

}  // namespace fovix_host
