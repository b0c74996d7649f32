#include "media/PngWriter.h"

#include <cstring>
#include <new>
#include <stdexcept>

#include "media/MediaOwners.h"
#include "output/OutputFile.h"

namespace fovix_host {
namespace {

FrameOwner rgbFrame(const RgbaImage& image) {
    FrameOwner frame(av_frame_alloc());
    if (!frame) throw std::bad_alloc();
    frame->format = AV_PIX_FMT_RGB24;
    frame->width = image.width;
    frame->height = image.height;
    must(av_frame_get_buffer(frame.get(), 0), "out of memory for the PNG image");
    for (int y = 0; y < image.height; ++y) {
        const std::uint8_t* from = image.at(0, y);
        std::uint8_t* to = frame->data[0] + static_cast<std::ptrdiff_t>(y) * frame->linesize[0];
        for (int x = 0; x < image.width; ++x, from += 4, to += 3) std::memcpy(to, from, 3);
    }
    return frame;
}

PacketOwner encode(const RgbaImage& image) {
    const AVCodec* encoder = avcodec_find_encoder(AV_CODEC_ID_PNG);
    if (!encoder) throw std::runtime_error("this FFmpeg has no PNG encoder");
    CodecOwner codec(avcodec_alloc_context3(encoder));
    PacketOwner packet(av_packet_alloc());
    if (!codec || !packet) throw std::bad_alloc();
    codec->width = image.width;
    codec->height = image.height;
    codec->pix_fmt = AV_PIX_FMT_RGB24;
    codec->time_base = {1, 25};  // required, but without effect
    codec->thread_count = 1;
    must(avcodec_open2(codec.get(), encoder, nullptr), "cannot start the PNG encoder");
    must(avcodec_send_frame(codec.get(), rgbFrame(image).get()), "cannot encode the PNG image");
    must(avcodec_send_frame(codec.get(), nullptr), "cannot encode the PNG image");
    must(avcodec_receive_packet(codec.get(), packet.get()), "cannot encode the PNG image");
    return packet;
}

}  // namespace

void writePng(const std::string& file, const RgbaImage& image) {
    av_log_set_level(AV_LOG_QUIET);
    const PacketOwner packet = encode(image);
    OutputFile out(file);
    out.write(packet->data, static_cast<std::size_t>(packet->size));
    out.publish();
}

}  // namespace fovix_host
