// Messages of fovix-render on standard error: notices, details, a progress bar on terminals, and a summary.
#pragma once

#include <chrono>
#include <string>

namespace fovix_host {

class Reporter {
  public:
    enum class Amount { kNothing, kNotices, kAll };

    // Pass false if the program prints other lines to the same terminal, which would break the bar.
    Reporter(Amount amount, bool withBar);
    ~Reporter() { hideBar(); }
    Reporter(const Reporter&) = delete;
    Reporter& operator=(const Reporter&) = delete;

    void notice(const std::string& text);
    void detail(const std::string& text);
    // Shows the bar after the first second. totalFrames is 0 if unknown.
    void progress(int frames, int totalFrames);
    void hideBar();
    // Omitted for a single frame, unless the amount is kAll.
    void summary(int frames);

  private:
    using Clock = std::chrono::steady_clock;

    double secondsSoFar() const;
    void say(const std::string& text);

    Amount _amount;
    bool _withBar;
    bool _barShown = false;
    Clock::time_point _begin = Clock::now();
    double _nextBar = 1;  // seconds since _begin
};

}  // namespace fovix_host
