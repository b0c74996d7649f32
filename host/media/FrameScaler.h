// Scales and converts pictures with swscale: size, pixel format, matrix and range are those of the frames.
#pragma once

#include "media/MediaOwners.h"

namespace fovix_host {

// The "yuvj" formats are the plain ones with full range built into their name.
AVPixelFormat plainFormat(int format);
bool isFullRange(const AVFrame& frame);

class FrameScaler {
  public:
    // The bytes of "to" are there already, and a few more: swscale's vector code may write a little past the
    // last pixel, and read past that of "from". Throws std::runtime_error where swscale cannot do it.
    void scale(const AVFrame& from, AVFrame& to);

  private:
    ScalerOwner _scaler;
};

}  // namespace fovix_host
