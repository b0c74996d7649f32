// Writes pictures as PNG files (RGB: a drawn surface has no transparency).
#pragma once

#include <string>

#include "image/RgbaImage.h"

namespace fovix_host {

// Throws std::runtime_error with a sentence that names the file.
void writePng(const std::string& file, const RgbaImage& image);

}  // namespace fovix_host
