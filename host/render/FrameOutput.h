// Destinations of rendered frames: numbered PNG files, a video, or raw bytes on standard output.
#pragma once

#include <memory>

#include "image/RgbaImage.h"
#include "output/OwnOutput.h"
#include "render/RenderOptions.h"

namespace fovix_host {

class FrameOutput {
  public:
    virtual ~FrameOutput() = default;

    // Frames count from 0; the time is that of the input, relative to its first frame.
    virtual void write(const RgbaImage& image, int frame, double seconds) = 0;
    // Call it after the last frame; without it, no video is left behind.
    virtual void finish() {}
};

// Prints the names of complete files to out. The number of frames is 0 if unknown; the frame rate is that of
// the inputs. Throws std::runtime_error.
std::unique_ptr<FrameOutput> openOutput(const RenderOptions& options, int frames, double frameRate,
                                        OwnOutput& out);

}  // namespace fovix_host
