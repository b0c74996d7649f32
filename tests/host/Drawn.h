// The colours of what was packed, and of a PNG that the program wrote.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "MediaFiles.h"
#include "TestFiles.h"
#include "media/FramePacker.h"
#include "media/MediaReader.h"

inline void expectColour(Rgb seen, Rgb expected, int tolerance, const std::string& where) {
    EXPECT_NEAR(seen.r, expected.r, tolerance) << "red, " << where;
    EXPECT_NEAR(seen.g, expected.g, tolerance) << "green, " << where;
    EXPECT_NEAR(seen.b, expected.b, tolerance) << "blue, " << where;
}

inline Rgb colourAt(const fovix_host::PackedFrame& rgba, int x, int y) {
    const unsigned char* pixel = rgba.data + (y * rgba.width + x) * 4;
    EXPECT_EQ(pixel[3], 255);
    return {pixel[0], pixel[1], pixel[2]};
}

// The colours of a quadrant frame in the middle of each.
inline void expectQuadrants(const fovix_host::PackedFrame& rgba, bool isFull, int tolerance, int number = 0) {
    for (int q = 0; q < 4; ++q) {
        Yuv colour = kQuadrants[static_cast<std::size_t>(q)];
        colour.y += kLumaStep * number;
        const Rgb seen = colourAt(rgba, (q % 2 ? 3 : 1) * rgba.width / 4, (q / 2 ? 3 : 1) * rgba.height / 4);
        expectColour(seen, isFull ? fromFullRange(colour) : fromLimitedRange(colour), tolerance,
                     "quadrant " + std::to_string(q));
    }
}

class Drawn {
  public:
    explicit Drawn(const std::string& name)
        : _reader(fileInTest(name)), rgba(_packer.pack(*_reader.next())) {}
    Rgb at(int x, int y) const { return colourAt(rgba, x, y); }

  private:
    fovix_host::MediaReader _reader;
    fovix_host::FramePacker _packer{fovix_host::PackedFormats::kRgba};

  public:
    const fovix_host::PackedFrame rgba;
};
