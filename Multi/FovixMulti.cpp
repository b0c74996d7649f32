// Several pictures: the multi-image grid and the multi-lens type. Any thread.

#include <cstdint>

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"
#include "handle/FrameInput.h"

namespace fovix {

namespace {

bool isInGrid(const GridSize& grid, int index) {
    return grid.rows >= 1 && grid.columns >= 1 && std::int64_t{grid.rows} * grid.columns <= kFrameSlots &&
           index >= 0 && index < grid.rows * grid.columns;
}

void setScreenNumber(FovixContext& context, int rowNum, int columnNum) {
    if (std::int64_t{rowNum} * columnNum > kFrameSlots) {
        return printLine("parameters error, rowNum = %d, columnNum = %d\n", rowNum, columnNum);
    }
    context.grid = GridSize{rowNum, columnNum};
}

/// Returns whether a frame may be submitted for an index; prints why not.
bool acceptsIndex(const FovixContext& context, int index, bool lensesToo) {
    const int type = context.display.load()->type;
    const bool isLenses = lensesToo && type == FOVIX_TYPE_MULTI_LENS;
    if (type != FOVIX_TYPE_MULTI_IMAGE && !isLenses) {
        printLine("%s", lensesToo ? "Not Multi-Image or Multi-Lens" : "Not Multi_Image");
        return false;
    }
    if (isLenses ? index >= 0 && index < kFrameSlots : isInGrid(context.grid, index)) return true;
    printLine("%s", isLenses ? "Multi-Lens Parameter Error!" : "Multi_Image Parameter Error!");
    return false;
}

/// Runs operation() for the multi-lens type; prints a line for every other type.
template <class Operation>
void withLenses(FovixContext& context, const char* exportName, Operation&& operation) {
    const int type = context.display.load()->type;
    if (type == FOVIX_TYPE_MULTI_LENS) return operation();
    printLine("%s() current type is not support -> [%d]!\n", exportName, type);
}

int getOfLenses(VRHANDLE handle, Cell<int> FovixContext::*field) {
    return withContext(handle, 0, [&](FovixContext& context) {
        int value = 0;
        withLenses(context, "Fovix_Multi_GetLens", [&] { value = context.*field; });
        return value;
    });
}

}  // namespace

}  // namespace fovix

using fovix::withContext;

void Fovix_Multi_SetScreenNumber(VRHANDLE handle, int rowNum, int columnNum) {
    withContext(handle, [&](FovixContext& context) { fovix::setScreenNumber(context, rowNum, columnNum); });
}

void Fovix_Multi_SetRGBTexture(VRHANDLE handle, int index, const unsigned char* data, int size, int width,
                               int height) {
    withContext(handle, [&](FovixContext& context) {
        if (!fovix::acceptsIndex(context, index, true)) return;
        fovix::submitFrame(context, index, FOVIX_FORMAT_RGBA, data, size, width, height);
    });
}

void Fovix_Multi_SetYUV420PTexture(VRHANDLE handle, int index, const unsigned char* data, int size, int width,
                                   int height) {
    withContext(handle, [&](FovixContext& context) {
        if (!fovix::acceptsIndex(context, index, false)) return;
        fovix::submitFrame(context, index, FOVIX_FORMAT_YUV420P, data, size, width, height);
    });
}

void Fovix_Multi_SetTexture(VRHANDLE handle, int index, int pixelFmt, const unsigned char* data, int size,
                            int width, int height) {
    withContext(handle, [&](FovixContext& context) {
        if (!fovix::acceptsIndex(context, index, false) || !fovix::isPixelFormat(pixelFmt)) return;
        fovix::submitFrame(context, index, pixelFmt, data, size, width, height);
    });
}

void Fovix_Multi_SwitchLens(VRHANDLE handle, int index) {
    withContext(handle, [&](FovixContext& context) {
        fovix::withLenses(context, "Fovix_Multi_SwitchLens", [&] {
            if (index >= 0 && index < context.lensCount) context.lensIndex = index;
        });
    });
}

void Fovix_Multi_SetLens(VRHANDLE handle, int count) {
    withContext(handle, [&](FovixContext& context) {
        fovix::withLenses(context, "Fovix_Multi_SetLens", [&] {
            if (count >= 1 && count <= fovix::kFrameSlots) context.lensCount = count;
        });
    });
}

int Fovix_Multi_GetLensCount(VRHANDLE handle) {
    return fovix::getOfLenses(handle, &FovixContext::lensCount);
}

int Fovix_Multi_GetLensIndex(VRHANDLE handle) {
    return fovix::getOfLenses(handle, &FovixContext::lensIndex);
}
