// One frame, from top to bottom. GL thread only.
//
// The lock is held while vertices are fetched and pictures are uploaded, not while controllers step or the
// model draws. A frame works with the Display that it took at its start, whatever other threads do to the
// handle meanwhile.

#include <GL/glew.h>

#include "FovixOverlays.h"
#include "base/Diagnostics.h"
#include "base/Surface.h"
#include "gl/FovixPrograms.h"
#include "gl/FovixTextures.h"
#include "gl/GlCheck.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixFrame";

/// Shape of a model that has none: one screen.
constexpr int kNoShape = 11;

void clearSurface(const FovixContext& context) {
    setViewport({0, 0, context.viewWidth, context.viewHeight});
    glClearColor(context.backgroundRed, context.backgroundGreen, context.backgroundBlue, 1.0f);
    glCheck(kSource);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glCheck(kSource);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ZERO);
}

void noticeNewLensCircle(FovixContext& context, const Display& display) {
    const int version = context.fishEye.configVersion;
    if (context.drawnConfigVersion == version) return;
    context.drawnConfigVersion = version;
    printLine("config changed\n");
    if (display.model && display.model->operations.onConfigChanged) {
        display.model->operations.onConfigChanged(*display.model);
    }
    context.configChanged = 1;
}

void bindVertices(FovixContext& context, const Display& display) {
    const bool changesByItself = display.model && display.model->operations.needsVertexUpdate &&
                                 display.model->operations.needsVertexUpdate(*display.model);
    const bool isThisDisplays = context.verticesSerial == display.serial && context.boundVertices;
    if (!context.configChanged && !changesByItself && isThisDisplays) {
        rebindVertices(context);
    } else {
        buildVertices(context, display);
    }
}

/// Uploads the shown slot's picture if it is new; gives whether there is one to draw.
bool refreshShownPicture(FovixContext& context, const Display& display, int lens) {
    const LockSection section(context.lock);
    if (display.type != FOVIX_TYPE_MULTI_LENS) return refreshTexture(context, 0, false) != 0;
    const bool otherLens = context.uploadedLensIndex != lens;
    if (!refreshTexture(context, lens, otherLens)) return false;
    context.uploadedLensIndex = lens;
    return true;
}

int shapeOf(const Display& display) {
    const FovixModelOperations& model = display.model->operations;
    return model.getShape ? model.getShape(*display.model) : kNoShape;
}

/// One animation step: of every screen's controller in the layouts with several screens, else of the first.
void stepControllers(const Display& display) {
    const int shape = shapeOf(display);
    const bool severalScreens = shape >= FOVIX_SHAPE_FOUR_SCREENS && shape <= FOVIX_SHAPE_LARGE_AND_TWO;
    for (int screen = 0; screen < (severalScreens ? kScreenCount : 1); ++screen) {
        const ControllerPtr& controller = display.controllers[static_cast<std::size_t>(screen)];
        if (controller) controller->update();
    }
}

void setUniform(int location, double value) {
    glUniform1f(location, static_cast<float>(value));
    glCheck(kSource);
}

void setFrameUniforms(FovixContext& context, FovixModel& model) {
    const ProgramLocations& at = context.locations;
    const bool usingYUV = context.usingYUV != 0;
    glUseProgram(context.dewarperProgram);
    setSamplers(context);
    setUniform(at.usingYUVUniform, usingYUV ? 1.0 : 0.0);
    setUniform(at.yTextureScaleAdjustmentUniform, usingYUV ? context.yTextureScaleAdjustment : 1.0);
    setUniform(at.uTextureScaleAdjustmentUniform, usingYUV ? context.uTextureScaleAdjustment : 1.0);
    setUniform(at.vTextureScaleAdjustmentUniform, usingYUV ? context.vTextureScaleAdjustment : 1.0);
    setUniform(at.aspectRatioUniform, context.aspectRatio);
    setUniform(at.textureScaleUniform, model.operations.getTextureScale(model));
}

void drawModel(const FovixContext& context, FovixModel& model) {
    model.boundVertexCount = context.boundVertices ? context.boundVertices->vertexCount() : 0;
    model.operations.drawSelf(model, context.locations.mvpMatrixUniform,
                              context.locations.verticalOffsetUniform);
}

void drawGridCell(FovixContext& context, FovixModel& model, int slotIndex, const GlRect& cell) {
    int useful = 0, pixelFmt = 0;
    {
        const LockSection section(context.lock);
        useful = refreshTexture(context, slotIndex, false);
        pixelFmt = context.frames[static_cast<std::size_t>(slotIndex)].pixelFmt;
    }
    if (!useful) return;
    bindFrameTextures(context, slotIndex, pixelFmt);
    glViewport(cell.x, cell.y, cell.width, cell.height);
    drawModel(context, model);
}

/// Row 0 is the top row of the surface; cells without a picture show the background.
void drawGrid(FovixContext& context, FovixModel& model, const GridSize& grid) {
    const int cellWidth = scaledToPpi(context.backingWidth) / grid.columns;
    const int cellHeight = scaledToPpi(context.backingHeight) / grid.rows;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const GlRect cell = {column * cellWidth, (grid.rows - 1 - row) * cellHeight, cellWidth,
                                 cellHeight};
            drawGridCell(context, model, row * grid.columns + column, cell);
        }
    }
}

void drawModelOverlays(FovixContext& context, const Display& display) {
    FovixModel& model = *display.model;
    if (!model.operations.getOverlayCount || !model.operations.drawOverlay) return;
    const int count = model.operations.getOverlayCount(model);
    for (int index = 0; index < count; ++index) {
        buildOverlayVertices(context, display, index);
        model.boundVertexCount = context.boundVertices ? context.boundVertices->vertexCount() : 0;
        model.operations.drawOverlay(model, index, context.locations.mvpMatrixUniform,
                                     context.locations.verticalOffsetUniform);
    }
}

void drawFrame(FovixContext& context) {
    const DisplayPtr display = context.display.load();
    const GridSize grid = context.grid;
    const bool isGrid = display->type == FOVIX_TYPE_MULTI_IMAGE;
    const int shownSlot = display->type == FOVIX_TYPE_MULTI_LENS ? context.lensIndex.get() : 0;
    if (isGrid && (grid.rows < 1 || grid.columns < 1)) return printLine("parameter error in drawSelf()\n");
    clearSurface(context);
    if (!isTextureUsable(context.fishEye)) return;
    if (!context.prepareCount) return printLine("Fovix_Drawself() Error : Fovix_Prepare has not run\n");
    noticeNewLensCircle(context, *display);
    bindVertices(context, *display);
    if (!refreshShownPicture(context, *display, shownSlot)) return printLine("texture not useful 2\n");
    if (!display->model) return printLine("Fovix_Drawself() Error : No Model\n");
    stepControllers(*display);
    setFrameUniforms(context, *display->model);
    if (isGrid) {
        drawGrid(context, *display->model, grid);
    } else {
        bindShownTextures(context, shownSlot);
        drawModel(context, *display->model);
    }
    drawModelOverlays(context, *display);
    drawFramesAndIndicators(context, *display);
}

}  // namespace

}  // namespace fovix

void Fovix_Drawself(VRHANDLE handle) {
    fovix::withContext(handle, [](FovixContext& context) { fovix::drawFrame(context); });
}
