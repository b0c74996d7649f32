#include "handle/DisplayTypes.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <limits>

#include "Fovix.h"
#include "base/ProcessLock.h"
#include "handle/HandleOwner.h"
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

struct DisplayType {
    int code;
    ModelCreator createModel;
    ControllerCreator createController;  ///< null: no controllers
    int controllerCount;                 ///< one per screen, or one for all
};

/// Every code without a type of its own shows the plain frame.
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

const DisplayType& displayTypeOf(int code) {
    const auto found = std::find_if(kDisplayTypes.begin(), kDisplayTypes.end(),
                                    [code](const DisplayType& type) { return type.code == code; });
    return found == kDisplayTypes.end() ? kPlainPicture : *found;
}

/// Accepted changes after which types 0 and 1 no longer switch to the Korvel view.
constexpr int kFreeTypeSwitches = 3;

std::shared_ptr<Display> makeDisplay(FovixContext& context, int code) {
    static std::atomic<std::uint64_t> lastSerial{0};
    const DisplayType& type = displayTypeOf(code);
    auto display = std::make_shared<Display>();
    display->type = code;
    display->serial = ++lastSerial;
    display->model = type.createModel(context.fishEye);
    const OwnerPtr owner = HandleOwner_Create(&context);
    for (int screen = 0; context.touchEnabled && screen < type.controllerCount; ++screen) {
        display->controllers[static_cast<std::size_t>(screen)] = type.createController(owner, screen);
    }
    return display;
}

/// Lens parameters belong to the type that they were set for.
void forgetLens(FishEyeConfig& fishEye) {
    fishEye.TextureWidth = 0;
    fishEye.TextureHeight = 0;
    fishEye.Fec_xCenter = -1;
    fishEye.Fec_yCenter = -1;
    fishEye.Fec_radius = -1;
    fishEye.Fec_imgWidth = -1;
    fishEye.Fec_imgHeight = -1;
}

/// A frame that is already there stays on show; its size makes the centred circle.
void adoptFrameSize(FovixContext& context) {
    const FrameSlot& slot = context.frames[0];
    FishEyeConfig& fishEye = context.fishEye;
    if (!slot.data || slot.width <= 0 || slot.height <= 0) return;
    if (slot.width == fishEye.TextureWidth && slot.height == fishEye.TextureHeight) return;
    fishEye.TextureWidth = slot.width;
    fishEye.TextureHeight = slot.height;
    RefreshConfig(fishEye);
}

}  // namespace

void setType(FovixContext& context, int type) {
    const LockSection section;
    const int current = context.display.load()->type;
    if (type == current) return;
    if (context.typeSwitchCount >= kFreeTypeSwitches && type == FOVIX_TYPE_KORVEL &&
        (current == FOVIX_TYPE_360VR || current == FOVIX_TYPE_180VR)) {
        return;
    }
    const std::shared_ptr<Display> display = makeDisplay(context, type);
    FovixModel& model = *display->model;
    if (context.typeSwitchCount < std::numeric_limits<int>::max()) ++context.typeSwitchCount;
    if (context.fishEye.displayType != type) {
        context.fishEye.displayType = type;
        RefreshConfig(context.fishEye);
    }
    context.currentScreen = 0;
    model.init();
    forgetLens(context.fishEye);
    const int width = context.backingWidth, height = context.backingHeight;
    if (width > 0 && height > 0) model.setViewSize(width, height);
    adoptFrameSize(context);
    context.display.store(display);
    context.configChanged = 1;
}

}  // namespace fovix
