#include "view/Screens180VR.h"

#include "Fovix.h"

namespace fovix {

namespace {

/// The stretched panorama and the curved screen move by a model unit for this angle.
constexpr double kWideDegreesPerUnit = 100.0;

/// Share of an angle by which a mesh turns where the angle moves it as well; the cylinder tilts by it, too.
constexpr double kTiltShare = 0.5;

/// Lifts the cylinder, so that more of its lower rows is in view.
constexpr double kCylinderLift = 0.1;

constexpr Screen180VR screenOn(const SurfaceRect& rect) {
    return {rect, rect.width, rect.height};
}

/// Turns and moves the mesh in the way that suits its form.
void applyView(Mat4& m, const RotateZoomView& view, const Scene180VR& scene) {
    const double xAngle = view.mRotateX, yAngle = view.mRotateY, zAngle = view.mRotateZ;
    switch (scene.drawMode) {
        case FOVIX_180_CURVED:  // about the middle of the screen's curve
            Mat4_Translate(m, 0.0, 0.0, -scene.meshExtent);
            Mat4_RotateY(m, yAngle);
            Mat4_RotateZ(m, zAngle);
            Mat4_Translate(m, 0.0, 0.0, scene.meshExtent);
            Mat4_RotateX(m, -xAngle * kTiltShare);
            Mat4_Translate(m, 0.0, xAngle / kWideDegreesPerUnit, 0.0);
            break;
        case FOVIX_180_STRETCH:
            Mat4_Translate(m, yAngle / -kWideDegreesPerUnit, xAngle / kWideDegreesPerUnit, 0.0);
            break;
        case FOVIX_180_CYLINDER:
            Mat4_RotateY(m, -yAngle);
            Mat4_RotateX(m, xAngle * kTiltShare);
            Mat4_Translate(m, 0.0, kCylinderLift, 0.0);
            break;
        default:
            Mat4_RotateY(m, yAngle * kTiltShare);
            Mat4_RotateX(m, xAngle * -kTiltShare);
            Mat4_Translate(m, yAngle / -kDegreesPerUnit, xAngle / kDegreesPerUnit, 0.0);
    }
}

}  // namespace

Layout180VR layout180VR(int shape, int width, int height) {
    const int w2 = width / 2, h2 = height / 2, h3 = height / 3;
    switch (shape) {
        case FOVIX_SHAPE_FOUR_SCREENS:
            return {4,
                    {screenOn({0, h2, w2, h2}), screenOn({w2, h2, w2, h2}), screenOn({0, 0, w2, h2}),
                     screenOn({w2, 0, w2, h2})}};
        case FOVIX_SHAPE_LARGE_AND_TWO:
            return {3,
                    {Screen180VR{{0, h3, 2 * w2, 2 * h3}, width, 2 * h3}, screenOn({0, 0, w2, h3}),
                     screenOn({w2, 0, w2, h3})}};
        default:
            return {1, {screenOn({0, 0, width, height})}};
    }
}

int screenAt180VR(int shape, int width, int height, int x, int y) {
    const bool right = x >= width / 2, lower = y >= height / 2;
    if (shape == FOVIX_SHAPE_FOUR_SCREENS) return (lower ? 2 : 0) + (right ? 1 : 0);
    if (shape == FOVIX_SHAPE_LARGE_AND_TWO && lower) return right ? 2 : 1;
    return 0;
}

Mat4 screenMatrix180VR(const RotateZoomView& view, const Scene180VR& scene, int width, int height) {
    Mat4 m;
    Mat4_Scale(m, 1.0, 1.0, -1.0);
    Mat4_RotateY(m, 180.0);
    if (scene.lensOffsetX != 0.0 || scene.lensOffsetY != 0.0) {
        Mat4_Translate(m, scene.lensOffsetX, scene.lensOffsetY, 0.0);
    }
    applyView(m, view, scene);
    if (scene.rotation >= 0.0) Mat4_RotateZ(m, scene.rotation);
    Mat4_Translate(m, 0.0, 0.0, -1.0);
    Mat4_Perspective(m, fieldOfViewForZoom(view.mZoom), kNearPlane, kFarPlane, width, height, 1.0);
    return m;
}

}  // namespace fovix
