// Decoder, input and drawing thread at once, with changes of type, size, format and view at any moment of a
// frame.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

#include "FovixContext.h"
#include "HeadlessGl.h"
#include "PlainPicture.h"

namespace fovix_test {
namespace {

constexpr int kTypes[] = {0, 1, 2, 3, 20, 21, 22, 24, 23};
constexpr auto kStorm = std::chrono::milliseconds(1500);

/// Random numbers that are the same in every run of a test.
class Dice {
  public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int from(int low, int high) { return std::uniform_int_distribution(low, high)(engine_); }
    double real(double low, double high) { return std::uniform_real_distribution(low, high)(engine_); }
    float pixel() { return static_cast<float>(real(-20, 180)); }

  private:
    std::mt19937 engine_;
};

/// A thread that does one thing over and over while it lives.
class Worker {
  public:
    template <class Step>
    explicit Worker(Step step)
        : thread_([this, step]() mutable {
              while (!stop_) step();
          }) {}
    ~Worker() {
        stop_ = true;
        thread_.join();
    }

  private:
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

/// Pictures of changing size and format, into single slots, cells and lenses.
auto decoder(VRHANDLE view, unsigned seed) {
    return [view, dice = Dice(seed), bytes = std::vector<unsigned char>(200 * 200 * 4, 77)]() mutable {
        const int width = dice.from(1, 200), height = dice.from(1, 200);
        const int formats[] = {1, 3, 9, 10};
        const int pixelFmt = formats[dice.from(0, 3)];
        const int size = pixelFmt == 1 ? width * height * 4 : width * height * 3 / 2;
        switch (dice.from(0, 4)) {
            case 0:
                return Fovix_Multi_SetRGBTexture(view, dice.from(0, 8), bytes.data(), width * height * 4,
                                                 width, height);
            case 1:
                return Fovix_Multi_SetTexture(view, dice.from(0, 8), pixelFmt, bytes.data(), size, width,
                                              height);
            default:
                return Fovix_SetTexture(view, pixelFmt, bytes.data(), size, width, height);
        }
    };
}

/// Fingers, sensors and moving views.
auto gestures(VRHANDLE view, unsigned seed) {
    return [view, dice = Dice(seed)]() mutable {
        double a = 0, b = 0, c = 0, d = 0;
        switch (dice.from(0, 19)) {
            case 0:
                return Fovix_OnTouchDown(view, dice.pixel(), dice.pixel());
            case 1:
                return Fovix_OnTouchUp(view, dice.pixel(), dice.pixel());
            case 2:
                return Fovix_OnTouchPinch(view, dice.pixel(), dice.pixel(), dice.pixel(), dice.pixel());
            case 3:
                return Fovix_OnTouchPinchScale(view, static_cast<float>(dice.real(0, 3)));
            case 4:
                return Fovix_OnTouchFling(view, 40 * dice.pixel(), 40 * dice.pixel());
            case 5:
                return Fovix_AutoAdjust(view);
            case 6:
                return Fovix_OnAccelerometer(view, dice.pixel() / 50, dice.pixel() / 50);
            case 7:
                return Fovix_OnOrientation(view, dice.pixel(), dice.pixel(), dice.pixel());
            case 8:
                return Fovix_StartAutoCruise(view, dice.real(-5, 5));
            case 9:
                return Fovix_StopAutoCruise(view);
            case 10:
                return Fovix_SetPTZ_SubScreen(view, dice.from(-1, 6), dice.pixel(), dice.pixel(),
                                              dice.real(1, 99), 0, 0);
            case 11:
                return Fovix_GetPTZ(view, &a, &b, &c, &d);
            case 12:
                return Fovix_SetRotateZoomRecoverMode(view, dice.pixel(), dice.pixel(), 0.7,
                                                      dice.real(0.1, 25));
            case 13:
                return Fovix_GetRotateZoom_SubScreen(view, dice.from(-1, 6), &a, &b, &c, &d);
            case 14:
                return Fovix_GetPTZFor180VR(view, &a, &b, &c, &d);
            case 15:
                return Fovix_SetPTZFor180VR(view, dice.pixel(), dice.pixel(), 0, dice.real(1, 20));
            case 16:
                return Fovix_DisplayRect(view, 10, 10, dice.from(11, 90), dice.from(11, 90), 100, 100);
            case 17:
                return Fovix_DisplayTarget(view, dice.from(0, 100), dice.from(0, 100), 100, 100);
            case 18:
                return Fovix_SetLogicZoom(view, 1, 10, 3, dice.real(1, 10));
            default:
                return Fovix_OnTouchMove(view, dice.pixel(), dice.pixel());
        }
    };
}

/// Types, layouts, lens circles and whatever else a host's menus set.
auto settings(VRHANDLE view, unsigned seed) {
    return [view, dice = Dice(seed)]() mutable {
        switch (dice.from(0, 15)) {
            case 0:
            case 1:
                return Fovix_SetType(view, kTypes[dice.from(0, 8)]);
            case 2:
                return Fovix_SetShape(view, dice.from(-1, 11));
            case 3:
                return Fovix_SetDrawMode(view, dice.from(-1, 4));
            case 4:
                return Fovix_SetDrawModeCartoon(view, dice.from(-1, 4), dice.from(-1, 4), 1, dice.from(0, 9));
            case 5:
                return Fovix_SetCameraMount(view, dice.from(-1, 4));
            case 6:
                return Fovix_SetTwoLensesDrawMode(view, dice.from(-1, 4));
            case 7:
                return Fovix_SetTwoLensesScreen(view, dice.from(-1, 4));
            case 8:
                return Fovix_SetBackground(view, static_cast<unsigned>(dice.from(0, 0xFFFFFF)));
            case 9:
                return Fovix_Multi_SetScreenNumber(view, dice.from(-1, 7), dice.from(-1, 7));
            case 10:
                return Fovix_Multi_SetLens(view, dice.from(0, 10));
            case 11:
                return Fovix_Multi_SwitchLens(view, dice.from(0, 10));
            case 12:
                return Fovix_SetRotationFor180VR(view, dice.real(-10, 360));
            case 13:
                return Fovix_CleanUp(view);
            case 14:
                return Fovix_ResetPosition(view);
            default:
                return Fovix_SetFecParams(view, dice.from(-1, 100), dice.from(-1, 100), dice.from(0, 80), 100,
                                          100);
        }
    };
}

/// Several views of one GL context in turn, each put into the same state.
Image drawnInState(const Stage& stage, VRHANDLE view, int type) {
    const Image picture = quadrants(96, 96);
    printedBy([&] {
        Fovix_SetType(view, 23);
        Fovix_SetType(view, type);
        Fovix_Init(view, stage.gl.width(), stage.gl.height());
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
        for (auto at = lines.find("Fovix Error"); at != std::string::npos;
             at = lines.find("Fovix Error", at + 1)) {
            const std::string line = lines.substr(at, lines.find('\n', at) - at);
            EXPECT_NE(line.find(" is not in 0.."), std::string::npos) << line;
        }
        for (const int type : kTypes) {
            View fresh(create);
            printedBy([&] { Fovix_Prepare(fresh); });
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
        EXPECT_EQ(printedBy([&] { Fovix_Drawself(handle); }), "Error VRHANDLE\n");
    }
}

}  // namespace
}  // namespace fovix_test
