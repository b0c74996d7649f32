#include "model/FovixModel180VR.h"

#include <algorithm>

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "base/ProcessLock.h"
#include "view/Screens180VR.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixModel180VR";

VR180Params& params(FovixModel& model) {
    return paramsOf<VR180Params>(model);
}

// The blend

/// The layouts with several screens and the cylinder switch without steps between.
bool isBlendVisible(const VR180Params& p) {
    const bool oneScreen = p.mShape != FOVIX_SHAPE_FOUR_SCREENS && p.mShape != FOVIX_SHAPE_LARGE_AND_TWO;
    return oneScreen && p.mBlend.from != FOVIX_180_CYLINDER && p.mBlend.to != FOVIX_180_CYLINDER;
}

void mixMeshes(MeshBlend& blend, const VertexCachePtr& from, const VertexCachePtr& to) {
    if (from && to) return blend.mix(*from, *to);
    printLine("----------------> error pCtxtFrom = %p, pCtxtTo = %p\n", static_cast<const void*>(from.get()),
              static_cast<const void*>(to.get()));
}

// Meshes

constexpr bool hasMesh(int mode) {
    return mode >= 0 && mode < kVR180Modes;
}

VertexCachePtr createVertices(FovixModel& model, int mode) {
    printLine("FovixModel180VR.createVertices(%d)\n", mode);
    if (!hasMesh(mode)) {
        printLine("createVertices() mode is error : %d\n", mode);
        return nullptr;
    }
    const FishEyeConfig lens = *params(model).mFishEye;
    if (!isTextureUsable(lens)) return nullptr;
    const auto mesh = GridMesh_Create_180VR(mode, lens, model.backingWidth, model.backingHeight);
    return mesh ? VertexCache_FromCurvedMesh(*mesh) : nullptr;
}

VertexCachePtr meshOfMode(FovixModel& model, int mode) {
    if (!hasMesh(mode)) {
        printLine("getVerticesCache() mode is error : %d\n", mode);
        return createVertices(model, mode);
    }
    VertexCachePtr& mesh = params(model).mVertexCaches[static_cast<std::size_t>(mode)];
    if (!mesh) mesh = createVertices(model, mode);
    return mesh;
}

/// Records extent and lens offset of the mesh about to be bound.
void recordMesh(VR180Params& p, const VertexCache& mesh) {
    p.mMeshExtent = mesh.extent;
    const FishEyeConfig lens = *p.mFishEye;
    const bool isKnown = isFecValid(lens);
    p.mLensOffsetX = isKnown ? (lens.Fec_imgWidth * 0.5 - lens.Fec_xCenter) / lens.Fec_imgWidth : 0.0;
    p.mLensOffsetY = isKnown ? (lens.Fec_imgHeight * 0.5 - lens.Fec_yCenter) / lens.Fec_imgHeight : 0.0;
}

/// The mesh of the running blend's next step; the last one is the target itself.
VertexCachePtr stepBlend(FovixModel& model) {
    VR180Params& p = params(model);
    MeshBlend& blend = p.mBlend;
    const VertexCachePtr from = meshOfMode(model, blend.from);
    const VertexCachePtr to = meshOfMode(model, blend.to);
    if (isBlendVisible(p)) {
        if (blend.isStale || !blend.mesh) mixMeshes(blend, from, to);
        if (blend.advance()) return blend.mesh;
    }
    blend.stop();
    return to;
}

VertexCachePtr getVerticesCache(FovixModel& model) {
    VR180Params& p = params(model);
    const bool isBlending = p.mBlend.isRunning();
    const VertexCachePtr mesh = isBlending ? stepBlend(model) : meshOfMode(model, p.mDrawMode);
    if (mesh) recordMesh(p, *mesh);
    if (!mesh && !isBlending) printLine("error pCtxt = NULL\n");
    return mesh;
}

void onConfigChanged(FovixModel& model) {
    params(model).mVertexCaches.fill(nullptr);
}

int needsVertexUpdate(FovixModel& model) {
    return params(model).mBlend.isRunning() ? 1 : 0;
}

// Shape and draw mode

struct ShapeMode {
    int shape, drawMode;
};

constexpr std::array kShapeModes = {
    ShapeMode{FOVIX_SHAPE_SINGLE, FOVIX_180_DISC},
    ShapeMode{FOVIX_SHAPE_STRIP, FOVIX_180_STRETCH},
    ShapeMode{FOVIX_SHAPE_CYLINDER, FOVIX_180_CYLINDER},
    ShapeMode{FOVIX_SHAPE_FOUR_SCREENS, FOVIX_180_CURVED},
    ShapeMode{FOVIX_SHAPE_LARGE_AND_TWO, FOVIX_180_CURVED},
};

constexpr int kShapeBlendFrames = 20;

void setShape(FovixModel& model, int shape) {
    const auto found = std::find_if(kShapeModes.begin(), kShapeModes.end(),
                                    [shape](const ShapeMode& entry) { return entry.shape == shape; });
    if (found == kShapeModes.end()) return;
    VR180Params& p = params(model);
    const LockSection section;
    const int oldMode = p.mDrawMode;
    p.mBlend.reset();
    p.mDrawMode = found->drawMode;
    p.mBlend.start(oldMode, found->drawMode, 1, kShapeBlendFrames);
    p.mShape = shape;
}

int getShape(FovixModel& model) {
    return params(model).mShape;
}

void setDrawMode(FovixModel& model, int mode) {
    VR180Params& p = params(model);
    const LockSection section;
    p.mDrawMode = mode;
    p.mBlend.reset();
}

void setDrawModeCartoon(FovixModel& model, int fromMode, int toMode, int step, int frameCount) {
    VR180Params& p = params(model);
    const LockSection section;
    p.mBlend.start(fromMode, toMode, step, frameCount);
}

// Screens and views

void drawSelf(FovixModel& model, Device& device) {
    const VR180Params& p = params(model);
    const Layout180VR layout = layout180VR(p.mShape, model.backingWidth, model.backingHeight);
    const Scene180VR scene = {p.mDrawMode, p.mMeshExtent, p.mLensOffsetX, p.mLensOffsetY, model.rotation};
    for (int s = 0; s < layout.count; ++s) {
        const auto index = static_cast<std::size_t>(s);
        const Screen180VR& screen = layout.screens[index];
        if (layout.count > 1) device.setViewport(screen.viewport);
        device.drawMesh(screenMatrix180VR(p.mViews[index], scene, screen.width, screen.height), kSource);
    }
}

int selectScreen(FovixModel& model, int x, int y) {
    VR180Params& p = params(model);
    const int screen = screenAt180VR(p.mShape, model.backingWidth, model.backingHeight, x, y);
    p.mSelectedScreen = screen;
    return screen;
}

int getSelectedScreen(FovixModel& model) {
    return params(model).mSelectedScreen;
}

void resetPosition(FovixModel& model) {
    for (RotateZoomView& view : params(model).mViews) view.reset();
}

constexpr bool isScreen(int screen) {
    return screen >= 0 && screen < kVR180Screens;
}

void setRotateZoom(FovixModel& model, int screen, double xAngle, double yAngle, double zAngle, double zoom) {
    if (!isScreen(screen)) return;
    params(model).mViews[static_cast<std::size_t>(screen)].set(xAngle, yAngle, zAngle, zoom);
}

void getRotateZoom(FovixModel& model, int screen, double* xAngle, double* yAngle, double* zAngle,
                   double* zoom) {
    if (!isScreen(screen)) return;
    params(model).mViews[static_cast<std::size_t>(screen)].get(xAngle, yAngle, zAngle, zoom);
}

void setRotation(FovixModel& model, double degrees) {
    model.rotation = degrees;
}

/// The shape and the meshes stay.
void init(FovixModel& model) {
    VR180Params& p = params(model);
    const LockSection section;
    resetPosition(model);
    p.mDrawMode = 0;
    p.mSelectedScreen = 0;
    p.mLensOffsetX = p.mLensOffsetY = 0.0;
    p.mBlend.reset();
    p.mBlend.mesh = nullptr;
}

constexpr FovixModelOperations kOperations = {
    .init = init,
    .release = FovixModel_Release,
    .setShape = setShape,
    .getShape = getShape,
    .setDrawMode = setDrawMode,
    .setDrawModeCartoon = setDrawModeCartoon,
    .setViewSize = FovixModel_SetViewSize,
    .needContinue = FovixModel_NeedContinue,
    .getTextureScale = FovixModel_GetTextureScale,
    .getVerticesCache = getVerticesCache,
    .onConfigChanged = onConfigChanged,
    .drawSelf = drawSelf,
    .resetPosition = resetPosition,
    .setRotateZoom = setRotateZoom,
    .getRotateZoom = getRotateZoom,
    .setRotation = setRotation,
    .needsVertexUpdate = needsVertexUpdate,
    .selectScreen = selectScreen,
    .getSelectedScreen = getSelectedScreen,
};
static_assert(hasMandatoryOperations(kOperations));

}  // namespace

ModelPtr FovixModel180VR_Create(const FishEyeConfig& lens) {
    return FovixModel_Create(kOperations, std::make_unique<VR180Params>(lens));
}

}  // namespace fovix
