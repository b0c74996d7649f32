// What the viewer draws over the view: a fading message, the numbers, the help and the rectangle of a drag.
#pragma once

#include <optional>
#include <string>

#include "viewer/overlay/Canvas.h"
#include "viewer/pointer/Gestures.h"

namespace fovix_host {

class Overlay {
  public:
    explicit Overlay(std::unique_ptr<Font> font) : _canvas(std::move(font)) {}

    static constexpr double kWordSeconds = 2;

    // Replaces the current message.
    void say(const std::string& word, double seconds);
    void setNumbers(const std::string& numbers) { _numbers = numbers; }
    void toggleHelp() { _help = !_help; }
    bool isHelpShown() const { return _help; }

    // Opacity of the message, fading from 1 to 0.
    double wordStrength(double seconds) const;

    void draw(const SurfaceScale& scale, const std::optional<Gestures::Band>& band, double seconds);

  private:
    void drawWord(float strength);
    void drawNumbers();
    void drawHelp();
    void drawBand(const SurfaceScale& scale, const Gestures::Band& band);

    Canvas _canvas;
    std::string _word, _numbers;
    double _saidAt = -100;
    bool _help = false;
};

}  // namespace fovix_host
