// A handle of one display type, steered through the API. A frame is one step of its controller: no GL is
// needed.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "ApiCalls.h"
#include "handle/FovixContext.h"

namespace fovix {

using fovix_test::Numbers;

/// Angles or offsets and zoom as the model has them; pan, tilt, roll and zoom of the panorama.
struct View {
    double x = 0.0, y = 0.0, z = 0.0, zoom = 0.0;
};

class SteeredView {
  public:
    explicit SteeredView(int type, const std::string& script = "") {
        testing::internal::CaptureStdout();
        Fovix_Create(&_handle);
        Fovix_SetType(_handle, type);
        play("size 800 800 " + script);
    }
    ~SteeredView() {
        Fovix_Release(_handle);
        const std::string lines = testing::internal::GetCapturedStdout();
        if (testing::Test::HasFailure()) std::fputs(lines.c_str(), stdout);  // failures are among them
    }
    SteeredView(const SteeredView&) = delete;
    SteeredView& operator=(const SteeredView&) = delete;

    operator VRHANDLE() const { return _handle; }
    ControllerPtr controller() const { return _handle->display.load()->controllers.at(0); }

    /// See ApiCalls.h. "spread A B" pinches from a distance to another one, "look" is an aim from outside.
    void play(const std::string& script) {
        fovix_test::play(_handle, script,
                         {
                             {"size",
                              [&](const Numbers& n) {
                                  _handle->viewWidth = static_cast<int>(n.at(0)),
                                  _handle->viewHeight = static_cast<int>(n.at(1));
                              }},
                             {"frames",
                              [&](const Numbers& n) {
                                  for (int frame = 0; frame < n.at(0); ++frame)
                                      controller()->operations.update(*controller());
                              }},
                             {"look",
                              [&](const Numbers& n) {
                                  controller()->operations.setPTZ(*controller(), n.at(0), n.at(1), n.at(2),
                                                                  n.size() > 3 ? n[3] : 0.0);
                              }},
                             {"spread",
                              [&](const Numbers& n) {
                                  for (const double distance : n)
                                      Fovix_OnTouchPinch(_handle, 0, 0, static_cast<float>(distance), 0);
                              }},
                         });
    }

    View view() const {
        View v;
        const bool pans = Fovix_GetType(_handle) == FOVIX_TYPE_360VR;
        if (pans) Fovix_GetPTZ(_handle, &v.x, &v.y, &v.zoom, &v.z);
        if (!pans) Fovix_GetRotateZoom(_handle, &v.x, &v.y, &v.z, &v.zoom);
        return v;
    }

  private:
    VRHANDLE _handle = nullptr;
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
