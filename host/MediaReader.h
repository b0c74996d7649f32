// Opens a picture or a video (a file or an address, whatever FFmpeg reads) and yields its decoded
// pictures one after the other. What goes wrong is thrown as std::runtime_error with a sentence that
// names the input; FFmpeg's own messages stay silent.
#pragma once

#include <string>

#include "MediaOwners.h"

namespace fovix_host {

class MediaReader {
  public:
    explicit MediaReader(const std::string& input);

    // The next picture, owned by the reader and valid until the next call; nullptr after the last one.
    // Damaged pictures in the middle of a video are passed over; an input without any picture throws.
    const AVFrame* next();

    const std::string& input() const { return _input; }
    int picturesRead() const { return _picturesRead; }

  private:
    void openInput();
    void openDecoder();
    bool feedDecoder();
    [[noreturn]] void fail(const std::string& what, int code) const;

    std::string _input;
    InputOwner _format;
    CodecOwner _codec;
    PacketOwner _packet;
    FrameOwner _frame;
    int _stream = -1;
    int _picturesRead = 0;
    int _lastError = 0;
    bool _draining = false;
};

}  // namespace fovix_host
