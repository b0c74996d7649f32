#include "DisplayTypes.h"

#include <algorithm>
#include <array>

#include "Fovix.h"
#include "FovixModelKorvel.h"
#include "FovixModelOriginal.h"

namespace fovix {

namespace {

constexpr DisplayType kPlainPicture = {FOVIX_TYPE_ORIGINAL, FovixModelOriginal_Create, nullptr, 0};

constexpr std::array kDisplayTypes = {
    DisplayType{FOVIX_TYPE_KORVEL, FovixModelKorvel_Create, nullptr, 0},
};

}  // namespace

const DisplayType& displayTypeOf(int code) {
    const auto found = std::find_if(kDisplayTypes.begin(), kDisplayTypes.end(),
                                    [code](const DisplayType& type) { return type.code == code; });
    return found == kDisplayTypes.end() ? kPlainPicture : *found;
}

}  // namespace fovix
