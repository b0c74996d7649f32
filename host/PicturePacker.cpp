#include "PicturePacker.h"

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

#include <Fovix.h>

#include <algorithm>
#include <climits>
#include <stdexcept>
#include <string>

namespace fovix_host {
namespace {

// The library's planes lie one behind the other; halves and quarters are integer divisions, so that
// pictures of odd size leave a few bytes between the chroma planes that no texture reads.
struct Layout420 {
    int width, height;
    std::size_t luma, chroma;

    explicit Layout420(const AVFrame& frame)
        : width(frame.width),
          height(frame.height),
          luma(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
          chroma(luma / 4) {}
    std::size_t bytes() const { return luma + 2 * chroma; }
    bool even() const { return width % 2 == 0 && height % 2 == 0; }
};

// The "yuvj" formats are the plain ones with full range built into their name.
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

bool isGrey(AVPixelFormat format) {
    const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(format);
    return description && description->nb_components <= 2 && !(description->flags & AV_PIX_FMT_FLAG_PAL);
}

bool isFullRange(const AVFrame& frame) {
    const AVPixelFormat plain = plainFormat(frame.format);
    if (plain != frame.format || frame.color_range == AVCOL_RANGE_JPEG) return true;
    return frame.color_range == AVCOL_RANGE_UNSPECIFIED && isGrey(plain);
}

bool liesInOneBlock(const AVFrame& frame) {
    return frame.buf[1] == nullptr;
}

void checkSize(const AVFrame& frame) {
    const std::string size = std::to_string(frame.width) + " x " + std::to_string(frame.height);
    if (frame.width <= 0 || frame.height <= 0 || !frame.data[0])
        throw std::runtime_error("the picture of " + size + " pixels is empty");
    // The library reserves 4 bytes per pixel and a little more, and counts them in an int.
    constexpr std::int64_t most = (INT_MAX - 1024) / 4;
    if (std::int64_t{frame.width} * frame.height > most)
        throw std::runtime_error("the picture of " + size + " pixels is too large");
}

}  // namespace

PackedPicture PicturePacker::pack(const AVFrame& frame) {
    checkSize(frame);
    if (frame.format == AV_PIX_FMT_RGBA) return packRgba(frame);
    // A picture one pixel wide or high has no chroma samples in the library's layout.
    if (_formats == PackedFormats::all && !isFullRange(frame) && frame.width > 1 && frame.height > 1) {
        if (frame.format == AV_PIX_FMT_YUV420P) return packPlanar(frame);
        if (frame.format == AV_PIX_FMT_GRAY8) return packGrey(frame);
        if (frame.format == AV_PIX_FMT_NV12) return packSemiPlanar(frame, FOVIX_FORMAT_NV12);
        if (frame.format == AV_PIX_FMT_NV21) return packSemiPlanar(frame, FOVIX_FORMAT_NV21);
    }
    return convert(frame);
}

unsigned char* PicturePacker::room(std::size_t bytes) {
    // swscale's vector code may write a little past the last pixel.
    constexpr std::size_t slack = 64;
    if (_buffer.size() < bytes + slack) _buffer.resize(bytes + slack);
    return _buffer.data();
}

PackedPicture PicturePacker::buffered(const AVFrame& frame, int pixelFormat) const {
    const std::size_t bytes =
        pixelFormat == FOVIX_FORMAT_RGBA ? Layout420(frame).luma * 4 : Layout420(frame).bytes();
    return {pixelFormat, _buffer.data(), static_cast<int>(bytes), frame.width, frame.height};
}

PackedPicture PicturePacker::packRgba(const AVFrame& frame) {
    const int rowBytes = frame.width * 4;
    if (frame.linesize[0] == rowBytes)
        return {FOVIX_FORMAT_RGBA, frame.data[0], rowBytes * frame.height, frame.width, frame.height};
    unsigned char* to = room(Layout420(frame).luma * 4);
    av_image_copy_plane(to, rowBytes, frame.data[0], frame.linesize[0], rowBytes, frame.height);
    return buffered(frame, FOVIX_FORMAT_RGBA);
}

PackedPicture PicturePacker::packPlanar(const AVFrame& frame) {
    const Layout420 layout(frame);
    const int half = frame.width / 2;
    if (liesInOneBlock(frame) && layout.even() && frame.linesize[0] == frame.width &&
        frame.linesize[1] == half && frame.linesize[2] == half &&
        frame.data[1] == frame.data[0] + layout.luma && frame.data[2] == frame.data[1] + layout.chroma)
        return {FOVIX_FORMAT_YUV420P, frame.data[0], static_cast<int>(layout.bytes()), frame.width,
                frame.height};

    unsigned char* to = room(layout.bytes());
    av_image_copy_plane(to, frame.width, frame.data[0], frame.linesize[0], frame.width, frame.height);
    to += layout.luma;
    for (int plane = 1; plane <= 2; ++plane, to += layout.chroma)
        av_image_copy_plane(to, half, frame.data[plane], frame.linesize[plane], half, frame.height / 2);
    return buffered(frame, FOVIX_FORMAT_YUV420P);
}

// swscale takes all grey for full range, so limited-range grey becomes luma with neutral chroma.
PackedPicture PicturePacker::packGrey(const AVFrame& frame) {
    const Layout420 layout(frame);
    unsigned char* to = room(layout.bytes());
    av_image_copy_plane(to, frame.width, frame.data[0], frame.linesize[0], frame.width, frame.height);
    constexpr unsigned char neutral = 128;
    std::fill_n(to + layout.luma, 2 * layout.chroma, neutral);
    return buffered(frame, FOVIX_FORMAT_YUV420P);
}

PackedPicture PicturePacker::packSemiPlanar(const AVFrame& frame, int pixelFormat) {
    const Layout420 layout(frame);
    const int pairBytes = frame.width / 2 * 2;
    if (liesInOneBlock(frame) && layout.even() && frame.linesize[0] == frame.width &&
        frame.linesize[1] == pairBytes && frame.data[1] == frame.data[0] + layout.luma)
        return {pixelFormat, frame.data[0], static_cast<int>(layout.bytes()), frame.width, frame.height};

    unsigned char* to = room(layout.bytes());
    av_image_copy_plane(to, frame.width, frame.data[0], frame.linesize[0], frame.width, frame.height);
    av_image_copy_plane(to + layout.luma, pairBytes, frame.data[1], frame.linesize[1], pairBytes,
                        frame.height / 2);
    return buffered(frame, pixelFormat);
}

PackedPicture PicturePacker::convert(const AVFrame& frame) {
    const AVPixelFormat from = plainFormat(frame.format);
    constexpr int quality = SWS_BILINEAR | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT;
    _scaler.reset(sws_getCachedContext(_scaler.release(), frame.width, frame.height, from, frame.width,
                                       frame.height, AV_PIX_FMT_RGBA, quality, nullptr, nullptr, nullptr));
    if (!_scaler) {
        const char* name = av_get_pix_fmt_name(from);
        throw std::runtime_error(std::string("pictures in the pixel format '") + (name ? name : "unknown") +
                                 "' cannot be converted");
    }
    constexpr int unit = 1 << 16;  // contrast and saturation 1.0
    sws_setColorspaceDetails(_scaler.get(), sws_getCoefficients(frame.colorspace), isFullRange(frame) ? 1 : 0,
                             sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, unit, unit);
    unsigned char* to = room(Layout420(frame).luma * 4);
    const int rowBytes = frame.width * 4;
    if (sws_scale(_scaler.get(), frame.data, frame.linesize, 0, frame.height, &to, &rowBytes) != frame.height)
        throw std::runtime_error("the picture cannot be converted to RGBA");
    return buffered(frame, FOVIX_FORMAT_RGBA);
}

}  // namespace fovix_host
