#include "media/FrameLuma.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <Fovix.h>

namespace fovix_host {

LumaView lumaOf(const PackedFrame& frame) {
    const bool rgba = frame.pixelFormat == FOVIX_FORMAT_RGBA;
    return {frame.data, frame.width, frame.height, std::ptrdiff_t{frame.width} * (rgba ? 4 : 1),
            rgba ? LumaView::Samples::kRgba : LumaView::Samples::kLuma};
}

std::optional<LumaView> lumaOf(const AVFrame& frame) {
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    constexpr auto kNotLuma = AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_HWACCEL |
                              AV_PIX_FMT_FLAG_BITSTREAM | AV_PIX_FMT_FLAG_BAYER;
    if (!format || (format->flags & kNotLuma) || !frame.data[0]) return std::nullopt;
    const AVComponentDescriptor& first = format->comp[0];
    if (first.plane != 0 || first.step != 1 || first.offset != 0 || first.depth != 8) return std::nullopt;
    return LumaView{frame.data[0], frame.width, frame.height, frame.linesize[0], LumaView::Samples::kLuma};
}

}  // namespace fovix_host
