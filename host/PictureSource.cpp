#include "PictureSource.h"

#include <Fovix.h>

#include <stdexcept>

#include "MediaReader.h"

namespace fovix_host {
namespace {

class MediaSource final : public PictureSource {
  public:
    explicit MediaSource(const std::string& input) : _reader(input) {}

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

class SampleSource final : public PictureSource {
  public:
    SampleSource(SampleScene::Camera camera, int width, int height) : _scene(camera, width, height) {}

    std::optional<PackedPicture> next() override {
        const RgbaImage& picture = _scene.picture(_frame++);
        return PackedPicture{FOVIX_FORMAT_RGBA, picture.pixels.data(),
                             static_cast<int>(picture.pixels.size()), picture.width, picture.height};
    }

    std::optional<LensCircle> lens() const override { return _scene.lens(); }

  private:
    SampleScene _scene;
    int _frame = 0;
};

}  // namespace

std::unique_ptr<PictureSource> openMedia(const std::string& input) {
    return std::make_unique<MediaSource>(input);
}

std::unique_ptr<PictureSource> openSample(SampleScene::Camera camera, int width, int height) {
    return std::make_unique<SampleSource>(camera, width, height);
}

}  // namespace fovix_host
