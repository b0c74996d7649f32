// A handle of one display type, steered through the API. A frame is one step of its controller: no GL is
// needed.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>

#include "Fovix.h"
#include "FovixContext.h"

namespace fovix {

/// Angles or offsets and zoom as the model has them.
struct View {
    double x = 0.0, y = 0.0, z = 0.0, zoom = 0.0;
};

class SteeredView {
  public:
    explicit SteeredView(int type, int width = 800, int height = 800) {
        testing::internal::CaptureStdout();
        Fovix_Create(&handle);
        Fovix_SetType(handle, type);
        resize(width, height);
    }
    ~SteeredView() {
        Fovix_Release(handle);
        const std::string lines = testing::internal::GetCapturedStdout();
        if (testing::Test::HasFailure()) std::fputs(lines.c_str(), stdout);  // failures stand among them
    }
    SteeredView(const SteeredView&) = delete;
    SteeredView& operator=(const SteeredView&) = delete;

    operator VRHANDLE() const { return handle; }
    ControllerPtr controller() const { return handle->display.load()->controllers[0]; }
    template <class Params>
    Params& params() const {
        return static_cast<Params&>(*controller()->params);
    }

    void resize(int width, int height) {
        handle->viewWidth = width;
        handle->viewHeight = height;
    }

    void frames(int count) {
        const ControllerPtr stepped = controller();
        for (; count > 0; --count) stepped->operations.update(*stepped);
    }

    /// Gestures in words, each with its numbers.
    void play(const std::string& script) {
        std::istringstream in(script);
        const auto number = [&in] {
            float value = 0.0f;
            in >> value;
            return value;
        };
        for (std::string verb; in >> verb;) {
            const float a = number(), b = verb == "scale" || verb == "frames" ? 0.0f : number();
            if (verb == "down") Fovix_OnTouchDown(handle, a, b);
            if (verb == "up") Fovix_OnTouchUp(handle, a, b);
            if (verb == "move") Fovix_OnTouchMove(handle, a, b);
            if (verb == "fling") Fovix_OnTouchFling(handle, a, b);
            if (verb == "scale") Fovix_OnTouchPinchScale(handle, a);
            if (verb == "frames") frames(static_cast<int>(a));
            if (verb == "spread") {  // from one finger distance to another
                Fovix_OnTouchPinch(handle, 0, 0, a, 0);
                Fovix_OnTouchPinch(handle, 0, 0, 0, b);
            }
        }
    }

    View view() const {
        View view;
        Fovix_GetRotateZoom(handle, &view.x, &view.y, &view.z, &view.zoom);
        return view;
    }

    /// What was printed since the last call.
    std::string takeLines() {
        const std::string lines = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        return lines;
    }

  private:
    VRHANDLE handle = nullptr;
};

inline void expectView(const View& expected, const View& actual, double tolerance, const std::string& where) {
    EXPECT_NEAR(expected.x, actual.x, tolerance) << where;
    EXPECT_NEAR(expected.y, actual.y, tolerance) << where;
    EXPECT_NEAR(expected.z, actual.z, tolerance) << where;
    EXPECT_NEAR(expected.zoom, actual.zoom, tolerance) << where;
}

}  // namespace fovix
