#include "player/Pace.h"

#include <algorithm>

namespace fovix_host {
namespace {

constexpr double kMaxGap = 10;              // between two frames; a longer one means that timestamps jumped
constexpr double kMaxLength = 1;            // a longer gap does not predict the length of the next frame
constexpr double kMaxBlackout = 0.1;        // longest time without a new frame, even if all are late
constexpr double kResyncDelay = 1;          // a longer delay resets the clock
constexpr double kRealTimeTolerance = 0.2;  // networks deliver unevenly
constexpr double kClockDrift = 0.001;       // upper bound of the drift between a camera's clock and ours
constexpr double kMaxAhead = 10;            // servers may send buffered frames first
constexpr double kCatchUpPeriod = 2;        // after which an attempt to catch up is judged
constexpr int kHurryAfter = 5;              // late frames in a row

}  // namespace

// A new minimum delay re-anchors the clock.
void Pace::takeInRealTime(double step, double now) {
    _due += step;
    if (now < _due) {
        _ahead += _due - now;
        _due = now;
    } else {
        _due = std::min(now, _due + step * kClockDrift);
        _ahead -= std::min(_ahead, step * kClockDrift);
    }
    _realTime = _ahead < kMaxAhead;
}

void Pace::take(double time, double now) {
    const double step = time - _time;
    const bool jumped = step <= 0 || step > std::max(kMaxGap, 2 * _length);
    _time = time;
    if (_next == Next::kImmediate || (_realTime && jumped)) {
        _due = _lastShown = now;
        _lateInRow = 0;
        _ahead = 0;
    } else if (_next == Next::kFollowing || jumped) {
        _due += _length;
    } else if (_realTime) {
        takeInRealTime(step, now);
    } else {
        _due += step;
    }
    if (_next == Next::kByTime && !jumped && step <= kMaxLength) _length = step;
    _next = Next::kByTime;
    if (now < _due) {
        _lateInRow = 0;
        _hurried = false;
    }
}

// A recording that is too late resets the clock, which slows it down. A real-time input first tries to catch
// up; it resets the clock when that does not reduce the delay any more.
bool Pace::mustResync(double late, double now) {
    if (!_realTime) return late > kResyncDelay;
    if (_lateInRow > 1 && now - _catchUpStart < kCatchUpPeriod) return false;
    const bool inVain = _lateInRow > 1 && late >= _lateAtStart;
    _catchUpStart = now;
    _lateAtStart = late;
    return inVain;
}

bool Pace::isWorthShowing(double now) {
    const double late = now - _due;
    if (late <= (_realTime ? std::max(_length, kRealTimeTolerance) : _length)) {
        _lateInRow = 0;
        if (_realTime) _hurried = false;
        return true;
    }
    if (++_lateInRow >= kHurryAfter) _hurried = true;
    if (mustResync(late, now)) {
        _due = now;
        return true;
    }
    return now - _lastShown >= kMaxBlackout;
}

void Pace::shown(double now) {
    _lastShown = now;
    // A frame that was stepped to during a pause is shown for its full length afterwards.
    if (_pausedSince) _due = *(_pausedSince = now);
}

// Real-time inputs go on during a pause.
void Pace::pause(double now) {
    if (!_realTime) _pausedSince = now;
}

void Pace::resume(double now) {
    if (_pausedSince) _due += now - *_pausedSince;
    _pausedSince.reset();
}

}  // namespace fovix_host
