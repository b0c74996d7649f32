// Writes images as a video: H.264 in MP4 or MKV, or lossless FFV1 in MKV. The file is published when it is
// complete. Errors are thrown as std::runtime_error with a message that names the file.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>

#include "image/RgbaImage.h"
#include "media/FrameRate.h"
#include "media/FrameScaler.h"
#include "media/MediaOwners.h"
#include "output/OutputFile.h"

namespace fovix_host {

enum class VideoCodec { kH264, kFfv1 };

struct VideoSettings {
    int width = 0, height = 0;  // even for H.264
    double frameRate = kDefaultFrameRate;
    VideoCodec codec = VideoCodec::kH264;
    int quality = 20;  // of H.264: from 0 (best) to 51
};

class VideoWriter {
  public:
    VideoWriter(const std::string& file, const VideoSettings& settings);
    VideoWriter(const VideoWriter&) = delete;
    VideoWriter& operator=(const VideoWriter&) = delete;

    // Writes an image of the settings' size. Its time, in units of 1/frameRate, must increase with each call.
    void write(const RgbaImage& image, std::int64_t time);

    // Completes and publishes the file; without this call, nothing is left of it.
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
    std::exception_ptr _fileProblem;  // carried through FFmpeg's C functions
    std::unique_ptr<AVFormatContext, MuxerDeleter> _muxer;
    CodecOwner _codec;
    FrameOwner _drawn, _encoded;  // in RGBA and in the encoder's format
    PacketOwner _packet;
    FrameScaler _scaler;
};

}  // namespace fovix_host
