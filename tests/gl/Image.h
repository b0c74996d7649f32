// Pictures in tests: RGBA, first row on top. Comparisons say how much differs, and write it as PNG files into
// the build directory.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace fovix_test {

using Bytes = std::vector<std::uint8_t>;
using Rgba = std::array<std::uint8_t, 4>;

/// An opaque colour from 0xRRGGBB.
constexpr Rgba rgb(unsigned packed) {
    return {static_cast<std::uint8_t>(packed >> 16), static_cast<std::uint8_t>(packed >> 8),
            static_cast<std::uint8_t>(packed), 255};
}

struct Image {
    Image() = default;
    Image(int imageWidth, int imageHeight, Rgba fill = {0, 0, 0, 255});

    /// A picture whose pixels are colour(x, y).
    template <class Colour>
    static Image of(int width, int height, Colour&& colour) {
        Image image(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) image.set(x, y, colour(x, y));
        }
        return image;
    }
    /// Twelve by nine cells of a colour each, in which every shift, turn and mirroring shows; the left column
    /// is the one of this number.
    static Image chequered(int width, int height, int firstColumn = 0);

    Rgba at(int x, int y) const;
    void set(int x, int y, Rgba colour);
    int size() const { return static_cast<int>(bytes.size()); }
    /// The memory that one of the library's pixel formats wants, with chroma planes of width * height / 4
    /// bytes.
    Bytes inFormat(int pixelFmt) const;

    int width = 0, height = 0;
    Bytes bytes;

  private:
    std::size_t offset(int x, int y) const;
};

Image readPng(const std::string& file);
void writePng(const std::string& file, const Image& image);

inline constexpr int kTolerance = 2;  ///< levels of a channel: rounding of the rasteriser and of 8 bits

/// How far the colours of two pictures of one size are apart.
struct Difference {
    int pixels = 0;   ///< beyond the tolerance
    int largest = 0;  ///< levels
};
Difference differenceOf(const Image& actual, const Image& expected, int tolerance = kTolerance);

/// All pixels but the share that may differ are within the tolerance. A failure writes actual, expected and
/// difference.
testing::AssertionResult looksLike(const Image& actual, const Image& expected, int tolerance = kTolerance,
                                   double shareOfOthers = 0.0);

/// Looks like the stored picture: exactly, or but for a thousandth of the pixels. With FOVIX_UPDATE in the
/// environment a picture that differs is stored instead; both print how much differs.
testing::AssertionResult isAsStored(const std::string& file, const Image& actual);

}  // namespace fovix_test
