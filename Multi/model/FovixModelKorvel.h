// The straightened frame of the Korvel lens: the plain frame's model with the corrected grid as its mesh.
#pragma once

#include "model/FovixModel.h"

namespace fovix {

ModelPtr FovixModelKorvel_Create(const FishEyeConfig& lens);

}  // namespace fovix
