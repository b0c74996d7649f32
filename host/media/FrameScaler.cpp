#include "media/FrameScaler.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <stdexcept>
#include <string>

namespace fovix_host {
namespace {

bool isGrey(AVPixelFormat format) {
    const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(format);
    return description && description->nb_components <= 2 && !(description->flags & AV_PIX_FMT_FLAG_PAL);
}

}  // namespace

AVPixelFormat plainFormat(int format) {
    switch (format) {
        case AV_PIX_FMT_YUVJ420P:
            return AV_PIX_FMT_YUV420P;
        case AV_PIX_FMT_YUVJ411P:
            return AV_PIX_FMT_YUV411P;
        case AV_PIX_FMT_YUVJ422P:
            return AV_PIX_FMT_YUV422P;
        case AV_PIX_FMT_YUVJ440P:
            return AV_PIX_FMT_YUV440P;
        case AV_PIX_FMT_YUVJ444P:
            return AV_PIX_FMT_YUV444P;
        default:
            return static_cast<AVPixelFormat>(format);
    }
}

bool isFullRange(const AVFrame& frame) {
    const AVPixelFormat plain = plainFormat(frame.format);
    if (plain != frame.format || frame.color_range == AVCOL_RANGE_JPEG) return true;
    return frame.color_range == AVCOL_RANGE_UNSPECIFIED && isGrey(plain);
}

void FrameScaler::scale(const AVFrame& from, AVFrame& to) {
    const AVPixelFormat fromFormat = plainFormat(from.format), toFormat = plainFormat(to.format);
    constexpr int kQuality = SWS_BILINEAR | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
    _scaler.reset(sws_getCachedContext(_scaler.release(), from.width, from.height, fromFormat, to.width,
                                       to.height, toFormat, kQuality, nullptr, nullptr, nullptr));
    if (!_scaler) {
        const char* name = av_get_pix_fmt_name(fromFormat);
        throw std::runtime_error(std::string("frames in pixel format '") + (name ? name : "unknown") +
                                 "' cannot be converted");
    }
    constexpr int kUnit = 1 << 16;  // contrast and saturation 1.0
    sws_setColorspaceDetails(_scaler.get(), sws_getCoefficients(from.colorspace), isFullRange(from) ? 1 : 0,
                             sws_getCoefficients(to.colorspace), isFullRange(to) ? 1 : 0, 0, kUnit, kUnit);
    if (sws_scale(_scaler.get(), from.data, from.linesize, 0, from.height, to.data, to.linesize) != to.height)
        throw std::runtime_error("the frame cannot be converted");
}

}  // namespace fovix_host
