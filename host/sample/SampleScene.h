// The procedural input of the programs: a car park seen through an equidistant fisheye lens of 170 degrees,
// from the ceiling straight down or from the western wall along the lane. The image depends only on camera,
// size and frame number; it is black outside the lens circle.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "circle/LensCircle.h"
#include "image/RgbaImage.h"
#include "sample/CarPark.h"

namespace fovix_host {

// A direction in camera coordinates: x to the right and y down in the image, z along the optical axis.
using CameraDirection = Vec3;

struct FramePoint {
    double x = 0, y = 0;  // pixels from the left and top edge of the image
};

// Projects a direction (of any length above 0) onto the image.
FramePoint project(const LensCircle& lens, CameraDirection direction);

class SampleScene {
  public:
    enum class Camera { kCeiling, kWall };
    static constexpr double kHalfFieldOfView = 85.0;

    // Sizes are pixels, 16 or more each way.
    SampleScene(Camera camera, int width, int height);

    const LensCircle& lens() const { return _lens; }

    // The image at a frame number, 25 per second; valid until the next call. The first call also draws
    // everything that never moves; later ones draw only the traffic.
    const RgbaImage& image(int frame);

    // The coloured panels that this camera sees, with their directions.
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
        int left, top, right, bottom;  // right and bottom are exclusive
    };
    static Pose poseOf(Camera camera);
    CameraDirection toCamera(Vec3 place) const;
    Area areaOf(const Sphere& part) const;
    std::optional<Ray> rayThrough(FramePoint point) const;  // nullopt outside the lens circle
    Vec3 lookAt(FramePoint point) const;
    Vec3 smoothed(int x, int y) const;
    // Casts one ray per pixel to find the edges, and supersamples only those.
    void drawStill();
    void drawMoving(const Sphere& part);

    Pose _pose;
    LensCircle _lens;
    CarPark _carPark;
    RgbaImage _still;
    RgbaImage _stillCentres;  // the same with one ray per pixel
    RgbaImage _image;
};

}  // namespace fovix_host
