#include "circle/LensFinder.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "circle/LensSearch.h"

namespace fovix_host {

std::string FoundLens::percent() const {
    return std::to_string(static_cast<int>(100.0 * confidence)) + " %";
}

std::string FoundLens::inWords() const {
    return "confidence " + percent() + ": the scene begins within " + std::to_string(tolerance) +
           (tolerance == 1 ? " pixel" : " pixels") + " of the circle in " + std::to_string(agreeing) +
           " of " + std::to_string(visible) + " directions";
}

void LensFinder::startWith(const LumaView& picture) {
    // Edges are found to a fraction of a pixel, so that this many are enough.
    constexpr int kMostPixels = 1024;
    _width = picture.width;
    _height = picture.height;
    _factor = (std::max(_width, _height) + kMostPixels - 1) / kMostPixels;
    _pictures = 0;
}

void LensFinder::add(const LumaView& picture) {
    if (picture.width < 1 || picture.height < 1) return;
    if (picture.width != _width || picture.height != _height) startWith(picture);
    GreyImage small = reduced(picture, _factor);
    if (++_pictures == 1) {
        _second = GreyImage(small.width, small.height);
        _brightest = std::move(small);
        return;
    }
    for (std::size_t i = 0; i < small.pixels.size(); ++i) {
        float& brightest = _brightest.pixels[i];
        float& second = _second.pixels[i];
        second = std::max(second, std::min(brightest, small.pixels[i]));
        brightest = std::max(brightest, small.pixels[i]);
    }
}

std::optional<FoundLens> LensFinder::result() const {
    constexpr int kEnoughToDropOne = 3;
    const auto found = searchCircle(_pictures < kEnoughToDropOne ? _brightest : _second);
    constexpr double kWorthAWord = 0.1;
    if (!found || found->confidence < kWorthAWord) return std::nullopt;
    const auto pixels = [this](double length) { return static_cast<int>(std::lround(length * _factor)); };
    const Circle& circle = found->circle;
    const LensCircle lens{std::max(pixels(circle.x), 1), std::max(pixels(circle.y), 1), pixels(circle.radius),
                          _width, _height};
    return FoundLens{lens, found->confidence, found->evidence.agreeing, found->evidence.visible,
                     pixels(edgeTolerance(circle))};
}

}  // namespace fovix_host
