// Writes pictures as a video: H.264 in MP4 or MKV, or FFV1, which loses nothing, in MKV. The file appears
// when it is finished. What goes wrong is thrown as std::runtime_error with a sentence that names the file.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>

#include "image/RgbaImage.h"
#include "media/FrameScaler.h"
#include "media/MediaOwners.h"
#include "output/OutputFile.h"

namespace fovix_host {

enum class VideoCodec { kH264, kFfv1 };

struct VideoSettings {
    int width = 0, height = 0;  // even for H.264
    double frameRate = 25;
    VideoCodec codec = VideoCodec::kH264;
    int quality = 20;  // of H.264: from 0, the best, to 51
};

class VideoWriter {
  public:
    VideoWriter(const std::string& file, const VideoSettings& settings);
    VideoWriter(const VideoWriter&) = delete;
    VideoWriter& operator=(const VideoWriter&) = delete;

    // A picture of the settings' size that is due at this multiple of 1/frameRate, later than the one before.
    void write(const RgbaImage& picture, std::int64_t due);

    // Gives the file its name; without this nothing is left of it.
    void finish();

    const std::string& file() const { return _file.name(); }

  private:
    struct MuxerDeleter {
        void operator()(AVFormatContext* muxer) const;
    };

    void openEncoder();
    bool tryEncoder(const AVCodec& encoder);
    void openMuxer();
    void encode(const AVFrame* frame);
    void check(int result);
    static int writeBytes(void* self, std::uint8_t* bytes, int count);
    static std::int64_t seekTo(void* self, std::int64_t offset, int whence);

    VideoSettings _settings;
    OutputFile _file;
    std::exception_ptr _fileProblem;  // on its way through FFmpeg's functions
    std::unique_ptr<AVFormatContext, MuxerDeleter> _muxer;
    CodecOwner _codec;
    FrameOwner _drawn, _encoded;  // RGBA, and what the encoder takes
    PacketOwner _packet;
    FrameScaler _scaler;
};

}  // namespace fovix_host
