// The procedural input of the programs: a car park hall seen through an equidistant fisheye lens of 170
// degrees, from the ceiling straight down or from the western wall along the lane. The picture depends
// only on camera, size and frame number; outside the lens circle it is black.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "circle/LensCircle.h"
#include "image/RgbaImage.h"
#include "sample/CarPark.h"

namespace fovix_host {

// A direction as the camera has it: x to the right and y down in the picture, z along the optical axis.
using CameraDirection = Vec3;

struct FramePoint {
    double x = 0, y = 0;  // pixels from the left and top edge of the picture
};

// Where the lens shows a direction (of any length above 0).
FramePoint project(const LensCircle& lens, CameraDirection direction);

class SampleScene {
  public:
    enum class Camera { kCeiling, kWall };
    static constexpr double kHalfFieldOfView = 85.0;

    // Sizes are pixels, 16 or more each way.
    SampleScene(Camera camera, int width, int height);

    const LensCircle& lens() const { return _lens; }

    // The picture of a frame, 25 of them a second; valid until the next call. The first call also draws
    // what never moves, later ones only what does.
    const RgbaImage& picture(int frame);

    // The coloured panels that this camera has in view, and where.
    struct VisibleLandmark {
        const char* name;
        std::array<std::uint8_t, 3> colour;
        CameraDirection direction;
    };
    std::vector<VisibleLandmark> visibleLandmarks() const;

  private:
    struct Pose {
        Vec3 place, right, down, axis;
    };
    struct Area {
        int left, top, right, bottom;  // the last two are one past the area
    };
    static Pose poseOf(Camera camera);
    CameraDirection toCamera(Vec3 place) const;
    Area areaOf(const Sphere& part) const;
    std::optional<Ray> rayThrough(FramePoint point) const;  // nothing outside the lens circle
    Vec3 lookAt(FramePoint point) const;
    Vec3 smoothed(int x, int y) const;
    // One line of sight per pixel finds the edges; only those are looked at closely.
    void drawStill();
    void drawMoving(const Sphere& part);

    Pose _pose;
    LensCircle _lens;
    CarPark _carPark;
    RgbaImage _still;
    RgbaImage _stillCentres;  // the same with one line of sight per pixel
    RgbaImage _picture;
};

}  // namespace fovix_host
