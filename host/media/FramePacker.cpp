#include "media/FramePacker.h"

extern "C" {
#include <libavutil/imgutils.h>
}

#include <Fovix.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>

namespace fovix_host {
namespace {

// The library expects the planes one after the other. It divides sizes as integers, so frames of odd size
// leave a few unused bytes between the chroma planes.
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

bool isOneBlock(const AVFrame& frame) {
    return frame.buf[1] == nullptr;
}

void checkSize(const AVFrame& frame) {
    const std::string size = std::to_string(frame.width) + "x" + std::to_string(frame.height);
    if (frame.width <= 0 || frame.height <= 0 || !frame.data[0])
        throw std::runtime_error("the " + size + " frame is empty");
    // The library counts the bytes of an RGBA buffer, plus 1024, in an int.
    constexpr std::int64_t kMaxPixels = (INT_MAX - 1024) / 4;
    if (std::int64_t{frame.width} * frame.height > kMaxPixels)
        throw std::runtime_error("the " + size + " frame is too large");
}

// Even, because a chroma sample covers two pixels, and at least 2 unless there was only one.
int shrunk(int pixels, int maxSide, int longest) {
    const auto exact = static_cast<int>(std::int64_t{pixels} * maxSide / longest);
    return std::max(exact / 2 * 2, std::min(pixels, 2));
}

}  // namespace

PackedFrame FramePacker::pack(const AVFrame& frame) {
    checkSize(frame);
    return std::max(frame.width, frame.height) > _maxSide ? packFitting(shrink(frame)) : packFitting(frame);
}

const AVFrame& FramePacker::shrink(const AVFrame& frame) {
    const int longest = std::max(frame.width, frame.height);
    const AVPixelFormat format = plainFormat(frame.format);
    _small.reset(av_frame_alloc());
    if (!_small) throw std::bad_alloc();
    _small->format = sws_isSupportedOutput(format) ? format : AV_PIX_FMT_RGBA;
    _small->width = shrunk(frame.width, _maxSide, longest);
    _small->height = shrunk(frame.height, _maxSide, longest);
    _small->colorspace = frame.colorspace;
    _small->color_range = isFullRange(frame) ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    if (av_frame_get_buffer(_small.get(), 0) < 0) throw std::bad_alloc();
    _scaler.scale(frame, *_small);
    return *_small;
}

PackedFrame FramePacker::packFitting(const AVFrame& frame) {
    if (frame.format == AV_PIX_FMT_RGBA) return packRgba(frame);
    // A frame one pixel wide or high has no chroma samples in the library's layout.
    if (_formats == PackedFormats::kAll && !isFullRange(frame) && frame.width > 1 && frame.height > 1) {
        if (frame.format == AV_PIX_FMT_YUV420P) return packPlanar(frame);
        if (frame.format == AV_PIX_FMT_GRAY8) return packGrey(frame);
        if (frame.format == AV_PIX_FMT_NV12) return packSemiPlanar(frame, FOVIX_FORMAT_NV12);
        if (frame.format == AV_PIX_FMT_NV21) return packSemiPlanar(frame, FOVIX_FORMAT_NV21);
    }
    return convert(frame);
}

unsigned char* FramePacker::bufferOf(std::size_t bytes) {
    if (_buffer.size() < bytes + FrameScaler::kPadding) _buffer.resize(bytes + FrameScaler::kPadding);
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
    unsigned char* to = bufferOf(Layout420(frame).luma * 4);
    av_image_copy_plane(to, rowBytes, frame.data[0], frame.linesize[0], rowBytes, frame.height);
    return buffered(frame, FOVIX_FORMAT_RGBA);
}

PackedFrame FramePacker::packPlanar(const AVFrame& frame) {
    const Layout420 layout(frame);
    const int half = frame.width / 2;
    if (isOneBlock(frame) && layout.even() && frame.linesize[0] == frame.width && frame.linesize[1] == half &&
        frame.linesize[2] == half && frame.data[1] == frame.data[0] + layout.luma &&
        frame.data[2] == frame.data[1] + layout.chroma)
        return {FOVIX_FORMAT_YUV420P, frame.data[0], static_cast<int>(layout.bytes()), frame.width,
                frame.height};

    unsigned char* to = bufferOf(layout.bytes());
    av_image_copy_plane(to, frame.width, frame.data[0], frame.linesize[0], frame.width, frame.height);
    to += layout.luma;
    for (int plane = 1; plane <= 2; ++plane, to += layout.chroma)
        av_image_copy_plane(to, half, frame.data[plane], frame.linesize[plane], half, frame.height / 2);
    return buffered(frame, FOVIX_FORMAT_YUV420P);
}

// swscale treats all grey as full range, so limited-range grey becomes luma with neutral chroma.
PackedFrame FramePacker::packGrey(const AVFrame& frame) {
    const Layout420 layout(frame);
    unsigned char* to = bufferOf(layout.bytes());
    av_image_copy_plane(to, frame.width, frame.data[0], frame.linesize[0], frame.width, frame.height);
    constexpr unsigned char kNeutral = 128;
    std::fill_n(to + layout.luma, 2 * layout.chroma, kNeutral);
    return buffered(frame, FOVIX_FORMAT_YUV420P);
}

PackedFrame FramePacker::packSemiPlanar(const AVFrame& frame, int pixelFormat) {
    const Layout420 layout(frame);
    const int pairBytes = frame.width / 2 * 2;
    if (isOneBlock(frame) && layout.even() && frame.linesize[0] == frame.width &&
        frame.linesize[1] == pairBytes && frame.data[1] == frame.data[0] + layout.luma)
        return {pixelFormat, frame.data[0], static_cast<int>(layout.bytes()), frame.width, frame.height};

    unsigned char* to = bufferOf(layout.bytes());
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
    to.data[0] = bufferOf(Layout420(frame).luma * 4);
    to.linesize[0] = frame.width * 4;
    _scaler.scale(frame, to);
    return buffered(frame, FOVIX_FORMAT_RGBA);
}

}  // namespace fovix_host
