#include "model/FovixModel360VR.h"

#include <algorithm>
#include <cmath>

#include "Fovix.h"
#include "base/Numbers.h"
#include "base/ProcessLock.h"
#include "view/Layouts360VR.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixModel360VR";
constexpr int kBlendFrames = 30;  ///< of which the last shows the target

VR360Params& params(FovixModel& model) {
    return paramsOf<VR360Params>(model);
}

constexpr bool isWithin(int index, int count) {
    return index >= 0 && index < count;
}

ViewCells360VR& viewOf(VR360Params& p, int screen) {
    return p.mViews[static_cast<std::size_t>(screen)];
}

// Mount, shape and views

void resetPosition(FovixModel& model) {
    VR360Params& p = params(model);
    const LockSection section;
    for (ViewCells360VR& view : p.mViews) view.store(defaultView(view.load(), p.mMount, p.mShape));
}

void init(FovixModel& model) {
    VR360Params& p = params(model);
    const LockSection section;
    p.mMount = FOVIX_MOUNT_CEILING;
    for (ViewCells360VR& view : p.mViews) view.store({});
    resetPosition(model);
}

void setCameraMount(FovixModel& model, int mount) {
    VR360Params& p = params(model);
    const LockSection section;
    if (!isWithin(mount, kPanoramaMounts) || mount == p.mMount) return;
    p.mMount = mount;
    p.mShape = FOVIX_SHAPE_SINGLE;
}

int getCameraMount(FovixModel& model) {
    return params(model).mMount;
}

/// Overview layouts switch without a blend. The first of their closer views is selected.
void switchTo(VR360Params& p, int shape) {
    p.mBlend.reset();
    p.mSelectedScreen = shape == FOVIX_SHAPE_OVERVIEW_FIVE ? 1 : 0;
}

void startBlend(VR360Params& p, int shape, const View360VR& start) {
    p.mBlend.start(p.mShape, shape, 0, kBlendFrames);
    p.mBlendStart = p.mBlendView = start;
}

void startCeilingBlend(VR360Params& p, int shape) {
    const int from = p.mShape;
    const bool turnsOver = (from == FOVIX_SHAPE_DOME && shape == FOVIX_SHAPE_BOWL) ||
                           (from == FOVIX_SHAPE_BOWL && shape == FOVIX_SHAPE_DOME);
    View360VR start = viewOf(p, 0).load();
    if (turnsOver) start.mPan = -start.mPan;  // dome and bowl pan in opposite directions
    if (shape == FOVIX_SHAPE_STRIP) start.mPan = 0.0;
    startBlend(p, shape, start);
    p.mSelectedScreen = 0;
}

void startWallBlend(VR360Params& p, int shape) {
    const View360VR ahead = {.mPan = 90.0, .mTilt = 90.0, .mZoom = kWidestZoom};
    viewOf(p, 0).store(ahead);
    startBlend(p, shape, ahead);
}

/// Cameras that are neither on the ceiling nor on a wall have one shape.
void setShape(FovixModel& model, int shape) {
    VR360Params& p = params(model);
    const LockSection section;
    const bool onCeiling = p.mMount == FOVIX_MOUNT_CEILING, onWall = p.mMount == FOVIX_MOUNT_WALL;
    if (!isWithin(shape, kPanoramaShapes) || shape == p.mShape || (!onCeiling && !onWall)) return;
    if (shape == FOVIX_SHAPE_OVERVIEW_FIVE || (onCeiling && shape == FOVIX_SHAPE_TWO_AND_STRIP)) {
        switchTo(p, shape);
    } else if (onCeiling) {
        startCeilingBlend(p, shape);
    } else {
        startWallBlend(p, shape);
    }
    p.mShape = shape;
}

int getShape(FovixModel& model) {
    return params(model).mShape;
}

void setPTZ(FovixModel& model, int screen, double pan, double tilt, double zoom, double roll,
            double ptzFifth) {
    if (!isWithin(screen, kPanoramaScreens) || !allFinite(pan, tilt, zoom, roll, ptzFifth)) return;
    VR360Params& p = params(model);
    const LockSection section;
    viewOf(p, screen).store(limitedView({pan, roll, tilt, ptzFifth, zoom}, p.mMount, p.mShape));
}

void getPTZ(FovixModel& model, int screen, double* pan, double* tilt, double* zoom, double* roll) {
    if (!isWithin(screen, kPanoramaScreens)) return;
    const ViewCells360VR& view = viewOf(params(model), screen);
    writeIfWanted(pan, view.mPan);
    writeIfWanted(tilt, view.mTilt);
    writeIfWanted(zoom, view.mZoom);
    writeIfWanted(roll, view.mRoll);
}

int selectScreen(FovixModel& model, int x, int y) {
    VR360Params& p = params(model);
    const LockSection section;
    const int shape = p.mShape;
    const int screen = screenAt360VR(p.mMount, shape, model.backingWidth, model.backingHeight, x, y);
    const bool isOverview = (shape == FOVIX_SHAPE_OVERVIEW_FIVE && screen == 0) ||
                            (shape == FOVIX_SHAPE_TWO_AND_STRIP && screen >= kStripScreen);
    if (!isOverview) p.mSelectedScreen = screen;
    return screen;
}

int getSelectedScreen(FovixModel& model) {
    return params(model).mSelectedScreen;
}

// Meshes

/// Several layouts show the hemisphere of the single screen.
int shapeOfMesh(int mount, int shape) {
    const bool sharesHemisphere = (mount == FOVIX_MOUNT_CEILING && shape >= FOVIX_SHAPE_FOUR_SCREENS &&
                                   shape <= FOVIX_SHAPE_TWO_AND_STRIP) ||
                                  (mount == FOVIX_MOUNT_WALL && shape == FOVIX_SHAPE_OVERVIEW_FIVE);
    return sharesHemisphere ? FOVIX_SHAPE_SINGLE : shape;
}

VertexCachePtr meshOf(VR360Params& p, int mount, int shape) {
    const int meshShape = shapeOfMesh(mount, shape);
    VertexCachePtr& cache =
        p.mMeshCaches[static_cast<std::size_t>(mount)][static_cast<std::size_t>(meshShape)];
    if (cache) return cache;
    const FishEyeConfig lens = *p.mFishEye;
    if (!isTextureUsable(lens)) return nullptr;
    cache = VertexCache_FromCurvedMesh(GridMesh_Create_360VR(lens, mount, meshShape));
    return cache;
}

View360VR blendView(const View360VR& from, const View360VR& to, int frame) {
    const auto between = [frame](double start, double end) {
        const double value = start + (end - start) * frame / kBlendFrames;
        // end - start may overflow; the view jumps to its end then.
        return std::isfinite(value) ? value : end;
    };
    return {between(from.mPan, to.mPan), between(from.mRoll, to.mRoll), between(from.mTilt, to.mTilt),
            between(from.mPtzFifth, to.mPtzFifth), between(from.mZoom, to.mZoom)};
}

VertexCachePtr blendedMesh(VR360Params& p) {
    MeshBlend& blend = p.mBlend;
    const VertexCachePtr from = meshOf(p, p.mMount, blend.from), to = meshOf(p, p.mMount, blend.to);
    if (!from || !to) return nullptr;
    blend.mix(*from, *to);
    p.mBlendView = blendView(p.mBlendStart, viewOf(p, 0).load(), blend.frame);
    return blend.mesh;
}

VertexCachePtr getVerticesCache(FovixModel& model) {
    VR360Params& p = params(model);
    const LockSection section;
    VertexCachePtr cache;
    if (p.mBlend.isRunning() && p.mBlend.advance()) {
        cache = blendedMesh(p);
    } else {
        p.mBlend.stop();
        cache = meshOf(p, p.mMount, p.mShape);
        p.mBlend.mesh = nullptr;
    }
    return cache;
}

int needsVertexUpdate(FovixModel& model) {
    return params(model).mBlend.isRunning() ? 1 : 0;
}

void onConfigChanged(FovixModel& model) {
    VR360Params& p = params(model);
    p.mMeshCaches = {};
    p.mBlend.mesh = nullptr;
}

int getOverlayCount(FovixModel& model) {
    return params(model).mShape == FOVIX_SHAPE_TWO_AND_STRIP ? 1 : 0;
}

VertexCachePtr getOverlayVerticesCache(FovixModel& model, int index) {
    VR360Params& p = params(model);
    const LockSection section;
    return getOverlayCount(model) && index == 0 ? meshOf(p, p.mMount, FOVIX_SHAPE_STRIP) : nullptr;
}

// Drawing

Scene360VR takeScene(FovixModel& model, VR360Params& p) {
    Scene360VR scene = {p.mMount, p.mShape, model.backingWidth, model.backingHeight, {}, {}};
    for (std::size_t screen = 0; screen < p.mViews.size(); ++screen)
        scene.views[screen] = p.mViews[screen].load();
    if (p.mBlend.isRunning() && p.mBlend.mesh) scene.blendView = p.mBlendView;
    return scene;
}

/// The screens that show their strip a second time, beyond its seam.
using Seams = std::array<bool, kPanoramaScreens>;

/// Scrolls the strips by changing the views' pans; the second strip follows the first.
Seams scrollStrips(VR360Params& p, int width, int height) {
    const bool twoStrips = p.mShape == FOVIX_SHAPE_TWO_STRIPS;
    Seams seams = {};
    const int stripHeight = twoStrips ? height / 2 : height;
    if ((!twoStrips && p.mShape != FOVIX_SHAPE_STRIP) || width <= 0 || stripHeight <= 0) return seams;
    if (twoStrips) {
        const View360VR first = viewOf(p, 0).load();
        viewOf(p, 1).mPan = first.mPan;
        viewOf(p, 1).mTilt = first.mTilt;
        viewOf(p, 1).mZoom = first.mZoom;
    }
    for (int screen = 0; screen < (twoStrips ? 2 : 1); ++screen) {
        const StripScroll scroll = scrollStrip(viewOf(p, screen).mPan, screen, width, stripHeight);
        viewOf(p, screen).mPan = scroll.pan;
        seams[static_cast<std::size_t>(screen)] = scroll.showsSeam && !p.mBlend.isRunning();
    }
    return seams;
}

bool hasSurface(const Scene360VR& scene) {
    return scene.width > 0 && scene.height > 0;
}

void drawSelf(FovixModel& model, Device& device) {
    VR360Params& p = params(model);
    Scene360VR scene;
    Seams seams;
    {
        const LockSection section;
        seams = scrollStrips(p, model.backingWidth, model.backingHeight);
        scene = takeScene(model, p);
    }
    if (!hasSurface(scene)) return;
    const auto draw = [&](int screen, double extraPan) {
        device.drawMesh(screenMatrix360VR(scene, screen, extraPan), kSource);
    };
    const Layout360VR layout = layout360VR(scene.shape, scene.width, scene.height);
    for (int screen = 0; screen < std::max(layout.count, 1); ++screen) {
        const auto index = static_cast<std::size_t>(screen);
        if (layout.count > 0) device.setViewport(layout.screens[index]);
        draw(screen, 0.0);
        if (seams[index]) draw(screen, kStripTurn);
    }
}

void drawOverlay(FovixModel& model, int index, Device& device) {
    VR360Params& p = params(model);
    Scene360VR scene;
    {
        const LockSection section;
        scene = takeScene(model, p);
    }
    if (index != 0 || scene.shape != FOVIX_SHAPE_TWO_AND_STRIP || !hasSurface(scene)) return;
    if (!p.mMeshCaches[static_cast<std::size_t>(scene.mount)][FOVIX_SHAPE_STRIP]) return;
    device.setViewport(overviewStripRect(scene.width, scene.height));
    device.drawMesh(screenMatrix360VR(scene, kStripScreen, 0.0), kSource);
}

constexpr FovixModelOperations kOperations = {
    .init = init,
    .release = FovixModel_Release,
    .setCameraMount = setCameraMount,
    .getCameraMount = getCameraMount,
    .setShape = setShape,
    .getShape = getShape,
    .setViewSize = FovixModel_SetViewSize,
    .needContinue = FovixModel_NeedContinue,
    .getTextureScale = FovixModel_GetTextureScale,
    .getVerticesCache = getVerticesCache,
    .onConfigChanged = onConfigChanged,
    .drawSelf = drawSelf,
    .getOverlayCount = getOverlayCount,
    .getOverlayVerticesCache = getOverlayVerticesCache,
    .drawOverlay = drawOverlay,
    .resetPosition = resetPosition,
    .setPTZ = setPTZ,
    .getPTZ = getPTZ,
    .needsVertexUpdate = needsVertexUpdate,
    .selectScreen = selectScreen,
    .getSelectedScreen = getSelectedScreen,
};
static_assert(hasMandatoryOperations(kOperations));

}  // namespace

View360VR ViewCells360VR::load() const {
    return {mPan, mRoll, mTilt, mPtzFifth, mZoom};
}

void ViewCells360VR::store(const View360VR& view) {
    mPan = view.mPan;
    mRoll = view.mRoll;
    mTilt = view.mTilt;
    mPtzFifth = view.mPtzFifth;
    mZoom = view.mZoom;
}

ModelPtr FovixModel360VR_Create(const FishEyeConfig& lens) {
    return FovixModel_Create(kOperations, std::make_unique<VR360Params>(lens));
}

}  // namespace fovix
