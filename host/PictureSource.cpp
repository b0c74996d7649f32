#include "PictureSource.h"

#include <Fovix.h>

#include <algorithm>
#include <stdexcept>

#include "MediaReader.h"

namespace fovix_host {
namespace {

class MediaSource final : public PictureSource {
  public:
    MediaSource(const std::string& input, PackedFormats formats) : _reader(input), _packer(formats) {}

    std::optional<PackedPicture> next() override {
        const AVFrame* frame = _reader.next();
        if (!frame) return std::nullopt;
        try {
            return _packer.pack(*frame);
        } catch (const std::runtime_error& problem) {
            throw std::runtime_error("'" + _reader.input() + "' cannot be shown: " + problem.what());
        }
    }

  private:
    MediaReader _reader;
    PicturePacker _packer;
};

PackedPicture packed(const RgbaImage& picture) {
    return {FOVIX_FORMAT_RGBA, picture.pixels.data(), static_cast<int>(picture.pixels.size()), picture.width,
            picture.height};
}

class SampleSource final : public PictureSource {
  public:
    SampleSource(SampleScene::Camera camera, int width, int height, int firstFrame)
        : _scene(camera, width, height), _frame(firstFrame) {}

    std::optional<PackedPicture> next() override { return packed(_scene.picture(_frame++)); }

    std::optional<LensCircle> lens() const override { return _scene.lens(); }

  private:
    SampleScene _scene;
    int _frame;
};

class StackedSample final : public PictureSource {
  public:
    StackedSample(SampleScene::Camera upper, SampleScene::Camera lower, int width, int height)
        : _upper(upper, width, height), _lower(lower, width, height), _picture(width, 2 * height) {}

    std::optional<PackedPicture> next() override {
        const auto& upper = _upper.picture(_frame).pixels;
        const auto& lower = _lower.picture(_frame++).pixels;
        std::copy(lower.begin(), lower.end(), std::copy(upper.begin(), upper.end(), _picture.pixels.begin()));
        return packed(_picture);
    }

    std::optional<LensCircle> lens() const override { return _upper.lens(); }

  private:
    SampleScene _upper, _lower;
    RgbaImage _picture;
    int _frame = 0;
};

}  // namespace

std::unique_ptr<PictureSource> openMedia(const std::string& input, PackedFormats formats) {
    return std::make_unique<MediaSource>(input, formats);
}

std::unique_ptr<PictureSource> openSample(SampleScene::Camera camera, int width, int height, int firstFrame) {
    return std::make_unique<SampleSource>(camera, width, height, firstFrame);
}

std::unique_ptr<PictureSource> openStackedSample(SampleScene::Camera upper, SampleScene::Camera lower,
                                                 int width, int height) {
    return std::make_unique<StackedSample>(upper, lower, width, height);
}

}  // namespace fovix_host
