// Greyscale images for the lens search: rows top to bottom, values 0 to 255.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace fovix_host {

// A non-owning view of an image: a plane of luma, or RGBA pixels.
struct LumaView {
    enum class Samples { kLuma, kRgba };

    const std::uint8_t* data = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t rowBytes = 0;
    Samples samples = Samples::kLuma;
};

struct GreyImage {
    int width = 0;
    int height = 0;
    std::vector<float> pixels;

    GreyImage() = default;
    GreyImage(int w, int h)
        : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}

    float* row(int y) {
        return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
    const float* row(int y) const {
        return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }

    // Interpolates between pixel centres, which are at half-integer positions; clamps at the border.
    float at(double x, double y) const {
        x = std::clamp(x - 0.5, 0.0, width - 1.0);
        y = std::clamp(y - 0.5, 0.0, height - 1.0);
        const int left = static_cast<int>(x), top = static_cast<int>(y);
        const float* upper = row(top);
        const float* lower = row(std::min(top + 1, height - 1));
        const int right = std::min(left + 1, width - 1);
        const float across = static_cast<float>(x - left);
        return std::lerp(std::lerp(upper[left], upper[right], across),
                         std::lerp(lower[left], lower[right], across), static_cast<float>(y - top));
    }
};

// Averages blocks of factor x factor pixels; incomplete blocks at the right and bottom are dropped.
GreyImage reduced(const LumaView& image, int factor);

}  // namespace fovix_host
