// The system's sans-serif font, as text that becomes pictures. Fontconfig finds the file.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "image/RgbaImage.h"

namespace fovix_host {

class Font {
  public:
    // Nothing where the machine has no usable font.
    static std::unique_ptr<Font> open();
    ~Font();

    // White text, its opacity in the fourth byte, in a height of so many pixels per line; empty when it
    // cannot be drawn.
    std::optional<RgbaImage> draw(const std::string& text, int pixels);

  private:
    struct Parts;
    explicit Font(std::unique_ptr<Parts> parts);
    std::unique_ptr<Parts> _parts;
};

}  // namespace fovix_host
