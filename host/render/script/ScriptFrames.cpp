#include "render/script/ScriptFrames.h"

#include <Fovix.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace fovix_host {
namespace {

std::unique_ptr<FrameSource> open(const std::string& name, const MediaOptions& options) {
    using enum SampleScene::Camera;
    if (name == "sample") return openSample(kCeiling, kSampleSize, kSampleSize);
    if (name == "sample=wall") return openSample(kWall, kSampleSize, kSampleSize);
    if (name == "sample=two-lenses") return openStackedSample(kWall, kCeiling, kSampleSize, kSampleSize);
    return openMedia(name, options);
}

AVPixelFormat mediaFormat(int pixelFormat) {
    switch (pixelFormat) {
        case FOVIX_FORMAT_YUV420P:
            return AV_PIX_FMT_YUV420P;
        case FOVIX_FORMAT_NV12:
            return AV_PIX_FMT_NV12;
        case FOVIX_FORMAT_NV21:
            return AV_PIX_FMT_NV21;
        default:
            return AV_PIX_FMT_RGBA;
    }
}

// An AVFrame that refers to the planes of a packed frame.
AVFrame frameOver(int pixelFormat, const unsigned char* bytes, int width, int height) {
    AVFrame frame{};
    frame.format = mediaFormat(pixelFormat);
    frame.width = width;
    frame.height = height;
    frame.colorspace = AVCOL_SPC_UNSPECIFIED;
    auto* first = const_cast<unsigned char*>(bytes);  // AVFrame has no constant pointers
    const std::size_t luma = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const std::array<std::uint8_t*, 3> planes{first, first + luma, first + luma + luma / 4};
    const int pairs = width / 2 * 2;
    const auto set = [&](std::size_t count, const std::array<int, 3>& rowBytes) {
        std::copy_n(planes.begin(), count, frame.data);
        std::copy_n(rowBytes.begin(), count, frame.linesize);
    };
    if (pixelFormat == FOVIX_FORMAT_RGBA)
        set(1, {4 * width});
    else if (pixelFormat == FOVIX_FORMAT_YUV420P)
        set(3, {width, width / 2, width / 2});
    else
        set(2, {width, pairs});
    return frame;
}

}  // namespace

PackedFrame ScriptFrames::next(const std::string& name) {
    std::unique_ptr<FrameSource>& source = _sources[name];
    if (source)
        if (const auto frame = source->next()) return *frame;
    source = open(name, _options);
    if (const auto frame = source->next()) return *frame;
    throw std::runtime_error("'" + name + "' contains no frame");
}

PackedFrame ScriptFrames::next(const std::string& name, int pixelFormat) {
    const PackedFrame frame = next(name);
    if (frame.pixelFormat == pixelFormat) return frame;

    const int width = frame.width / 2 * 2, height = frame.height / 2 * 2;
    _converted.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4 +
                      FrameScaler::kPadding);
    AVFrame from = frameOver(frame.pixelFormat, frame.data, frame.width, frame.height);
    from.width = width;
    from.height = height;
    AVFrame to = frameOver(pixelFormat, _converted.data(), width, height);
    _scaler.scale(from, to);
    const int size = pixelFormat == FOVIX_FORMAT_RGBA ? 4 * width * height : width * height * 3 / 2;
    return {pixelFormat, _converted.data(), size, width, height};
}

}  // namespace fovix_host
