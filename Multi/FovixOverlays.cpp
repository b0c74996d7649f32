#include "FovixOverlays.h"

#include <array>

#include "gl/FovixPrograms.h"
#include "view/OverlayGeometry.h"

namespace fovix {

namespace {

constexpr std::array<float, 4> kWhite = {1.0f, 1.0f, 1.0f, 1.0f};
constexpr std::array<float, 4> kRed = {0.95f, 0.08f, 0.08f, 1.0f};

template <std::size_t Size>
void drawLoop(FovixContext& context, const std::array<float, Size>& loop,
              const std::array<float, 4>& colour) {
    drawLineLoop(context, loop.data(), static_cast<int>(Size / 3), colour);
}

/// Where the selected screen looks, drawn into the overview or the strip of its layout.
void drawDirection(FovixContext& context, FovixModel& model, int shape, int screen) {
    const bool hasOverview = shape == FOVIX_SHAPE_OVERVIEW_FIVE;
    if (!model.operations.getPTZ || (!hasOverview && shape != FOVIX_SHAPE_TWO_AND_STRIP)) return;
    double pan = 0.0, tilt = 0.0, zoom = 0.0, roll = 0.0;
    model.operations.getPTZ(model, screen, &pan, &tilt, &zoom, &roll);
    const auto aspect =
        (hasOverview ? directionFanAspect : viewRectAspect)(context.backingWidth, context.backingHeight);
    if (!aspect) return;
    if (hasOverview) {
        drawLoop(context, buildDirectionFan(*aspect, pan, tilt), kRed);
    } else {
        drawLoop(context, buildViewRect(*aspect, pan, tilt, zoom), kRed);
    }
}

void drawSelectedScreen(FovixContext& context, FovixModel& model) {
    if (!model.operations.getSelectedScreen || !model.operations.getShape) return;
    const int screen = model.operations.getSelectedScreen(model);
    const int shape = model.operations.getShape(model);
    const auto frame = screenFrame(shape, screen);
    if (!frame) return;
    drawLoop(context, *frame, kRed);
    drawDirection(context, model, shape, screen);
}

/// The controller's vertical marker shift; 0 without a controller.
double markerShift(const Display& display) {
    double shift = 0.0;
    if (display.controllers[0]) display.controllers[0]->getViewOffset(nullptr, &shift);
    return shift;
}

void drawInsetFrames(FovixContext& context, const Display& display) {
    FovixModel& model = *display.model;
    const FovixModelOperations& operations = model.operations;
    if (!operations.getOverlayCount || operations.getOverlayCount(model) <= 0) return;
    if (context.backingWidth != context.backingHeight) return;
    drawLoop(context, kOverviewOutline, kWhite);
    double offsetX = 0.0, offsetY = 0.0, zoom = 1.0;
    if (operations.getRotateZoom) operations.getRotateZoom(model, 0, &offsetX, &offsetY, nullptr, &zoom);
    const PipMarker marker = pipMarker(offsetX, zoom, zoom > 1.0 ? markerShift(display) : 0.0);
    drawLoop(context, buildPipFrame(marker.cx, marker.yOff, marker.width, marker.height), kRed);
}

}  // namespace

void drawFramesAndIndicators(FovixContext& context, const Display& display) {
    if (display.type == FOVIX_TYPE_360VR) return drawSelectedScreen(context, *display.model);
    if (display.type == FOVIX_TYPE_SINGLE_PIP) drawInsetFrames(context, display);
}

}  // namespace fovix
