#include "player/Pace.h"

#include <algorithm>

namespace fovix_host {
namespace {

constexpr double kLongestGap = 10;          // between two pictures; beyond it times have jumped
constexpr double kLongestLength = 1;        // that a gap tells about the next one
constexpr double kLongestWithout = 0.1;     // without any picture, however late they are
constexpr double kSetAnewFrom = 1;          // the delay from which the clock is set anew
constexpr double kRealTimeTolerance = 0.2;  // networks deliver unevenly
constexpr double kClockDrift = 0.001;       // between a camera's clock and ours, more than any has
constexpr double kMostAhead = 10;           // servers begin with what they have kept
constexpr double kCatchingUp = 2;           // that long at a time
constexpr int kHurryFrom = 5;               // late pictures in a row

}  // namespace

// An earlier picture than ever shows how early pictures can come.
void Pace::takeInRealTime(double step, double now) {
    _due += step;
    if (now < _due) {
        _ahead += _due - now;
        _due = now;
    } else {
        _due = std::min(now, _due + step * kClockDrift);
        _ahead -= std::min(_ahead, step * kClockDrift);
    }
    _realTime = _ahead < kMostAhead;
}

void Pace::take(double time, double now) {
    const double step = time - _time;
    const bool jumped = step <= 0 || step > std::max(kLongestGap, 2 * _length);
    _time = time;
    if (_next == Next::kAtOnce || (_realTime && jumped)) {
        _due = _lastShown = now;
        _lateInRow = 0;
        _ahead = 0;
    } else if (_next == Next::kFollows || jumped) {
        _due += _length;
    } else if (_realTime) {
        takeInRealTime(step, now);
    } else {
        _due += step;
    }
    if (_next == Next::kByTime && !jumped && step <= kLongestLength) _length = step;
    _next = Next::kByTime;
    if (now < _due) {
        _lateInRow = 0;
        _hurried = false;
    }
}

// A video that is a second behind plays slower instead. Of an input in real time, what piled up is caught up
// with; where that brings nothing any more, its pictures come no earlier.
bool Pace::isSetAnew(double late, double now) {
    if (!_realTime) return late > kSetAnewFrom;
    if (_lateInRow > 1 && now - _watchedSince < kCatchingUp) return false;
    const bool inVain = _lateInRow > 1 && late >= _lateThen;
    _watchedSince = now;
    _lateThen = late;
    return inVain;
}

bool Pace::isWorthShowing(double now) {
    const double late = now - _due;
    if (late <= (_realTime ? std::max(_length, kRealTimeTolerance) : _length)) {
        _lateInRow = 0;
        if (_realTime) _hurried = false;
        return true;
    }
    if (++_lateInRow >= kHurryFrom) _hurried = true;
    if (isSetAnew(late, now)) {
        _due = now;
        return true;
    }
    return now - _lastShown >= kLongestWithout;
}

void Pace::shown(double now) {
    _lastShown = now;
    // What is shown during a pause, step by step, stays for its length when the pause is over.
    if (_pausedSince) _due = *(_pausedSince = now);
}

// Real time passes during a pause.
void Pace::pause(double now) {
    if (!_realTime) _pausedSince = now;
}

void Pace::goOn(double now) {
    if (_pausedSince) _due += now - *_pausedSince;
    _pausedSince.reset();
}

}  // namespace fovix_host
