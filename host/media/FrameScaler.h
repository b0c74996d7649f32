// Scales and converts frames with swscale, according to the size, pixel format, matrix and range of both.
#pragma once

#include <cstddef>

#include "media/MediaOwners.h"

namespace fovix_host {

// The plain format of a "yuvj" format, which differs only in its full range.
AVPixelFormat plainFormat(int format);
bool isFullRange(const AVFrame& frame);

class FrameScaler {
  public:
    // swscale's vector code may access a few bytes past the last pixel: both buffers need this padding.
    static constexpr std::size_t kPadding = 64;

    // The buffer of "to" is already allocated. Throws std::runtime_error if the conversion is not supported.
    void scale(const AVFrame& from, AVFrame& to);

  private:
    ScalerOwner _scaler;
};

}  // namespace fovix_host
