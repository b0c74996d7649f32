#include "VirtualDisplay.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "ProgramRun.h"
#include "TestFiles.h"
#include "media/MediaReader.h"

using fovix_host::RgbaImage;

ChildProcess::ChildProcess(const std::string& line, const std::string& outputs)
    : _outputs(fileInTest(outputs)), _id(fork()) {
    if (_id != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::signal(SIGINT, SIG_DFL);  // a shell has jobs in the background ignore it
    const std::string all = shellLine("exec >'" + _outputs + ".stdout' 2>'" + _outputs + ".stderr'; " + line);
    execl("/bin/sh", "sh", "-c", all.c_str(), nullptr);
    _exit(127);
}

ChildProcess::~ChildProcess() {
    if (!isRunning()) return;
    kill(_id, SIGKILL);
    waitpid(_id, nullptr, 0);
}

void ChildProcess::signal(int number) const {
    kill(_id, number);
}

bool ChildProcess::isRunning() {
    if (!_ended) _ended = waitpid(_id, &_status, WNOHANG) == _id;
    return !_ended;
}

int ChildProcess::wait() {
    if (!becomesTrue([&] { return !isRunning(); })) return -2;
    return WIFEXITED(_status) ? WEXITSTATUS(_status) : -1;
}

std::string ChildProcess::output() const {
    return readText(_outputs + ".stdout");
}

std::string ChildProcess::errors() const {
    return readText(_outputs + ".stderr");
}

// The server chooses a free number and prints it once it takes connections. It must not restart when the last
// caller is gone: callers that come meanwhile would be turned away.
VirtualDisplay::VirtualDisplay()
    : _server("exec " XVFB " -displayfd 1 -nolisten tcp -noreset -screen 0 " + std::to_string(kWidth) + "x" +
                  std::to_string(kHeight) + "x24",
              "xvfb") {
    EXPECT_TRUE(becomesTrue([&] { return _server.output().ends_with('\n'); })) << _server.errors();
    _name = ":" + _server.output();
    _name.pop_back();
    _environment = "DISPLAY=" + _name + " ";
}

void VirtualDisplay::steer(const std::string& words) const {
    const std::string command = _environment + XDOTOOL + " " + words + " >/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
}

RgbaImage VirtualDisplay::grab() const {
    fovix_host::MediaReader reader("x11grab:" + _name);
    const AVFrame* frame = reader.next();
    RgbaImage image(frame->width, frame->height);
    for (int y = 0; y < image.height; ++y) {
        const std::uint8_t* from = frame->data[0] + static_cast<std::ptrdiff_t>(y) * frame->linesize[0];
        std::uint8_t* to = image.at(0, y);
        for (int x = 0; x < image.width; ++x, from += 4, to += 4) {
            to[0] = from[2];
            to[1] = from[1];
            to[2] = from[0];
        }
    }
    return image;
}

RgbaImage VirtualDisplay::settled() const {
    RgbaImage last = grab();
    int same = 0;
    EXPECT_TRUE(becomesTrue([&] {
        RgbaImage next = grab();
        same = next.pixels == last.pixels ? same + 1 : 0;
        last = std::move(next);
        return same >= 5;
    })) << "the display does not come to rest";
    return last;
}

bool becomesTrue(const std::function<bool()>& condition) {
    using namespace std::chrono;
    const auto end = steady_clock::now() + seconds(20);
    while (!condition()) {
        if (steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(milliseconds(50));
    }
    return true;
}

double difference(const RgbaImage& a, const RgbaImage& b) {
    constexpr int kTolerance = 24;
    int differing = 0;
    for (std::size_t i = 0; i < a.pixels.size(); i += 4) {
        const auto off = [&](std::size_t c) {
            return std::abs(a.pixels[i + c] - b.pixels[i + c]) > kTolerance;
        };
        differing += off(0) || off(1) || off(2) ? 1 : 0;
    }
    return 4.0 * differing / static_cast<double>(a.pixels.size());
}
