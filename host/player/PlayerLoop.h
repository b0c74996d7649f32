// The player's thread: opens the input, plays it turn by turn, and opens it again where it is lost.
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

    // Opening, again and again where that may help; false when the player is to end.
    bool open();
    std::unique_ptr<Feed> openFeed();
    void begin();
    void retryAfter(const std::string& problem);
    bool isInterrupted();

    // One decision of playing; false when the input is lost or the player is to end.
    bool turn();
    void obey(const PlayerControl::Wishes& wishes);
    void seek(double seconds);
    bool lookFrom(double seconds);
    bool decode();
    void present();
    void show();
    void drop();
    bool atEnd();
    void beginAnew();

    void rest(PlayerState state);
    void say(const std::string& message);

    PlayerInput _input;
    const PlayerSettings _settings;
    const PlayerCallbacks _callbacks;
    PlayerControl& _control;
    std::string _name = "the sample";  // or the input, quoted
    bool _isStream = false;            // worth opening again

    std::unique_ptr<Feed> _feed;
    std::optional<Pace> _pace;
    double _time = 0;      // of the picture decoded last
    bool _inHand = false;  // it is neither shown nor dropped yet
    bool _owed = false;    // the next picture is shown at once, paused or not
    bool _paused = false;
    bool _resting = false;          // nothing to do until a wish comes
    std::optional<double> _sought;  // without a picture found yet
    double _backing = 0;            // how far before it is looked now
    bool _anyDecoded = false;       // since the input began, or began anew
    bool _everShown = false;
    std::string _problem;   // why pictures cannot be shown
    double _retryWait = 0;  // the last one; none since a picture was shown
    bool _isLost = false;
    bool _goesOn = true;  // where it was, when it is opened again
    double _lostAt = -1;  // the time that it had reached when it was lost before
    std::atomic<bool> _stalled = false;
    std::atomic<double> _waitingSince = 0;  // for the input; read wherever the input asks
    std::promise<void> _ended;
    std::thread _thread;  // last: it uses all the others
};

}  // namespace fovix_host
