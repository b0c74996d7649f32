// The frame's size as the flat and the 180-degree meshes show it.
//
// A frame may have been squeezed on the way (a square camera image in a 16:9 stream). The image size that the
// host reports with the lens circle has the true proportions; otherwise the texture size is used.
#pragma once

#include "lens/FishEyeConfig.h"

namespace fovix {

struct PictureFit {
    double imgW, imgH;  ///< texture pixels
    double effH;        ///< height that belongs to imgW in the camera's own proportions
};

inline PictureFit fitPicture(const FishEyeConfig& lens) {
    const double imgW = lens.TextureWidth, imgH = lens.TextureHeight;
    return {imgW, imgH, isFecValid(lens) ? lens.Fec_imgHeight * imgW / lens.Fec_imgWidth : imgH};
}

}  // namespace fovix
