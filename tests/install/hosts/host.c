/* A host in C99: draws an orange RGBA picture and looks whether the surface is orange. */
#include <Fovix.h>

#include "OffScreen.h"

int main(void) {
    static unsigned char picture[surfaceSize * surfaceSize][4];
    for (int i = 0; i < surfaceSize * surfaceSize; ++i) {
        picture[i][0] = 240;
        picture[i][1] = 120;
        picture[i][2] = 20;
        picture[i][3] = 255;
    }
    if (!openOffScreen()) return 2;
    VRHANDLE view = NULL;
    Fovix_Create(&view);
    Fovix_Prepare(view);
    Fovix_Init(view, surfaceSize, surfaceSize);
    Fovix_SetType(view, FOVIX_TYPE_ORIGINAL);
    Fovix_SetTexture(view, FOVIX_FORMAT_RGBA, picture[0], (int)sizeof picture, surfaceSize, surfaceSize);
    Fovix_Drawself(view);
    const int status = expectColour(240, 120, 20);
    Fovix_Release(view);
    return status;
}
