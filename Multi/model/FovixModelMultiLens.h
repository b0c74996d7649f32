// One of several lenses: the plain frame's model under its own name. Switching the lens changes only the
// texture; mesh and view serve every lens.
#pragma once

#include "model/FovixModel.h"

namespace fovix {

ModelPtr FovixModelMultiLens_Create(const FishEyeConfig& lens);

}  // namespace fovix
