// The pictures of one or several inputs on their way into the view: slot by slot for the grid and the
// lenses, and with the lens circle that belongs to them.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "circle/LensChoice.h"
#include "media/FrameSource.h"
#include "render/RenderOptions.h"

namespace fovix_host {

class Inputs {
  public:
    // Reads the first picture of each; those of a file begin and fit as demanded. Throws std::runtime_error
    // with a sentence that names the input.
    Inputs(const RenderOptions& options, const MediaOptions& demands);

    // How many there are; none with a script that brings its own pictures.
    int count() const { return static_cast<int>(_sources.size()); }
    // The one given or found, else what fits the pictures and the type.
    const std::optional<LensCircle>& lens() const { return _lens; }
    const std::optional<PackedFrame>& firstPicture() const { return _pictures.front(); }

    void handIn(VRHANDLE view) const;

    // Reads the next pictures, where there are any; false when all that moved have ended. Says so once where
    // a video ends after several; how many frames are left to draw is 0 where it is not known.
    bool advance(int framesDrawn, int framesLeft);

    // What they are together: they end when all recordings among them have.
    Motion motion() const;
    // Of the first one that moves: what tells the time of a frame, in seconds since the first.
    double seconds() const { return _seconds; }
    double frameRate() const;
    std::optional<double> duration() const;

  private:
    std::optional<LensCircle> chooseLens() const;
    LensChoice askForLens() const;
    void sayMisfit() const;
    void open(MediaOptions demands);
    std::size_t leader() const;
    void sayEnded(std::size_t slot, int framesDrawn, int framesLeft) const;
    void setPicture(VRHANDLE view, int slot, const PackedFrame& picture) const;

    const RenderOptions& _options;
    std::vector<std::unique_ptr<FrameSource>> _sources;
    std::vector<std::optional<PackedFrame>> _pictures;  // empty where the one before stays
    int _width = 0, _height = 0;                        // of the first one
    std::optional<LensCircle> _lens;
    double _seconds = 0;
    std::function<void(const std::string&)> _notify;
    std::function<bool()> _interrupted;
};

}  // namespace fovix_host
