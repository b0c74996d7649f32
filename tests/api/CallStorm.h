// Calls in any order, with any numbers: what storms of tests are made of.
#pragma once

#include <atomic>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "ApiCalls.h"

namespace fovix_test {

inline constexpr int kTypes[] = {0, 1, 2, 3, 20, 21, 22, 24, 23};

/// Random numbers that are the same in every run of a test.
class Dice {
  public:
    explicit Dice(unsigned seed) : _engine(seed) {}
    int from(int low, int high) { return std::uniform_int_distribution(low, high)(_engine); }
    double real(double low, double high) { return std::uniform_real_distribution(low, high)(_engine); }

  private:
    std::mt19937 _engine;
};

/// Picks one of some calls and the numbers for it.
class CallStorm {
  public:
    /// Every line has a call and, for each of its numbers, the number or a range, such as "shape -1..11". The
    /// share of extremes is that of numbers far beyond their range.
    CallStorm(std::initializer_list<const char*> lines, unsigned seed, double extremes = 0.0);

    void callOnce(VRHANDLE handle);

  private:
    struct Line {
        std::string verb;
        std::vector<std::pair<double, double>> ranges;
    };
    double numberOf(char kind, const std::pair<double, double>& range);

    std::vector<Line> _lines;
    Dice _dice;
    double _extremes;
};

/// Whatever a host's menus set: types, layouts, lens circles, cells.
CallStorm settings(unsigned seed);

/// Fingers, sensors, cruises and views; positions of a surface of 160 pixels.
CallStorm gestures(unsigned seed, double extremes = 0.0);

/// A thread that does one thing over and over while it lives.
class Worker {
  public:
    template <class Step>
    explicit Worker(Step step)
        : _thread([this, step]() mutable {
              while (!_stop) step();
          }) {}
    ~Worker() {
        _stop = true;
        _thread.join();
    }

  private:
    std::atomic<bool> _stop = false;
    std::thread _thread;
};

}  // namespace fovix_test
