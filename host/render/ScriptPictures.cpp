#include "ScriptPictures.h"

#include <Fovix.h>

#include <array>
#include <stdexcept>

namespace fovix_host {
namespace {

constexpr int sampleSize = 1280;

std::unique_ptr<PictureSource> open(const std::string& name) {
    using enum SampleScene::Camera;
    if (name == "sample") return openSample(ceiling, sampleSize, sampleSize);
    if (name == "sample=wall") return openSample(wall, sampleSize, sampleSize);
    if (name == "sample=two-lenses") return openStackedSample(wall, ceiling, sampleSize, sampleSize);
    return openMedia(name);
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

// Where the planes of a packed picture begin and how long their rows are.
template <typename Byte>
struct Planes {
    std::array<Byte*, 4> data{};
    std::array<int, 4> rowBytes{};

    Planes(int pixelFormat, Byte* first, int width, int height) : data{first} {
        const std::size_t luma = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        if (pixelFormat == FOVIX_FORMAT_RGBA)
            rowBytes = {4 * width};
        else if (pixelFormat == FOVIX_FORMAT_YUV420P) {
            data = {first, first + luma, first + luma + luma / 4};
            rowBytes = {width, width / 2, width / 2};
        } else {
            data = {first, first + luma};
            rowBytes = {width, width / 2 * 2};
        }
    }
};

}  // namespace

PackedPicture ScriptPictures::next(const std::string& name) {
    std::unique_ptr<PictureSource>& source = _sources[name];
    if (source)
        if (const auto picture = source->next()) return *picture;
    source = open(name);
    if (const auto picture = source->next()) return *picture;
    throw std::runtime_error("'" + name + "' holds no picture");
}

PackedPicture ScriptPictures::next(const std::string& name, int pixelFormat) {
    const PackedPicture picture = next(name);
    if (picture.pixelFormat == pixelFormat) return picture;

    const int width = picture.width / 2 * 2, height = picture.height / 2 * 2;
    _scaler.reset(sws_getCachedContext(_scaler.release(), width, height, mediaFormat(picture.pixelFormat),
                                       width, height, mediaFormat(pixelFormat),
                                       SWS_BILINEAR | SWS_ACCURATE_RND, nullptr, nullptr, nullptr));
    if (!_scaler) throw std::runtime_error("'" + name + "' cannot be converted to another pixel format");
    constexpr std::size_t slack = 64;  // swscale's vector code may write a little past the last pixel
    _converted.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4 + slack);
    const Planes from(picture.pixelFormat, picture.data, picture.width, picture.height);
    const Planes to(pixelFormat, _converted.data(), width, height);
    sws_scale(_scaler.get(), from.data.data(), from.rowBytes.data(), 0, height, to.data.data(),
              to.rowBytes.data());
    const int size = pixelFormat == FOVIX_FORMAT_RGBA ? 4 * width * height : width * height * 3 / 2;
    return {pixelFormat, _converted.data(), size, width, height};
}

}  // namespace fovix_host
