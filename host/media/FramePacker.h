// Packs decoded frames for libfovix. Limited-range 4:2:0 (planar or semi-planar), limited-range grey and RGBA
// keep the decoder's bytes, which are copied only if the planes are padded or separate. All other formats are
// converted to RGBA, according to their range and matrix. Frames that are too large for a texture are scaled
// down.
#pragma once

#include <climits>
#include <cstddef>
#include <vector>

#include "media/FrameScaler.h"
#include "media/MediaOwners.h"

namespace fovix_host {

// The arguments of Fovix_SetTexture(). The bytes belong to the source frame or to the packer and are valid
// until either changes.
struct PackedFrame {
    int pixelFormat = 0;
    const unsigned char* data = nullptr;
    int size = 0;
    int width = 0;
    int height = 0;
};

enum class PackedFormats {
    kAll,
    kRgba  // for views that accept only this
};

class FramePacker {
  public:
    explicit FramePacker(PackedFormats formats = PackedFormats::kAll, int maxSide = INT_MAX)
        : _formats(formats), _maxSide(maxSide) {}

    // Neither side of the packed frame is longer than maxSide. Throws std::runtime_error if the frame cannot
    // be converted or is too large for the library.
    PackedFrame pack(const AVFrame& frame);

  private:
    PackedFrame packFitting(const AVFrame& frame);
    const AVFrame& shrink(const AVFrame& frame);
    PackedFrame packRgba(const AVFrame& frame);
    PackedFrame packPlanar(const AVFrame& frame);
    PackedFrame packGrey(const AVFrame& frame);
    PackedFrame packSemiPlanar(const AVFrame& frame, int pixelFormat);
    PackedFrame convert(const AVFrame& frame);
    unsigned char* bufferOf(std::size_t bytes);
    PackedFrame buffered(const AVFrame& frame, int pixelFormat) const;

    PackedFormats _formats;
    int _maxSide;
    std::vector<unsigned char> _buffer;
    FrameOwner _small;
    FrameScaler _scaler;
};

}  // namespace fovix_host
