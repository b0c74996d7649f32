// The flat frame and its halves: one rectangle each, fitted to the surface.
#include "base/Diagnostics.h"
#include "lens/PictureFit.h"
#include "mesh/GridMesh.h"

namespace fovix {

namespace {

/// The rows of the texture from v = top to v = bottom on a rectangle as large as the whole frame.
GridMesh createRectangle(const FishEyeConfig& lens, int backingWidth, int backingHeight, double top,
                         double bottom) {
    const auto [imgW, imgH, effH] = fitPicture(lens);
    printLine("backing : %d x %d\n", backingWidth, backingHeight);
    printLine("original : %f x %f, length = %f\n", imgW, imgH, 2.0);

    // Relatively wider surfaces show the frame's whole height, others its whole width.
    const double surfaceW = backingWidth, surfaceH = backingHeight;
    double ratio = 1.0;
    if (backingWidth > 0 && backingHeight > 0 && surfaceH / surfaceW < effH / imgW) {
        ratio = surfaceH * imgW / surfaceW / effH;
    }
    printLine("display as : %f x %f, ratio : %f\n", imgW, effH, ratio);

    const double x = ratio, y = effH / imgW * ratio;
    return {{-x, y,  0.0, 0.0, top,    -x, -y, 0.0, 0.0, bottom, x, y, 0.0, 1.0, top,
             -x, -y, 0.0, 0.0, bottom, x,  -y, 0.0, 1.0, bottom, x, y, 0.0, 1.0, top},
            2};
}

}  // namespace

GridMesh GridMesh_Create_Original(const FishEyeConfig& lens, int backingWidth, int backingHeight) {
    return createRectangle(lens, backingWidth, backingHeight, 0.0, 1.0);
}

GridMesh GridMesh_Create_HalfTop(const FishEyeConfig& lens, int backingWidth, int backingHeight) {
    return createRectangle(lens, backingWidth, backingHeight, 0.0, 0.5);
}

GridMesh GridMesh_Create_HalfBottom(const FishEyeConfig& lens, int backingWidth, int backingHeight) {
    return createRectangle(lens, backingWidth, backingHeight, 0.5, 1.0);
}

}  // namespace fovix
