// Finds the lens circle in the pictures as they are played, when nobody has told it. The first one decides
// where its circle is beyond doubt; else some more from other moments help.
#pragma once

#include <mutex>
#include <optional>

#include "circle/LensChoice.h"
#include "media/FramePacker.h"

namespace fovix_host {

class LensWatch {
  public:
    // Looks for nothing where the lens is at hand. Throws std::runtime_error where the camera's file cannot
    // be read or written.
    LensWatch(LensRequest request, bool searches);

    // On a player's thread; cheap once the lens is known.
    void look(const PackedFrame& picture);

    // The choice, once, and without waiting for it; noMoreFrames: there are none to come. Throws as above.
    std::optional<LensChoice> takeChoice(bool noMoreFrames);

  private:
    LensRequest _request;
    std::optional<LensChoice> _atHand;
    std::mutex _mutex;  // guards what follows
    LensFinder _finder;
    std::optional<FoundLens> _found;
    int _seen = 0;
    bool _searching;
    bool _decided = false;
};

}  // namespace fovix_host
