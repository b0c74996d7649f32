// A PNG that the program wrote, and its colours.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "MediaFiles.h"
#include "TestFiles.h"
#include "media/MediaReader.h"

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

  private:
    fovix_host::MediaReader _reader;
    const AVFrame* _frame;
};

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
