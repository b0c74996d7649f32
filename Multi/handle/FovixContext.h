// The record behind a handle: the whole state of one rendering instance.
//
// Plain fields belong to the GL thread, or to whoever holds the lock where that is said; Cells are written by
// any thread. The model and its controllers are replaced as a whole (Display): a frame takes one Display at
// its start and keeps it alive to its end.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "Fovix.h"
#include "base/Cell.h"
#include "base/SharedLock.h"
#include "lens/FishEyeConfig.h"
#include "mesh/VertexCache.h"
#include "model/FovixModel.h"
#include "touch/TouchController.h"

namespace fovix {

inline constexpr std::uint32_t kLiveMagic = 0x10203040;
inline constexpr int kFrameSlots = 36;
inline constexpr int kNoType = 65535;  ///< display type of a context that has not been given one yet
inline constexpr unsigned kNoTexture = 0xFFFFFFFF;

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

/// One input picture and its four textures. Their names are the GL thread's; all else changes under the lock.
struct FrameSlot {
    std::unique_ptr<unsigned char[], FreeDeleter> data;  ///< copy of the last picture handed in
    int capacity = 0;                                    ///< bytes allocated at data
    int width = 0, height = 0;                           ///< pixels of the picture in data
    int isYUV = 0;
    int hasNewData = 0;     ///< copied in and not yet uploaded
    int textureUseful = 0;  ///< the textures hold a picture that can be drawn
    int pixelFmt = 0;       ///< format of the picture in data
    int uploadedFmt = 0;    ///< format of the picture in the textures
    /// [0] RGBA (unit 0), [1] Y, [2] U, [3] V (units 1 to 3).
    std::array<unsigned, 4> dewarperTextureName = {kNoTexture, kNoTexture, kNoTexture, kNoTexture};
    int texturesMadeFor = 0;  ///< prepareCount when the names were made; another: those of an older context
};

/// What is shown: a display type with its model and controllers. Never changed once a context holds it.
struct Display {
    int type = kNoType;
    std::uint64_t serial = 0;  ///< differs from that of every other Display of the process
    ModelPtr model;
    std::array<ControllerPtr, kScreenCount> controllers;  ///< null where there is none
};
using DisplayPtr = std::shared_ptr<const Display>;

/// Calls a member of every controller, in the order of the screens.
template <class Result, class... Parameters, class... Arguments>
void forEachController(const Display& display, Result (TouchController::*operation)(Parameters...),
                       Arguments... arguments) {
    for (const ControllerPtr& controller : display.controllers) {
        if (controller) (*controller.*operation)(arguments...);
    }
}

/// Rows and columns of the multi-image grid, changed together: aligned as the one word that its Cell writes.
struct alignas(2 * sizeof(int)) GridSize {
    int rows, columns;
};

/// Locations in the textured and in the flat-colour program.
struct ProgramLocations {
    int positionAttrib = 0, textureCoordsAttrib = 0;
    int mvpMatrixUniform = 0, verticalOffsetUniform = 0;
    int usingYUVUniform = 0;
    int yTextureScaleAdjustmentUniform = 0, uTextureScaleAdjustmentUniform = 0,
        vTextureScaleAdjustmentUniform = 0;
    int dewarperTextureUniform = 0, dewarperYTextureUniform = 0;
    int dewarperUTextureUniform = 0, dewarperVTextureUniform = 0;
    int aspectRatioUniform = 0, textureScaleUniform = 0;
    int linePositionAttrib = 0, lineColorUniform = 0;
};

}  // namespace fovix

struct FovixContext {
    fovix::Cell<std::uint32_t> magic = fovix::kLiveMagic;  ///< 0 from the start of destruction on
    fovix::Cell<int> viewWidth = 0, viewHeight = 0;        ///< surface size given to Fovix_Init
    fovix::Cell<int> backingWidth = 0, backingHeight = 0;  ///< size that the model and the grid work with

    // The GL objects of the context that was current in the last Fovix_Prepare; GL thread.
    int prepareCount = 0;  ///< 0: not prepared yet
    bool hasVertexArrayObjects = false;
    bool hasFramebufferObjects = false;
    unsigned dewarperProgram = 0;  ///< textured program
    unsigned lineProgram = 0;      ///< flat-colour program
    fovix::ProgramLocations locations;
    int maxTextureSize = 0;

    // How the shader reads the picture; written by uploads on the GL thread.
    double yTextureScaleAdjustment = 1.0, uTextureScaleAdjustment = 1.0, vTextureScaleAdjustment = 1.0;
    double aspectRatio = 0.0;
    fovix::Cell<int> usingYUV = 0;  ///< the last picture handed in was not RGBA

    // Vertex arrays; GL thread, under the lock. Shared with the model, so that they outlive whatever replaces
    // them.
    fovix::VertexCachePtr verticesCache;  ///< main mesh bound last
    fovix::VertexCachePtr boundVertices;  ///< what the attributes point at now: the main mesh or an overlay's
    std::uint64_t verticesSerial = 0;     ///< the Display that verticesCache came from

    fovix::Cell<int> configChanged = 0;  ///< the vertices must be fetched again on the next frame
    fovix::SharedLock lock;              ///< this context's handle of the process's lock
    int typeSwitchCount = 0;             ///< accepted changes of display type; under the lock
    fovix::SharedSlot<const fovix::Display> display;
    fovix::FishEyeConfig fishEye;        ///< lens circle of the picture in slot 0
    fovix::Cell<int> currentScreen = 0;  ///< controller that touch and pan-tilt-zoom calls address
    int touchEnabled = 0;                ///< controllers are only made when 1; fixed at creation
    fovix::Cell<int> drawnConfigVersion = -1;

    std::array<fovix::FrameSlot, fovix::kFrameSlots> frames;  ///< slot 0 serves the single-picture types
    std::vector<unsigned char> chromaU, chromaV;  ///< planes split from interleaved chroma; GL thread
    fovix::Cell<fovix::GridSize> grid = fovix::GridSize{3, 3};
    fovix::Cell<int> lensCount = 1;  ///< 1..36
    fovix::Cell<int> lensIndex = 0;
    int uploadedLensIndex = -1;  ///< lens whose picture is in the textures; GL thread
    fovix::Cell<float> backgroundRed = 0.0f, backgroundGreen = 0.0f, backgroundBlue = 0.0f;
};
