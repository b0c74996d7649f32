#include "PlainPicture.h"

#include <algorithm>
#include <cmath>

namespace fovix_test {

namespace {

constexpr std::array<std::uint8_t, 2> kCb = {90, 160}, kCr = {150, 100};  ///< left and right; top and bottom

std::uint8_t lumaAt(int x, int y) {
    return static_cast<std::uint8_t>(60 + (x * 37 + y * 23) % 120);
}

std::uint8_t toByte(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

}  // namespace

Sampler sampled(const Image& picture) {
    return [picture](double u, double v) {
        const double x = u * picture.width - 0.5, y = v * picture.height - 0.5;
        const double left = std::floor(x), top = std::floor(y);
        const auto pixel = [&](double px, double py) {  // the edge pixels go on outwards
            return picture.at(static_cast<int>(std::clamp(px, 0.0, picture.width - 1.0)),
                              static_cast<int>(std::clamp(py, 0.0, picture.height - 1.0)));
        };
        const Rgba a = pixel(left, top), b = pixel(left + 1, top);
        const Rgba c = pixel(left, top + 1), d = pixel(left + 1, top + 1);
        std::array<double, 3> colour{};
        for (std::size_t i = 0; i < 3; ++i) {
            colour[i] = std::lerp(std::lerp(1.0 * a[i], 1.0 * b[i], x - left),
                                  std::lerp(1.0 * c[i], 1.0 * d[i], x - left), y - top);
        }
        return colour;
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
    return Image::of(width, height, [&](int x, int y) -> Rgba {
        const double px = x + 0.5 - left, py = y + 0.5 - top;
        const double inwards = std::min({px, shownWidth - px, py, shownHeight - py});
        if (std::abs(inwards) < 0.01) return kAnything;
        if (inwards < 0.0) return background;
        const auto [red, green, blue] = picture(px / shownWidth, py / shownHeight);
        return {toByte(red), toByte(green), toByte(blue), 255};
    });
}

Image letterboxed(const Image& picture, int width, int height, Rgba background) {
    const double shape = static_cast<double>(picture.height) / picture.width;
    return flatPicture(sampled(picture), {shape}, width, height, background);
}

Image quadrants(int width, int height) {
    return Image::of(width, height, [&](int x, int y) {
        if (x == 0 || y == 0 || x == width - 1 || y == height - 1) return rgb(0x303030);
        if (x > width / 8 && x < width / 4 && y > height / 8 && y < height / 4) return rgb(0xFFFFFF);
        if (y < height / 2) return rgb(x < width / 2 ? 0xE01010 : 0x10C020);
        return rgb(x < width / 2 ? 0x2030F0 : 0xE0D020);
    });
}

Bytes yuvBytes(int pixelFmt, int width, int height) {
    const int pixels = width * height, plane = pixels / 4, chromaWidth = width / 2, chromaHeight = height / 2;
    Bytes bytes;
    for (int i = 0; i < pixels; ++i) bytes.push_back(lumaAt(i % width, i / width));
    bytes.resize(bytes.size() + 2 * static_cast<std::size_t>(plane), 7);  // nobody's, behind odd planes
    for (int i = 0; i < chromaWidth * chromaHeight; ++i) {
        const int u = pixelFmt == 3 ? i : 2 * i + (pixelFmt == 10),
                  v = pixelFmt == 3 ? plane + i : 2 * i + (pixelFmt == 9);
        bytes[static_cast<std::size_t>(pixels + u)] = kCb[i % chromaWidth >= chromaWidth / 2];
        bytes[static_cast<std::size_t>(pixels + v)] = kCr[i / chromaWidth >= chromaHeight / 2];
    }
    return bytes;
}

Image yuvColours(int width, int height) {
    const int chromaWidth = width / 2, chromaHeight = height / 2;
    return Image::of(width, height, [&](int x, int y) -> Rgba {
        const double right = (x + 0.5) / width * chromaWidth - chromaWidth / 2;
        const double down = (y + 0.5) / height * chromaHeight - chromaHeight / 2;
        if (std::abs(right) < 0.6 || std::abs(down) < 0.6) return kAnything;
        const double luma = 1.1643 * (lumaAt(x, y) - 0.0625 * 255.0);
        const double cb = kCb[right > 0] - 127.5, cr = kCr[down > 0] - 127.5;
        return {toByte(luma + 1.5958 * cr), toByte(luma - 0.39173 * cb - 0.81290 * cr),
                toByte(luma + 2.017 * cb), 255};
    });
}

}  // namespace fovix_test
