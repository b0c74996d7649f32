// Schedules one animation step of the library per 1/60 s, whatever the display's frame rate is. The caller
// passes the time.
#pragma once

namespace fovix_host {

class StepClock {
  public:
    static constexpr double kStep = 1.0 / 60;
    static constexpr int kMaxSteps = 6;  // per presented frame; longer delays are forgotten

    // Number of steps that are due. A step counts as due half a step early, so that a 60 Hz display gets one
    // step per frame although neither clock is exact. The time is in seconds of any steady clock.
    int due(double now);

    // Seconds until the next step is due.
    double untilNext(double now) const;

    // After a rest: the next step is due immediately, and no steps were missed.
    void restart(double now) { _next = now; }

  private:
    double _next = 0;
};

}  // namespace fovix_host
