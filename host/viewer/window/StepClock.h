// Gives the library's animations one step per 1/60 s, however often the display shows a frame. Pure: the
// caller tells the time.
#pragma once

namespace fovix_host {

class StepClock {
  public:
    static constexpr double kStep = 1.0 / 60;
    static constexpr int kMost = 6;  // steps for one frame; a longer pause is forgotten

    // How many steps are due, in seconds of any steady clock. Half a step early counts as due, so that a
    // display of 60 Hz gets one step a frame although neither clock is exact.
    int due(double now);

    // Until the next step is due; 0 when it is.
    double untilNext(double now) const;

    // After a rest: the next step is due at once, and none were missed.
    void restart(double now) { _next = now; }

  private:
    double _next = 0;
};

}  // namespace fovix_host
