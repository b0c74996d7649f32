// The main loop of fovix-view: handles events, steers the view, follows the playback and renders if anything
// changed.
#pragma once

#include <memory>
#include <string>

#include "output/OwnOutput.h"
#include "setup/View.h"
#include "viewer/aim/LibraryCalls.h"
#include "viewer/options/ViewerOptions.h"
#include "viewer/overlay/Overlay.h"
#include "viewer/playback/Playback.h"
#include "viewer/pointer/Gestures.h"
#include "viewer/state/Keys.h"
#include "viewer/state/ShownView.h"
#include "viewer/state/ViewWatch.h"
#include "viewer/window/Events.h"
#include "viewer/window/StepClock.h"
#include "viewer/window/Window.h"

namespace fovix_host {

class Viewer {
  public:
    // Opens the window. Throws std::runtime_error with a message for the user.
    Viewer(const ViewerOptions& options, OwnOutput& out);

    // Runs until the user quits or the inputs end; returns the exit status.
    int run();

  private:
    // Events
    void handleEvents();
    void handle(const PointerEvent& event);
    void handle(const KeyEvent& event);
    void handle(const DropEvent& event);
    void handle(const SensorEvent& event);
    void handle(WindowEvent event);
    int waitMilliseconds() const;

    // Keys
    void perform(const Key& key);
    void performOnView(const Key& key);
    void performOnPlayback(const Key& key);
    void leave();
    void saveScreenshot();

    // Playback
    void followPlayback();
    void followLens();
    void checkLens();
    void updateNumbers();

    // Rendering
    void resize();
    void draw();
    void drawHidden(int steps);
    void drawView();
    void say(const std::string& message);
    void warn(const std::string& message);  // also on standard error
    void wake(double seconds);              // the view may move for this time

    const ViewerOptions& _options;
    OwnOutput& _out;
    Window _window;
    SurfaceScale _scale;
    View _view;
    std::unique_ptr<Playback> _playback;
    ShownView _shown;
    LibraryCalls _calls;
    Gestures _gestures;
    EventReader _events;
    Overlay _overlay;
    StepClock _clock;
    ViewWatch _watch;
    FrameRelay::Size _frameSize;
    double _movesUntil = 0;  // the view may animate until then
    bool _mustDraw = true;
    bool _numbersShown = false;
    double _numbersSince = 0;
    int _framesSince = 0;  // rendered since _numbersSince
    bool _quit = false;
    int _status = 0;
};

}  // namespace fovix_host
