#include "viewer/aim/Picker.h"

#include <SDL_opengl.h>

#include <algorithm>

namespace fovix_host {
namespace {

using Colours = std::vector<PositionMap::Colour>;

Colours drawnColours(VRHANDLE view, const RgbaImage& map, const SurfaceScale& scale,
                     const std::vector<SurfacePosition>& points) {
    Fovix_SetTexture(view, FOVIX_FORMAT_RGBA, map.pixels.data(), static_cast<int>(map.pixels.size()),
                     map.width, map.height);
    Fovix_Drawself(view);
    Colours colours;
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    for (const SurfacePosition& point : points) {
        const int x = std::clamp(static_cast<int>(point.x), 0, scale.width - 1);
        const int y = std::clamp(static_cast<int>(point.y), 0, scale.height - 1);
        PositionMap::Colour colour{};
        // GL counts rows from the bottom.
        glReadPixels(x * scale.ppiZoom, (scale.height - 1 - y) * scale.ppiZoom, 1, 1, GL_RGBA,
                     GL_UNSIGNED_BYTE, colour.data());
        colours.push_back(colour);
    }
    return colours;
}

}  // namespace

PickedSpots pickSpots(VRHANDLE view, FrameRelay& frames, const SurfaceScale& scale,
                      const std::vector<SurfacePosition>& points) {
    PickedSpots picked{frames.size(), {}};
    if (picked.frame.width < 1) return picked;
    const PositionMap map(picked.frame.width, picked.frame.height);
    const FrameRelay::Hold hold(frames);
    for (const PositionMap::Colour& colour : drawnColours(view, map.image(), scale, points))
        if (const auto spot = map.spot(colour)) picked.spots.push_back(*spot);
    return picked;
}

}  // namespace fovix_host
