// The render model: one object per display type that owns its meshes, views and projections and draws its
// screens.
//
// The library reaches every kind through one table of 31 operations. A kind sets the operations it supports
// and leaves the others null. Callers use the members of FovixModel, which skip what a kind lacks. Operations
// marked "GL thread" run inside a frame; the others run on any thread and write Cells. DisplayTypes.cpp lists
// the kinds.
#pragma once

#include <memory>

#include "base/Cell.h"
#include "base/Operations.h"
#include "device/Device.h"
#include "lens/FishEyeConfig.h"
#include "mesh/VertexCache.h"

namespace fovix {

struct FovixModel;

/// Shape or screen of a model that has none.
inline constexpr int kNone = -1;

/// In the order of the table; every operation takes the model first.
struct FovixModelOperations {
    /// Fovix_SetType, before the model is shown: resets the record to the kind's defaults.
    void (*init)(FovixModel& model) = nullptr;
    /// The deleter of ModelPtr: frees meshes, params record and the model itself.
    void (*release)(FovixModel* model) = nullptr;
    /// Fovix_SetCameraMount: the mounting of the camera, 0 to 3.
    void (*setCameraMount)(FovixModel& model, int mount) = nullptr;
    /// Fovix_GetCameraMount: returns the mounting.
    int (*getCameraMount)(FovixModel& model) = nullptr;
    /// Fovix_SetShape: the layout of the screens.
    void (*setShape)(FovixModel& model, int shape) = nullptr;
    /// Fovix_GetShape, the frame and touches on overviews: returns the layout.
    int (*getShape)(FovixModel& model) = nullptr;
    /// Fovix_SetDrawMode: the mesh or projection within the layout.
    void (*setDrawMode)(FovixModel& model, int mode) = nullptr;
    /// Fovix_SetDrawModeCartoon: blends one draw mode's mesh into another's over a number of frames, from a
    /// step on.
    void (*setDrawModeCartoon)(FovixModel& model, int fromMode, int toMode, int step,
                               int frameCount) = nullptr;
    /// Fovix_Init, Fovix_Prepare and Fovix_SetType, under the lock: the size of the surface in pixels.
    void (*setViewSize)(FovixModel& model, int width, int height) = nullptr;
    /// Kept for the fixed order of the table: always returns 0.
    int (*needContinue)(FovixModel& model) = nullptr;
    /// GL thread. Returns the factor that shrinks the frame's content in the shader.
    double (*getTextureScale)(FovixModel& model) = nullptr;
    /// GL thread, under the lock. Returns the main mesh of the current state, built on first use; null
    /// without one.
    VertexCachePtr (*getVerticesCache)(FovixModel& model) = nullptr;
    /// GL thread. The lens circle has changed: drops every mesh.
    void (*onConfigChanged)(FovixModel& model) = nullptr;
    /// GL thread. Draws every screen of the bound main mesh.
    void (*drawSelf)(FovixModel& model, Device& device) = nullptr;
    /// GL thread. Returns the number of meshes to draw over the main one.
    int (*getOverlayCount)(FovixModel& model) = nullptr;
    /// GL thread, under the lock. Returns the mesh of an overlay; null without one.
    VertexCachePtr (*getOverlayVerticesCache)(FovixModel& model, int index) = nullptr;
    /// GL thread. Draws the bound mesh of an overlay.
    void (*drawOverlay)(FovixModel& model, int index, Device& device) = nullptr;
    /// Fovix_ResetPosition, Fovix_Prepare and changes of mount or shape: every screen's view back to its
    /// default.
    void (*resetPosition)(FovixModel& model) = nullptr;
    /// Fovix_SetPTZ and the controllers: pan, tilt, zoom (field of view), roll and axis of one screen,
    /// degrees.
    void (*setPTZ)(FovixModel& model, int screen, double pan, double tilt, double zoom, double roll,
                   double ptzFifth) = nullptr;
    /// Fovix_GetPTZ, the frame and touches on overviews: stores one screen's view; null pointers are skipped.
    void (*getPTZ)(FovixModel& model, int screen, double* pan, double* tilt, double* zoom,
                   double* roll) = nullptr;
    /// Fovix_SetRotateZoom and the controllers: angles (degrees) and zoom factor of one screen.
    void (*setRotateZoom)(FovixModel& model, int screen, double xAngle, double yAngle, double zAngle,
                          double zoom) = nullptr;
    /// Fovix_GetRotateZoom and the frame: stores one screen's view; null pointers are skipped.
    void (*getRotateZoom)(FovixModel& model, int screen, double* xAngle, double* yAngle, double* zAngle,
                          double* zoom) = nullptr;
    /// Fovix_SetRotationFor180VR: an extra rotation in degrees.
    void (*setRotation)(FovixModel& model, double degrees) = nullptr;
    /// GL thread, once per frame. Returns nonzero when the main mesh changes by itself and must be fetched
    /// again.
    int (*needsVertexUpdate)(FovixModel& model) = nullptr;
    /// Fovix_OnTouchDown: returns the screen under a point (pixels from the top left), which becomes the
    /// selected one.
    int (*selectScreen)(FovixModel& model, int x, int y) = nullptr;
    /// The frame, cruises and touches on overviews: returns the selected screen.
    int (*getSelectedScreen)(FovixModel& model) = nullptr;
    /// Fovix_SetLogicZoom: the zoom thresholds of two lenses in one frame.
    void (*setLogicZoom)(FovixModel& model, double min, double max, double div, double zoom) = nullptr;
    /// Fovix_GetLogicZoom: returns the zoom.
    float (*getLogicZoom)(FovixModel& model) = nullptr;
    /// Fovix_SetTwoLensesDrawMode: which halves are drawn, FOVIX_TWO_LENSES_...; all moves end.
    void (*setTwoLensesDrawMode)(FovixModel& model, int mode) = nullptr;
    /// Fovix_SetTwoLensesScreen: both halves or one of them, FOVIX_TWO_LENSES_SCREEN_...
    void (*setTwoLensesScreen)(FovixModel& model, int screen) = nullptr;
    /// Fovix_GetTwoLensesScreen: returns FOVIX_TWO_LENSES_SCREEN_...
    int (*getTwoLensesScreen)(FovixModel& model) = nullptr;
};

/// Base of every kind's own record: its views, modes and meshes.
struct ModelParams {
    explicit ModelParams(const FishEyeConfig& lens) : mFishEye(&lens) {}
    ModelParams(const ModelParams&) = delete;
    ModelParams& operator=(const ModelParams&) = delete;
    virtual ~ModelParams() = default;

    const FishEyeConfig* mFishEye;  ///< the handle's lens circle; not owned
};

/// The members that set something return whether the kind has the operation; those that read return absent
/// where it does not.
struct FovixModel {
    double textureScale = 1.0;    ///< shrinks the frame's content in the shader; no kind changes it
    Cell<int> backingHeight = 0;  ///< surface size in pixels
    Cell<int> backingWidth = 0;
    Cell<double> rotation = 0.0;  ///< extra rotation of the 180-degree view, degrees
    std::unique_ptr<ModelParams> params;
    FovixModelOperations operations;

    bool init() { return call(operations.init); }
    bool setCameraMount(int mount) { return call(operations.setCameraMount, mount); }
    int getCameraMount(int absent) { return ask(operations.getCameraMount, absent); }
    bool setShape(int shape) { return call(operations.setShape, shape); }
    int getShape(int absent) { return ask(operations.getShape, absent); }
    bool setDrawMode(int mode) { return call(operations.setDrawMode, mode); }
    bool setDrawModeCartoon(int fromMode, int toMode, int step, int frameCount) {
        return call(operations.setDrawModeCartoon, fromMode, toMode, step, frameCount);
    }
    bool setViewSize(int width, int height) { return call(operations.setViewSize, width, height); }
    double getTextureScale() { return ask(operations.getTextureScale, 1.0); }
    VertexCachePtr getVerticesCache() { return ask(operations.getVerticesCache, VertexCachePtr()); }
    bool onConfigChanged() { return call(operations.onConfigChanged); }
    bool drawSelf(Device& device) { return call(operations.drawSelf, device); }
    int getOverlayCount() { return ask(operations.getOverlayCount, 0); }
    VertexCachePtr getOverlayVerticesCache(int index) {
        return ask(operations.getOverlayVerticesCache, VertexCachePtr(), index);
    }
    bool drawOverlay(int index, Device& device) { return call(operations.drawOverlay, index, device); }
    bool resetPosition() { return call(operations.resetPosition); }
    bool setPTZ(int screen, double pan, double tilt, double zoom, double roll, double ptzFifth) {
        return call(operations.setPTZ, screen, pan, tilt, zoom, roll, ptzFifth);
    }
    bool getPTZ(int screen, double* pan, double* tilt, double* zoom, double* roll) {
        return call(operations.getPTZ, screen, pan, tilt, zoom, roll);
    }
    bool setRotateZoom(int screen, double xAngle, double yAngle, double zAngle, double zoom) {
        return call(operations.setRotateZoom, screen, xAngle, yAngle, zAngle, zoom);
    }
    bool getRotateZoom(int screen, double* xAngle, double* yAngle, double* zAngle, double* zoom) {
        return call(operations.getRotateZoom, screen, xAngle, yAngle, zAngle, zoom);
    }
    bool setRotation(double degrees) { return call(operations.setRotation, degrees); }
    bool needsVertexUpdate() { return ask(operations.needsVertexUpdate, 0) != 0; }
    int selectScreen(int x, int y, int absent) { return ask(operations.selectScreen, absent, x, y); }
    int getSelectedScreen(int absent) { return ask(operations.getSelectedScreen, absent); }
    bool setLogicZoom(double min, double max, double div, double zoom) {
        return call(operations.setLogicZoom, min, max, div, zoom);
    }
    float getLogicZoom(float absent) { return ask(operations.getLogicZoom, absent); }
    bool setTwoLensesDrawMode(int mode) { return call(operations.setTwoLensesDrawMode, mode); }
    bool setTwoLensesScreen(int screen) { return call(operations.setTwoLensesScreen, screen); }
    int getTwoLensesScreen(int absent) { return ask(operations.getTwoLensesScreen, absent); }

  private:
    template <class... Parameters, class... Arguments>
    bool call(void (*operation)(FovixModel&, Parameters...), Arguments&&... arguments) {
        if (operation) operation(*this, arguments...);
        return operation != nullptr;
    }
    template <class Result, class... Parameters, class... Arguments>
    Result ask(Result (*operation)(FovixModel&, Parameters...), Result absent, Arguments... arguments) {
        return operation ? operation(*this, arguments...) : absent;
    }
};

using ModelPtr = std::shared_ptr<FovixModel>;
using ModelCreator = ModelPtr (*)(const FishEyeConfig& lens);

/// True if all mandatory operations are filled; each kind asserts it.
constexpr bool hasMandatoryOperations(const FovixModelOperations& operations) {
    return isFilled(operations.init) && isFilled(operations.release) && isFilled(operations.setViewSize) &&
           isFilled(operations.getTextureScale) && isFilled(operations.getVerticesCache) &&
           isFilled(operations.drawSelf) && isFilled(operations.resetPosition);
}

/// A new model with its table and its params record.
ModelPtr FovixModel_Create(const FovixModelOperations& operations, std::unique_ptr<ModelParams> params);

/// A model that draws nothing and takes nothing: what a handle has before its first type and after its
/// release.
ModelPtr FovixModel_CreateEmpty();

// Operations that the kinds share.
void FovixModel_Release(FovixModel* model);
void FovixModel_SetViewSize(FovixModel& model, int width, int height);
int FovixModel_NeedContinue(FovixModel& model);
double FovixModel_GetTextureScale(FovixModel& model);

/// The kind's own record.
template <class Params>
Params& paramsOf(FovixModel& model) {
    return static_cast<Params&>(*model.params);
}

}  // namespace fovix
