// The render model: one object per display type that owns its meshes, views and projections and draws its
// screens.
//
// The library reaches every kind through one table of 31 operations. A kind fills what it supports and leaves
// the rest null; callers test an operation first, except for the mandatory ones. Drawing operations run on
// the GL thread only; setters and getters on any thread, writing Cells. Kinds are listed in DisplayTypes.cpp.
#pragma once

#include <memory>

#include "base/Cell.h"
#include "lens/FishEyeConfig.h"
#include "mesh/VertexCache.h"

namespace fovix {

struct FovixModel;

/// In the order of the table; every operation takes the model first.
struct FovixModelOperations {
    /// Mandatory. Back to the kind's defaults; the first call that a model sees.
    void (*init)(FovixModel& model) = nullptr;
    /// Mandatory. Frees meshes, params record and the model itself; the deleter of ModelPtr.
    void (*release)(FovixModel* model) = nullptr;
    /// Optional. Mounting of the camera, 0..3.
    void (*setCameraMount)(FovixModel& model, int mount) = nullptr;
    int (*getCameraMount)(FovixModel& model) = nullptr;
    /// Optional. Layout of the screens.
    void (*setShape)(FovixModel& model, int shape) = nullptr;
    int (*getShape)(FovixModel& model) = nullptr;
    /// Optional. Mesh or projection within the shape.
    void (*setDrawMode)(FovixModel& model, int mode) = nullptr;
    /// Optional. An animated change from one mesh to another.
    void (*setDrawModeCartoon)(FovixModel& model, int fromMode, int toMode, int step,
                               int frameCount) = nullptr;
    /// Mandatory. Size of the surface in pixels.
    void (*setViewSize)(FovixModel& model, int width, int height) = nullptr;
    /// 0 in every kind.
    int (*needContinue)(FovixModel& model) = nullptr;
    /// Mandatory. Value of the shader's u_textureScale.
    double (*getTextureScale)(FovixModel& model) = nullptr;
    /// Mandatory, GL thread. The main mesh of the current state, built on first use; null when there is none.
    VertexCachePtr (*getVerticesCache)(FovixModel& model) = nullptr;
    /// Optional, GL thread. Drops every mesh: the lens circle is another one.
    void (*onConfigChanged)(FovixModel& model) = nullptr;
    /// Mandatory, GL thread. Viewports, matrices and draw calls of every screen of the main mesh.
    void (*drawSelf)(FovixModel& model, int mvpMatrixUniform, int verticalOffsetUniform) = nullptr;
    /// Optional, GL thread. Meshes to draw over the main one: how many, their vertices, and drawing one of
    /// them.
    int (*getOverlayCount)(FovixModel& model) = nullptr;
    VertexCachePtr (*getOverlayVerticesCache)(FovixModel& model, int index) = nullptr;
    void (*drawOverlay)(FovixModel& model, int index, int mvpMatrixUniform,
                        int verticalOffsetUniform) = nullptr;
    /// Mandatory. Every screen's view back to its default.
    void (*resetPosition)(FovixModel& model) = nullptr;
    /// Optional. Pan, tilt, zoom (field of view), roll in degrees of one screen; null pointers are skipped.
    void (*setPTZ)(FovixModel& model, int screen, double pan, double tilt, double zoom, double roll,
                   double ptzFifth) = nullptr;
    void (*getPTZ)(FovixModel& model, int screen, double* pan, double* tilt, double* zoom,
                   double* roll) = nullptr;
    /// Optional. Angles and zoom factor of one screen; null pointers are skipped.
    void (*setRotateZoom)(FovixModel& model, int screen, double xAngle, double yAngle, double zAngle,
                          double zoom) = nullptr;
    void (*getRotateZoom)(FovixModel& model, int screen, double* xAngle, double* yAngle, double* zAngle,
                          double* zoom) = nullptr;
    /// Optional. Extra rotation in degrees.
    void (*setRotation)(FovixModel& model, double degrees) = nullptr;
    /// Optional, GL thread. Nonzero when the vertices change from frame to frame.
    int (*needsVertexUpdate)(FovixModel& model) = nullptr;
    /// Optional. The screen under a surface point (pixels from the top left), which becomes the selected one.
    int (*selectScreen)(FovixModel& model, int x, int y) = nullptr;
    int (*getSelectedScreen)(FovixModel& model) = nullptr;
    /// Optional. Two lenses in one picture: zoom thresholds, zoom, draw mode and screen.
    void (*setLogicZoom)(FovixModel& model, double min, double max, double div, double zoom) = nullptr;
    float (*getLogicZoom)(FovixModel& model) = nullptr;
    void (*setTwoLensesDrawMode)(FovixModel& model, int mode) = nullptr;
    void (*setTwoLensesScreen)(FovixModel& model, int screen) = nullptr;
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

struct FovixModel {
    double textureScale = 1.0;    ///< shrinks the picture in the shader; no kind changes it
    Cell<int> backingHeight = 0;  ///< surface size in pixels
    Cell<int> backingWidth = 0;
    Cell<double> rotation = 0.0;  ///< extra rotation of the 180-degree view, degrees
    std::unique_ptr<ModelParams> params;
    FovixModelOperations operations;

    /// Vertices in the arrays that GL's attributes point at now; the frame sets it before a draw operation,
    /// and no draw goes beyond it, whatever mesh the model believes to be bound.
    int boundVertexCount = 0;
};

using ModelPtr = std::shared_ptr<FovixModel>;
using ModelCreator = ModelPtr (*)(const FishEyeConfig& lens);

/// Under sanitizers a function's address counts as unknown while compiling; that it is no null pointer is
/// known.
template <class Function>
constexpr bool isFilled(Function* operation) {
    return __builtin_constant_p(operation != nullptr) ? operation != nullptr : true;
}

/// True when the operations that callers do not test are there.
constexpr bool hasMandatoryOperations(const FovixModelOperations& operations) {
    return isFilled(operations.init) && isFilled(operations.release) && isFilled(operations.setViewSize) &&
           isFilled(operations.getTextureScale) && isFilled(operations.getVerticesCache) &&
           isFilled(operations.drawSelf) && isFilled(operations.resetPosition);
}

/// A new model with its table and its params record.
ModelPtr FovixModel_Create(const FovixModelOperations& operations, std::unique_ptr<ModelParams> params);

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
