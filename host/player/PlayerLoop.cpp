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

constexpr double kForever = 3600;  // until a wish comes; then it is looked again
constexpr double kLongestRetryWait = 10;

// A pipe that nobody writes to holds its reader until a signal comes; then FFmpeg asks whether to go on.
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
    // Again and again: a signal may come just before the call that it is to interrupt.
    constexpr std::chrono::milliseconds kPatience(50);
    for (const auto ended = _ended.get_future(); ended.wait_for(kPatience) != std::future_status::ready;)
        interruptSystemCall(_thread);
    _thread.join();
}

void PlayerLoop::run() {
    try {
        while (open())
            while (turn()) {
            }
    } catch (const std::exception& problem) {
        if (_control.isEnding()) return;
        _feed.reset();
        say(problem.what());
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
            if (!_isStream || !(_everShown || _stalled)) throw;
            retryAfter(problem.what());
        }
    }
    return false;
}

void PlayerLoop::begin() {
    _pace.emplace(_feed->frameLength(), _feed->isRealTime());
    if (_paused) _pace->pause(_control.now());
    _inHand = _resting = _anyDecoded = false;
    _owed = true;
    _control.update([this](PlayerStatus& status) {
        status.duration = _feed->duration();
        status.seekable = _feed->isSeekable();
    });
    const double from = _everShown ? _time : _settings.start;
    if (from <= 0) return;
    if (!std::exchange(_goesOn, true) && _feed->isSeekable()) {
        _lostAt = -1;
        return say("cannot seek in " + _name + "; starting over");
    }
    if (!_everShown && from >= _feed->duration().value_or(0))
        say(_name + (_feed->isSeekable() ? " ends before the start position; showing its last frame"
                                         : " has no timestamps; starting at its current position"));
    if (_feed->isSeekable()) seek(from);
}

void PlayerLoop::retryAfter(const std::string& problem) {
    if (_control.isEnding()) return;
    _feed.reset();
    _retryWait = std::clamp(2 * _retryWait, 1.0, kLongestRetryWait);
    _control.update([](PlayerStatus& status) { status.state = PlayerState::kReconnecting; });
    say(problem + "; retrying in " + std::to_string(std::lround(_retryWait)) + " s");
    _control.sleep(_retryWait);
}

bool PlayerLoop::turn() {
    if (_control.isEnding()) return false;
    obey(_control.takeWishes());
    if (_resting || (_paused && !_owed && !_pace->isRealTime())) {
        _control.wait(kForever);
        return true;
    }
    if (!_inHand && !decode()) return atEnd();
    const double early = _owed ? 0 : _pace->untilDue(_control.now());
    if (early > 0 && _control.wait(early)) return true;
    present();
    return true;
}

void PlayerLoop::obey(const PlayerControl::Wishes& wishes) {
    if (wishes.paused != _paused) {
        _paused = wishes.paused;
        if (_paused)
            _pace->pause(_control.now());
        else
            _pace->goOn(_control.now());
    }
    if (wishes.step) _owed = true;
    if (wishes.seek) seek(*wishes.seek);
}

void PlayerLoop::seek(double seconds) {
    const double last = _feed->duration().value_or(0) - _feed->frameLength();
    const double target = std::clamp(seconds, 0.0, std::max(last, 0.0));
    _backing = 0;
    if (lookFrom(target))
        _sought = target;
    else
        say("cannot seek in " + _name);
}

bool PlayerLoop::lookFrom(double seconds) {
    _waitingSince = _control.now();
    if (!_feed->seek(seconds)) return false;
    _pace->restart();
    _inHand = _resting = false;
    _owed = true;
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
        // No picture at all: a stream that broke off has some when it is back.
        if (!_isStream || !(_everShown || _feed->isLost())) throw;
        return false;
    }
    _pace->take(_time, _control.now());
    _inHand = _anyDecoded = true;
    _control.update([](PlayerStatus& status) { ++status.decoded; });
    return true;
}

void PlayerLoop::present() {
    _inHand = false;
    if (_paused && !_owed) return;  // a live input goes by
    if (_owed || _pace->isWorthShowing(_control.now()))
        show();
    else
        drop();
}

void PlayerLoop::show() {
    PackedFrame picture;
    try {
        picture = _feed->pack();
    } catch (const std::runtime_error& problem) {
        _problem = _name + " cannot be shown: " + problem.what();
        if (_feed->isStill()) throw std::runtime_error(_problem);
        say(_problem);
        return drop();
    }
    _pace->shown(_control.now());
    _callbacks.show(picture);
    _control.countShown(picture, _time);
    if (_retryWait > 0) say(_name + (_everShown ? " is back" : " is available now"));
    _retryWait = 0;
    _everShown = true;
    _owed = false;
    _sought.reset();
    if (_feed->isStill()) rest(PlayerState::kStill);
}

void PlayerLoop::drop() {
    _control.update([](PlayerStatus& status) { ++status.dropped; });
}

bool PlayerLoop::atEnd() {
    if (_control.isEnding()) return false;
    _isLost = _isStream && (_stalled || _feed->isLost() || _feed->isRealTime());
    if (_isLost) {
        // A server that sends a file only as a whole breaks off again where it is to go on.
        if (!_stalled) _goesOn = std::exchange(_lostAt, _time) < _time;
        return false;
    }
    // Other streams of the input may last longer than its pictures: the last one is somewhere before.
    if (_sought && _backing < *_sought) {
        _backing = std::max(2 * _backing, 0.5);
        if (lookFrom(std::max(*_sought - _backing, 0.0))) return true;
    }
    if (!_everShown) throw std::runtime_error(_problem.empty() ? _name + " contains no frame" : _problem);
    if (_settings.loop && _anyDecoded) {
        beginAnew();
    } else if (_paused) {
        _owed = false;
    } else if (!_control.wait(_pace->untilOver(_control.now()))) {
        rest(PlayerState::kEnded);
    }
    return true;
}

void PlayerLoop::beginAnew() {
    _waitingSince = _control.now();
    if (!_feed->seek(0)) _feed = openFeed();
    _pace->follow();
    _anyDecoded = false;
}

void PlayerLoop::rest(PlayerState state) {
    _resting = true;
    _owed = false;
    _control.update([state](PlayerStatus& status) { status.state = state; });
}

void PlayerLoop::say(const std::string& message) {
    bool isNew = false;
    _control.update([&](PlayerStatus& status) { isNew = std::exchange(status.message, message) != message; });
    if (isNew && _callbacks.message) _callbacks.message(message);
}

}  // namespace fovix_host
