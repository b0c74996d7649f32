#include "player/PlayerLoop.h"

#include <pthread.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "media/InputName.h"
#include "media/MediaReader.h"

namespace fovix_host {
namespace {

constexpr double kIdleTimeout = 3600;                    // requests wake it earlier
constexpr double kMinRetryWait = 1, kMaxRetryWait = 10;  // seconds; doubled with each attempt
constexpr double kMinSeekBackoff = 0.5;                  // seconds; doubled with each attempt

// A read from a pipe without data returns only after a signal; FFmpeg then calls our interrupt callback.
void interruptSystemCall(std::thread& thread) {
    static const bool kHandled = [] {
        struct sigaction nothing {};
        nothing.sa_handler = [](int) {};
        return sigaction(SIGURG, &nothing, nullptr) == 0;
    }();
    if (kHandled) pthread_kill(thread.native_handle(), SIGURG);
}

}  // namespace

PlayerLoop::PlayerLoop(PlayerInput input, const PlayerSettings& settings, PlayerCallbacks callbacks,
                       PlayerControl& control)
    : _input(std::move(input)),
      _settings(settings),
      _callbacks(std::move(callbacks)),
      _control(control),
      _paused(settings.paused) {
    if (const auto* name = std::get_if<std::string>(&_input)) {
        _name = quotedName(*name);
        _isStream = MediaReader::isStream(*name);
    }
    _thread = std::thread([this] {
        run();
        _ended.set_value();
    });
}

PlayerLoop::~PlayerLoop() {
    _control.end();
    // Repeatedly, because a signal may arrive just before the call that it should interrupt.
    constexpr std::chrono::milliseconds kInterval(50);
    for (const auto ended = _ended.get_future(); ended.wait_for(kInterval) != std::future_status::ready;)
        interruptSystemCall(_thread);
    _thread.join();
}

void PlayerLoop::run() {
    try {
        while (open())
            while (step()) {
            }
    } catch (const std::exception& problem) {
        if (_control.isEnding()) return;
        _feed.reset();
        report(problem.what());
        _control.update([](PlayerStatus& status) {
            status.state = PlayerState::kFailed;
            status.seekable = false;
        });
    }
}

bool PlayerLoop::isInterrupted() {
    if (_isStream && _control.now() - _waitingSince > _settings.stall) _stalled = true;
    return _stalled || _control.isEnding();
}

std::unique_ptr<Feed> PlayerLoop::openFeed() {
    _stalled = false;
    _waitingSince = _control.now();
    if (const auto* source = std::get_if<std::unique_ptr<FrameSource>>(&_input))
        return makeSourceFeed(**source);
    return openMediaFeed(std::get<std::string>(_input), FramePacker(_settings.formats, _settings.maxSide),
                         [this] { return isInterrupted(); });
}

bool PlayerLoop::open() {
    if (std::exchange(_isLost, false)) retryAfter(_name + (_stalled ? " sends no data" : " disconnected"));
    while (!_control.isEnding()) {
        try {
            _feed = openFeed();
            begin();
            return true;
        } catch (const InputUnreachable& problem) {
            retryAfter(_stalled ? _name + " sends no data" : problem.what());
        } catch (const std::runtime_error& problem) {
            if (!_isStream || !(_hasShownFrame || _stalled)) throw;
            retryAfter(problem.what());
        }
    }
    return false;
}

void PlayerLoop::begin() {
    _pace.emplace(_feed->frameLength(), _feed->isRealTime());
    if (_paused) _pace->pause(_control.now());
    _pending = _idle = _anyDecoded = false;
    _showNext = true;
    _control.update([this](PlayerStatus& status) {
        status.duration = _feed->duration();
        status.seekable = _feed->isSeekable();
    });
    const double from = _hasShownFrame ? _time : _settings.start;
    if (from <= 0) return;
    if (!std::exchange(_canResume, true) && _feed->isSeekable()) {
        _lostAt = -1;
        return report("cannot seek in " + _name + "; starting over");
    }
    if (!_hasShownFrame && from >= _feed->duration().value_or(0))
        report(_name + (_feed->isSeekable() ? " ends before the start position; showing its last frame"
                                            : " has no timestamps; starting at its current position"));
    if (_feed->isSeekable()) seek(from);
}

void PlayerLoop::retryAfter(const std::string& problem) {
    if (_control.isEnding()) return;
    _feed.reset();
    _retryWait = std::clamp(2 * _retryWait, kMinRetryWait, kMaxRetryWait);
    _control.update([](PlayerStatus& status) { status.state = PlayerState::kReconnecting; });
    report(problem + "; retrying in " + std::to_string(std::lround(_retryWait)) + " s");
    _control.sleep(_retryWait);
}

bool PlayerLoop::step() {
    if (_control.isEnding()) return false;
    applyRequests(_control.takeRequests());
    if (_idle || (_paused && !_showNext && !_pace->isRealTime())) {
        _control.wait(kIdleTimeout);
        return true;
    }
    if (!_pending && !decode()) return atEnd();
    const double early = _showNext ? 0 : _pace->untilDue(_control.now());
    if (early > 0 && _control.wait(early)) return true;
    present();
    return true;
}

void PlayerLoop::applyRequests(const PlayerControl::Requests& requests) {
    if (requests.paused != _paused) {
        _paused = requests.paused;
        if (_paused)
            _pace->pause(_control.now());
        else
            _pace->resume(_control.now());
    }
    if (requests.step) _showNext = true;
    if (requests.seek) seek(*requests.seek);
}

void PlayerLoop::seek(double seconds) {
    const double last = _feed->duration().value_or(0) - _feed->frameLength();
    const double target = std::clamp(seconds, 0.0, std::max(last, 0.0));
    _seekBackoff = 0;
    if (seekFeed(target))
        _seekTarget = target;
    else
        report("cannot seek in " + _name);
}

bool PlayerLoop::seekFeed(double seconds) {
    _waitingSince = _control.now();
    if (!_feed->seek(seconds)) return false;
    _pace->restart();
    _pending = _idle = false;
    _showNext = true;
    return true;
}

bool PlayerLoop::decode() {
    _waitingSince = _control.now();
    _feed->setHurry(_pace->isHurried());
    try {
        const auto time = _feed->next();
        if (!time) return false;
        _time = *time;
    } catch (const std::runtime_error&) {
        // No frame decoded: retry if the stream was interrupted.
        if (!_isStream || !(_hasShownFrame || _feed->isLost())) throw;
        return false;
    }
    _pace->take(_time, _control.now());
    _pending = _anyDecoded = true;
    _control.update([](PlayerStatus& status) { ++status.decoded; });
    return true;
}

void PlayerLoop::present() {
    _pending = false;
    if (_paused && !_showNext) return;  // live inputs go on during a pause
    if (_showNext || _pace->isWorthShowing(_control.now()))
        show();
    else
        drop();
}

void PlayerLoop::show() {
    PackedFrame frame;
    try {
        frame = _feed->pack();
    } catch (const std::runtime_error& problem) {
        _problem = _name + " cannot be shown: " + problem.what();
        if (_feed->isStill()) throw std::runtime_error(_problem);
        report(_problem);
        return drop();
    }
    _pace->shown(_control.now());
    _callbacks.show(frame);
    _control.countShown(frame, _time);
    if (_retryWait > 0) report(_name + (_hasShownFrame ? " is back" : " is available now"));
    _retryWait = 0;
    _hasShownFrame = true;
    _showNext = false;
    _seekTarget.reset();
    if (_feed->isStill()) idle(PlayerState::kStill);
}

void PlayerLoop::drop() {
    _control.update([](PlayerStatus& status) { ++status.dropped; });
}

bool PlayerLoop::atEnd() {
    if (_control.isEnding()) return false;
    _isLost = _isStream && (_stalled || _feed->isLost() || _feed->isRealTime());
    if (_isLost) {
        // A server without range support disconnects again at the resume position.
        if (!_stalled) _canResume = std::exchange(_lostAt, _time) < _time;
        return false;
    }
    // The input's audio may be longer than its video: the last frame is then before the target.
    if (_seekTarget && _seekBackoff < *_seekTarget) {
        _seekBackoff = std::max(2 * _seekBackoff, kMinSeekBackoff);
        if (seekFeed(std::max(*_seekTarget - _seekBackoff, 0.0))) return true;
    }
    if (!_hasShownFrame) throw std::runtime_error(_problem.empty() ? _name + " contains no frame" : _problem);
    if (_settings.loop && _anyDecoded) {
        repeat();
    } else if (_paused) {
        _showNext = false;
    } else if (!_control.wait(_pace->untilOver(_control.now()))) {
        idle(PlayerState::kEnded);
    }
    return true;
}

void PlayerLoop::repeat() {
    _waitingSince = _control.now();
    if (!_feed->seek(0)) _feed = openFeed();
    _pace->follow();
    _anyDecoded = false;
}

void PlayerLoop::idle(PlayerState state) {
    _idle = true;
    _showNext = false;
    _control.update([state](PlayerStatus& status) { status.state = state; });
}

void PlayerLoop::report(const std::string& message) {
    bool isNew = false;
    _control.update([&](PlayerStatus& status) { isNew = std::exchange(status.message, message) != message; });
    if (isNew && _callbacks.message) _callbacks.message(message);
}

}  // namespace fovix_host
