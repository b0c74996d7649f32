// Decoder, input and drawing thread at once, with changes of type, size, format and view at any moment of a
// frame.
#include <gtest/gtest.h>

#include <chrono>
#include <iterator>
#include <sstream>
#include <thread>

#include "HeadlessGl.h"
#include "Storm.h"
#include "handle/FovixContext.h"

namespace fovix_test {
namespace {

constexpr auto kStorm = std::chrono::milliseconds(1500);

/// Fingers, sensors and moving views.
constexpr void (*kGestures[])(VRHANDLE, Dice&) = {
    [](VRHANDLE v, Dice& d) { Fovix_OnTouchDown(v, d.pixel(), d.pixel()); },
    [](VRHANDLE v, Dice& d) { Fovix_OnTouchMove(v, d.pixel(), d.pixel()); },
    [](VRHANDLE v, Dice& d) { Fovix_OnTouchUp(v, d.pixel(), d.pixel()); },
    [](VRHANDLE v, Dice& d) { Fovix_OnTouchPinch(v, d.pixel(), d.pixel(), d.pixel(), d.pixel()); },
    [](VRHANDLE v, Dice& d) { Fovix_OnTouchPinchScale(v, d.pixel() / 60); },
    [](VRHANDLE v, Dice& d) { Fovix_OnTouchFling(v, 40 * d.pixel(), 40 * d.pixel()); },
    [](VRHANDLE v, Dice&) { Fovix_AutoAdjust(v); },
    [](VRHANDLE v, Dice& d) { Fovix_OnAccelerometer(v, d.pixel() / 50, d.pixel() / 50); },
    [](VRHANDLE v, Dice& d) { Fovix_OnOrientation(v, d.pixel(), d.pixel(), d.pixel()); },
    [](VRHANDLE v, Dice& d) { Fovix_StartAutoCruise(v, d.real(-5, 5)); },
    [](VRHANDLE v, Dice&) { Fovix_StopAutoCruise(v); },
    [](VRHANDLE v, Dice& d) { Fovix_SetPTZ_SubScreen(v, d.from(-1, 6), d.pixel(), d.pixel(), 40, 0, 0); },
    [](VRHANDLE v, Dice& d) { Fovix_SetRotateZoomRecoverMode(v, d.pixel(), 9, 0.7, d.real(0.1, 25)); },
    [](VRHANDLE v, Dice& d) { Fovix_SetPTZFor180VR(v, d.pixel(), d.pixel(), 0, d.real(1, 20)); },
    [](VRHANDLE v, Dice& d) { Fovix_DisplayRect(v, 10, 10, d.from(11, 90), d.from(11, 90), 100, 100); },
    [](VRHANDLE v, Dice& d) { Fovix_DisplayTarget(v, d.from(0, 100), d.from(0, 100), 100, 100); },
    [](VRHANDLE v, Dice& d) { Fovix_SetLogicZoom(v, 1, 10, 3, d.real(1, 10)); },
    [](VRHANDLE v, Dice& d) {
        double read[4] = {};
        Fovix_GetPTZ(v, &read[0], &read[1], &read[2], &read[3]);
        Fovix_GetPTZFor180VR(v, &read[0], &read[1], &read[2], &read[3]);
        Fovix_GetRotateZoom_SubScreen(v, d.from(-1, 6), &read[0], &read[1], &read[2], &read[3]);
    },
};

auto gestures(VRHANDLE view, unsigned seed) {
    return [view, dice = Dice(seed)]() mutable {
        kGestures[dice.from(0, static_cast<int>(std::size(kGestures)) - 1)](view, dice);
    };
}

/// Several views of one GL context in turn, each put into the same state.
Image drawnInState(const Stage& stage, VRHANDLE view, int type) {
    const Image picture = Image::chequered(96, 96);
    printedBy([&] {
        Fovix_SetType(view, 23);
        Fovix_SetType(view, type);
        Fovix_Init(view, 160, 120);
        Fovix_SetBackground(view, 0x203040);
        Fovix_Multi_SetScreenNumber(view, 1, 2);
        Fovix_Multi_SetLens(view, 1);
        Fovix_Multi_SwitchLens(view, 0);
        for (int cell = 0; cell < 2; ++cell) {
            Fovix_Multi_SetRGBTexture(view, cell, picture.bytes.data(), picture.size(), 96, 96);
        }
        Fovix_SetRGBTexture(view, picture.bytes.data(), picture.size(), 96, 96);
        Fovix_SetFecParams(view, 48, 48, 40, 96, 96);
        for (int frame = 0; frame < 3; ++frame) Fovix_Drawself(view);
    });
    return stage.gl.readPixels();
}

TEST(Storm, LeavesAFrameLikeThatOfAFreshHandle) {
    for (const auto create : {Fovix_Create, Fovix_CreateNoTouchEvent}) {
        Stage stage(FOVIX_TYPE_360VR, 160, 120, create);
        int frames = 0;
        const std::string lines = printedBy([&] {
            const Worker first(decoder(stage.view, 1)), second(gestures(stage.view, 2)),
                third(settings(stage.view, 3));
            const auto end = std::chrono::steady_clock::now() + kStorm;
            for (Dice dice(4); std::chrono::steady_clock::now() < end; ++frames) {
                if (dice.from(0, 40) == 0) Fovix_Init(stage.view, dice.from(1, 160), dice.from(1, 120));
                Fovix_Drawself(stage.view);
            }
        });
        EXPECT_GT(frames, 10);
        EXPECT_EQ(lines.find("OpenGLError"), std::string::npos)
            << lines.substr(lines.find("OpenGLError"), 200);
        std::istringstream text(lines);
        for (std::string line; std::getline(text, line);) {
            if (line.find("Fovix Error") == std::string::npos) continue;
            EXPECT_NE(line.find(" is not in 0.."), std::string::npos) << line;
        }
        for (const int type : kTypes) {
            View fresh(create);
            printedBy(Fovix_Prepare, fresh);
            const Image expected = drawnInState(stage, fresh, type);
            EXPECT_TRUE(looksLike(drawnInState(stage, stage.view, type), expected, 0)) << "type " << type;
        }
    }
}

TEST(Storm, NoFrameMixesTwoPictures) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    const std::array pictures = {Image(80, 60, rgb(0xFF0000)), Image(40, 30, rgb(0x00FF00)),
                                 Image(200, 150, rgb(0x0000FF))};
    stage.show(pictures[0]);
    int mixed = 0, changes = 0;
    printedBy([&] {
        const auto decode = [&, next = std::size_t{0}]() mutable {
            const Image& picture = pictures[next++ % pictures.size()];
            Fovix_SetRGBTexture(stage.view, picture.bytes.data(), picture.size(), picture.width,
                                picture.height);
        };
        const Worker first(decode), second(decode);
        Rgba last = {};
        const auto end = std::chrono::steady_clock::now() + kStorm;
        while (std::chrono::steady_clock::now() < end) {
            Fovix_Drawself(stage.view);
            const Image shown = stage.gl.readPixels();
            for (const int place : {1, 15, 28}) mixed += shown.at(place, place) != shown.at(20, 15);
            changes += shown.at(20, 15) != last;
            last = shown.at(20, 15);
        }
    });
    EXPECT_EQ(mixed, 0);
    EXPECT_GT(changes, 2);
}

TEST(Handles, ComeAndGoOnSeveralThreads) {
    std::atomic<int> made = 0;
    printedBy([&] {
        const auto live = [&, bytes = std::vector<unsigned char>(64 * 64 * 4, 5)] {
            VRHANDLE handle = nullptr;
            Fovix_Create(&handle);
            for (const int type : kTypes) Fovix_SetType(handle, type);
            Fovix_SetRGBTexture(handle, bytes.data(), 64 * 64 * 4, 64, 64);
            made += Fovix_GetType(handle) == 23;
            Fovix_Release(handle);
        };
        const Worker a(live), b(live), c(live);
        std::this_thread::sleep_for(kStorm / 3);
    });
    EXPECT_GT(made, 3);
}

TEST(Handles, CanBeReleasedWhileOtherThreadsUseThem) {
    const HeadlessGl gl(32, 32);
    for (int round = 0; round < 40; ++round) {
        View view(round % 2 ? Fovix_Create : Fovix_CreateNoTouchEvent);
        const VRHANDLE handle = view;
        const auto seed = static_cast<unsigned>(round);
        printedBy([&] {
            Fovix_Prepare(handle);
            Fovix_Init(handle, 32, 32);
            const Worker first(decoder(handle, seed)), second(settings(handle, seed)),
                third(gestures(handle, seed));
            std::thread releasing([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(round % 7));
                view.release();
            });
            for (int frame = 0; frame < 6; ++frame) Fovix_Drawself(handle);
            releasing.join();
        });
        EXPECT_EQ(printedBy(Fovix_Drawself, handle), "Error VRHANDLE\n");
    }
}

}  // namespace
}  // namespace fovix_test
