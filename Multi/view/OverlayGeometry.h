// Geometry of the flat-colour outlines and indicators drawn over the finished frame: arithmetic alone.
//
// Everything is in normalised device coordinates of the whole surface (x and y from −1 to 1, y up): x, y and
// z = 0 per vertex, in the order of a closed line loop.
#pragma once

#include <array>
#include <optional>

namespace fovix {

inline constexpr int kFanVertices = 100;
inline constexpr int kQuadVertices = 4;

using FanLoop = std::array<float, 3 * kFanVertices>;
using QuadLoop = std::array<float, 3 * kQuadVertices>;

/// A rectangle: top left, top right, bottom right, bottom left.
constexpr QuadLoop quadOf(float left, float right, float top, float bottom) {
    return {left, top, 0.0f, right, top, 0.0f, right, bottom, 0.0f, left, bottom, 0.0f};
}

/// Middle of the inset that shows the whole frame, and its outline: 0.003 beyond its sides, and high enough
/// for a frame of 16:9.
inline constexpr float kInsetX = 0.3f, kInsetY = -0.7f;
inline constexpr QuadLoop kOverviewOutline = quadOf(-0.303f, 0.90300006f, kInsetY + 0.175f, kInsetY - 0.175f);

/// The outline of a screen of a multi-screen shape; nullopt for other shapes and for the large overview
/// screen.
std::optional<QuadLoop> screenOutline(int shape, int screen);

/// Height divided by width of a surface in pixels; nullopt for an empty surface.
std::optional<float> directionFanAspect(int backingWidth, int backingHeight);

/// The sector of the overview's circle that a view of pan and tilt (degrees) looks at: the vertices of the
/// outer arc, then of the inner one. aspect (height divided by width, above 0) keeps it circular on the
/// surface.
FanLoop buildDirectionFan(float aspect, double pan, double tilt);

/// Height divided by width of a screen above the strip; nullopt for an empty screen.
std::optional<float> viewRectAspect(int backingWidth, int backingHeight);

/// The part of the strip that a view of pan, tilt and zoom (degrees) shows; aspect above 0.
QuadLoop buildViewRect(float aspect, double pan, double tilt, double zoom);

/// Where the main view is on the inset: its middle across, its offset from the inset's middle line, its size.
struct PipMarker {
    float cx, yOff, width, height;
};

/// For the main view's horizontal offset (model units) and zoom factor. shift, the controller's vertical one,
/// counts only when zoomed in.
PipMarker pipMarker(double offsetX, double zoom, double shift);

/// The marker's outline; cy is its offset from the inset's middle line.
QuadLoop buildPipFrame(float cx, float cy, float width, float height);

}  // namespace fovix
