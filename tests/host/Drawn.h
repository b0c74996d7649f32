// A PNG that the program wrote, and its colours.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "MediaFiles.h"
#include "MediaReader.h"
#include "TestFiles.h"

class Drawn {
  public:
    explicit Drawn(const std::string& name)
        : _reader((testFolder() / name).string()), _frame(_reader.next()) {}
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
