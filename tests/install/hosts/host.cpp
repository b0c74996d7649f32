// A host in C++: draws a grey NV12 picture in the 360-degree type and looks whether the surface is grey.
#include <Fovix.h>

#include <memory>
#include <vector>

#include "OffScreen.h"

int main() {
    // Luma and chroma alike lie in the middle.
    const std::vector<unsigned char> picture(surfaceSize * surfaceSize * 3 / 2, 128);
    if (!openOffScreen()) return 2;
    VRHANDLE handle = nullptr;
    Fovix_Create(&handle);
    const std::unique_ptr<FovixContext, void (*)(VRHANDLE)> view(handle, Fovix_Release);
    Fovix_Prepare(view.get());
    Fovix_Init(view.get(), surfaceSize, surfaceSize);
    Fovix_SetType(view.get(), FOVIX_TYPE_360VR);
    Fovix_SetFecParams(view.get(), surfaceSize / 2, surfaceSize / 2, surfaceSize / 2, surfaceSize,
                       surfaceSize);
    Fovix_SetTexture(view.get(), FOVIX_FORMAT_NV12, picture.data(), static_cast<int>(picture.size()),
                     surfaceSize, surfaceSize);
    Fovix_Drawself(view.get());
    return expectColour(130, 130, 130);
}
