#include "MediaReader.h"

extern "C" {
#include <libavutil/dict.h>
#include <libavutil/log.h>
}

#include <cstring>
#include <filesystem>
#include <new>
#include <stdexcept>

namespace fovix_host {
namespace {

// A local name goes through the file protocol, so that a colon in it is not taken for an address.
std::string addressOf(const std::string& input) {
    std::error_code ignored;
    return std::filesystem::exists(input, ignored) ? "file:" + input : input;
}

// FFmpeg offers to draw plain text as terminal art; for a user that is a wrong file.
bool isTextDrawn(const AVFormatContext& format) {
    return std::strcmp(format.iformat->name, "tty") == 0;
}

}  // namespace

MediaReader::MediaReader(const std::string& input)
    : _input(input), _packet(av_packet_alloc()), _frame(av_frame_alloc()) {
    av_log_set_level(AV_LOG_QUIET);
    if (!_packet || !_frame) throw std::bad_alloc();
    openInput();
    openDecoder();
}

void MediaReader::fail(const std::string& what, int code) const {
    throw std::runtime_error("'" + _input + "' " + what + (code < 0 ? ": " + mediaErrorText(code) : ""));
}

void MediaReader::openInput() {
    std::error_code ignored;
    if (std::filesystem::is_directory(_input, ignored)) fail("is a directory, not a picture or video", 0);

    // Without this the picture reader takes "50%d.png" for a numbered sequence.
    AVDictionary* options = nullptr;
    av_dict_set(&options, "pattern_type", "none", 0);
    AVFormatContext* format = nullptr;
    const int opened = avformat_open_input(&format, addressOf(_input).c_str(), nullptr, &options);
    av_dict_free(&options);
    if (opened == AVERROR_INVALIDDATA) fail("is not a picture or video in a known format", 0);
    if (opened < 0) fail("cannot be opened", opened);
    _format.reset(format);
    if (isTextDrawn(*format)) fail("is not a picture or video in a known format", 0);

    const int probed = avformat_find_stream_info(format, nullptr);
    if (probed < 0) fail("cannot be read", probed);
}

void MediaReader::openDecoder() {
    const AVCodec* decoder = nullptr;
    _stream = av_find_best_stream(_format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, &decoder, 0);
    if (_stream == AVERROR_DECODER_NOT_FOUND) fail("holds a video that no decoder here can read", 0);
    if (_stream < 0) fail("holds no picture or video", 0);

    _codec.reset(avcodec_alloc_context3(decoder));
    if (!_codec) throw std::bad_alloc();
    const AVStream& stream = *_format->streams[_stream];
    int result = avcodec_parameters_to_context(_codec.get(), stream.codecpar);
    if (result < 0) fail("cannot be decoded", result);
    _codec->pkt_timebase = stream.time_base;
    _codec->thread_count = 0;  // as many as there are processors
    result = avcodec_open2(_codec.get(), decoder, nullptr);
    if (result < 0) fail("cannot be decoded", result);
}

// Hands one packet of the chosen stream to the decoder, or the end of the input; false when that is done.
bool MediaReader::feedDecoder() {
    if (_draining) return false;
    for (;;) {
        av_packet_unref(_packet.get());
        const int result = av_read_frame(_format.get(), _packet.get());
        if (result < 0) {
            if (result != AVERROR_EOF) _lastError = result;
            _draining = true;
            avcodec_send_packet(_codec.get(), nullptr);
            return true;
        }
        if (_packet->stream_index == _stream) break;
    }
    const int result = avcodec_send_packet(_codec.get(), _packet.get());
    if (result < 0) _lastError = result;
    return true;
}

const AVFrame* MediaReader::next() {
    int damagedAtEnd = 0;
    for (;;) {
        const int result = avcodec_receive_frame(_codec.get(), _frame.get());
        if (result == 0) {
            ++_picturesRead;
            return _frame.get();
        }
        if (result == AVERROR_EOF) break;
        if (result == AVERROR(EAGAIN)) {
            if (!feedDecoder()) break;
            continue;
        }
        _lastError = result;
        // Each decoding thread may still hold a damaged picture at the end; no decoder holds this many.
        if (!feedDecoder() && ++damagedAtEnd > 256) break;
    }
    if (_picturesRead == 0) fail("holds no picture that can be decoded", _lastError);
    return nullptr;
}

}  // namespace fovix_host
