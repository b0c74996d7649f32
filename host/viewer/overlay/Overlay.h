// What the viewer itself shows over the picture: a word that fades, the numbers, the help, the rectangle that
// is being drawn.
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

    // A word in place of the one before.
    void say(const std::string& word, double seconds);
    void setNumbers(const std::string& numbers) { _numbers = numbers; }
    void toggleHelp() { _help = !_help; }
    bool isHelpShown() const { return _help; }

    // How strongly the word is seen: 1, then less, then 0.
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
