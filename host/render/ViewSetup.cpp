#include "render/ViewSetup.h"

#include <Fovix.h>

#include "setup/ViewLayout.h"

namespace fovix_host {
namespace {

using ScreenView = ViewOptions::ScreenView;

// Default views of the screens of a layout: each looks in a different direction.
std::vector<ScreenView> startingViews(const ViewOptions& view) {
    const int shape = view.shape.value_or(FOVIX_SHAPE_SINGLE);
    std::vector<ScreenView> views;
    const auto around = [&](int first, int last, double apart) {
        for (int i = first; i <= last; ++i) views.push_back({i, {apart * (i - first), 50, 40, 0}});
    };
    if (view.type == FOVIX_TYPE_360VR) {
        if (shape == FOVIX_SHAPE_FOUR_SCREENS) around(0, 3, 90);
        if (shape == FOVIX_SHAPE_OVERVIEW_FIVE) around(1, 5, 72);
        if (shape == FOVIX_SHAPE_TWO_AND_STRIP) around(0, 1, 180);
    } else if (view.type == FOVIX_TYPE_180VR) {
        if (shape == FOVIX_SHAPE_FOUR_SCREENS)
            views = {
                {0, {-20, -35, 0, 15}}, {1, {-20, 35, 0, 15}}, {2, {35, -35, 0, 15}}, {3, {35, 35, 0, 15}}};
        if (shape == FOVIX_SHAPE_LARGE_AND_TWO)
            views = {{0, {0, 0, 0, 10}}, {1, {0, -35, 0, 10}}, {2, {0, 35, 0, 10}}};
    }
    return views;
}

void setScreenView(VRHANDLE handle, int type, const ScreenView& view) {
    const auto& [a, b, c, d] = view.values;
    if (type == FOVIX_TYPE_360VR)
        Fovix_SetPTZ_SubScreen(handle, view.screen, a, b, c, d, 0.0);
    else if (type == FOVIX_TYPE_SINGLE_PIP)
        Fovix_SetRotateZoomRecoverMode(handle, a, b, c, d);
    else
        Fovix_SetRotateZoom_SubScreen(handle, view.screen, a, b, c, d);
}

}  // namespace

View::Creator creatorFor(const RenderOptions& options) {
    // Controllers would overwrite the views in every frame. Type pip needs its controller for the marker.
    const bool steered = !options.view.setsViews() || options.view.type == FOVIX_TYPE_SINGLE_PIP;
    return steered ? Fovix_Create : Fovix_CreateNoTouchEvent;
}

void setUpView(VRHANDLE handle, const RenderOptions& options, const Inputs& inputs) {
    Fovix_Prepare(handle);
    Fovix_Init(handle, options.surface.width, options.surface.height);
    Fovix_SetType(handle, options.view.type);
    Fovix_SetBackground(handle, options.background);
    // After the type, because a change of type resets the lens.
    if (const auto lens = inputs.lens()) setLensCircle(handle, *lens);
    setLayout(handle, options.view, inputs.count());
    for (const auto& point : options.view.select) {
        Fovix_OnTouchDown(handle, point.x, point.y);
        Fovix_OnTouchUp(handle, point.x, point.y);
    }
}

void setViews(VRHANDLE handle, const ViewOptions& view) {
    if (!view.setsViews()) return;
    for (const ScreenView& start : startingViews(view)) setScreenView(handle, view.type, start);
    if (view.logicZoom) setScreenView(handle, view.type, {0, {0, 0, 0, view.logicZoom->zoom}});
    for (const ScreenView& asked : view.ptz) setScreenView(handle, view.type, asked);
    for (const ScreenView& asked : view.rotateZoom) setScreenView(handle, view.type, asked);
}

int framesToSettle(const ViewOptions& view) {
    // The longest animation moves two images beside each other in 88 frames.
    constexpr int kLongestAnimation = 90;
    return view.shape || view.twoLensesMode ? kLongestAnimation : 0;
}

}  // namespace fovix_host
