// The lens circle of a fisheye camera within the frame that is drawn.
//
// It follows from two inputs that arrive in any order: the size of the frame in slot 0, and the lens
// parameters that the host reports (the FEC params: centre, radius and the image size they refer to).
// RefreshConfig recomputes the circle and increments configVersion, which a rendered frame compares with the
// version it drew last. Writers hold the lock, except for Fovix_CleanUp clearing the texture size; mesh
// builders work on a copy.
#pragma once

#include "base/Cell.h"

namespace fovix {

struct FishEyeConfig {
    Cell<int> xCenter;             ///< centre of the circle, texture pixels from the left
    Cell<int> yCenter;             ///< centre, texture pixels from the top
    Cell<double> fov;              ///< field of view of the circle, degrees
    Cell<double> radius;           ///< texture pixels
    Cell<double> pixelsPerDegree;  ///< radius / effectiveFov
    Cell<double> effectiveFov;     ///< degrees
    Cell<double> maxRadius;        ///< the radius as the mesh builders use it, texture pixels
    Cell<double> degreesPerPixel;  ///< effectiveFov / radius
    Cell<int> TextureWidth;        ///< size of the frame in slot 0; 0: none
    Cell<int> TextureHeight;
    Cell<int> Fec_xCenter;  ///< lens circle in the camera's image, as the host reports it
    Cell<int> Fec_yCenter;
    Cell<int> Fec_radius;
    Cell<int> Fec_imgWidth;  ///< size of the image that the three values above refer to
    Cell<int> Fec_imgHeight;
    Cell<int> configVersion;  ///< incremented by every FishEyeConfig_init
    Cell<int> displayType;    ///< 0 takes the smaller candidate radius, every other type the larger
};

/// Recomputes the circle from the current inputs. Without a texture size it only logs.
void RefreshConfig(FishEyeConfig& config);

/// Stores a circle (texture pixels, degrees) and increments the version.
void FishEyeConfig_init(FishEyeConfig& config, int xCenter, int yCenter, double maxFov, double fov,
                        double radius);

/// Sizes of the circle and of the texture, texture pixels.
inline double FishEyeConfig_GetWidth(const FishEyeConfig& config) {
    return 2.0 * config.maxRadius;
}
inline double FishEyeConfig_GetHeight(const FishEyeConfig& config) {
    return 2.0 * config.maxRadius;
}
inline int FishEyeConfig_GetTextureWidth(const FishEyeConfig& config) {
    return config.TextureWidth;
}
inline int FishEyeConfig_GetTextureHeight(const FishEyeConfig& config) {
    return config.TextureHeight;
}

inline bool isTextureUsable(const FishEyeConfig& config) {
    return config.TextureWidth > 0 && config.TextureHeight > 0;
}

/// True when all five FEC params are above 0; otherwise they are ignored.
inline bool isFecValid(const FishEyeConfig& config) {
    return config.Fec_xCenter > 0 && config.Fec_yCenter > 0 && config.Fec_radius > 0 &&
           config.Fec_imgWidth > 0 && config.Fec_imgHeight > 0;
}

}  // namespace fovix
