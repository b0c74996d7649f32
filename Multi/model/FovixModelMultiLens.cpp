#include "model/FovixModelMultiLens.h"

#include "model/FovixModelOriginal.h"

namespace fovix {

ModelPtr FovixModelMultiLens_Create(const FishEyeConfig& lens) {
    static constexpr FlatPictureKind kKind = {GridMesh_Create_Original, "GridMesh_Create_Original()\n",
                                              "Multi/FovixModelMultiLens"};
    return FlatPicture_Create(lens, kKind);
}

}  // namespace fovix
