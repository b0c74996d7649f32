// What a handle shows: a display type with its model and controllers.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "model/FovixModel.h"
#include "touch/TouchController.h"

namespace fovix {

inline constexpr int kNoType = 65535;  ///< display type of a context that has none yet

/// Never changed once a context holds it.
struct Display {
    int type = kNoType;
    std::uint64_t serial = 0;                   ///< differs from that of every other Display of the process
    ModelPtr model = FovixModel_CreateEmpty();  ///< never null
    std::array<ControllerPtr, kScreenCount> controllers;  ///< null where there is none
};
using DisplayPtr = std::shared_ptr<const Display>;

/// Calls a member of every controller, in the order of the screens.
template <class Result, class... Parameters, class... Arguments>
void forEachController(const Display& display, Result (TouchController::*operation)(Parameters...),
                       Arguments... arguments) {
    for (const ControllerPtr& controller : display.controllers) {
        if (controller) (*controller.*operation)(arguments...);
    }
}

}  // namespace fovix
