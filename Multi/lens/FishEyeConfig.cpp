#include "lens/FishEyeConfig.h"

#include <algorithm>

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "base/Numbers.h"

namespace fovix {

namespace {

/// All lenses are assumed to span 170 degrees.
constexpr double kLensFov = 170.0;

/// The panorama uses the circle within the frame, every other type the one that spans its longer side.
double chooseRadius(const FishEyeConfig& config, double radiusX, double radiusY) {
    return config.displayType == FOVIX_TYPE_360VR ? std::min(radiusX, radiusY) : std::max(radiusX, radiusY);
}

void initCircle(FishEyeConfig& config, double xCenter, double yCenter, double radius) {
    FishEyeConfig_init(config, truncateToInt(xCenter), truncateToInt(yCenter), kLensFov, kLensFov, radius);
}

/// Scales the host's circle from the camera's image to the texture, each axis by its own factor, and prints
/// it.
void refreshFromFec(FishEyeConfig& config, double width, double height) {
    const double imgWidth = config.Fec_imgWidth, imgHeight = config.Fec_imgHeight;
    const double radiusX = config.Fec_radius * width / imgWidth;
    const double radiusY = config.Fec_radius * height / imgHeight;
    const double xCenter = config.Fec_xCenter * width / imgWidth;
    const double yCenter = config.Fec_yCenter * height / imgHeight;
    printLine("    radiusX : %f\n", radiusX);
    printLine("    radiusY : %f\n", radiusY);
    const double radius = chooseRadius(config, radiusX, radiusY);
    printLine("    TextureWidht : %d\n", config.TextureWidth.get());
    printLine("    TextureHeight : %d\n", config.TextureHeight.get());
    printLine("    Fec_xCenter : %d\n", config.Fec_xCenter.get());
    printLine("    Fec_yCenter : %d\n", config.Fec_yCenter.get());
    printLine("    Fec_imgWidth : %d\n", config.Fec_imgWidth.get());
    printLine("    Fec_imgHeight : %d\n", config.Fec_imgHeight.get());
    printLine("    Fec_radius : %d\n", config.Fec_radius.get());
    printLine("    xCenter : %f\n", xCenter);
    printLine("    yCenter : %f\n", yCenter);
    printLine("    radius : %f\n", radius);
    initCircle(config, xCenter, yCenter, radius);
}

}  // namespace

void RefreshConfig(FishEyeConfig& config) {
    const int width = config.TextureWidth, height = config.TextureHeight;
    const bool textureUseful = width > 0 && height > 0;
    const bool fecValid = isFecValid(config);
    printLine("RefreshConfig\n");
    printLine("    TextureUseful : %d\n", textureUseful ? 1 : 0);
    printLine("    isFecValid : %d\n", fecValid ? 1 : 0);
    if (!textureUseful) return;
    if (fecValid) return refreshFromFec(config, width, height);
    const double xCenter = width * 0.5, yCenter = height * 0.5;
    initCircle(config, xCenter, yCenter, chooseRadius(config, xCenter, yCenter));
}

void FishEyeConfig_init(FishEyeConfig& config, int xCenter, int yCenter, double maxFov, double fov,
                        double radius) {
    printLine("FishEyeConfig_init(%d, %d, %f, %f, %f)\n", xCenter, yCenter, maxFov, fov, radius);
    config.fov = fov;
    config.xCenter = xCenter;
    config.yCenter = yCenter;
    config.radius = radius;
    const double effectiveFov = maxFov < fov ? maxFov : fov;
    config.effectiveFov = effectiveFov;
    config.configVersion = countUp(config.configVersion);
    config.maxRadius = radius;
    config.degreesPerPixel = effectiveFov / radius;
    config.pixelsPerDegree = radius / effectiveFov;
}

}  // namespace fovix
