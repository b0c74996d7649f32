// Opens an image or video and returns its decoded frames one by one. The input is a file, the address of a
// stream, or a capture device ("/dev/video0", or FORMAT:NAME for others that FFmpeg knows, such as
// "x11grab::0"). Errors are thrown as std::runtime_error with a message that names the input; FFmpeg's own
// messages are disabled.
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "media/MediaOwners.h"

namespace fovix_host {

// Tolerance, in seconds, for timestamps that are rounded to the input's time base.
inline constexpr double kTimeRounding = 0.0005;

// A stream or device that cannot be opened now, but may be available later.
struct InputUnreachable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class MediaReader {
  public:
    // Called repeatedly, on the reader's thread, while it waits for input. Returning true aborts the wait as
    // if the input had failed.
    using Interrupted = std::function<bool()>;

    explicit MediaReader(const std::string& input, Interrupted interrupted = {});
    MediaReader(const MediaReader&) = delete;
    MediaReader& operator=(const MediaReader&) = delete;

    // The next frame, owned by the reader and valid until the next call; nullptr after the last one. Skips
    // damaged frames; throws if the input contains no frame at all.
    const AVFrame* next();

    // Time of the last frame, in seconds from the start of the input.
    double seconds() const { return _seconds; }
    // In seconds; nullopt if unknown, as for live streams.
    std::optional<double> duration() const;
    // The declared frame rate, or kDefaultFrameRate.
    double frameRate() const;
    // A single frame.
    bool isStill() const;
    // A device or stream without a known end.
    bool isLive() const { return !_isFile && !isStill() && !duration() && !hasSize(); }
    // Live, with frames that arrive on schedule (not segmented or piped, which arrive early).
    bool isRealTime() const;
    // Neither a file nor a pipe: reopening may help if it disconnects.
    static bool isStream(const std::string& input);
    // After next() returned nullptr: the input failed instead of ending.
    bool isLost() const { return _lost; }

    // Continues with the first frame at this time or later. Returns false, and changes nothing, if the input
    // cannot seek.
    bool seek(double seconds);

    // Skips frames that no other frame needs, in order to catch up; the decoder decides which these are.
    void setHurry(bool hurry) { _codec->skip_frame = hurry ? AVDISCARD_NONREF : AVDISCARD_DEFAULT; }

    // Decodes only key frames, which is fast.
    void onlyKeyFrames() { _codec->skip_frame = AVDISCARD_NONKEY; }

    const std::string& input() const { return _input; }
    int framesRead() const { return _framesRead; }

  private:
    void openInput();
    void openDecoder();
    bool feedDecoder();
    bool receive();
    bool hasSize() const { return _format->pb && avio_size(_format->pb) > 0; }
    double frameTime() const;
    const AVStream& stream() const { return *_format->streams[_stream]; }
    [[noreturn]] void failOpening(const std::string& what, int code) const;
    [[noreturn]] void fail(const std::string& what, int code) const;

    std::string _input;
    Interrupted _interrupted;  // outlives _format, which calls it
    InputOwner _format;
    CodecOwner _codec;
    PacketOwner _packet;
    FrameOwner _frame;
    int _stream = -1;
    int _framesRead = 0;
    int _lastError = 0;
    double _seconds = 0;
    double _notBefore = 0;  // target of the last seek; earlier frames are skipped
    bool _isFile = false;
    bool _draining = false;
    bool _lost = false;
};

}  // namespace fovix_host
