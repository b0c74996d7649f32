#include "setup/ViewLayout.h"

#include <algorithm>
#include <cmath>

namespace fovix_host {

ViewOptions::Grid gridOf(const ViewOptions& options, int inputs) {
    if (options.grid) return *options.grid;
    const int count = std::max(inputs, 1);
    const int columns = static_cast<int>(std::ceil(std::sqrt(count)));
    return {(count + columns - 1) / columns, columns};
}

std::optional<LensCircle> lensOfType(const ViewOptions& options, int inputs, int width, int height) {
    if (options.type == FOVIX_TYPE_TWO_LENSES && height > 1)
        return LensCircle{std::max(width / 2, 1), std::max(height / 4, 1),
                          std::max(std::min(width, height / 2) / 2, 1), width, height / 2};
    if (options.type == FOVIX_TYPE_MULTI_IMAGE) {
        // The proportions of an image that fills the grid, so that each cell keeps those of its frame.
        const auto [rows, columns] = gridOf(options, inputs);
        return LensCircle{1, 1, 1, width * columns, height * rows};
    }
    return std::nullopt;
}

void setLensCircle(VRHANDLE handle, const LensCircle& lens) {
    Fovix_SetFecParams(handle, lens.xCenter, lens.yCenter, lens.radius, lens.imageWidth, lens.imageHeight);
}

void setLayout(VRHANDLE handle, const ViewOptions& options, int inputs) {
    if (options.mount) Fovix_SetCameraMount(handle, *options.mount);
    if (options.shape) Fovix_SetShape(handle, *options.shape);
    if (options.drawMode) Fovix_SetDrawMode(handle, *options.drawMode);
    if (options.twoLensesMode) Fovix_SetTwoLensesDrawMode(handle, *options.twoLensesMode);
    if (options.twoLensesScreen) Fovix_SetTwoLensesScreen(handle, *options.twoLensesScreen);
    if (const auto& zoom = options.logicZoom)
        Fovix_SetLogicZoom(handle, zoom->min, zoom->max, zoom->div, zoom->zoom);
    if (options.type == FOVIX_TYPE_MULTI_IMAGE) {
        const auto [rows, columns] = gridOf(options, inputs);
        Fovix_Multi_SetScreenNumber(handle, rows, columns);
    }
    if (options.type == FOVIX_TYPE_MULTI_LENS && inputs > 0) {
        Fovix_Multi_SetLens(handle, inputs);
        Fovix_Multi_SwitchLens(handle, options.lensShown.value_or(0));
    }
}

}  // namespace fovix_host
