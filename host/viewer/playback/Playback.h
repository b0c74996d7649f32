// The inputs of the viewer: a player for each, their frames and their messages.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "player/Player.h"
#include "viewer/options/ViewerOptions.h"
#include "viewer/playback/FrameRelay.h"
#include "viewer/playback/LensWatch.h"

namespace fovix_host {

class Playback {
  public:
    struct Host {
        VRHANDLE view;
        int maxTextureSize;
        std::function<void()> wake;  // called on the players' threads
    };

    // Plays the inputs of the options.
    Playback(const ViewerOptions& options, const Host& host);
    // Plays one file instead. Throws std::runtime_error with a message if it cannot be shown.
    Playback(const std::string& file, const ViewerOptions& options, const Host& host);

    FrameRelay& frames() { return _frames; }
    // The lens circle of the sample, if it is played.
    const std::optional<LensCircle>& lensOfSample() const { return _lensOfSample; }

    // Returns the choice of the lens circle once, when it is known. Throws std::runtime_error if it cannot be
    // saved.
    std::optional<LensChoice> takeLens();

    void togglePause();
    void step();
    bool seekBy(double seconds);  // returns false if no input can seek

    bool isPaused() const { return _paused; }
    bool hasFailed() const;  // all inputs failed permanently
    bool hasEnded() const;   // all inputs ended or failed

    PlayerStatus status() const { return _players.front()->status(); }  // of the first input
    long dropped() const;
    std::vector<std::string> takeMessages();

  private:
    struct Opened;
    static Opened openAll(const ViewerOptions& options);
    static Opened openFile(const std::string& file, const ViewerOptions& options);
    Playback(Opened opened, const Host& host);
    void open(PlayerInput input, const PlayerSettings& settings);
    bool allAre(std::initializer_list<PlayerState> states) const;

    Host _host;
    std::mutex _mutex;  // guards the messages
    std::vector<std::string> _messages;
    std::optional<LensCircle> _lensOfSample;
    LensWatch _lens;
    bool _paused = false;
    FrameRelay _frames;
    std::vector<std::unique_ptr<Player>> _players;  // last, because they call into all others
};

}  // namespace fovix_host
