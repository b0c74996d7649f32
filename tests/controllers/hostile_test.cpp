// Numbers beyond every gesture: whatever a host reports, the view stays one that can be moved.
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "CallStorm.h"
#include "base/Easing.h"
#include "steered_view.h"
#include "touch/Gestures.h"

using namespace fovix;

namespace {

std::vector<std::pair<int, std::string>> places() {
    std::vector<std::pair<int, std::string>> all = {{FOVIX_TYPE_KORVEL, "scale 2"},
                                                    {FOVIX_TYPE_TWO_LENSES, "logic 1 10 3 1 scale 2"}};
    for (int i = 0; i < 44; ++i) {
        const std::string shape = " shape " + std::to_string(i % 11);
        all.emplace_back(FOVIX_TYPE_360VR, "mount " + std::to_string(i / 11) + shape);
    }
    for (const char* mode : {"mode 0", "mode 1", "mode 2", "mode 3", "mode 4", "mode -1"}) {
        all.emplace_back(FOVIX_TYPE_180VR, mode);
        all.emplace_back(FOVIX_TYPE_SINGLE_PIP, mode);
    }
    return all;
}

/// Within reach of a finger that drags it back.
void expectUsable(const SteeredView& view, const std::string& where) {
    const View v = view.view();
    // The model of an inset keeps what a host sets until the controller moves it.
    const double most = Fovix_GetType(view) == FOVIX_TYPE_SINGLE_PIP ? HUGE_VAL : 2e9;
    EXPECT_TRUE(std::abs(v.x) < most && std::abs(v.y) < most) << where;
    EXPECT_TRUE(std::isfinite(v.z) && std::isfinite(v.zoom)) << where;
    EXPECT_TRUE(std::isfinite(Fovix_GetRelativeXOffset(view))) << where;
}

}  // namespace

TEST(Hostile, NumbersLeaveAViewThatCanBeMoved) {
    for (const auto& [type, script] : places()) {
        const std::string where = "type " + std::to_string(type) + " " + script;
        SteeredView view(type);
        fovix_test::CallStorm storm = fovix_test::gestures(static_cast<unsigned>(type), 0.6);
        for (int call = 0; call < 400 && !testing::Test::HasFailure(); ++call) {
            if (call % 80 == 0) view.play((call % 160 ? "size 1 1 " : "size 0 800 ") + script);
            storm.callOnce(view);
            if (call % 5 == 0) view.play("frames 1"), expectUsable(view, where);
        }
        if (type != FOVIX_TYPE_360VR) view.play(script);  // the panorama shows its one large screen by now
        view.play(
            "stop size 800 800 up 0 0 fling 3e38 0 frames 999 down 0 0 spread 100 200 up 0 0 frames 999 "
            "down 0 0 move 50 50 frames 999");
        const View right = view.view();
        view.play("frames 1");
        EXPECT_TRUE(right.x == view.view().x && right.y == view.view().y) << "not at rest: " << where;
        view.play("down 0 0 move -100 -100 frames 999");
        EXPECT_TRUE(right.x != view.view().x || right.y != view.view().y) << where;
    }
}

TEST(Hostile, ArithmeticStaysFinite) {
    constexpr float kMost = std::numeric_limits<float>::max();
    EXPECT_EQ(kMost, fingerDistance(-kMost, -kMost, kMost, kMost));
    EXPECT_EQ(-kMost, dragDistance(kMost, -kMost));
    EXPECT_EQ(kNoLimit, draggedTarget(kNoLimit, 1e308, 1.0, std::numeric_limits<double>::infinity()));
    EXPECT_EQ(-1e308, easeStep(-1e308, 1e308, false)) << "no infinity on the way";
}
