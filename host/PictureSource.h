// Where the pictures of a view come from: a media file or the procedural sample, ready for the library.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "LensCircle.h"
#include "PicturePacker.h"
#include "sample/SampleScene.h"

namespace fovix_host {

class PictureSource {
  public:
    virtual ~PictureSource() = default;

    // The next picture, valid until the next call; nothing after the last one. Throws
    // std::runtime_error with a sentence that names the source.
    virtual std::optional<PackedPicture> next() = 0;

    // The lens circle of the pictures, where the source knows it.
    virtual std::optional<LensCircle> lens() const { return std::nullopt; }
};

std::unique_ptr<PictureSource> openMedia(const std::string& input,
                                         PackedFormats formats = PackedFormats::all);
std::unique_ptr<PictureSource> openSample(SampleScene::Camera camera, int width, int height,
                                          int firstFrame = 0);
// Two samples in one picture, one above the other; the lens circle is that of each half.
std::unique_ptr<PictureSource> openStackedSample(SampleScene::Camera upper, SampleScene::Camera lower,
                                                 int width, int height);

}  // namespace fovix_host
