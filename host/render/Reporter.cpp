#include "render/Reporter.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "output/ProgressLine.h"

namespace fovix_host {
namespace {

int terminalColumns() {
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

}  // namespace

Reporter::Reporter(Amount amount, bool withBar)
    : _amount(amount), _withBar(withBar && amount == Amount::kNotices && isatty(STDERR_FILENO) != 0) {}

double Reporter::secondsSoFar() const {
    return std::chrono::duration<double>(Clock::now() - _begin).count();
}

void Reporter::say(const std::string& text) {
    hideBar();
    std::fprintf(stderr, "fovix-render: %s\n", text.c_str());
}

void Reporter::notice(const std::string& text) {
    if (_amount != Amount::kNothing) say(text);
}

void Reporter::detail(const std::string& text) {
    if (_amount == Amount::kAll) say(text);
}

void Reporter::progress(int frames, int ofFrames) {
    const double now = secondsSoFar();
    if (!_withBar || now < _nextBar) return;
    // The cursor may be in the last column: there a terminal would begin a new line.
    std::fprintf(stderr, "\r%s\033[K", progressLine(frames, ofFrames, now, terminalColumns() - 1).c_str());
    std::fflush(stderr);
    _barShown = true;
    constexpr double kPause = 0.2;
    _nextBar = now + kPause;
}

void Reporter::hideBar() {
    if (_barShown) std::fputs("\r\033[K", stderr);
    _barShown = false;
}

void Reporter::summary(int frames) {
    if (frames < 2 && _amount != Amount::kAll) return;
    const double seconds = secondsSoFar();
    char text[100];
    std::snprintf(text, sizeof text, "%d %s in %.1f s, %.1f frames per second", frames,
                  frames == 1 ? "frame" : "frames", seconds, frames / std::max(seconds, 1e-3));
    notice(text);
}

}  // namespace fovix_host
