#include "model/Indicators.h"

#include <array>

#include "Fovix.h"
#include "view/OverlayGeometry.h"

namespace fovix {

namespace {

constexpr Colour kWhite = {1.0f, 1.0f, 1.0f, 1.0f};
constexpr Colour kRed = {0.95f, 0.08f, 0.08f, 1.0f};

template <std::size_t size>
void drawLoop(const Canvas& canvas, const std::array<float, size>& loop, const Colour& colour) {
    canvas.device.drawLineLoop(canvas.surface, loop.data(), static_cast<int>(size / 3), colour);
}

/// Where the selected screen looks, drawn into the overview or the strip of its layout.
void drawDirection(const Canvas& canvas, FovixModel& model, int shape, int screen) {
    const bool hasOverview = shape == FOVIX_SHAPE_OVERVIEW_FIVE;
    if (!hasOverview && shape != FOVIX_SHAPE_TWO_AND_STRIP) return;
    double pan = 0.0, tilt = 0.0, zoom = 0.0;
    if (!model.getPTZ(screen, &pan, &tilt, &zoom, nullptr)) return;
    const auto aspect =
        (hasOverview ? directionFanAspect : viewRectAspect)(canvas.backingWidth, canvas.backingHeight);
    if (!aspect) return;
    if (hasOverview) return drawLoop(canvas, buildDirectionFan(*aspect, pan, tilt), kRed);
    drawLoop(canvas, buildViewRect(*aspect, pan, tilt, zoom), kRed);
}

}  // namespace

void drawSelectedScreen(const Canvas& canvas, FovixModel& model) {
    const int screen = model.getSelectedScreen(kNone), shape = model.getShape(kNone);
    const auto outline = screenOutline(shape, screen);
    if (!outline) return;
    drawLoop(canvas, *outline, kRed);
    drawDirection(canvas, model, shape, screen);
}

void drawInsetOutlines(const Canvas& canvas, FovixModel& model, double markerShift) {
    if (model.getOverlayCount() <= 0 || canvas.backingWidth != canvas.backingHeight) return;
    drawLoop(canvas, kOverviewOutline, kWhite);
    double offsetX = 0.0, zoom = 1.0;
    model.getRotateZoom(0, &offsetX, nullptr, nullptr, &zoom);
    const PipMarker marker = pipMarker(offsetX, zoom, zoom > 1.0 ? markerShift : 0.0);
    drawLoop(canvas, buildPipFrame(marker.cx, marker.yOff, marker.width, marker.height), kRed);
}

}  // namespace fovix
