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

// That at(x, y) has the colours of a quadrant frame in the middle of each.
template <typename At>
void expectQuadrants(At at, int width, int height, bool full, int tolerance, int number = 0) {
    for (std::size_t q = 0; q < kQuadrants.size(); ++q) {
        Yuv colour = kQuadrants[q];
        colour.y += kLumaStep * number;
        expectColour(at((q % 2 ? 3 : 1) * width / 4, (q / 2 ? 3 : 1) * height / 4),
                     full ? fromFullRange(colour) : fromLimitedRange(colour), tolerance,
                     "quadrant " + std::to_string(q));
    }
}

inline void expectQuadrants(const fovix_host::PackedFrame& rgba, bool full, int tolerance, int number = 0) {
    const auto at = [&](int x, int y) {
        const unsigned char* pixel = rgba.data + (y * rgba.width + x) * 4;
        EXPECT_EQ(pixel[3], 255);
        return Rgb{pixel[0], pixel[1], pixel[2]};
    };
    expectQuadrants(at, rgba.width, rgba.height, full, tolerance, number);
}

class Drawn {
  public:
    explicit Drawn(const std::string& name) : _reader(fileInTest(name)), _frame(_reader.next()) {}
    int width() const { return _frame->width; }
    int height() const { return _frame->height; }
    Rgb at(double x, double y) const {
        const std::uint8_t* p =
            _frame->data[0] + static_cast<int>(y) * _frame->linesize[0] + 3 * static_cast<int>(x);
        return {p[0], p[1], p[2]};
    }
    void expectQuadrants(bool full, int tolerance, int number = 0) const {
        ::expectQuadrants([this](int x, int y) { return at(x, y); }, width(), height(), full, tolerance,
                          number);
    }

  private:
    fovix_host::MediaReader _reader;
    const AVFrame* _frame;
};
