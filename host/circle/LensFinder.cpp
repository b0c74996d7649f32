#include "circle/LensFinder.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "circle/LensSearch.h"

namespace fovix_host {

std::string FoundLens::percent() const {
    return std::to_string(static_cast<int>(100.0 * confidence)) + " %";
}

std::string FoundLens::description() const {
    return "confidence " + percent() + ": the scene begins within " + std::to_string(tolerance) +
           (tolerance == 1 ? " pixel" : " pixels") + " of the circle in " + std::to_string(agreeing) +
           " of " + std::to_string(visible) + " directions";
}

void LensFinder::restartWith(const LumaView& frame) {
    // Edges are located to a fraction of a pixel, so this resolution is sufficient.
    constexpr int kMaxSide = 1024;
    _width = frame.width;
    _height = frame.height;
    _factor = (std::max(_width, _height) + kMaxSide - 1) / kMaxSide;
    _frames = 0;
}

void LensFinder::add(const LumaView& frame) {
    if (frame.width < 1 || frame.height < 1) return;
    if (frame.width != _width || frame.height != _height) restartWith(frame);
    GreyImage small = reduced(frame, _factor);
    if (++_frames == 1) {
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
    constexpr int kMinFramesForSecond = 3;
    const auto found = searchCircle(_frames < kMinFramesForSecond ? _brightest : _second);
    constexpr double kMinReported = 0.1;  // a lower confidence is not even worth mentioning
    if (!found || found->confidence < kMinReported) return std::nullopt;
    const auto pixels = [this](double length) { return static_cast<int>(std::lround(length * _factor)); };
    const Circle& circle = found->circle;
    const LensCircle lens{std::max(pixels(circle.x), 1), std::max(pixels(circle.y), 1), pixels(circle.radius),
                          _width, _height};
    return FoundLens{lens, found->confidence, found->evidence.agreeing, found->evidence.visible,
                     pixels(edgeTolerance(circle))};
}

}  // namespace fovix_host
