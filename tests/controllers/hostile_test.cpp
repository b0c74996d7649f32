// Numbers beyond every gesture: whatever a host reports, the view stays one that can be moved.
#include <utility>
#include <vector>

#include "base/Easing.h"
#include "steered_view.h"
#include "touch/Gestures.h"
#include "touch/TouchController360VR.h"
#include "touch/TouchControllerSinglePIP.h"

using namespace fovix;

namespace {

std::vector<std::pair<int, std::string>> places() {
    std::vector<std::pair<int, std::string>> all = {{FOVIX_TYPE_KORVEL, "scale 2"},
                                                    {FOVIX_TYPE_TWO_LENSES, "scale 2"}};
    for (int i = 0; i < 44; ++i) {
        const std::string shape = " shape " + std::to_string(i % 11);
        all.emplace_back(FOVIX_TYPE_360VR, "mount " + std::to_string(i / 11) + shape);
    }
    for (const int mode : {0, 1, 2, 3, 4, -1, kMost}) {
        all.emplace_back(FOVIX_TYPE_180VR, "mode " + std::to_string(mode));
        all.emplace_back(FOVIX_TYPE_SINGLE_PIP, "mode " + std::to_string(mode));
    }
    return all;
}

void expectUsable(const SteeredView& view, const std::string& where) {
    const View v = view.view();
    const int type = Fovix_GetType(view);
    const double most = type == FOVIX_TYPE_SINGLE_PIP ? 1e31 : 2e9;
    EXPECT_TRUE(std::abs(v.x) < most && std::abs(v.y) < most) << where;
    EXPECT_TRUE(std::isfinite(v.z) && std::isfinite(v.zoom)) << where;
    EXPECT_TRUE(std::isfinite(Fovix_GetRelativeXOffset(view))) << where;
    if (type == FOVIX_TYPE_SINGLE_PIP) {
        const auto& p = view.params<SinglePIPTouchParams>();
        EXPECT_TRUE(std::isfinite(p.mRelativeX + p.mRelativeY)) << where;
    }
    if (type == FOVIX_TYPE_360VR) {
        const auto& p = view.params<VR360TouchParams>();  // the model refuses such views
        EXPECT_TRUE(std::isfinite(p.mPan + p.mTilt + p.mRoll + p.mZoom)) << where;
    }
}

void rage(SteeredView& view, float x, float y, const std::string& where) {
    const auto frame = [&] { view.frames(1), expectUsable(view, where); };
    const double huge = static_cast<double>(x) * 1e269;
    Fovix_OnTouchMove(view, x, y), Fovix_OnTouchFling(view, x, y), frame();
    for (int again = 0; again < 12; ++again) {
        Fovix_OnTouchUp(view, x, y), Fovix_OnTouchDown(view, y, x), Fovix_OnTouchMove(view, x, y);
        Fovix_OnTouchPinchScale(view, x), Fovix_OnTouchPinchScale(view, y);
        Fovix_OnTouchPinch(view, x, y, y, x), Fovix_OnTouchPinch(view, x, x, x, x);
    }
    Fovix_OnAccelerometer(view, x, y), Fovix_OnOrientation(view, x, y, x), frame();
    Fovix_AutoAdjust(view), Fovix_StartAutoCruise(view, huge), frame();
    Fovix_SetRotateZoomRecoverMode(view, -huge, huge, huge, x > y ? huge : 0.25), frame();
    Fovix_SetPTZFor180VR(view, huge, -huge, huge, huge), frame();
    Fovix_DisplayTarget(view, kLeast, kMost, y > 0 ? kMost : 0, kLeast), frame();
    Fovix_DisplayRect(view, kLeast, kLeast, kMost, kMost, y > 0 ? kMost : 0, kLeast), frame();
}

}  // namespace

TEST(Hostile, NumbersLeaveAViewThatCanBeMoved) {
    for (const auto& [type, script] : places()) {
        SteeredView view(type);
        for (const float x : {kFloatMax, -kFloatMax, 0.0f, 1e-45f}) {
            for (const float y : {kFloatMax, -kFloatMax, 0.0f}) {
                view.play((x > 0 ? "size 1 1 " : "size 0 800 ") + script);
                rage(view, x, y, script);
            }
        }
        if (type != FOVIX_TYPE_360VR) view.play(script);  // the panorama shows its one large screen by now
        view.play(
            "stop size 800 800 up 0 0 fling 3e38 0 frames 999 down 0 0 spread 100 200 up 0 0 frames 999");
        view.play("down 0 0 move 50 50 frames 999");
        const View right = view.view();
        view.frames(1);
        EXPECT_TRUE(right.x == view.view().x && right.y == view.view().y) << "at rest " << type << script;
        view.play("down 0 0 move -100 -100 frames 999");
        EXPECT_TRUE(right.x != view.view().x || right.y != view.view().y) << type << script;
    }
}

TEST(Hostile, ArithmeticStaysFinite) {
    EXPECT_EQ(kFloatMax, fingerDistance(-kFloatMax, -kFloatMax, kFloatMax, kFloatMax));
    EXPECT_EQ(-kFloatMax, dragDistance(kFloatMax, -kFloatMax));
    EXPECT_EQ(kNoLimit, draggedTarget(kNoLimit, 1e308, 1.0, std::numeric_limits<double>::infinity()));
    EXPECT_EQ(-1e308, easeStep(-1e308, 1e308, false)) << "no infinity on the way";
}
