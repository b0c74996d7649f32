#include "Inputs.h"

#include <Fovix.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace fovix_host {
namespace {

constexpr int sampleSize = 1280;
constexpr int smallSampleSize = 640;  // one of several
constexpr int samples = 4;            // where nothing tells how many

using Camera = SampleScene::Camera;

Camera otherThan(Camera camera) {
    return camera == Camera::ceiling ? Camera::wall : Camera::ceiling;
}

ViewOptions::Grid gridFor(int pictures) {
    const int columns = static_cast<int>(std::ceil(std::sqrt(pictures)));
    return {(pictures + columns - 1) / columns, columns};
}

int sampleCount(const ViewOptions& view) {
    if (view.grid) return view.grid->rows * view.grid->columns;
    return std::max(samples, view.lensShown.value_or(0) + 1);
}

std::string sizeText(int width, int height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

}  // namespace

Inputs::Inputs(const Options& options) : _options(options) {
    open();
    for (std::size_t i = 0; i < _sources.size(); ++i) {
        _pictures.push_back(_sources[i]->next());
        if (!_pictures.back()) throw std::runtime_error("'" + options.inputs.at(i) + "' holds no picture");
    }
    if (_pictures.empty()) return;
    _width = _pictures.front()->width;
    _height = _pictures.front()->height;
}

void Inputs::open() {
    const ViewOptions& view = _options.view;
    // The lenses take RGBA only, and the grid shows either RGBA or YUV in all of its cells.
    const PackedFormats formats = view.takesSeveralInputs() ? PackedFormats::rgba : PackedFormats::all;
    for (const std::string& input : _options.inputs) _sources.push_back(openMedia(input, formats));
    if (!_options.sample) return;
    const Camera camera = *_options.sample;
    if (view.type == FOVIX_TYPE_TWO_LENSES)
        _sources.push_back(openStackedSample(camera, otherThan(camera), sampleSize, sampleSize * 9 / 16));
    else if (!view.takesSeveralInputs())
        _sources.push_back(openSample(camera, sampleSize, sampleSize));
    else
        for (int i = 0; i < sampleCount(view); ++i) {
            constexpr int framesApart = 40;
            const Camera from = _options.samplesDiffer && i % 2 == 1 ? otherThan(camera) : camera;
            _sources.push_back(openSample(from, smallSampleSize, smallSampleSize, i * framesApart));
        }
}

ViewOptions::Grid Inputs::grid() const {
    return _options.view.grid.value_or(gridFor(std::max(count(), 1)));
}

std::optional<LensCircle> Inputs::lens() const {
    if (_options.lens || _sources.empty()) return _options.lens;
    const int type = _options.view.type;
    if (const auto lens = _sources.front()->lens(); lens && type != FOVIX_TYPE_MULTI_IMAGE) return lens;
    if (type == FOVIX_TYPE_TWO_LENSES && _height > 1)
        return LensCircle{std::max(_width / 2, 1), std::max(_height / 4, 1),
                          std::max(std::min(_width, _height / 2) / 2, 1), _width, _height / 2};
    if (type == FOVIX_TYPE_MULTI_IMAGE) {
        // A cell has its own proportions; these undo what it does to the picture's.
        const auto [rows, columns] = grid();
        return LensCircle{1, 1, 1, _width * columns, _height * rows};
    }
    return std::nullopt;
}

void Inputs::handIn(VRHANDLE view, int maxTextureSize) const {
    for (int slot = 0; slot < count(); ++slot) {
        const auto& picture = _pictures[static_cast<std::size_t>(slot)];
        if (!picture) continue;
        if (picture->width > maxTextureSize || picture->height > maxTextureSize)
            throw std::runtime_error("the picture of " + sizeText(picture->width, picture->height) +
                                     " pixels is larger than the textures of this GL, " +
                                     sizeText(maxTextureSize, maxTextureSize));
        setPicture(view, slot, *picture);
    }
}

void Inputs::setPicture(VRHANDLE view, int slot, const PackedPicture& picture) const {
    if (_options.view.takesSeveralInputs())
        Fovix_Multi_SetRGBTexture(view, slot, picture.data, picture.size, picture.width, picture.height);
    else
        Fovix_SetTexture(view, picture.pixelFormat, picture.data, picture.size, picture.width,
                         picture.height);
}

void Inputs::advance(int framesDrawn, int framesLeft) {
    for (std::size_t i = 0; i < _sources.size(); ++i) {
        if (!_pictures[i]) continue;
        _pictures[i] = _sources[i]->next();
        // A still picture is meant to stay; a video that ends early is worth a word.
        if (!_pictures[i] && framesDrawn > 1)
            std::fprintf(stderr,
                         "fovix-render: '%s' has %d pictures; the last one stays for the other %d frames\n",
                         _options.inputs[i].c_str(), framesDrawn, framesLeft);
    }
}

}  // namespace fovix_host
