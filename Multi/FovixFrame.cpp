// Drawing: one frame, from top to bottom. GL thread only.
//
// The lock is held while the mesh is fetched and frames are uploaded, not while controllers step or the model
// draws. A frame works with the Display that it took at its start, whatever other threads do to the handle
// meanwhile.

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "base/ProcessLock.h"
#include "gl/GlCheck.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"
#include "handle/MainMesh.h"
#include "model/Indicators.h"

namespace fovix {

namespace {

SurfaceRect surfaceOf(const FovixContext& context) {
    return {0, 0, context.viewWidth, context.viewHeight};
}

void clearSurface(FovixContext& context) {
    context.device->clear(surfaceOf(context),
                          {context.backgroundRed, context.backgroundGreen, context.backgroundBlue, 1.0f});
}

void noticeNewLensCircle(FovixContext& context, const Display& display) {
    const int version = context.fishEye.configVersion;
    if (context.drawnConfigVersion == version) return;
    context.drawnConfigVersion = version;
    printLine("config changed\n");
    display.model->onConfigChanged();
    context.configChanged = 1;
}

/// Uploads the shown slot's frame if it is new; returns whether there is one to draw.
bool refreshShownFrame(FovixContext& context, const Display& display, int lens) {
    const LockSection section;
    if (display.type != FOVIX_TYPE_MULTI_LENS)
        return context.device->refreshTexture(context.frames[0], false) != 0;
    FrameSlot& slot = context.frames[static_cast<std::size_t>(lens)];
    if (!context.device->refreshTexture(slot, context.uploadedLensIndex != lens)) return false;
    context.uploadedLensIndex = lens;
    return true;
}

/// One animation step: of every screen's controller in the layouts with several screens, else of the first.
void stepControllers(const Display& display) {
    const int shape = display.model->getShape(kNone);
    const bool severalScreens = shape >= FOVIX_SHAPE_FOUR_SCREENS && shape <= FOVIX_SHAPE_LARGE_AND_TWO;
    for (int screen = 0; screen < (severalScreens ? kScreenCount : 1); ++screen) {
        const ControllerPtr& controller = display.controllers[static_cast<std::size_t>(screen)];
        if (controller) controller->update();
    }
}

void drawGridCell(FovixContext& context, FovixModel& model, FrameSlot& slot, const DeviceRect& cell) {
    Device& device = *context.device;
    int useful = 0, pixelFmt = 0;
    {
        const LockSection section;
        useful = device.refreshTexture(slot, false);
        pixelFmt = slot.pixelFmt;
    }
    if (!useful) return;
    device.showCell(slot, pixelFmt);
    device.setViewport(cell);
    model.drawSelf(device);
}

/// Row 0 is the top row of the surface; cells without a frame show the background.
void drawGrid(FovixContext& context, FovixModel& model, const GridSize& grid) {
    const int cellWidth = scaledToPpi(context.backingWidth) / grid.columns;
    const int cellHeight = scaledToPpi(context.backingHeight) / grid.rows;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const auto slot = static_cast<std::size_t>(row * grid.columns + column);
            const DeviceRect cell = {column * cellWidth, (grid.rows - 1 - row) * cellHeight, cellWidth,
                                     cellHeight};
            drawGridCell(context, model, context.frames[slot], cell);
        }
    }
}

/// Second meshes over the main one: the strip under two screens, the second of two lenses.
void drawOverlays(FovixContext& context, FovixModel& model) {
    if (!model.operations.drawOverlay) return;
    const int count = model.getOverlayCount();
    for (int index = 0; index < count; ++index) {
        {
            const LockSection section;
            const VertexCachePtr mesh = model.getOverlayVerticesCache(index);
            if (mesh) context.device->useOverlayMesh(mesh);
            if (!mesh) printLine("buildVertices failed, Vertices is empty!\n");
        }
        model.drawOverlay(index, *context.device);
    }
}

/// Which screen is selected and where it looks; the outlines of the inset.
void drawIndicators(FovixContext& context, const Display& display) {
    const Canvas canvas = {*context.device, surfaceOf(context), context.backingWidth, context.backingHeight};
    if (display.type == FOVIX_TYPE_360VR) drawSelectedScreen(canvas, *display.model);
    if (display.type != FOVIX_TYPE_SINGLE_PIP) return;
    double shift = 0.0;
    if (display.controllers[0]) display.controllers[0]->getViewOffset(nullptr, &shift);
    drawInsetOutlines(canvas, *display.model, shift);
}

void drawFrame(FovixContext& context) {
    const DisplayPtr display = context.display.load();
    FovixModel& model = *display->model;
    Device& device = *context.device;
    const GridSize grid = context.grid;
    const bool isGrid = display->type == FOVIX_TYPE_MULTI_IMAGE;
    const int shownSlot = display->type == FOVIX_TYPE_MULTI_LENS ? context.lensIndex.get() : 0;
    if (isGrid && (grid.rows < 1 || grid.columns < 1)) return printLine("parameter error in drawSelf()\n");
    clearSurface(context);
    if (!isTextureUsable(context.fishEye)) return;
    if (!device.isPrepared) return printLine("Fovix_Drawself() Error : Fovix_Prepare has not run\n");
    noticeNewLensCircle(context, *display);
    bindMesh(context, *display);
    if (!refreshShownFrame(context, *display, shownSlot)) return printLine("texture not useful 2\n");
    if (!model.operations.drawSelf) return printLine("Fovix_Drawself() Error : No Model\n");
    stepControllers(*display);
    device.startMeshes(context.usingYUV != 0, model.getTextureScale());
    if (isGrid) {
        drawGrid(context, model, grid);
    } else {
        device.showFrame(context.frames[static_cast<std::size_t>(shownSlot)]);
        model.drawSelf(device);
    }
    drawOverlays(context, model);
    drawIndicators(context, *display);
}

}  // namespace

}  // namespace fovix

void Fovix_Drawself(VRHANDLE handle) {
    fovix::withContext(handle, [](FovixContext& context) { fovix::drawFrame(context); });
}

int Fovix_NeedContinue(void) {
    return 0;
}

int checkOpenGLError(const char* file, int line) {
    return fovix::reportGlError(file, line);
}
