// Searches for the lens circle in the frames as they are played, if it is unknown. The first frame decides if
// its circle is certain; otherwise some later frames help.
#pragma once

#include <mutex>
#include <optional>

#include "circle/LensChoice.h"
#include "media/FramePacker.h"

namespace fovix_host {

class LensWatch {
  public:
    // Does not search if the lens is given or stored. Throws std::runtime_error if the camera's file cannot
    // be read or written.
    LensWatch(LensRequest request, bool searches);

    // Called on a player's thread; cheap once the lens is known.
    void look(const PackedFrame& frame);

    // Returns the choice once, without waiting for it. noMoreFrames: decide with the frames so far. Throws
    // like the constructor.
    std::optional<LensChoice> takeChoice(bool noMoreFrames);

  private:
    LensRequest _request;
    std::optional<LensChoice> _known;  // without a search
    std::mutex _mutex;                 // guards the following
    LensFinder _finder;
    std::optional<FoundLens> _found;
    int _seen = 0;
    bool _searching;
    bool _decided = false;
};

}  // namespace fovix_host
