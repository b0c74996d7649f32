// Pictures with landmarks: discs of one colour each, whose places on the surface a test works out by itself
// with the small vector arithmetic below. A point carries through a screen as a row: every turn and move in
// its order, the eye in the origin, looking along −z.
#pragma once

#include <functional>
#include <vector>

#include "Image.h"

namespace fovix_test {

struct Vec {
    double x, y, z;
};

Vec turnedX(const Vec& p, double degrees);
Vec turnedY(const Vec& p, double degrees);
Vec turnedZ(const Vec& p, double degrees);
Vec moved(const Vec& p, double x, double y, double z);
double radians(double degrees);

/// On a viewport: −1 left and bottom, 1 right and top. An unsure place may be hidden.
struct Place {
    double x, y;
    bool sure = true;
};
using Places = std::vector<Place>;

/// A point before the eye: the field of view counts across, aspect is width by height.
Place seen(const Vec& p, double fieldOfView, double scale, double aspect);

struct PicturePoint {
    double x, y;  ///< pixels from the top left
};
using Projection = std::function<Places(const PicturePoint&)>;

/// A part of the surface, the origin at the bottom left.
struct Viewport {
    int x, y, width, height;
};

class LandmarkPicture {
  public:
    LandmarkPicture(int width, int height, std::vector<PicturePoint> landmarks, double radius);

    const Image& image() const { return image_; }

    /// Every landmark lies where the projection says, in its size, and nowhere else in the viewport; at least
    /// this many lie there whole.
    testing::AssertionResult isSeenIn(const Image& surface, const Viewport& viewport,
                                      const Projection& projection, int atLeast,
                                      double tolerance = 1.5) const;

  private:
    struct Spot;  ///< where a landmark is to appear, in pixels from the top left
    std::vector<Spot> spotsOf(const PicturePoint& landmark, const Projection& projection,
                              const Viewport& viewport, int surfaceHeight) const;

    std::vector<PicturePoint> landmarks_;
    double radius_;
    Image image_;
};

/// An equidistant lens of 170 degrees in a picture; ry differs from rx where the pixels are not square.
struct Lens {
    int width, height, xCenter, yCenter;
    double rx, ry = rx;

    /// Right and down from the centre; 1 is the rim.
    PicturePoint onDisc(const PicturePoint& p) const { return {(p.x - xCenter) / rx, (p.y - yCenter) / ry}; }
    /// 24 landmarks on rings at 20, 38, 56 and 72 degrees off the axis.
    LandmarkPicture picture() const;
};

/// Closed loops of lines, in places on the whole surface: its pixels have the colour, and no others do.
testing::AssertionResult showsLoops(const Image& surface, const std::vector<Places>& loops, Rgba colour);

inline constexpr Rgba kRedFrame = {242, 20, 20, 255}, kWhiteFrame = {255, 255, 255, 255};

}  // namespace fovix_test
