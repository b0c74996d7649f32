// fovix-view at work: takes events, steers the view, follows what is played and draws when there is something
// to see.
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
    // Opens the window. Throws std::runtime_error with a sentence for the user.
    Viewer(const ViewerOptions& options, OwnOutput& out);

    // Until the user quits or the input ends; the status of the program.
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

    // Following what is played
    void followPlayback();
    void followLens();
    void checkLens();
    void updateNumbers();

    // Drawing
    void resize();
    void draw();
    void drawHidden(int steps);
    void drawView();
    void say(const std::string& word);
    void tell(const std::string& text);  // also on standard error
    void wake(double seconds);           // the view may move for so long

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
    FrameRelay::Size _pictureSize;
    double _movesUntil = 0;  // by itself, as far as is known
    bool _drawWanted = true;
    bool _numbersShown = false;
    double _numbersSince = 0;
    int _framesSince = 0;  // _numbersSince
    bool _quit = false;
    int _status = 0;
};

}  // namespace fovix_host
