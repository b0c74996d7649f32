#include "handle/DisplayTypes.h"

#include <algorithm>
#include <array>

#include "Fovix.h"
#include "model/FovixModel180VR.h"
#include "model/FovixModel360VR.h"
#include "model/FovixModelKorvel.h"
#include "model/FovixModelMultiLens.h"
#include "model/FovixModelOriginal.h"
#include "model/FovixModelSinglePIP.h"
#include "model/FovixModelTwoLensesInOne.h"
#include "touch/TouchController180VR.h"
#include "touch/TouchController360VR.h"
#include "touch/TouchControllerOriginal.h"
#include "touch/TouchControllerSinglePIP.h"
#include "touch/TouchControllerTwoLensesInOne.h"

namespace fovix {

namespace {

constexpr DisplayType kPlainPicture = {FOVIX_TYPE_ORIGINAL, FovixModelOriginal_Create,
                                       TouchControllerOriginal_Create, 1};

constexpr std::array kDisplayTypes = {
    DisplayType{FOVIX_TYPE_360VR, FovixModel360VR_Create, TouchController360VR_Create, kScreenCount},
    DisplayType{FOVIX_TYPE_180VR, FovixModel180VR_Create, TouchController180VR_Create, kScreenCount},
    DisplayType{FOVIX_TYPE_KORVEL, FovixModelKorvel_Create, TouchControllerOriginal_Create, 1},
    DisplayType{FOVIX_TYPE_MULTI_IMAGE, FovixModelOriginal_Create, nullptr, 0},
    DisplayType{FOVIX_TYPE_MULTI_LENS, FovixModelMultiLens_Create, nullptr, 0},
    DisplayType{FOVIX_TYPE_SINGLE_PIP, FovixModelSinglePIP_Create, TouchControllerSinglePIP_Create, 1},
    DisplayType{FOVIX_TYPE_TWO_LENSES, FovixModelTwoLensesInOne_Create, TouchControllerTwoLensesInOne_Create,
                1},
};

}  // namespace

const DisplayType& displayTypeOf(int code) {
    const auto found = std::find_if(kDisplayTypes.begin(), kDisplayTypes.end(),
                                    [code](const DisplayType& type) { return type.code == code; });
    return found == kDisplayTypes.end() ? kPlainPicture : *found;
}

}  // namespace fovix
