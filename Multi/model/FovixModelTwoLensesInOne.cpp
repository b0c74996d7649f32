#include "model/FovixModelTwoLensesInOne.h"

#include <algorithm>

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "base/Numbers.h"
#include "base/ProcessLock.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixModelTwoLensesInOne";

constexpr int kUpperHalf = 0, kLowerHalf = 1;

constexpr int kGlideFrames = 1000;  ///< sets the speed of the moves

/// Where the half that leaves the surface goes. It keeps a scale of 0.49, so its nearer edge ends at 1.2.
constexpr double kOutsideX = 3.5;

/// Half the height of a 16:9 frame, 0.5625, and a small gap.
constexpr double kStackedY = 0.565;

TwoLensesParams& params(FovixModel& model) {
    return paramsOf<TwoLensesParams>(model);
}

void reset(FovixModel& model) {
    params(model).mView.reset();
}

void setViewSize(FovixModel& model, int width, int height) {
    FovixModel_SetViewSize(model, width, height);
    params(model).mVerticesDirty = 1;
}

void onConfigChanged(FovixModel& model) {
    TwoLensesParams& p = params(model);
    p.mTopCache = nullptr;
    p.mBottomCache = nullptr;
}

VertexCachePtr createVertices(FovixModel& model, int half) {
    const bool isUpper = half == kUpperHalf;
    printLine("FovixModelTwoLensesInOne::createVertices()\n");
    printLine(isUpper ? "GridMesh_Create_HalfTop()\n" : "GridMesh_Create_HalfBottom()\n");
    const FishEyeConfig lens = *params(model).mFishEye;
    if (!isTextureUsable(lens)) return nullptr;
    const auto createMesh = isUpper ? GridMesh_Create_HalfTop : GridMesh_Create_HalfBottom;
    return VertexCache_FromFlatMesh(createMesh(lens, model.backingWidth, model.backingHeight));
}

/// The mesh of a half, built on first use.
VertexCachePtr halfMesh(FovixModel& model, int half) {
    TwoLensesParams& p = params(model);
    VertexCachePtr& cache = half == kUpperHalf ? p.mTopCache : p.mBottomCache;
    if (!cache) cache = createVertices(model, half);
    if (!cache) printLine("error pCtxt = NULL\n");
    return cache;
}

/// Starts the moves to the arrangement of a screen. Unknown screens move nothing.
void moveToScreen(TwoLensesParams& p, int screen) {
    const LockSection section;
    const double besideX = kBesideX / p.mAspectFix, besideScale = kBesideScale * p.mAspectFix;
    struct Targets {
        double firstX, firstScale, secondX, secondScale;
    };
    const Targets targetsOfScreen[] = {
        {-besideX, besideScale, besideX, besideScale},
        {0.0, 1.0, kOutsideX, besideScale},
        {-kOutsideX, besideScale, 0.0, 1.0},
    };
    const Targets unchanged = {p.mFirstX.target, p.mFirstScale.target, p.mSecondX.target,
                               p.mSecondScale.target};
    const Targets& to = screen >= 0 && screen <= 2 ? targetsOfScreen[screen] : unchanged;
    p.mScreen = screen;
    p.mFirstX.glideTo(to.firstX);
    p.mFirstScale.glideTo(to.firstScale);
    p.mSecondX.glideTo(to.secondX);
    p.mSecondScale.glideTo(to.secondScale);
}

VertexCachePtr getVerticesCache(FovixModel& model) {
    TwoLensesParams& p = params(model);
    if (p.mVerticesDirty.exchange(0)) onConfigChanged(model);
    const int mode = p.mDrawMode;
    int half = p.mWantedHalf;
    if (mode == FOVIX_TWO_LENSES_UPPER) half = kUpperHalf;
    if (mode == FOVIX_TWO_LENSES_LOWER) half = kLowerHalf;
    const VertexCachePtr cache = halfMesh(model, half);
    if (mode == FOVIX_TWO_LENSES_BOTH) {
        const LockSection section;
        p.mAspectFix = aspectFixOf(model.backingWidth, model.backingHeight, p.mFishEye->Fec_imgWidth,
                                   p.mFishEye->Fec_imgHeight);
        moveToScreen(p, p.mScreen);
    }
    return cache;
}

int needsVertexUpdate(FovixModel& model) {
    TwoLensesParams& p = params(model);
    if (p.mDrawMode != FOVIX_TWO_LENSES_BY_ZOOM) return 0;
    p.mCheckedZoom = p.mView.mZoom;
    p.mWantedHalf = p.mZoomDiv > p.mCheckedZoom ? kUpperHalf : kLowerHalf;
    if (p.mWantedHalf == p.mShownHalf) return 0;
    p.mShownHalf = p.mWantedHalf;
    return 1;
}

void draw(const FovixModel& model, Device& device, const PicturePlacement& placement,
          int line = __builtin_LINE()) {
    device.drawMesh(twoLensesMatrix(placement, model.backingWidth, model.backingHeight), kSource, line);
}

void drawHalf(FovixModel& model, Device& device) {
    const TwoLensesParams& p = params(model);
    const auto placement = placeHalf(p.mView, p.mCheckedZoom, p.mZoomDiv, p.mShownHalf);
    if (placement) return draw(model, device, *placement);
    printLine("-------------> maybe something wrong!!!! screen[%d] zoom[%f]", p.mShownHalf, p.mCheckedZoom);
}

/// One animation step of a half in draw mode 1.
PicturePlacement stepBeside(TwoLensesParams& p, bool isFirst) {
    const LockSection section;
    AnimatedValue& x = isFirst ? p.mFirstX : p.mSecondX;
    AnimatedValue& scale = isFirst ? p.mFirstScale : p.mSecondScale;
    const int soloScreen = isFirst ? FOVIX_TWO_LENSES_SCREEN_FIRST : FOVIX_TWO_LENSES_SCREEN_SECOND;
    x.step();
    scale.step();
    return placeBeside(x.current, scale.current, p.mScreen == soloScreen, p.mView);
}

void drawLens(FovixModel& model, Device& device, bool isFirst) {
    const bool isWide = model.backingWidth > model.backingHeight;
    draw(model, device, isWide ? stepBeside(params(model), isFirst) : placeStacked(isFirst));
}

void drawSelf(FovixModel& model, Device& device) {
    switch (params(model).mDrawMode) {
        case FOVIX_TWO_LENSES_BOTH:
            return drawLens(model, device, true);
        case FOVIX_TWO_LENSES_UPPER:
        case FOVIX_TWO_LENSES_LOWER:
            return draw(model, device, {0.0, 0.0, 1.0});
        default:
            return drawHalf(model, device);
    }
}

int getOverlayCount(FovixModel& model) {
    return params(model).mDrawMode == FOVIX_TWO_LENSES_BOTH ? 1 : 0;
}

VertexCachePtr getOverlayVerticesCache(FovixModel& model, int index) {
    return params(model).mDrawMode == FOVIX_TWO_LENSES_BOTH && index == 0 ? halfMesh(model, kLowerHalf)
                                                                          : nullptr;
}

void drawOverlay(FovixModel& model, int index, Device& device) {
    if (params(model).mDrawMode == FOVIX_TWO_LENSES_BOTH && index == 0) drawLens(model, device, false);
}

/// Halves side by side are not panned.
void setRotateZoom(FovixModel& model, int, double xAngle, double yAngle, double zAngle, double zoom) {
    TwoLensesParams& p = params(model);
    const bool showsBoth = p.mDrawMode == FOVIX_TWO_LENSES_BOTH && p.mScreen == FOVIX_TWO_LENSES_SCREEN_BOTH;
    if (showsBoth) {
        p.mView.set(0.0, 0.0, 0.0, zoom);
    } else {
        p.mView.set(xAngle, yAngle, zAngle, zoom);
    }
}

void getRotateZoom(FovixModel& model, int, double* xAngle, double* yAngle, double* zAngle, double* zoom) {
    params(model).mView.get(xAngle, yAngle, zAngle, zoom);
}

void setLogicZoom(FovixModel& model, double min, double max, double div, double) {
    TwoLensesParams& p = params(model);
    if (min == p.mZoomMin && max == p.mZoomMax && div == p.mZoomDiv) return;
    p.mZoomMin = min;
    p.mZoomMax = max;
    p.mZoomDiv = div;
    printLine("two lenses parameter changed, [min:%f][div:%f][max:%f]", min, div, max);
}

float getLogicZoom(FovixModel& model) {
    return toFloat(params(model).mView.mZoom);
}

void setTwoLensesDrawMode(FovixModel& model, int mode) {
    TwoLensesParams& p = params(model);
    {
        const LockSection section;
        p.mDrawMode = mode;
        p.mFirstX.rest(-kBesideX);
        p.mFirstScale.rest(kBesideScale);
        p.mSecondX.rest(kBesideX);
        p.mSecondScale.rest(kBesideScale);
        p.mScreen = FOVIX_TWO_LENSES_SCREEN_BOTH;
    }
    printLine("tow lenses setDrawMode: %d", p.mDrawMode.get());
}

void setTwoLensesScreen(FovixModel& model, int screen) {
    TwoLensesParams& p = params(model);
    if (p.mDrawMode != FOVIX_TWO_LENSES_BOTH || screen == p.mScreen) return;
    moveToScreen(p, screen);
    printLine("tow lenses setScreen: %d", p.mScreen.get());
}

int getTwoLensesScreen(FovixModel& model) {
    const TwoLensesParams& p = params(model);
    return p.mDrawMode == FOVIX_TWO_LENSES_BOTH ? p.mScreen.get() : FOVIX_TWO_LENSES_SCREEN_NONE;
}

constexpr FovixModelOperations kOperations = {
    .init = reset,
    .release = FovixModel_Release,
    .setViewSize = setViewSize,
    .needContinue = FovixModel_NeedContinue,
    .getTextureScale = FovixModel_GetTextureScale,
    .getVerticesCache = getVerticesCache,
    .onConfigChanged = onConfigChanged,
    .drawSelf = drawSelf,
    .getOverlayCount = getOverlayCount,
    .getOverlayVerticesCache = getOverlayVerticesCache,
    .drawOverlay = drawOverlay,
    .resetPosition = reset,
    .setRotateZoom = setRotateZoom,
    .getRotateZoom = getRotateZoom,
    .needsVertexUpdate = needsVertexUpdate,
    .setLogicZoom = setLogicZoom,
    .getLogicZoom = getLogicZoom,
    .setTwoLensesDrawMode = setTwoLensesDrawMode,
    .setTwoLensesScreen = setTwoLensesScreen,
    .getTwoLensesScreen = getTwoLensesScreen,
};
static_assert(hasMandatoryOperations(kOperations));

}  // namespace

void AnimatedValue::rest(double value) {
    current = target = value;
    animator = nullptr;
}

void AnimatedValue::glideTo(double value) {
    target = value;
    animator = std::make_unique<GlideAnimator>(current, target, kGlideFrames);
}

void AnimatedValue::step() {
    stepInto(animator, current);
}

std::optional<PicturePlacement> placeHalf(const RotateZoomView& view, double zoom, double zoomDiv,
                                          int shownHalf) {
    const bool wantsLower = zoom >= zoomDiv;
    if (wantsLower != (shownHalf == kLowerHalf)) return std::nullopt;
    // Avoid dividing by zero: without a threshold the lower half follows the zoom itself.
    const double scale = wantsLower && zoomDiv != 0.0 ? zoom / zoomDiv : zoom;
    return PicturePlacement{-view.mRotateY / kDegreesPerUnit, view.mRotateX / kDegreesPerUnit,
                            std::clamp<double>(scale, -kLargestFloat, kLargestFloat)};
}

PicturePlacement placeBeside(double x, double scale, bool isAlone, const RotateZoomView& view) {
    if (!isAlone) return {x, 0.0, scale};
    if (scale == 1.0) scale = std::clamp<double>(view.mZoom, 1.0, kLargestFloat);
    if (scale <= 1.0) return {x, 0.0, scale};
    return {x - view.mRotateY / kDegreesPerUnit, view.mRotateX / kDegreesPerUnit, scale};
}

PicturePlacement placeStacked(bool isFirst) {
    return {0.0, isFirst ? kStackedY : -kStackedY, 1.0};
}

Mat4 twoLensesMatrix(const PicturePlacement& placement, int width, int height) {
    Mat4 m;
    Mat4_Scale(m, 1.0, 1.0, -1.0);
    Mat4_Translate(m, placement.x, placement.y, 0.0);
    Mat4_Translate(m, 0.0, 0.0, -1.0);
    Mat4_Perspective(m, kNormalFov, kNearPlane, kFarPlane, width, height, placement.scale);
    return m;
}

double aspectFixOf(int width, int height, int imgWidth, int imgHeight) {
    if (height == 0 || imgWidth == 0 || imgHeight == 0) return 1.0;
    const double surface = static_cast<double>(width) / height;
    const double picture = static_cast<double>(imgWidth) / imgHeight;
    const double fix = surface / picture;
    return surface > picture && fix > 0.0 ? fix : 1.0;
}

ModelPtr FovixModelTwoLensesInOne_Create(const FishEyeConfig& lens) {
    return FovixModel_Create(kOperations, std::make_unique<TwoLensesParams>(lens));
}

}  // namespace fovix
