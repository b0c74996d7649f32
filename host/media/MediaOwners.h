// RAII owners for FFmpeg's records; its error codes as text.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/error.h>
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

#include <memory>
#include <stdexcept>
#include <string>

namespace fovix_host {

struct MediaDeleter {
    void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

using InputOwner = std::unique_ptr<AVFormatContext, MediaDeleter>;
using CodecOwner = std::unique_ptr<AVCodecContext, MediaDeleter>;
using FrameOwner = std::unique_ptr<AVFrame, MediaDeleter>;
using PacketOwner = std::unique_ptr<AVPacket, MediaDeleter>;
using ScalerOwner = std::unique_ptr<SwsContext, MediaDeleter>;

inline std::string mediaErrorText(int code) {
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return text;
}

// Throws std::runtime_error if an FFmpeg function failed.
inline void must(int result, const std::string& what) {
    if (result < 0) throw std::runtime_error(what + ": " + mediaErrorText(result));
}

}  // namespace fovix_host
