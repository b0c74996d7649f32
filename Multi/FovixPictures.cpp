// Pictures: the setters of the types that show one frame. Any thread.

#include "Fovix.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"
#include "handle/FrameInput.h"

using fovix::submitFrame;
using fovix::withContext;

void Fovix_SetRGBTexture(VRHANDLE handle, const unsigned char* data, int size, int width, int height) {
    withContext(handle, [&](FovixContext& context) {
        submitFrame(context, 0, FOVIX_FORMAT_RGBA, data, size, width, height);
    });
}

void Fovix_SetYUV420PTexture(VRHANDLE handle, const unsigned char* data, int size, int width, int height) {
    withContext(handle, [&](FovixContext& context) {
        submitFrame(context, 0, FOVIX_FORMAT_YUV420P, data, size, width, height);
    });
}

void Fovix_SetTexture(VRHANDLE handle, int pixelFmt, const unsigned char* data, int size, int width,
                      int height) {
    withContext(handle, [&](FovixContext& context) {
        if (fovix::isPixelFormat(pixelFmt)) submitFrame(context, 0, pixelFmt, data, size, width, height);
    });
}
