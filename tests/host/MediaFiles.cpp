#include "MediaFiles.h"

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cmath>
#include <stdexcept>

using namespace fovix_host;

namespace {

Rgb converted(double y, double pb, double pr) {
    // Weights of red and blue in luma.
    constexpr double kR = 0.299, kB = 0.114, kG = 1.0 - kR - kB;
    const double red = y + 2.0 * (1.0 - kR) * pr;
    const double blue = y + 2.0 * (1.0 - kB) * pb;
    const double green = (y - kR * red - kB * blue) / kG;
    const auto byte = [](double value) {
        return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
    };
    return {byte(red), byte(green), byte(blue)};
}

struct OutputCloser {
    void operator()(AVFormatContext* format) const {
        if (format->pb) avio_closep(&format->pb);
        avformat_free_context(format);
    }
};
using Output = std::unique_ptr<AVFormatContext, OutputCloser>;

void writePackets(AVFormatContext* output, AVCodecContext* encoder) {
    const PacketOwner packet(av_packet_alloc());
    while (avcodec_receive_packet(encoder, packet.get()) == 0) {
        packet->duration = 1;
        av_packet_rescale_ts(packet.get(), encoder->time_base, output->streams[0]->time_base);
        must(av_interleaved_write_frame(output, packet.get()), "write");
    }
}

}  // namespace

Rgb fromLimitedRange(Yuv c) {
    return converted((c.y - 16) / 219.0, (c.u - 128) / 224.0, (c.v - 128) / 224.0);
}
Rgb fromFullRange(Yuv c) {
    return converted(c.y / 255.0, (c.u - 128) / 255.0, (c.v - 128) / 255.0);
}

FrameOwner quadrantFrame(AVPixelFormat format, int width, int height, int number) {
    FrameOwner frame(av_frame_alloc());
    frame->format = format;
    frame->width = width;
    frame->height = height;
    frame->pts = number;
    must(av_frame_get_buffer(frame.get(), 0), "frame");
    const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(format);
    for (int part = 0; part < description->nb_components; ++part) {
        const AVComponentDescriptor& at = description->comp[part];
        const int acrossShift = part ? description->log2_chroma_w : 0;
        const int downShift = part ? description->log2_chroma_h : 0;
        for (int y = 0; y < AV_CEIL_RSHIFT(height, downShift); ++y)
            for (int x = 0; x < AV_CEIL_RSHIFT(width, acrossShift); ++x) {
                const bool right = (x << acrossShift) >= width / 2, low = (y << downShift) >= height / 2;
                const Yuv colour = kQuadrants[(low ? 2u : 0u) + (right ? 1u : 0u)];
                const int value = part == 0 ? colour.y + kLumaStep * number : part == 1 ? colour.u : colour.v;
                std::uint8_t* to =
                    frame->data[at.plane] + y * frame->linesize[at.plane] + x * at.step + at.offset;
                const int stored = value << (at.depth - 8);
                to[0] = static_cast<std::uint8_t>(stored);
                if (at.depth > 8) to[1] = static_cast<std::uint8_t>(stored >> 8);
            }
    }
    return frame;
}

void writeMedia(const std::string& file, const char* encoderName, AVPixelFormat format, int width, int height,
                int frames, const FrameMaker& frameOf) {
    av_log_set_level(AV_LOG_QUIET);
    AVFormatContext* made = nullptr;
    must(avformat_alloc_output_context2(&made, nullptr, nullptr, file.c_str()), "container");
    const Output output(made);
    const AVCodec* codec = avcodec_find_encoder_by_name(encoderName);
    if (!codec) throw std::runtime_error(std::string("no encoder ") + encoderName);
    const CodecOwner encoder(avcodec_alloc_context3(codec));
    encoder->width = width;
    encoder->height = height;
    encoder->pix_fmt = format;
    encoder->time_base = {1, 25};
    encoder->framerate = {25, 1};
    encoder->flags |= AV_CODEC_FLAG_QSCALE;
    encoder->global_quality = FF_QP2LAMBDA;
    if (made->oformat->flags & AVFMT_GLOBALHEADER) encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    av_opt_set(encoder.get(), "crf", "4", AV_OPT_SEARCH_CHILDREN);
    must(avcodec_open2(encoder.get(), codec, nullptr), "encoder");
    AVStream* stream = avformat_new_stream(made, nullptr);
    stream->time_base = encoder->time_base;
    must(avcodec_parameters_from_context(stream->codecpar, encoder.get()), "stream");
    if (!(made->oformat->flags & AVFMT_NOFILE))
        must(avio_open(&made->pb, file.c_str(), AVIO_FLAG_WRITE), "file");
    av_opt_set(made->priv_data, "update", "1", 0);
    must(avformat_write_header(made, nullptr), "header");
    for (int number = 0; number < frames; ++number) {
        const FrameOwner frame = frameOf(format, width, height, number);
        frame->quality = encoder->global_quality;
        must(avcodec_send_frame(encoder.get(), frame.get()), "encode");
        writePackets(made, encoder.get());
    }
    must(avcodec_send_frame(encoder.get(), nullptr), "encode");
    writePackets(made, encoder.get());
    must(av_write_trailer(made), "trailer");
}
