// When each picture of an input is due on the player's clock, and which ones come too late to be shown. All
// times are seconds; the clock is read by the caller.
#pragma once

#include <optional>

namespace fovix_host {

class Pace {
  public:
    // The length of a picture as the input declares it. Real-time inputs are not waited for: their pictures
    // are due when they could have come at the earliest.
    Pace(double length, bool realTime) : _length(length), _realTime(realTime) {}

    // The next picture is due as soon as it is there, whatever its time says: after a seek.
    void restart() { _next = Next::kAtOnce; }
    // The next picture follows the last one, whatever its time says: when a video begins anew.
    void follow() { _next = Next::kFollows; }

    // A picture with this time in the input has been decoded.
    void take(double time, double now);
    // How long it waits until it is due, and until its successor is.
    double untilDue(double now) const { return _due > now ? _due - now : 0; }
    double untilOver(double now) const { return _due + _length > now ? _due + _length - now : 0; }
    // Whether it is to be shown now; where all are late, one every tenth of a second is shown all the same.
    bool isWorthShowing(double now);
    void shown(double now);

    // Until pictures come far too early: then it is a recording, and plays by its times.
    bool isRealTime() const { return _realTime; }

    // Decoding does not keep up: pictures that no other one needs should be left out.
    bool isHurried() const { return _hurried; }

    void pause(double now);
    void goOn(double now);

  private:
    enum class Next { kByTime, kFollows, kAtOnce };
    void takeInRealTime(double step, double now);
    bool isSetAnew(double late, double now);

    double _length;
    bool _realTime;
    Next _next = Next::kAtOnce;
    double _time = 0;       // of the picture in hand, in the input
    double _due = 0;        // and on the clock
    double _lastShown = 0;  // on the clock
    int _lateInRow = 0;
    double _ahead = 0;  // of the clock, since the first picture
    double _watchedSince = 0, _lateThen = 0;
    bool _hurried = false;
    std::optional<double> _pausedSince;
};

}  // namespace fovix_host
