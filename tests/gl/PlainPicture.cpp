#include "PlainPicture.h"

#include <algorithm>
#include <cmath>

namespace fovix_test {

namespace {

std::uint8_t toByte(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

/// value(x, y) between pixel centres.
template <class Value>
double bilinear(int width, int height, double u, double v, Value&& value) {
    const double x = u * width - 0.5, y = v * height - 0.5;
    const double left = std::floor(x), top = std::floor(y);
    const auto pixel = [&](double px, double py) {
        return static_cast<double>(value(std::clamp(static_cast<int>(px), 0, width - 1),
                                         std::clamp(static_cast<int>(py), 0, height - 1)));
    };
    const double upper = std::lerp(pixel(left, top), pixel(left + 1, top), x - left);
    const double lower = std::lerp(pixel(left, top + 1), pixel(left + 1, top + 1), x - left);
    return std::lerp(upper, lower, y - top);
}

Plane planeOf(int width, int height, double (*value)(int x, int y)) {
    Plane plane = {width, height, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) plane.bytes.push_back(toByte(value(x, y)));
    }
    return plane;
}

}  // namespace

double Plane::at(double u, double v) const {
    return bilinear(width, height, u, v, [this](int x, int y) {
        return bytes[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x)];
    });
}

YuvPicture YuvPicture::sample(int width, int height) {
    return {planeOf(width, height, [](int x, int y) { return 60.0 + (x * 37 + y * 23) % 120; }),
            planeOf(width / 2, height / 2,
                    [](int x, int y) { return 128.0 + 50.0 * std::sin(0.11 * x + 0.05 * y); }),
            planeOf(width / 2, height / 2,
                    [](int x, int y) { return 128.0 + 50.0 * std::cos(0.07 * x - 0.13 * y); })};
}

std::vector<std::uint8_t> YuvPicture::packed(int pixelFmt) const {
    const std::size_t pixels = y.bytes.size(), pairs = pixels / 4;
    std::vector<std::uint8_t> out = y.bytes;
    out.resize(pixels + 2 * pairs, 7);  // what lies behind a chroma plane of an odd picture is nobody's
    for (std::size_t i = 0; i < u.bytes.size(); ++i) {
        out[pixelFmt == 3 ? pixels + i : pixels + 2 * i + (pixelFmt == 10)] = u.bytes[i];
        out[pixelFmt == 3 ? pixels + pairs + i : pixels + 2 * i + (pixelFmt == 9)] = v.bytes[i];
    }
    return out;
}

Sampler sampled(const Image& picture) {
    return [picture](double u, double v) {
        std::array<double, 3> colour{};
        for (std::size_t channel = 0; channel < 3; ++channel) {
            colour[channel] = bilinear(picture.width, picture.height, u, v,
                                       [&](int x, int y) { return picture.at(x, y)[channel]; });
        }
        return colour;
    };
}

Sampler sampled(const YuvPicture& picture) {
    return [picture](double u, double v) -> std::array<double, 3> {
        const double luma = 1.1643 * (picture.y.at(u, v) - 0.0625 * 255.0);
        const double cb = picture.u.at(u, v) - 127.5, cr = picture.v.at(u, v) - 127.5;
        return {luma + 1.5958 * cr, luma - 0.39173 * cb - 0.81290 * cr, luma + 2.017 * cb};
    };
}

Image flatPicture(const Sampler& picture, const FlatSight& sight, int width, int height, Rgba background) {
    const double magnification = 1.0 / std::tan(sight.fieldOfView * std::acos(-1.0) / 360.0);
    const double shownWidth = std::min<double>(width, height / sight.heightOverWidth) * magnification;
    const double shownHeight = shownWidth * sight.heightOverWidth;
    // A full turn of 180 moves by half the surface's width, in both directions.
    const double step = magnification * width / 2.0 / 180.0;
    const double left = width / 2.0 - step * sight.rotateY - shownWidth / 2.0;
    const double top = height / 2.0 - step * sight.rotateX - shownHeight / 2.0;
    const auto nearBorder = [](double place, double border) { return std::abs(place - border) < 0.01; };
    return Image::of(width, height, [&](int x, int y) -> Rgba {
        const double px = x + 0.5 - left, py = y + 0.5 - top;
        if (nearBorder(px, 0.0) || nearBorder(px, shownWidth) || nearBorder(py, 0.0) ||
            nearBorder(py, shownHeight)) {
            return kAnything;
        }
        if (px < 0.0 || px > shownWidth || py < 0.0 || py > shownHeight) return background;
        const std::array<double, 3> colour = picture(px / shownWidth, py / shownHeight);
        return {toByte(colour[0]), toByte(colour[1]), toByte(colour[2]), 255};
    });
}

Image quadrants(int width, int height) {
    return Image::of(width, height, [&](int x, int y) {
        const bool left = x < width / 2, top = y < height / 2;
        if (x == 0 || y == 0 || x == width - 1 || y == height - 1) return rgb(0x303030);
        const bool marked = x > width / 8 && x < width / 4 && y > height / 8 && y < height / 4;
        if (marked) return rgb(0xFFFFFF);
        return top ? (left ? rgb(0xE01010) : rgb(0x10C020)) : (left ? rgb(0x2030F0) : rgb(0xE0D020));
    });
}

}  // namespace fovix_test
