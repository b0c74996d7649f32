#include "player/PlayerControl.h"

#include <algorithm>
#include <cmath>

namespace fovix_host {
namespace {

constexpr double kRateWindow = 1;  // seconds

void forgetBefore(std::deque<double>& times, double start) {
    while (!times.empty() && times.front() < start) times.pop_front();
}

}  // namespace

void PlayerControl::wake() {
    _requested = true;
    _woken.notify_all();
}

void PlayerControl::pause(bool paused) {
    const std::lock_guard lock(_mutex);
    _paused = paused;
    wake();
}

void PlayerControl::step() {
    const std::lock_guard lock(_mutex);
    _paused = _step = true;
    wake();
}

bool PlayerControl::seekLocked(double seconds) {
    if (!_status.seekable || std::isnan(seconds)) return false;
    _seek = std::clamp(seconds, 0.0, _status.duration.value_or(0.0));
    wake();
    return true;
}

bool PlayerControl::seekTo(double seconds) {
    const std::lock_guard lock(_mutex);
    return seekLocked(seconds);
}

bool PlayerControl::seekBy(double seconds) {
    const std::lock_guard lock(_mutex);
    return seekLocked(_seek.value_or(_status.position) + seconds);
}

PlayerStatus PlayerControl::status() const {
    const std::lock_guard lock(_mutex);
    forgetBefore(_shownAt, now() - kRateWindow);
    PlayerStatus status = _status;
    status.framesPerSecond = static_cast<double>(_shownAt.size()) / kRateWindow;
    status.position = _seek.value_or(status.position);
    if (_paused && status.state == PlayerState::kPlaying) status.state = PlayerState::kPaused;
    return status;
}

void PlayerControl::end() {
    const std::lock_guard lock(_mutex);
    _ending = true;
    wake();
}

bool PlayerControl::isEnding() const {
    const std::lock_guard lock(_mutex);
    return _ending;
}

PlayerControl::Requests PlayerControl::takeRequests() {
    const std::lock_guard lock(_mutex);
    const Requests requests{_paused, _step, _seek};
    if (_seek) _status.position = *_seek;
    _seek.reset();
    _step = _requested = false;
    return requests;
}

bool PlayerControl::wait(double seconds) {
    std::unique_lock lock(_mutex);
    return _woken.wait_for(lock, _clock.real(seconds), [this] { return _requested || _ending; });
}

void PlayerControl::sleep(double seconds) {
    std::unique_lock lock(_mutex);
    _woken.wait_for(lock, _clock.real(seconds), [this] { return _ending; });
}

void PlayerControl::update(const std::function<void(PlayerStatus&)>& change) {
    const std::lock_guard lock(_mutex);
    change(_status);
}

void PlayerControl::countShown(const PackedFrame& frame, double position) {
    const std::lock_guard lock(_mutex);
    ++_status.shown;
    _status.state = PlayerState::kPlaying;
    _status.width = frame.width;
    _status.height = frame.height;
    _status.position = position;
    _shownAt.push_back(now());
    forgetBefore(_shownAt, _shownAt.back() - kRateWindow);
}

}  // namespace fovix_host
