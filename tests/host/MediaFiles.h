// Makes small media files for the tests, and says which colours they should show.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "media/MediaOwners.h"

struct Yuv {
    int y, u, v;
};

struct Rgb {
    int r, g, b;
};

// The pictures of the tests: four kQuadrants, from the top left to the bottom right, brighter with each
// frame by the same step of luma.
constexpr std::array<Yuv, 4> kQuadrants{{{81, 90, 200}, {145, 60, 60}, {60, 200, 110}, {190, 100, 150}}};
constexpr int kLumaStep = 5;

// BT.601, from the definition of luma and colour differences.
Rgb fromLimitedRange(Yuv colour);
Rgb fromFullRange(Yuv colour);

// A frame of 8-bit planes, or deeper ones, all memory its own; kQuadrants cover it.
fovix_host::FrameOwner quadrantFrame(AVPixelFormat format, int width, int height, int number = 0);

// Writes frames with an encoder by name; the name of the file chooses the container.
using FrameMaker = std::function<fovix_host::FrameOwner(AVPixelFormat, int width, int height, int number)>;
void writeMedia(const std::string& file, const char* encoder, AVPixelFormat format, int width, int height,
                int frames, const FrameMaker& frameOf = quadrantFrame);
