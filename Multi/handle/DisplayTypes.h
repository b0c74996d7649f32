// The display types: which code makes which model and which controllers.
#pragma once

#include "model/FovixModel.h"
#include "touch/TouchController.h"

namespace fovix {

struct DisplayType {
    int code;
    ModelCreator createModel;
    ControllerCreator createController;  ///< null: no controllers
    int controllerCount;                 ///< one per screen, or one for all
};

/// The type of a code; every code without a type of its own shows the plain fisheye picture.
const DisplayType& displayTypeOf(int code);

}  // namespace fovix
