#include "circle/LensText.h"

#include <algorithm>

#include "cli/OptionValues.h"

namespace fovix_host {

std::optional<LensCircle> lensIn(std::string_view text) {
    const auto n = numbersIn<int>(text);
    if (!n || n->size() != 5 || *std::min_element(n->begin(), n->end()) < 1) return std::nullopt;
    return LensCircle{n->at(0), n->at(1), n->at(2), n->at(3), n->at(4)};
}

std::string textOf(const LensCircle& lens) {
    std::string text;
    for (const int number : {lens.xCenter, lens.yCenter, lens.radius, lens.imageWidth, lens.imageHeight})
        text.append(text.empty() ? "" : ",").append(std::to_string(number));
    return text;
}

}  // namespace fovix_host
