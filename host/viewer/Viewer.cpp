#include "viewer/Viewer.h"

#include <SDL_opengl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

#include "media/InputName.h"
#include "media/PngWriter.h"
#include "viewer/Screenshot.h"
#include "viewer/state/ViewKeys.h"
#include "viewer/window/Sensors.h"

namespace fovix_host {
namespace {

// Seconds. An event can start an animation that does not change the angles: the longest is the blend of
// layouts.
constexpr double kAnimationTime = 1.6;
constexpr double kMotionTime = 0.1;  // after the angles changed
constexpr double kNumbersInterval = 0.5;

std::string titleOf(const ViewerOptions& options) {
    if (options.input.inputs.empty()) return "sample - fovix-view";
    return shownName(options.input.inputs.front()) + " - fovix-view";
}

void printError(const std::string& message) {
    std::fprintf(stderr, "fovix-view: %s\n", message.c_str());
}

}  // namespace

Viewer::Viewer(const ViewerOptions& options, OwnOutput& out)
    : _options(options),
      _out(out),
      _window(titleOf(options), options.window, options.fullScreen),
      _view(Fovix_Create),
      _shown(_view.handle(), options, _playback),
      _calls(
          _view.handle(), [this]() -> FrameRelay& { return _playback->frames(); }, _shown, _scale,
          [this](const std::string& message) { say(message); }),
      _gestures(_calls),
      _overlay(Font::open()) {
    Fovix_Prepare(_view.handle());
    resize();
    _playback = std::make_unique<Playback>(
        _options, Playback::Host{_view.handle(), _window.maxTextureSize(), wakeEventLoop});
    _shown.reset();
    if (_options.sensors && !openAccelerometers()) {
        printError("no accelerometer found; --sensors has no effect");
        say("no accelerometer");
    }
}

int Viewer::run() {
    while (!_quit) {
        handleEvents();
        _gestures.tick(secondsNow());
        resize();
        followPlayback();
        draw();
    }
    return _status;
}

// Events

int Viewer::waitMilliseconds() const {
    constexpr int kResting = 200;  // milliseconds
    const double now = secondsNow();
    if (!_window.isVisible()) return kResting;
    const bool moves = _mustDraw || _gestures.isWheelTurning() || now < _movesUntil;
    if (moves) return static_cast<int>(std::ceil(_clock.untilNext(now) * 1000));
    return kResting;
}

void Viewer::handleEvents() {
    SDL_Event event;
    if (SDL_WaitEventTimeout(&event, waitMilliseconds()) == 0) return;
    do {
        if (const auto read = _events.read(event, _scale))
            std::visit([this](const auto& known) { handle(known); }, *read);
    } while (!_quit && SDL_PollEvent(&event) != 0);
}

void Viewer::handle(const PointerEvent& event) {
    const bool isHover = event.kind == PointerEvent::Kind::kMove && !_gestures.isDown();
    if (isHover) return;
    const bool begins = event.kind != PointerEvent::Kind::kMove && event.kind != PointerEvent::Kind::kCancel;
    if (begins) _shown.stopCruise();
    _gestures.handle(event);
    wake(kAnimationTime);
}

void Viewer::handle(const KeyEvent& event) {
    const Key* key = keyNamed(event.name);
    if (!key || (event.repeated && !key->repeats)) return;
    perform(*key);
    wake(kAnimationTime);
}

void Viewer::handle(const DropEvent& event) {
    try {
        auto playback = std::make_unique<Playback>(
            event.file, _options, Playback::Host{_view.handle(), _window.maxTextureSize(), wakeEventLoop});
        _playback = std::move(playback);
        _frameSize = {};
        _window.setTitle(shownName(event.file) + " - fovix-view");
        _gestures.forget();
        _shown.apply();
        _shown.setLens(std::nullopt);
    } catch (const std::exception& problem) {
        warn(problem.what());
    }
    wake(kAnimationTime);
}

void Viewer::handle(const SensorEvent& event) {
    steerByAcceleration(_view.handle(), event.x, event.y);
    wake(kAnimationTime);
}

void Viewer::handle(WindowEvent event) {
    if (event == WindowEvent::kQuit) _quit = true;
    if (event != WindowEvent::kExposed) return;
    resize();  // the positions of the next events refer to the new size
    _mustDraw = true;
}

// Keys

void Viewer::perform(const Key& key) {
    switch (key.action) {
        case Action::kPause:
        case Action::kSeek:
        case Action::kStep:
            return performOnPlayback(key);
        case Action::kFullScreen:
            return _window.setFullScreen(!_window.isFullScreen());
        case Action::kScreenshot:
            return saveScreenshot();
        case Action::kStatistics:
            _numbersShown = !_numbersShown;
            return updateNumbers();
        case Action::kHelp:
            return _overlay.toggleHelp();
        case Action::kLeave:
            return leave();
        case Action::kQuit:
            _quit = true;
            return;
        default:
            return performOnView(key);
    }
}

void Viewer::performOnView(const Key& key) {
    const bool keepsGestures = key.action == Action::kCruise || key.action == Action::kCruiseSpeed ||
                               key.action == Action::kBackground;
    if (!keepsGestures) _gestures.forget();
    if (const std::string message = changeView(_shown, key); !message.empty()) say(message);
}

void Viewer::performOnPlayback(const Key& key) {
    if (key.action == Action::kPause) {
        _playback->togglePause();
        return say(_playback->isPaused() ? "paused" : "playing");
    }
    if (key.action == Action::kStep) return _playback->step();
    if (!_playback->seekBy(key.amount)) return say("cannot seek");
    say((key.amount < 0 ? "" : "+") + std::to_string(key.amount) + " s");
}

void Viewer::leave() {
    if (_overlay.isHelpShown())
        _overlay.toggleHelp();
    else if (_window.isFullScreen())
        _window.setFullScreen(false);
    else
        _quit = true;
}

void Viewer::saveScreenshot() {
    try {
        const std::string name = screenshotName();
        drawView();
        writePng(name, _window.readPixels());
        say("saved " + name);
        _out.line(name);
    } catch (const ReaderGone&) {
    } catch (const std::exception& problem) {
        warn(problem.what());
    }
}

// Playback

void Viewer::followPlayback() {
    if (_playback->frames().takeNew()) _mustDraw = true;
    if (const FrameRelay::Size size = _playback->frames().size(); size != _frameSize) {
        _frameSize = size;
        _shown.applyLens();
        checkLens();
        wake(kAnimationTime);
    }
    followLens();
    const bool ended = _playback->hasEnded();  // before takeMessages(), so that no last message is lost
    for (const std::string& message : _playback->takeMessages()) warn(message);
    if (_numbersShown && secondsNow() - _numbersSince >= kNumbersInterval) updateNumbers();
    if (_options.keepOpen || !ended) return;
    _quit = true;
    if (_playback->hasFailed()) _status = 1;
}

void Viewer::followLens() {
    try {
        const auto choice = _playback->takeLens();
        if (!choice) return;
        if (!choice->message.empty()) printError(choice->message);
        _shown.setLens(choice->lens);
        checkLens();
        wake(kAnimationTime);
    } catch (const std::exception& problem) {
        warn(problem.what());
    }
}

void Viewer::checkLens() {
    if (const std::string misfit = _shown.misfit(); !misfit.empty()) warn(misfit);
}

void Viewer::updateNumbers() {
    const double now = secondsNow();
    const double framesPerSecond = _framesSince / std::max(now - _numbersSince, 0.001);
    _numbersSince = now;
    _framesSince = 0;
    _mustDraw = true;
    if (!_numbersShown) return _overlay.setNumbers("");
    const PlayerStatus status = _playback->status();
    char text[160];
    std::snprintf(text, sizeof text, "%dx%d   %.1f frames/s   %ld dropped   %.0f rendered/s   %.1f s",
                  status.width, status.height, status.framesPerSecond, _playback->dropped(), framesPerSecond,
                  status.position);
    _overlay.setNumbers(text);
}

// Rendering

// Polled, because not every window system reports all changes.
void Viewer::resize() {
    const SurfaceScale scale = _window.scale();
    if (scale == _scale) return;
    _scale = scale;
    Fovix_SetPPIZoom(scale.ppiZoom);
    Fovix_Init(_view.handle(), scale.width, scale.height);
    wake(kAnimationTime);
}

void Viewer::draw() {
    const double now = secondsNow();
    if (!_window.isVisible()) return;
    const bool moves = now < _movesUntil;
    if (!moves && !_mustDraw) return;
    if (!moves) _clock.restart(now);
    const int steps = _clock.due(now);
    if (steps == 0) return;
    drawHidden(steps - 1);
    drawView();
    _overlay.draw(_scale, _gestures.band(), now);
    _window.present();
    ++_framesSince;
    _mustDraw = false;
    if (_watch.hasMoved(_view.handle())) wake(kMotionTime);
}

// Animation steps that the display is too slow to show; one pixel of them is enough.
void Viewer::drawHidden(int steps) {
    if (steps < 1) return;
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, 1, 1);
    for (int i = 0; i < steps; ++i) drawView();
    glDisable(GL_SCISSOR_TEST);
}

void Viewer::drawView() {
    Fovix_Drawself(_view.handle());
}

void Viewer::say(const std::string& message) {
    _overlay.say(message, secondsNow());
    wake(Overlay::kWordSeconds);
}

void Viewer::warn(const std::string& message) {
    printError(message);
    say(message);
}

void Viewer::wake(double seconds) {
    const double now = secondsNow();
    if (now >= _movesUntil) _clock.restart(now);
    _movesUntil = std::max(_movesUntil, now + seconds);
}

}  // namespace fovix_host
