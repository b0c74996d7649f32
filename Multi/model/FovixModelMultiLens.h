// One of several lens pictures: the plain picture's model under a name of its own. Which lens is shown is the
// frame's choice of texture; mesh and view serve every lens.
#pragma once

#include "model/FovixModel.h"

namespace fovix {

ModelPtr FovixModelMultiLens_Create(const FishEyeConfig& lens);

}  // namespace fovix
