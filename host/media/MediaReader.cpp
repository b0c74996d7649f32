#include "media/MediaReader.h"

extern "C" {
#include <libavdevice/avdevice.h>
#include <libavutil/dict.h>
#include <libavutil/log.h>
}

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <utility>

#include "media/FrameRate.h"
#include "media/InputName.h"

namespace fovix_host {
namespace {

struct Address {
    std::string name;
    const AVInputFormat* format = nullptr;  // of a capture device; else FFmpeg detects it
};

bool isDevice(const AVInputFormat& format) {
    const AVClass* about = format.priv_class;
    return (format.flags & AVFMT_NOFILE) && about && AV_IS_INPUT_DEVICE(about->category);
}

// Local names use the file protocol, so that a colon in them does not make them an address or a device.
Address addressOf(const std::string& input) {
    std::error_code ignored;
    if (input == "-") return {"pipe:0"};
    if (input.starts_with("/dev/video")) return {input, av_find_input_format("v4l2")};
    if (std::filesystem::exists(input, ignored)) return {"file:" + input};
    const std::size_t colon = input.find(':');
    if (colon == input.npos) return {input};
    const AVInputFormat* format = av_find_input_format(input.substr(0, colon).c_str());
    return format && isDevice(*format) ? Address{input.substr(colon + 1), format} : Address{input};
}

// FFmpeg renders plain text as terminal art; here it is not a video.
bool isTerminalArt(const AVFormatContext& format) {
    return std::strcmp(format.iformat->name, "tty") == 0;
}

int askInterrupted(void* interrupted) {
    const auto& ask = *static_cast<MediaReader::Interrupted*>(interrupted);
    return ask && ask() ? 1 : 0;
}

// Retry network errors and busy devices, not bad names or credentials.
bool isTemporary(int code) {
    for (const int temporary :
         {AVERROR(ECONNREFUSED), AVERROR(ECONNRESET), AVERROR(ECONNABORTED), AVERROR(ETIMEDOUT),
          AVERROR(EHOSTUNREACH), AVERROR(ENETUNREACH), AVERROR(ENETDOWN), AVERROR(EPIPE), AVERROR(EIO),
          AVERROR(EAGAIN), AVERROR(EBUSY), AVERROR_EOF, AVERROR_EXIT, AVERROR_HTTP_NOT_FOUND,
          AVERROR_HTTP_SERVER_ERROR})
        if (code == temporary) return true;
    return false;
}

}  // namespace

MediaReader::MediaReader(const std::string& input, Interrupted interrupted)
    : _input(input),
      _interrupted(std::move(interrupted)),
      _packet(av_packet_alloc()),
      _frame(av_frame_alloc()) {
    av_log_set_level(AV_LOG_QUIET);
    if (!_packet || !_frame) throw std::bad_alloc();
    avdevice_register_all();
    openInput();
    openDecoder();
}

void MediaReader::fail(const std::string& what, int code) const {
    throw std::runtime_error(quotedName(_input) + " " + what + (code < 0 ? ": " + mediaErrorText(code) : ""));
}

void MediaReader::failOpening(const std::string& what, int code) const {
    try {
        fail(what, code);
    } catch (const std::runtime_error& problem) {
        if (isStream(_input) && isTemporary(code)) throw InputUnreachable(problem.what());
        throw;
    }
}

void MediaReader::openInput() {
    std::error_code ignored;
    if (std::filesystem::is_directory(_input, ignored)) fail("is a directory, not an image or video", 0);

    _isFile = std::filesystem::is_regular_file(_input, ignored);

    AVFormatContext* format = avformat_alloc_context();
    if (!format) throw std::bad_alloc();
    format->interrupt_callback = {askInterrupted, &_interrupted};
    // Otherwise "50%d.png" would be read as a numbered sequence.
    AVDictionary* options = nullptr;
    av_dict_set(&options, "pattern_type", "none", 0);
    const Address address = addressOf(_input);
    const int opened = avformat_open_input(&format, address.name.c_str(), address.format, &options);
    av_dict_free(&options);
    if (opened == AVERROR_INVALIDDATA) fail("is not an image or video in a known format", 0);
    if (opened < 0) failOpening("cannot be opened", opened);
    _format.reset(format);
    if (isTerminalArt(*format)) fail("is not an image or video in a known format", 0);

    const int probed = avformat_find_stream_info(format, nullptr);
    if (probed < 0) failOpening("cannot be read", probed);
}

void MediaReader::openDecoder() {
    const AVCodec* decoder = nullptr;
    _stream = av_find_best_stream(_format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, &decoder, 0);
    if (_stream == AVERROR_DECODER_NOT_FOUND) fail("contains a video for which no decoder is installed", 0);
    if (_stream < 0) fail("contains no image or video", 0);

    _codec.reset(avcodec_alloc_context3(decoder));
    if (!_codec) throw std::bad_alloc();
    int result = avcodec_parameters_to_context(_codec.get(), stream().codecpar);
    if (result < 0) fail("cannot be decoded", result);
    _codec->pkt_timebase = stream().time_base;
    // 0 means one thread per processor. Each delays the output by a frame, so live inputs get only two.
    _codec->thread_count = isRealTime() ? 2 : 0;
    result = avcodec_open2(_codec.get(), decoder, nullptr);
    if (result < 0) fail("cannot be decoded", result);
}

std::optional<double> MediaReader::duration() const {
    if (_format->duration == AV_NOPTS_VALUE || _format->duration <= 0) return std::nullopt;
    return static_cast<double>(_format->duration) / AV_TIME_BASE;
}

double MediaReader::frameRate() const {
    const AVRational rate = av_guess_frame_rate(_format.get(), _format->streams[_stream], nullptr);
    const double perSecond = rate.num > 0 && rate.den > 0 ? av_q2d(rate) : 0.0;
    constexpr double kMaxRate = 1000;  // higher values are time bases of inputs that declare no rate
    return perSecond > 0 && perSecond <= kMaxRate ? perSecond : kDefaultFrameRate;
}

bool MediaReader::isStill() const {
    const std::string format = _format->iformat->name;
    return format == "image2" || format.ends_with("_pipe");
}

bool MediaReader::isStream(const std::string& input) {
    if (input == "-" || input.starts_with("pipe:")) return false;
    std::error_code ignored;
    const auto kind = std::filesystem::status(input, ignored).type();
    using std::filesystem::file_type;
    return kind != file_type::regular && kind != file_type::fifo;
}

bool MediaReader::isRealTime() const {
    const std::string format = _format->iformat->name;
    return isLive() && isStream(_input) && !format.starts_with("hls") && format != "dash";
}

bool MediaReader::seek(double seconds) {
    // Without timestamps in the input, the decoder would restart its count of frames.
    const bool hasTimes =
        stream().start_time != AV_NOPTS_VALUE && !(_format->iformat->flags & AVFMT_NOTIMESTAMPS);
    if (!std::isfinite(seconds) || isStill() || isLive() || !hasTimes) return false;
    const double from = std::max(seconds, 0.0);
    const auto target = stream().start_time + static_cast<std::int64_t>(from / av_q2d(stream().time_base));
    if (av_seek_frame(_format.get(), _stream, target, AVSEEK_FLAG_BACKWARD) < 0) return false;
    avcodec_flush_buffers(_codec.get());
    _notBefore = from;
    _draining = _lost = false;
    return true;
}

// Sends the decoder the next packet of the stream, or the end of the input. Returns false after the end.
bool MediaReader::feedDecoder() {
    if (_draining) return false;
    for (;;) {
        av_packet_unref(_packet.get());
        const int result = av_read_frame(_format.get(), _packet.get());
        if (result < 0) {
            if (result != AVERROR_EOF) {
                _lastError = result;
                _lost = true;
            }
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

double MediaReader::frameTime() const {
    const std::int64_t stamp = _frame->best_effort_timestamp;
    if (stamp == AV_NOPTS_VALUE) return _framesRead == 0 ? 0.0 : _seconds + 1.0 / frameRate();
    const std::int64_t start = stream().start_time == AV_NOPTS_VALUE ? 0 : stream().start_time;
    return static_cast<double>(stamp - start) * av_q2d(stream().time_base);
}

bool MediaReader::receive() {
    int damagedAtEnd = 0;
    for (;;) {
        const int result = avcodec_receive_frame(_codec.get(), _frame.get());
        if (result == 0) {
            _seconds = frameTime();
            ++_framesRead;
            return true;
        }
        if (result == AVERROR_EOF) return false;
        if (result == AVERROR(EAGAIN)) {
            if (!feedDecoder()) return false;
            continue;
        }
        _lastError = result;
        // At the end, each decoding thread may still hold a damaged frame.
        constexpr int kMaxHeld = 256;  // more than any decoder has threads
        if (!feedDecoder() && ++damagedAtEnd > kMaxHeld) return false;
    }
}

const AVFrame* MediaReader::next() {
    while (receive()) {
        if (_seconds >= _notBefore - kTimeRounding) return _frame.get();
        if (_interrupted && _interrupted()) {
            _lost = true;
            return nullptr;
        }
    }
    if (_framesRead == 0 && _notBefore == 0) fail("contains no frame that can be decoded", _lastError);
    return nullptr;
}

}  // namespace fovix_host
