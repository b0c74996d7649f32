#include "model/FovixModel180VR.h"

#include <algorithm>

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "base/Numbers.h"
#include "model/DrawMesh.h"
#include "view/Screens180VR.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixModel180VR";

Model180VRParams& params(FovixModel& model) {
    return paramsOf<Model180VRParams>(model);
}

// The cartoon

void clearCartoon(Model180VRParams& p) {
    p.mCartoonActive = 0;
    p.mCartoonFrom = p.mCartoonTo = 0;
    p.mCartoonFrame = 0;
    p.mCartoonFrames = 0;
    p.mCartoonDirty = 0;
}

/// The same cartoon as the one that stands is only taken up again.
void startCartoon(Model180VRParams& p, int from, int to, int step, int frameCount) {
    const bool isSame = p.mCartoonFrom == from && p.mCartoonTo == to && p.mCartoonFrame == step &&
                        p.mCartoonFrames == frameCount;
    if (!isSame) {
        p.mCartoonFrom = from;
        p.mCartoonTo = to;
        p.mCartoonFrame = step;
        p.mCartoonFrames = frameCount;
        p.mCartoonDirty = 1;
    }
    p.mCartoonActive = 1;
}

bool isCartoonRunning(const Model180VRParams& p) {
    return p.mCartoonActive && p.mCartoonFrom != p.mCartoonTo && p.mCartoonFrames > 0;
}

/// The layouts with several screens and the cylinder change at once.
bool isCartoonVisible(const Model180VRParams& p) {
    const bool oneScreen = p.mShape != FOVIX_SHAPE_FOUR_SCREENS && p.mShape != FOVIX_SHAPE_LARGE_AND_TWO;
    return oneScreen && p.mCartoonFrom != FOVIX_180_CYLINDER && p.mCartoonTo != FOVIX_180_CYLINDER;
}

/// GL may point at the blend of the last frame, so its arrays are never resized.
VertexCache& blendBufferFor(Model180VRParams& p, const VertexCache& target) {
    std::shared_ptr<VertexCache>& buffer = p.mCartoonCache;
    if (!buffer || buffer->triangleCount != target.triangleCount) {
        buffer = std::make_shared<VertexCache>();
        buffer->triangleCount = target.triangleCount;
        buffer->textureCoords.resize(target.textureCoords.size());
        buffer->positions.resize(target.positions.size());
    }
    return *buffer;
}

/// Only the positions wander: the picture lies as on the target from the first frame on.
void blendMeshes(Model180VRParams& p, const VertexCachePtr& from, const VertexCachePtr& to) {
    if (!from || !to) {
        printLine("----------------> error pCtxtFrom = %p, pCtxtTo = %p\n",
                  static_cast<const void*>(from.get()), static_cast<const void*>(to.get()));
        return;
    }
    VertexCache& blend = blendBufferFor(p, *to);
    std::copy(to->textureCoords.begin(), to->textureCoords.end(), blend.textureCoords.begin());
    std::copy(to->positions.begin(), to->positions.end(), blend.positions.begin());
    const auto frame = static_cast<float>(p.mCartoonFrame), frames = static_cast<float>(p.mCartoonFrames);
    const std::size_t common = std::min(from->positions.size(), to->positions.size());
    for (std::size_t i = 0; i < common; ++i) {
        const float start = from->positions[i];
        blend.positions[i] = start + (to->positions[i] - start) * frame / frames;
    }
    p.mCartoonDirty = 0;
}

// Meshes

constexpr bool hasMesh(int mode) {
    return mode >= 0 && mode < k180VRModes;
}

VertexCachePtr createVertices(FovixModel& model, int mode) {
    Model180VRParams& p = params(model);
    printLine("FovixModel180VR.createVertices(%d)\n", mode);
    if (!hasMesh(mode)) {
        printLine("createVertices() mode is error : %d\n", mode);
        return nullptr;
    }
    const FishEyeConfig lens = *p.mFishEye;
    if (!isTextureUsable(lens)) return nullptr;
    const auto mesh = GridMesh_Create_180VR(mode, lens, model.backingWidth, model.backingHeight);
    if (!mesh) return nullptr;
    p.mNumTriangles = mesh->triangleCount;
    return VertexCache_FromCurvedMesh(*mesh);
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

/// What the matrices need to know of the mesh that is bound next; without one they keep the bound mesh's.
VertexCachePtr handOut(Model180VRParams& p, VertexCachePtr mesh) {
    if (!mesh) return nullptr;
    p.mMeshExtent = mesh->extent;
    const FishEyeConfig lens = *p.mFishEye;
    const bool isKnown = isFecValid(lens);
    p.mLensOffsetX = isKnown ? (lens.Fec_imgWidth * 0.5 - lens.Fec_xCenter) / lens.Fec_imgWidth : 0.0;
    p.mLensOffsetY = isKnown ? (lens.Fec_imgHeight * 0.5 - lens.Fec_yCenter) / lens.Fec_imgHeight : 0.0;
    return mesh;
}

/// One frame of the running cartoon; its last one is the target itself.
VertexCachePtr fetchCartoon(FovixModel& model) {
    Model180VRParams& p = params(model);
    const VertexCachePtr from = meshOfMode(model, p.mCartoonFrom);
    const VertexCachePtr to = meshOfMode(model, p.mCartoonTo);
    if (isCartoonVisible(p)) {
        if (p.mCartoonDirty || !p.mCartoonCache) blendMeshes(p, from, to);
        p.mCartoonFrame = saturateToInt(std::int64_t{p.mCartoonFrame} + 1);
        if (p.mCartoonFrame < p.mCartoonFrames) {
            p.mCartoonDirty = 1;
            return handOut(p, p.mCartoonCache);
        }
    }
    p.mCartoonDirty = 0;
    p.mCartoonActive = 0;
    return handOut(p, to);
}

VertexCachePtr getVerticesCache(FovixModel& model) {
    Model180VRParams& p = params(model);
    if (isCartoonRunning(p)) return fetchCartoon(model);
    const VertexCachePtr mesh = meshOfMode(model, p.mDrawMode);
    if (!mesh) printLine("error pCtxt = NULL\n");
    return handOut(p, mesh);
}

void onConfigChanged(FovixModel& model) {
    params(model).mVertexCaches.fill(nullptr);
}

int needsVertexUpdate(FovixModel& model) {
    return isCartoonRunning(params(model)) ? 1 : 0;
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

constexpr int kShapeCartoonFrames = 20;

void setShape(FovixModel& model, int shape) {
    const auto found = std::find_if(kShapeModes.begin(), kShapeModes.end(),
                                    [shape](const ShapeMode& entry) { return entry.shape == shape; });
    if (found == kShapeModes.end()) return;
    Model180VRParams& p = params(model);
    const LockSection section(p.mLock);
    const int oldMode = p.mDrawMode;
    clearCartoon(p);
    p.mDrawMode = found->drawMode;
    startCartoon(p, oldMode, found->drawMode, 1, kShapeCartoonFrames);
    p.mShape = shape;
}

int getShape(FovixModel& model) {
    return params(model).mShape;
}

void setDrawMode(FovixModel& model, int mode) {
    Model180VRParams& p = params(model);
    const LockSection section(p.mLock);
    p.mDrawMode = mode;
    clearCartoon(p);
}

void setDrawModeCartoon(FovixModel& model, int fromMode, int toMode, int step, int frameCount) {
    Model180VRParams& p = params(model);
    const LockSection section(p.mLock);
    startCartoon(p, fromMode, toMode, step, frameCount);
}

// Screens and views

void drawSelf(FovixModel& model, int mvpMatrixUniform, int verticalOffsetUniform) {
    const Model180VRParams& p = params(model);
    const Layout180VR layout = layout180VR(p.mShape, model.backingWidth, model.backingHeight);
    const Scene180VR scene = {p.mDrawMode, p.mMeshExtent, p.mLensOffsetX, p.mLensOffsetY, model.rotation};
    for (int s = 0; s < layout.count; ++s) {
        const auto index = static_cast<std::size_t>(s);
        const Screen180VR& screen = layout.screens[index];
        const Mat4 matrix = screenMatrix180VR(p.mViews[index], scene, screen.width, screen.height);
        if (layout.count > 1) setViewport(screen.viewport);
        drawMesh(model, matrix, {mvpMatrixUniform, verticalOffsetUniform}, p.mNumTriangles, kSource);
    }
}

int selectScreen(FovixModel& model, int x, int y) {
    Model180VRParams& p = params(model);
    const int screen = screenAt180VR(p.mShape, x, y, model.backingWidth, model.backingHeight);
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
    return screen >= 0 && screen < k180VRScreens;
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
    Model180VRParams& p = params(model);
    const LockSection section(p.mLock);
    resetPosition(model);
    p.mDrawMode = 0;
    p.mSelectedScreen = 0;
    p.mLensOffsetX = p.mLensOffsetY = 0.0;
    clearCartoon(p);
    p.mCartoonCache = nullptr;
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
    return FovixModel_Create(kOperations, std::make_unique<Model180VRParams>(lens));
}

}  // namespace fovix
