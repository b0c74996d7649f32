// An image in memory: 8-bit RGBA, rows top to bottom, tightly packed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace fovix_host {

struct RgbaImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;

    RgbaImage() = default;
    RgbaImage(int w, int h)
        : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h) * 4) {}

    std::uint8_t* at(int x, int y) { return pixels.data() + offset(x, y); }
    const std::uint8_t* at(int x, int y) const { return pixels.data() + offset(x, y); }

  private:
    std::size_t offset(int x, int y) const {
        return (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) *
               4;
    }
};

// "1280x720", for messages.
inline std::string sizeText(int width, int height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

}  // namespace fovix_host
