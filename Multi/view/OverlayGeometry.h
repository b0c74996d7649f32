// Geometry of the flat-colour frames and indicators that lie over the picture; pure functions without GL.
//
// Normalised device coordinates of the whole surface (x and y from −1 to 1, y up); x, y, z per vertex, z 0,
// in the order of a closed line loop.
#pragma once

#include <array>
#include <optional>

namespace fovix {

inline constexpr int kFanVertices = 100;
inline constexpr int kQuadVertices = 4;

using FanLoop = std::array<float, 3 * kFanVertices>;
using QuadLoop = std::array<float, 3 * kQuadVertices>;

/// The rectangle from top left over top right and bottom right to bottom left.
constexpr QuadLoop quadOf(float left, float right, float top, float bottom) {
    return {left, top, 0.0f, right, top, 0.0f, right, bottom, 0.0f, left, bottom, 0.0f};
}

/// Outline of the inset that shows the whole picture.
inline constexpr QuadLoop kOverviewOutline = quadOf(-0.303f, 0.90300006f, -0.525f, -0.875f);

/// The frame round a screen of a multi-screen shape; none for other shapes and for the large overview screen.
std::optional<QuadLoop> screenFrame(int shape, int screen);

/// Height by width of a surface in pixels; none where there is no surface.
std::optional<float> directionFanAspect(int backingWidth, int backingHeight);

/// The sector of the overview screen's circle that a view of pan and tilt (degrees) looks at: the outer arc's
/// vertices, then the inner arc's. aspect, above 0, keeps it round on the surface.
FanLoop buildDirectionFan(float aspect, double pan, double tilt);

/// Height by width of a screen above the strip; none where it has no pixels.
std::optional<float> viewRectAspect(int backingWidth, int backingHeight);

/// The part of the strip that a view of pan, tilt and zoom (degrees) looks at; aspect above 0.
QuadLoop buildViewRect(float aspect, double pan, double tilt, double zoom);

/// Where the main view lies on the inset: offset from the inset's middle line, and size.
struct PipMarker {
    float cx, yOff, width, height;
};

/// For the main view's horizontal offset and zoom; shift, the controller's vertical one, counts when zoomed
/// in.
PipMarker pipMarker(double offsetX, double zoom, double shift);

QuadLoop buildPipFrame(float cx, float cy, float width, float height);

}  // namespace fovix
