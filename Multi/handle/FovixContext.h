// The record behind a handle: the whole state of one rendering instance.
//
// Plain fields belong to the GL thread, or are guarded by the lock where that is said; Cells are written by
// any thread. The model and its controllers are replaced as a whole (Display): a frame takes one Display at
// its start and keeps it alive to its end.
#pragma once

#include <array>
#include <cstdint>

#include "Fovix.h"
#include "base/Cell.h"
#include "device/Device.h"
#include "handle/Display.h"
#include "lens/FishEyeConfig.h"

namespace fovix {

inline constexpr std::uint32_t kLiveMagic = 0x10203040;
inline constexpr int kFrameSlots = 36;

/// Rows and columns of the multi-image grid, changed together: aligned as the one word that its Cell writes.
struct alignas(2 * sizeof(int)) GridSize {
    int rows, columns;
};

}  // namespace fovix

struct FovixContext {
    fovix::Cell<std::uint32_t> magic = fovix::kLiveMagic;  ///< 0 once destruction has begun
    fovix::Cell<int> viewWidth = 0, viewHeight = 0;        ///< surface size passed to Fovix_Init
    fovix::Cell<int> backingWidth = 0, backingHeight = 0;  ///< size that the model and the grid work with

    fovix::DevicePtr device;        ///< what draws; GL thread
    fovix::Cell<int> usingYUV = 0;  ///< the last frame submitted was not RGBA

    fovix::Cell<int> configChanged = 0;  ///< the main mesh must be fetched again by the next frame
    int typeSwitchCount = 0;             ///< accepted changes of display type; under the lock
    fovix::SharedSlot<const fovix::Display> display;
    fovix::FishEyeConfig fishEye;        ///< lens circle of the frame in slot 0
    fovix::Cell<int> currentScreen = 0;  ///< controller that touch and pan-tilt-zoom calls address
    int touchEnabled = 0;                ///< controllers are only made when 1; fixed at creation
    fovix::Cell<int> drawnConfigVersion = -1;

    std::array<fovix::FrameSlot, fovix::kFrameSlots> frames;  ///< slot 0 serves the types with a single frame
    fovix::Cell<fovix::GridSize> grid = fovix::GridSize{3, 3};
    fovix::Cell<int> lensCount = 1;  ///< 1..36
    fovix::Cell<int> lensIndex = 0;
    int uploadedLensIndex = -1;  ///< lens whose frame is in the textures; GL thread
    fovix::Cell<float> backgroundRed = 0.0f, backgroundGreen = 0.0f, backgroundBlue = 0.0f;
};
