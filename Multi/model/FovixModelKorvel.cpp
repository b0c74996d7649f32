#include "model/FovixModelKorvel.h"

#include "model/FovixModelOriginal.h"

namespace fovix {

ModelPtr FovixModelKorvel_Create(const FishEyeConfig& lens) {
    static constexpr FlatPictureKind kKind = {GridMesh_Create_Korvel, "GridMesh_Create_Korvel()\n",
                                              "Multi/FovixModelKorvel"};
    return FlatPicture_Create(lens, kKind);
}

}  // namespace fovix
