// Opens a picture or a video and yields its decoded pictures one after the other: a file, a stream's address,
// or a capture device ("/dev/video0", or FORMAT:NAME for the others that FFmpeg knows, such as "x11grab::0").
// What goes wrong is thrown as std::runtime_error with a sentence that names the input; FFmpeg's own messages
// stay silent.
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "media/MediaOwners.h"

namespace fovix_host {

// Times are rounded to the input's time base: what is early by no more than this, in seconds, is not early.
inline constexpr double kTimeRounding = 0.0005;

// A stream or device that cannot be opened now, but perhaps later.
struct InputUnreachable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class MediaReader {
  public:
    // Asked again and again while the reader waits for its input, on the reader's thread; true makes the call
    // in progress give up, as if the input had ended in an error.
    using Interrupted = std::function<bool()>;

    explicit MediaReader(const std::string& input, Interrupted interrupted = {});
    MediaReader(const MediaReader&) = delete;
    MediaReader& operator=(const MediaReader&) = delete;

    // The next picture, owned by the reader and valid until the next call; nullptr after the last one.
    // Damaged pictures in the middle of a video are passed over; an input without any picture throws.
    const AVFrame* next();

    // When the last picture is due, in seconds from the start of the input.
    double seconds() const { return _seconds; }
    // In seconds; nothing where the input does not tell, as a live stream.
    std::optional<double> duration() const;
    // Pictures per second as the input declares them; 25 where it does not.
    double frameRate() const;
    // One picture and no more.
    bool isStill() const;
    // Goes on by itself, at its own pace: a device or a stream without a known end.
    bool isLive() const { return !_isFile && !isStill() && !duration() && !hasSize(); }
    // Live, and its pictures come in when they are due; those in segments or from a pipe come earlier.
    bool isRealTime() const;
    // Not a file or a pipe: when it breaks off, opening it again may help.
    static bool isStream(const std::string& input);
    // After next() gave nullptr: the input broke off with an error instead of ending.
    bool isLost() const { return _lost; }

    // The next picture will be the first one due at this time or later; false where the input cannot be
    // sought, and nothing changes.
    bool seek(double seconds);

    // Leaves out pictures that no other one needs, to catch up; the decoder decides which these are.
    void setHurry(bool hurry) { _codec->skip_frame = hurry ? AVDISCARD_NONREF : AVDISCARD_DEFAULT; }

    // From now on only pictures that can be decoded without others; quick to go through.
    void onlyKeyFrames() { _codec->skip_frame = AVDISCARD_NONKEY; }

    const std::string& input() const { return _input; }
    int framesRead() const { return _framesRead; }

  private:
    void openInput();
    void openDecoder();
    bool feedDecoder();
    bool receive();
    bool hasSize() const { return _format->pb && avio_size(_format->pb) > 0; }
    double dueTime() const;
    const AVStream& stream() const { return *_format->streams[_stream]; }
    [[noreturn]] void failOpening(const std::string& what, int code) const;
    [[noreturn]] void fail(const std::string& what, int code) const;

    std::string _input;
    Interrupted _interrupted;  // before the input that calls it
    InputOwner _format;
    CodecOwner _codec;
    PacketOwner _packet;
    FrameOwner _frame;
    int _stream = -1;
    int _framesRead = 0;
    int _lastError = 0;
    double _seconds = 0;
    double _notBefore = 0;  // pictures due earlier are passed over after a seek
    bool _isFile = false;
    bool _draining = false;
    bool _lost = false;
};

}  // namespace fovix_host
