// What fovix-render says on standard error while it works: notices, details, a progress bar on terminals, and
// a summary.
#pragma once

#include <chrono>
#include <string>

namespace fovix_host {

class Reporter {
  public:
    enum class Amount { kNothing, kNotices, kAll };

    // Lines that the program writes to the same terminal would end up in the bar: then there is none.
    Reporter(Amount amount, bool withBar);
    ~Reporter() { hideBar(); }
    Reporter(const Reporter&) = delete;
    Reporter& operator=(const Reporter&) = delete;

    void notice(const std::string& text);
    void detail(const std::string& text);
    // Shows the bar on work that takes more than a second.
    void progress(int frames, int ofFrames);
    void hideBar();
    // A single frame is worth none.
    void summary(int frames);

  private:
    using Clock = std::chrono::steady_clock;

    double secondsSoFar() const;
    void say(const std::string& text);

    Amount _amount;
    bool _withBar;
    bool _barShown = false;
    Clock::time_point _begin = Clock::now();
    double _nextBar = 1;  // in seconds from the beginning
};

}  // namespace fovix_host
