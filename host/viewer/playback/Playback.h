// What is being played: a player for each input, the pictures they hand over, and what they have to say.
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

    // The inputs of the options.
    Playback(const ViewerOptions& options, const Host& host);
    // One file in their place. Throws std::runtime_error with a sentence when it cannot be shown.
    Playback(const std::string& file, const ViewerOptions& options, const Host& host);

    FrameRelay& frames() { return _frames; }
    // The circle that the sample's camera has.
    const std::optional<LensCircle>& lensOfSample() const { return _lensOfSample; }

    // The lens circle of the inputs, once it is known. Throws std::runtime_error where it cannot be kept.
    std::optional<LensChoice> takeLens();

    void togglePause();
    void step();
    bool seekBy(double seconds);  // false where no input can be sought

    bool isPaused() const { return _paused; }
    bool hasFailed() const;  // every input, for good
    bool hasEnded() const;   // no input will show anything else

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
    std::vector<std::unique_ptr<Player>> _players;  // last: they call into all of the above
};

}  // namespace fovix_host
