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
    constexpr int kDefaultColumns = 80;
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kDefaultColumns;
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

void Reporter::progress(int frames, int totalFrames) {
    const double now = secondsSoFar();
    if (!_withBar || now < _nextBar) return;
    // Leave the last column free: terminals wrap the line there.
    std::fprintf(stderr, "\r%s\033[K", progressLine(frames, totalFrames, now, terminalColumns() - 1).c_str());
    std::fflush(stderr);
    _barShown = true;
    constexpr double kInterval = 0.2;  // seconds
    _nextBar = now + kInterval;
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
