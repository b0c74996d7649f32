#include "image/GreyImage.h"

namespace fovix_host {
namespace {

// Adds the luma of a row to the column sums; the columns may cover less than the row.
void addRow(const LumaView& image, int y, std::vector<std::uint32_t>& columns) {
    const std::uint8_t* from = image.data + y * image.rowBytes;
    if (image.samples == LumaView::Samples::kLuma) {
        for (std::uint32_t& column : columns) column += *from++;
        return;
    }
    for (std::uint32_t& column : columns) {
        column += (77u * from[0] + 150u * from[1] + 29u * from[2]) >> 8;  // BT.601
        from += 4;
    }
}

}  // namespace

GreyImage reduced(const LumaView& image, int factor) {
    GreyImage small(image.width / factor, image.height / factor);
    const int used = small.width * factor;
    std::vector<std::uint32_t> columns(static_cast<std::size_t>(used));
    const float share = 1.0f / static_cast<float>(factor * factor);
    for (int row = 0; row < small.height; ++row) {
        std::fill(columns.begin(), columns.end(), 0u);
        for (int i = 0; i < factor; ++i) addRow(image, row * factor + i, columns);
        float* to = small.row(row);
        const std::uint32_t* sum = columns.data();
        for (int block = 0; block < small.width; ++block) {
            std::uint32_t total = 0;
            for (int i = 0; i < factor; ++i) total += *sum++;
            to[block] = static_cast<float>(total) * share;
        }
    }
    return small;
}

}  // namespace fovix_host
