// Plays one input on a thread of its own: opens it, decodes, and hands each picture over when it is due.
// Nothing here waits for decoding: every call returns at once, from whichever thread.
#pragma once

#include <climits>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "media/PicturePacker.h"
#include "media/PictureSource.h"

namespace fovix_host {

class PlayerControl;
class PlayerLoop;

enum class PlayerState {
    opening,
    playing,
    paused,
    still,         // the one picture is shown
    ended,         // the last picture is shown; a seek goes on from there
    reconnecting,  // waits before it opens the stream again
    failed         // for good; the message says why
};

struct PlayerStatus {
    PlayerState state = PlayerState::opening;
    int width = 0, height = 0;       // of the picture shown last
    double position = 0;             // of the picture shown last, or sought, in seconds
    std::optional<double> duration;  // in seconds; nothing for the sample, a still or a live input
    bool seekable = false;
    // Pictures. Those dropped came too late to be worth showing.
    long decoded = 0, shown = 0, dropped = 0;
    double picturesPerSecond = 0;  // shown, over the last second
    std::string message;           // the last one
};

struct PlayerSettings {
    PackedFormats formats = PackedFormats::all;
    int mostAcross = INT_MAX;  // pictures with a longer side are scaled down
    bool loop = false;
    bool paused = false;  // from the first picture on
    double start = 0;     // seconds into the input, where it can be sought
    double stall = 10;    // seconds without a picture after which a stream counts as lost
    double speed = 1;     // of the clock: tests play a hundred times as fast
};

// Called on the player's thread, never after the player is destroyed; they may not destroy it.
struct PlayerCallbacks {
    // The picture is valid during the call. What this throws ends the playing: failed.
    std::function<void(const PackedPicture&)> show;
    // A sentence for the user: a stream is lost or back, an input cannot be played. May be empty; may not
    // throw.
    std::function<void(const std::string&)> message;
};

class Player {
  public:
    // An input as MediaReader takes it, or a source, whose pictures are shown at 25 a second.
    using Input = std::variant<std::string, std::unique_ptr<PictureSource>>;

    Player(Input input, const PlayerSettings& settings, PlayerCallbacks callbacks);
    ~Player();  // ends the thread, whatever it waits for
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    void pause(bool paused);
    // Shows the next picture; pauses where it is not paused already.
    void step();

    // False where the input cannot be sought (not open yet, the sample, a still, a live input); times beyond
    // the ends become the ends. While paused the picture there is shown.
    bool seekTo(double seconds);
    bool seekBy(double seconds);

    PlayerStatus status() const;
    double position() const { return status().position; }
    std::optional<double> duration() const { return status().duration; }

  private:
    std::unique_ptr<PlayerControl> _control;
    std::unique_ptr<PlayerLoop> _loop;
};

}  // namespace fovix_host
