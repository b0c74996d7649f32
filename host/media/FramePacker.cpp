#include "media/FramePacker.h"

extern "C" {
#include <libavutil/imgutils.h>
}

#include <Fovix.h>

#include <algorithm>
#include <climits>
#include <new>
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

bool liesInOneBlock(const AVFrame& frame) {
    return frame.buf[1] == nullptr;
}

void checkSize(const AVFrame& frame) {
    const std::string size = std::to_string(frame.width) + "x" + std::to_string(frame.height);
    if (frame.width <= 0 || frame.height <= 0 || !frame.data[0])
        throw std::runtime_error("the " + size + " frame is empty");
    // The library reserves 4 bytes per pixel and a little more, and counts them in an int.
    constexpr std::int64_t kMost = (INT_MAX - 1024) / 4;
    if (std::int64_t{frame.width} * frame.height > kMost)
        throw std::runtime_error("the " + size + " frame is too large");
}

// At least two where there were two, and even: planes with a chroma sample for two pixels end there.
int shrunk(int pixels, int most, int longest) {
    const auto exact = static_cast<int>(std::int64_t{pixels} * most / longest);
    return std::max(exact / 2 * 2, std::min(pixels, 2));
}

}  // namespace

PackedFrame FramePacker::pack(const AVFrame& frame) {
    checkSize(frame);
    return std::max(frame.width, frame.height) > _mostAcross ? packFitting(shrink(frame))
                                                             : packFitting(frame);
}

const AVFrame& FramePacker::shrink(const AVFrame& frame) {
    const int longest = std::max(frame.width, frame.height);
    const AVPixelFormat format = plainFormat(frame.format);
    _small.reset(av_frame_alloc());
    if (!_small) throw std::bad_alloc();
    _small->format = sws_isSupportedOutput(format) ? format : AV_PIX_FMT_RGBA;
    _small->width = shrunk(frame.width, _mostAcross, longest);
    _small->height = shrunk(frame.height, _mostAcross, longest);
    _small->colorspace = frame.colorspace;
    _small->color_range = isFullRange(frame) ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    if (av_frame_get_buffer(_small.get(), 0) < 0) throw std::bad_alloc();
    _scaler.scale(frame, *_small);
    return *_small;
}

PackedFrame FramePacker::packFitting(const AVFrame& frame) {
    if (frame.format == AV_PIX_FMT_RGBA) return packRgba(frame);
    // A picture one pixel wide or high has no chroma samples in the library's layout.
    if (_formats == PackedFormats::kAll && !isFullRange(frame) && frame.width > 1 && frame.height > 1) {
        if (frame.format == AV_PIX_FMT_YUV420P) return packPlanar(frame);
        if (frame.format == AV_PIX_FMT_GRAY8) return packGrey(frame);
        if (frame.format == AV_PIX_FMT_NV12) return packSemiPlanar(frame, FOVIX_FORMAT_NV12);
        if (frame.format == AV_PIX_FMT_NV21) return packSemiPlanar(frame, FOVIX_FORMAT_NV21);
    }
    return convert(frame);
}

unsigned char* FramePacker::room(std::size_t bytes) {
    // swscale's vector code may write a little past the last pixel.
    constexpr std::size_t kSlack = 64;
    if (_buffer.size() < bytes + kSlack) _buffer.resize(bytes + kSlack);
    return _buffer.data();
}

PackedFrame FramePacker::buffered(const AVFrame& frame, int pixelFormat) const {
    const std::size_t bytes =
        pixelFormat == FOVIX_FORMAT_RGBA ? Layout420(frame).luma * 4 : Layout420(frame).bytes();
    return {pixelFormat, _buffer.data(), static_cast<int>(bytes), frame.width, frame.height};
}

PackedFrame FramePacker::packRgba(const AVFrame& frame) {
    const int rowBytes = frame.width * 4;
    if (frame.linesize[0] == rowBytes)
        return {FOVIX_FORMAT_RGBA, frame.data[0], rowBytes * frame.height, frame.width, frame.height};
    unsigned char* to = room(Layout420(frame).luma * 4);
    av_image_copy_plane(to, rowBytes, frame.data[0], frame.linesize[0], rowBytes, frame.height);
    return buffered(frame, FOVIX_FORMAT_RGBA);
}

PackedFrame FramePacker::packPlanar(const AVFrame& frame) {
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
PackedFrame FramePacker::packGrey(const AVFrame& frame) {
    const Layout420 layout(frame);
    unsigned char* to = room(layout.bytes());
    av_image_copy_plane(to, frame.width, frame.data[0], frame.linesize[0], frame.width, frame.height);
    constexpr unsigned char kNeutral = 128;
    std::fill_n(to + layout.luma, 2 * layout.chroma, kNeutral);
    return buffered(frame, FOVIX_FORMAT_YUV420P);
}

PackedFrame FramePacker::packSemiPlanar(const AVFrame& frame, int pixelFormat) {
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

PackedFrame FramePacker::convert(const AVFrame& frame) {
    AVFrame to{};
    to.format = AV_PIX_FMT_RGBA;
    to.width = frame.width;
    to.height = frame.height;
    to.colorspace = AVCOL_SPC_UNSPECIFIED;
    to.color_range = AVCOL_RANGE_JPEG;
    to.data[0] = room(Layout420(frame).luma * 4);
    to.linesize[0] = frame.width * 4;
    _scaler.scale(frame, to);
    return buffered(frame, FOVIX_FORMAT_RGBA);
}

}  // namespace fovix_host
