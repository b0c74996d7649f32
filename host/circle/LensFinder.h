// Finds the lens circle in a camera's frames, which are added one by one. Several frames from different
// moments show more of the circle's edge than one.
#pragma once

#include <optional>
#include <string>

#include "circle/LensCircle.h"
#include "image/GreyImage.h"

namespace fovix_host {

struct FoundLens {
    LensCircle circle;
    double confidence = 0;  // from 0 to 1
    int agreeing = 0;       // directions in which the scene begins within the tolerance of the circle
    int visible = 0;        // directions, of 360, in which the circle is inside the image
    int tolerance = 0;      // pixels

    // Minimum confidence for using the circle; it separates right from wrong circles in the test images.
    static constexpr double kMinConfidence = 0.6;
    bool isSure() const { return confidence >= kMinConfidence; }
    // "93 %"
    std::string percent() const;
    // "confidence 93 %: the scene begins within 9 pixels of the circle in 340 of 360 directions"
    std::string description() const;
};

class LensFinder {
  public:
    // A frame of a different size discards the previous ones.
    void add(const LumaView& frame);

    // Best circle so far, if any.
    std::optional<FoundLens> result() const;

    int frames() const { return _frames; }

  private:
    void restartWith(const LumaView& frame);

    int _width = 0, _height = 0;
    int _factor = 1;
    int _frames = 0;
    // Per pixel, over all frames. The second brightest ignores a single flash or damaged frame.
    GreyImage _brightest, _second;
};

}  // namespace fovix_host
