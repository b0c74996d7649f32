// The player's thread: opens the input, plays it step by step, and reopens it if it is lost.
#pragma once

#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include "player/Feed.h"
#include "player/Pace.h"
#include "player/PlayerControl.h"
#include "player/PlayerSettings.h"

namespace fovix_host {

class PlayerLoop {
  public:
    PlayerLoop(PlayerInput input, const PlayerSettings& settings, PlayerCallbacks callbacks,
               PlayerControl& control);
    ~PlayerLoop();

  private:
    void run();

    // Retries while that may help; returns false if the player is ending.
    bool open();
    std::unique_ptr<Feed> openFeed();
    void begin();
    void retryAfter(const std::string& problem);
    bool isInterrupted();

    // One decision of the loop; returns false if the input is lost or the player is ending.
    bool step();
    void applyRequests(const PlayerControl::Requests& requests);
    void seek(double seconds);
    bool seekFeed(double seconds);
    bool decode();
    void present();
    void show();
    void drop();
    bool atEnd();
    void repeat();

    void idle(PlayerState state);
    void report(const std::string& message);

    PlayerInput _input;
    const PlayerSettings _settings;
    const PlayerCallbacks _callbacks;
    PlayerControl& _control;
    std::string _name = "the sample";  // or the quoted input
    bool _isStream = false;            // reopened if it is lost

    std::unique_ptr<Feed> _feed;
    std::optional<Pace> _pace;
    double _time = 0;        // of the last decoded frame
    bool _pending = false;   // that frame is neither shown nor dropped yet
    bool _showNext = false;  // show the next frame at once, paused or not
    bool _paused = false;
    bool _idle = false;                 // nothing to do until the next request
    std::optional<double> _seekTarget;  // seek in progress
    double _seekBackoff = 0;            // seconds before the target, if there was no frame there
    bool _anyDecoded = false;           // since the input was opened or repeated
    bool _hasShownFrame = false;
    std::string _problem;   // why frames cannot be shown
    double _retryWait = 0;  // the latest; 0 after a frame was shown
    bool _isLost = false;
    bool _canResume = true;  // can continue at the old position after reopening
    double _lostAt = -1;     // position of the previous loss
    std::atomic<bool> _stalled = false;
    std::atomic<double> _waitingSince = 0;  // since when the player waits for the input
    std::promise<void> _ended;
    std::thread _thread;  // last, because it uses all others
};

}  // namespace fovix_host
