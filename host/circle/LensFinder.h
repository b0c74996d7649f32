// Finds the lens circle in the pictures of a camera, handed in one by one. Several pictures from different
// moments are better than one: light that passes by shows more of the circle's edge.
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
    int visible = 0;        // directions in which the circle lies in the picture, of 360
    int tolerance = 0;      // pixels

    // Below this the circle is a guess that nobody should see a view with.
    bool isSure() const { return confidence >= 0.6; }
    // "93 %"
    std::string percent() const;
    // "confidence 93 %: the scene begins within 9 pixels of the circle in 340 of 360 directions"
    std::string inWords() const;
};

class LensFinder {
  public:
    // Keeps a reduced picture only. One of another size than those before starts anew.
    void add(const LumaView& picture);

    // The best circle so far; nothing where there is none to see.
    std::optional<FoundLens> result() const;

    int pictures() const { return _pictures; }

  private:
    void startWith(const LumaView& picture);

    int _width = 0, _height = 0;
    int _factor = 1;
    int _pictures = 0;
    // Pixel by pixel. The second brightest does without a flash, or a picture from a damaged video.
    GreyImage _brightest, _second;
};

}  // namespace fovix_host
