// The state that a person gave the view: type, mount, shape and the like, cruise and background; brings the
// library's view into it, the lens circle included, which a change of type forgets.
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
    // The playback is the one shown at the time of a call.
    ShownView(VRHANDLE handle, const ViewerOptions& options, const std::unique_ptr<Playback>& playback);

    // Everything that the options ask for.
    void apply();
    // For a picture of another size, or another playback.
    void applyLens();
    void setLens(const std::optional<LensCircle>& lens);
    // The one that is shown; nothing for the library's own.
    std::optional<LensCircle> lens() const;
    // What is wrong with it for the picture, where both are known.
    std::string misfit() const;

    int pictures() const { return _playback->frames().count(); }
    // The library changes some of it itself; this is what it shows now.
    ViewOptions options() const;
    // Gives whether anything changes.
    bool change(const ViewOptions& wanted);
    void reset();

    bool toggleCruise();  // false where the view cannot cruise
    void changeCruiseSpeed(int steps);
    void stopCruise();
    void nextBackground();
    unsigned int background() const { return _background; }

    std::string words() const;
    std::string cruiseWords() const;

  private:
    bool showsWholeFrame() const;  // neither two in one nor the cells of a grid
    void setType(int type) const;
    void startCruise() const;

    VRHANDLE _handle;
    const ViewerOptions& _options;
    const std::unique_ptr<Playback>& _playback;
    ViewOptions _view;
    std::optional<LensCircle> _lens;  // as told, kept or found
    unsigned int _background;
    double _cruiseSpeed = 1;
    bool _cruising = false;
};

}  // namespace fovix_host
