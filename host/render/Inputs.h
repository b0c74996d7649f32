// The inputs of fovix-render: reads their frames, submits them to the view (one slot per input for the types
// grid and lenses) and chooses the lens circle.
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
    // Reads the first frame of each input. Throws std::runtime_error with a message that names the input.
    Inputs(const RenderOptions& options, const MediaOptions& media);

    // 0 with a script that names its own inputs.
    int count() const { return static_cast<int>(_sources.size()); }
    // The given or found circle, else the default of the type.
    const std::optional<LensCircle>& lens() const { return _lens; }
    const std::optional<PackedFrame>& firstFrame() const { return _frames.front(); }

    void submit(VRHANDLE view) const;

    // Reads the next frames. Returns false when all videos have ended. Reports each video that ends before
    // the others or before the last rendered frame; framesLeft is 0 if unknown.
    bool advance(int framesRendered, int framesLeft);

    // Of all inputs together: they end when all recordings have ended.
    Motion motion() const;
    // Time, rate and duration are those of the first input that moves; the time is relative to its first
    // frame.
    double seconds() const { return _seconds; }
    double frameRate() const;
    std::optional<double> duration() const;

  private:
    std::optional<LensCircle> chooseLens() const;
    LensChoice searchLens() const;
    void warnOfMisfit() const;
    void open(MediaOptions media);
    std::size_t leader() const;
    void warnOfEnd(std::size_t slot, int framesRendered, int framesLeft) const;
    void submitFrame(VRHANDLE view, int slot, const PackedFrame& frame) const;

    const RenderOptions& _options;
    std::vector<std::unique_ptr<FrameSource>> _sources;
    std::vector<std::optional<PackedFrame>> _frames;  // nullopt: the previous frame stays
    int _width = 0, _height = 0;                      // of the first input
    std::optional<LensCircle> _lens;
    double _seconds = 0;
    std::function<void(const std::string&)> _notify;
    std::function<bool()> _interrupted;
};

}  // namespace fovix_host
