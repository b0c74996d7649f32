// What storms change at any moment: pictures of any size and format, types, layouts and whatever else a host
// sets.
#pragma once

#include <atomic>
#include <random>
#include <thread>
#include <vector>

#include "Fovix.h"

namespace fovix_test {

inline constexpr int kTypes[] = {0, 1, 2, 3, 20, 21, 22, 24, 23};

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
inline auto decoder(VRHANDLE view, unsigned seed) {
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

/// Types, layouts, lens circles and whatever else a host's menus set.
inline auto settings(VRHANDLE view, unsigned seed) {
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

}  // namespace fovix_test
