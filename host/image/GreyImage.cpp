#include "image/GreyImage.h"

namespace fovix_host {
namespace {

// Adds the luma of the first pixels of a row to the sums of their columns.
void addRow(const LumaView& picture, int y, std::vector<std::uint32_t>& columns) {
    const std::uint8_t* from = picture.data + y * picture.rowBytes;
    if (picture.samples == LumaView::Samples::kLuma) {
        for (std::uint32_t& column : columns) column += *from++;
        return;
    }
    for (std::uint32_t& column : columns) {
        column += (77u * from[0] + 150u * from[1] + 29u * from[2]) >> 8;  // BT.601
        from += 4;
    }
}

}  // namespace

GreyImage reduced(const LumaView& picture, int factor) {
    GreyImage image(picture.width / factor, picture.height / factor);
    const int used = image.width * factor;
    std::vector<std::uint32_t> columns(static_cast<std::size_t>(used));
    const float share = 1.0f / static_cast<float>(factor * factor);
    for (int row = 0; row < image.height; ++row) {
        std::fill(columns.begin(), columns.end(), 0u);
        for (int i = 0; i < factor; ++i) addRow(picture, row * factor + i, columns);
        float* to = image.row(row);
        const std::uint32_t* sum = columns.data();
        for (int block = 0; block < image.width; ++block) {
            std::uint32_t total = 0;
            for (int i = 0; i < factor; ++i) total += *sum++;
            to[block] = static_cast<float>(total) * share;
        }
    }
    return image;
}

}  // namespace fovix_host
