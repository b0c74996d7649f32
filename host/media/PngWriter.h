// Writes images as PNG files (RGB: a rendered surface has no transparency).
#pragma once

#include <string>

#include "image/RgbaImage.h"

namespace fovix_host {

// Throws std::runtime_error with a message that names the file.
void writePng(const std::string& file, const RgbaImage& image);

}  // namespace fovix_host
