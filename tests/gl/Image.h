// Pictures in tests: RGBA, first row on top. Probes and whole-picture comparisons say both values, and what
// differs is written as PPM files into the build directory.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace fovix_test {

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

    Rgba at(int x, int y) const;
    void set(int x, int y, Rgba colour);
    int size() const { return static_cast<int>(bytes.size()); }

    int width = 0, height = 0;
    std::vector<std::uint8_t> bytes;

  private:
    std::size_t offset(int x, int y) const;
};

/// One place and the colour that belongs there.
struct Probe {
    int x, y;
    Rgba colour;
};

inline constexpr int kTolerance = 2;  ///< per channel: rounding of the rasteriser and of 8 bits

/// Red, green and blue of every probe within the tolerance; a failure writes the picture.
testing::AssertionResult showsAt(const Image& actual, const std::vector<Probe>& probes,
                                 int tolerance = kTolerance);

/// A pixel of an expected picture where anything may stand, as where an edge meets a pixel's centre.
inline constexpr Rgba kAnything = {0, 0, 0, 0};

/// All pixels within the tolerance but those where anything may stand. A failure writes actual, expected and
/// difference.
testing::AssertionResult looksLike(const Image& actual, const Image& expected, int tolerance = kTolerance);

}  // namespace fovix_test
