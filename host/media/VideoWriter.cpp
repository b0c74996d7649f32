#include "media/VideoWriter.h"

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/opt.h>
}

#include <cerrno>
#include <new>
#include <stdexcept>

namespace fovix_host {
namespace {

constexpr const char* kPreferredH264 = "libx264";

AVPixelFormat formatFor(VideoCodec codec) {
    return codec == VideoCodec::kH264 ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_0RGB32;
}

bool supports(const AVCodec& encoder, AVPixelFormat wanted) {
    for (const AVPixelFormat* format = encoder.pix_fmts; format && *format != AV_PIX_FMT_NONE; ++format)
        if (*format == wanted) return true;
    return false;
}

FrameOwner makeFrame(AVPixelFormat format, int width, int height) {
    FrameOwner frame(av_frame_alloc());
    if (!frame) throw std::bad_alloc();
    frame->format = format;
    frame->width = width;
    frame->height = height;
    if (av_frame_get_buffer(frame.get(), 0) < 0) throw std::bad_alloc();
    return frame;
}

// The colour description for players, which the conversion to luma and chroma follows, too.
template <typename Coloured>
void setColours(Coloured& coloured, VideoCodec codec) {
    const bool isYuv = codec == VideoCodec::kH264;
    coloured.colorspace = isYuv ? AVCOL_SPC_BT709 : AVCOL_SPC_RGB;
    coloured.color_range = isYuv ? AVCOL_RANGE_MPEG : AVCOL_RANGE_JPEG;
    coloured.color_primaries = AVCOL_PRI_BT709;
    coloured.color_trc = AVCOL_TRC_BT709;
}

}  // namespace

void VideoWriter::MuxerDeleter::operator()(AVFormatContext* muxer) const {
    if (muxer->pb) av_freep(&muxer->pb->buffer);
    avio_context_free(&muxer->pb);
    avformat_free_context(muxer);
}

VideoWriter::VideoWriter(const std::string& file, const VideoSettings& settings)
    : _settings(settings), _file(file), _packet(av_packet_alloc()) {
    av_log_set_level(AV_LOG_QUIET);
    if (!_packet) throw std::bad_alloc();
    if (!_file.isSeekable())
        throw std::runtime_error("cannot write '" + file +
                                 "': a video needs a file, not a pipe; -o - writes raw RGBA to a pipe");
    openMuxer();
    openEncoder();
    AVStream* stream = avformat_new_stream(_muxer.get(), nullptr);
    if (!stream) throw std::bad_alloc();
    stream->time_base = _codec->time_base;
    stream->avg_frame_rate = _codec->framerate;
    check(avcodec_parameters_from_context(stream->codecpar, _codec.get()));
    check(avformat_write_header(_muxer.get(), nullptr));
    _drawn = makeFrame(AV_PIX_FMT_RGBA, settings.width, settings.height);
    _encoded = makeFrame(_codec->pix_fmt, settings.width, settings.height);
    setColours(*_encoded, settings.codec);
}

void VideoWriter::openMuxer() {
    AVFormatContext* muxer = nullptr;
    if (avformat_alloc_output_context2(&muxer, nullptr, nullptr, _file.name().c_str()) < 0)
        throw std::runtime_error("cannot write '" + _file.name() +
                                 "': unknown video format; use a name ending in .mp4 or .mkv");
    _muxer.reset(muxer);
    constexpr int kBufferSize = 1 << 16;
    auto* buffer = static_cast<unsigned char*>(av_malloc(kBufferSize));
    if (!buffer) throw std::bad_alloc();
    muxer->pb = avio_alloc_context(buffer, kBufferSize, 1, this, nullptr, writeBytes, seekTo);
    if (!muxer->pb) av_free(buffer);
    if (!muxer->pb) throw std::bad_alloc();
}

void VideoWriter::openEncoder() {
    const bool isH264 = _settings.codec == VideoCodec::kH264;
    if (isH264)
        if (const AVCodec* preferred = avcodec_find_encoder_by_name(kPreferredH264))
            if (tryEncoder(*preferred)) return;
    const AVCodecID wanted = isH264 ? AV_CODEC_ID_H264 : AV_CODEC_ID_FFV1;
    void* next = nullptr;
    while (const AVCodec* codec = av_codec_iterate(&next))
        if (codec->id == wanted && av_codec_is_encoder(codec) && tryEncoder(*codec)) return;
    throw std::runtime_error("cannot write '" + _file.name() + "': this FFmpeg has no " +
                             (isH264 ? "H.264 encoder (such as libx264)" : "FFV1 encoder") +
                             " for frames of " + sizeText(_settings.width, _settings.height));
}

bool VideoWriter::tryEncoder(const AVCodec& encoder) {
    const AVPixelFormat format = formatFor(_settings.codec);
    if (!supports(encoder, format)) return false;
    _codec.reset(avcodec_alloc_context3(&encoder));
    if (!_codec) throw std::bad_alloc();
    _codec->width = _settings.width;
    _codec->height = _settings.height;
    _codec->pix_fmt = format;
    constexpr int kMaxTerm = 100000;  // exact for rates such as 30000/1001
    _codec->framerate = av_d2q(_settings.frameRate, kMaxTerm);
    _codec->time_base = av_inv_q(_codec->framerate);
    _codec->thread_count = 0;  // one per processor
    setColours(*_codec, _settings.codec);
    if (_muxer->oformat->flags & AVFMT_GLOBALHEADER) _codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    // Encoders without constant quality get a generous bit rate.
    constexpr double kBitsPerPixel = 0.15;
    const std::string quality = std::to_string(_settings.quality);
    if (av_opt_set(_codec->priv_data, "crf", quality.c_str(), 0) < 0)
        _codec->bit_rate = static_cast<std::int64_t>(kBitsPerPixel * _settings.frameRate * _settings.width) *
                           _settings.height;
    return avcodec_open2(_codec.get(), &encoder, nullptr) >= 0;
}

void VideoWriter::write(const RgbaImage& image, std::int64_t time) {
    // Copied because the scaler needs padding after the last pixel.
    av_image_copy_plane(_drawn->data[0], _drawn->linesize[0], image.pixels.data(), 4 * image.width,
                        4 * image.width, image.height);
    check(av_frame_make_writable(_encoded.get()));
    _scaler.scale(*_drawn, *_encoded);
    _encoded->pts = time;
    encode(_encoded.get());
}

void VideoWriter::encode(const AVFrame* frame) {
    check(avcodec_send_frame(_codec.get(), frame));
    for (;;) {
        const int received = avcodec_receive_packet(_codec.get(), _packet.get());
        if (received == AVERROR(EAGAIN) || received == AVERROR_EOF) return;
        check(received);
        _packet->duration = 1;
        av_packet_rescale_ts(_packet.get(), _codec->time_base, _muxer->streams[0]->time_base);
        check(av_interleaved_write_frame(_muxer.get(), _packet.get()));
    }
}

void VideoWriter::finish() {
    encode(nullptr);
    check(av_write_trailer(_muxer.get()));
    avio_flush(_muxer->pb);
    check(_muxer->pb->error);
    _file.publish();
}

void VideoWriter::check(int result) {
    if (_fileProblem) std::rethrow_exception(_fileProblem);
    must(result, "cannot write '" + _file.name() + "'");
}

int VideoWriter::writeBytes(void* self, std::uint8_t* bytes, int count) {
    auto& writer = *static_cast<VideoWriter*>(self);
    try {
        writer._file.write(bytes, static_cast<std::size_t>(count));
        return count;
    } catch (...) {
        writer._fileProblem = std::current_exception();
        return AVERROR(EIO);
    }
}

std::int64_t VideoWriter::seekTo(void* self, std::int64_t offset, int whence) {
    auto& writer = *static_cast<VideoWriter*>(self);
    try {
        return whence == AVSEEK_SIZE ? -1 : writer._file.seek(offset, whence & ~AVSEEK_FORCE);
    } catch (...) {
        writer._fileProblem = std::current_exception();
        return AVERROR(EIO);
    }
}

}  // namespace fovix_host
