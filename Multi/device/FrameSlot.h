// A frame slot: the copy of one submitted frame and the textures that a device keeps for it.
#pragma once

#include <array>
#include <cstdlib>
#include <memory>

namespace fovix {

inline constexpr unsigned kNoTexture = 0xFFFFFFFF;

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

/// The texture names belong to the GL thread; all other fields change under the lock.
struct FrameSlot {
    std::unique_ptr<unsigned char[], FreeDeleter> data;  ///< copy of the last frame submitted
    int capacity = 0;                                    ///< bytes allocated at data
    int width = 0, height = 0;                           ///< pixels of the frame in data
    int isYUV = 0;
    int hasNewData = 0;     ///< copied in and not yet uploaded
    int textureUseful = 0;  ///< the textures hold a frame that can be drawn
    int pixelFmt = 0;       ///< format of the frame in data
    int uploadedFmt = 0;    ///< format of the frame in the textures
    /// [0] RGBA (unit 0), [1] Y, [2] U, [3] V (units 1 to 3).
    std::array<unsigned, 4> dewarperTextureName = {kNoTexture, kNoTexture, kNoTexture, kNoTexture};
    /// The prepare of the device that made the names; after a later one they are invalid.
    int texturesMadeFor = 0;
};

}  // namespace fovix
