#include "viewer/state/ViewWatch.h"

namespace fovix_host {

bool ViewWatch::hasMoved(VRHANDLE view) {
    std::array<double, kValues * kScreens> now{};
    for (int screen = 0; screen < kScreens; ++screen) {
        double* at = now.data() + kValues * screen;
        Fovix_GetPTZ_SubScreen(view, screen, at, at + 1, at + 2, at + 3);
        Fovix_GetRotateZoom_SubScreen(view, screen, at + 4, at + 5, at + 6, at + 7);
    }
    const bool moved = now != _last;
    _last = now;
    return moved;
}

}  // namespace fovix_host
