// A handle of one display type, steered through the API. A frame is one step of its controller: no GL is
// needed.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <functional>
#include <limits>
#include <map>
#include <sstream>
#include <string>

#include "Fovix.h"
#include "handle/FovixContext.h"

namespace fovix {

inline constexpr float kFloatMax = std::numeric_limits<float>::max();
inline constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();

/// Angles or offsets and zoom as the model has them; pan, tilt, roll and zoom of the panorama.
struct View {
    double x = 0.0, y = 0.0, z = 0.0, zoom = 0.0;
};

class SteeredView {
  public:
    explicit SteeredView(int type, const std::string& script = "") {
        testing::internal::CaptureStdout();
        Fovix_Create(&handle);
        Fovix_SetType(handle, type);
        play("size 800 800 " + script);
    }
    ~SteeredView() {
        Fovix_Release(handle);
        const std::string lines = testing::internal::GetCapturedStdout();
        if (testing::Test::HasFailure()) std::fputs(lines.c_str(), stdout);  // failures stand among them
    }
    SteeredView(const SteeredView&) = delete;
    SteeredView& operator=(const SteeredView&) = delete;

    operator VRHANDLE() const { return handle; }
    ControllerPtr controller(int screen = 0) const {
        return handle->display.load()->controllers.at(static_cast<std::size_t>(screen));
    }
    template <class Params>
    Params& params(int screen = 0) const {
        return paramsOf<Params>(*controller(screen));
    }

    void frames(int count, int screen = 0) {
        const ControllerPtr stepped = controller(screen);
        for (; count > 0; --count) stepped->operations.update(*stepped);
    }

    /// Gestures and commands in words, each with its numbers.
    void play(const std::string& script) {
        std::istringstream in(script);
        for (std::string verb; in >> verb;) {
            std::array<double, 4> numbers = {};
            for (auto& number : numbers) {
                if (!(in >> std::ws) || (!std::isdigit(in.peek()) && in.peek() != '-')) break;
                in >> number;
            }
            perform(verb, numbers);
        }
    }

    View view(int screen = 0) const {
        View v;
        const bool pans = Fovix_GetType(handle) == FOVIX_TYPE_360VR;
        if (pans) Fovix_GetPTZ_SubScreen(handle, screen, &v.x, &v.y, &v.zoom, &v.z);
        if (!pans) Fovix_GetRotateZoom(handle, &v.x, &v.y, &v.z, &v.zoom);
        return v;
    }

    std::string printedBy(const std::string& script) {
        testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        play(script);
        const std::string lines = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        return lines;
    }

  private:
    void perform(const std::string& verb, const std::array<double, 4>& n) {
        const auto real = [&n](std::size_t i) { return static_cast<float>(n.at(i)); };
        const auto whole = [&n](std::size_t i) { return static_cast<int>(n.at(i)); };
        const std::map<std::string, std::function<void()>> verbs = {
            {"down", [&] { Fovix_OnTouchDown(handle, real(0), real(1)); }},
            {"up", [&] { Fovix_OnTouchUp(handle, real(0), real(1)); }},
            {"move", [&] { Fovix_OnTouchMove(handle, real(0), real(1)); }},
            {"fling", [&] { Fovix_OnTouchFling(handle, real(0), real(1)); }},
            {"scale", [&] { Fovix_OnTouchPinchScale(handle, real(0)); }},
            {"pinch", [&] { Fovix_OnTouchPinch(handle, real(0), real(1), real(2), real(3)); }},
            {"spread",
             [&] {
                 for (const float at : {real(0), real(1)}) Fovix_OnTouchPinch(handle, 0, 0, at, 0);
             }},
            {"sense", [&] { Fovix_OnAccelerometer(handle, real(0), real(1)); }},
            {"turn", [&] { Fovix_OnOrientation(handle, real(0), real(1), real(2)); }},
            {"adjust", [&] { Fovix_AutoAdjust(handle); }},
            {"cruise", [&] { Fovix_StartAutoCruise(handle, n[0]); }},
            {"stop", [&] { Fovix_StopAutoCruise(handle); }},
            {"target", [&] { Fovix_DisplayTarget(handle, whole(0), whole(1), whole(2), whole(3)); }},
            {"mode", [&] { Fovix_SetDrawMode(handle, whole(0)); }},
            {"mount", [&] { Fovix_SetCameraMount(handle, whole(0)); }},
            {"shape", [&] { Fovix_SetShape(handle, whole(0)); }},
            {"logic", [&] { Fovix_SetLogicZoom(handle, n[0], n[1], n[2], n[3]); }},
            {"set", [&] { Fovix_SetRotateZoomRecoverMode(handle, n[0], n[1], n[2], n[3]); }},
            {"set180", [&] { Fovix_SetPTZFor180VR(handle, n[0], n[1], n[2], n[3]); }},
            {"look", [&] { controller()->operations.setPTZ(*controller(), n[0], n[1], n[2], n[3]); }},
            {"size", [&] { handle->viewWidth = whole(0), handle->viewHeight = whole(1); }},
            {"frames", [&] { frames(whole(0)); }},
        };
        verbs.at(verb)();
    }

    VRHANDLE handle = nullptr;
};

inline void expectView(const View& expected, const View& actual, double tolerance, const std::string& where) {
    EXPECT_NEAR(expected.x, actual.x, tolerance) << where;
    EXPECT_NEAR(expected.y, actual.y, tolerance) << where;
    EXPECT_NEAR(expected.z, actual.z, tolerance) << where;
    EXPECT_NEAR(expected.zoom, actual.zoom, tolerance) << where;
}

/// Plays every script on a view of its own and compares where it ends.
struct Played {
    const char* script;
    View landed;
};
template <std::size_t count>
void expectLanded(int type, const Played (&cases)[count], const std::string& after = "",
                  double tolerance = 1e-5) {
    for (const auto& [script, landed] : cases) {
        SteeredView view(type, script + after);
        expectView(landed, view.view(), tolerance, script);
    }
}

}  // namespace fovix
