// Renders text to images with the system's sans-serif font, which Fontconfig finds.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "image/RgbaImage.h"

namespace fovix_host {

class Font {
  public:
    // Returns null if there is no usable font.
    static std::unique_ptr<Font> open();
    ~Font();

    // White text with its opacity in the alpha channel, in the given line height; nullopt if it cannot be
    // drawn.
    std::optional<RgbaImage> draw(const std::string& text, int pixels);

  private:
    struct Parts;
    explicit Font(std::unique_ptr<Parts> parts);
    std::unique_ptr<Parts> _parts;
};

}  // namespace fovix_host
