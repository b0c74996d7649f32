// Where drawn frames go: numbered PNG files, a video, or raw bytes on standard output.
#pragma once

#include <memory>

#include "image/RgbaImage.h"
#include "output/OwnOutput.h"
#include "render/RenderOptions.h"

namespace fovix_host {

class FrameOutput {
  public:
    virtual ~FrameOutput() = default;

    // Frames count from 0; the seconds are the input's since the first frame.
    virtual void write(const RgbaImage& picture, int frame, double seconds) = 0;
    // After the last one; what was not finished leaves no video behind.
    virtual void finish() {}
};

// Files are named on out when they are whole. The number of frames is 0 where it is not known, the frame rate
// that of the inputs. Throws std::runtime_error.
std::unique_ptr<FrameOutput> openOutput(const RenderOptions& options, int frames, double frameRate,
                                        OwnOutput& out);

}  // namespace fovix_host
