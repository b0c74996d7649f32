// User-selected view state: type, layout, cruise, background and lens circle. Applies it to the library,
// including the lens circle, which a change of type resets.
#pragma once

#include <Fovix.h>

#include <optional>
#include <string>

#include "circle/LensCircle.h"
#include "options/ViewOptions.h"
#include "viewer/playback/Playback.h"

namespace fovix_host {

class ShownView {
  public:
    // The playback may be replaced later.
    ShownView(VRHANDLE handle, const ViewerOptions& options, const std::unique_ptr<Playback>& playback);

    // Applies everything but the lens.
    void apply();
    // Call it for frames of a new size, or a new playback.
    void applyLens();
    void setLens(const std::optional<LensCircle>& lens);
    // The circle in use; nullopt for the library's default.
    std::optional<LensCircle> lens() const;
    // A warning if the circle does not fit the frames, else empty.
    std::string misfit() const;

    int inputs() const { return _playback->frames().count(); }
    // The current state; the library changes some of it by itself.
    ViewOptions options() const;
    // Returns true if anything changes.
    bool change(const ViewOptions& wanted);
    void reset();

    bool toggleCruise();  // returns false if the view cannot cruise
    void changeCruiseSpeed(int steps);
    void stopCruise();
    void nextBackground();
    unsigned int background() const { return _background; }

    std::string description() const;
    std::string cruiseDescription() const;

  private:
    bool showsWholeFrame() const;  // not half a frame, nor a cell of a grid
    void setType(int type) const;
    void startCruise() const;

    VRHANDLE _handle;
    const ViewerOptions& _options;
    const std::unique_ptr<Playback>& _playback;
    ViewOptions _view;
    std::optional<LensCircle> _lens;  // given, stored or found
    unsigned int _background;
    double _cruiseSpeed = 1;
    bool _cruising = false;
};

}  // namespace fovix_host
