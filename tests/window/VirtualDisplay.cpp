#include "VirtualDisplay.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "TestFiles.h"
#include "media/MediaReader.h"

using fovix_host::RgbaImage;

namespace {

void redirect(const std::string& file, int descriptor) {
    dup2(open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), descriptor);
}

struct Pipe {
    std::array<int, 2> ends{};
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    }
    ~Pipe() {
        close(ends[0]);
        close(ends[1]);
    }
};

Pipe& numberPipe() {
    static Pipe pipe;
    return pipe;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& words, const std::vector<std::string>& environment,
                           const std::string& outputs, int keptOpen)
    : _outputs((testFolder() / outputs).string()), _id(fork()) {
    if (_id != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::signal(SIGINT, SIG_DFL);  // a shell has jobs in the background ignore it
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    for (const std::string& setting : environment) putenv(const_cast<char*>(setting.c_str()));
    redirect(_outputs + ".stdout", STDOUT_FILENO);
    redirect(_outputs + ".stderr", STDERR_FILENO);
    if (keptOpen >= 0) fcntl(keptOpen, F_SETFD, 0);
    if (chdir(testFolder().c_str()) == 0) execvp(arguments[0], arguments.data());
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

// The server chooses a free number and tells it once it takes connections. It must not begin anew when the
// last caller is gone: callers that come meanwhile would be turned away.
VirtualDisplay::VirtualDisplay()
    : _server(
          {XVFB, "-displayfd", std::to_string(numberPipe().ends[1]), "-screen", "0",
           std::to_string(kWidth) + "x" + std::to_string(kHeight) + "x24", "-nolisten", "tcp", "-noreset"},
          {}, "xvfb", numberPipe().ends[1]) {
    char number[16] = {};
    std::size_t length = 0;
    while (length + 1 < sizeof number && read(numberPipe().ends[0], number + length, 1) == 1 &&
           number[length] != '\n')
        ++length;
    number[length] = 0;
    _name = std::string(":") + number;
    _environment = "DISPLAY=" + _name;
}

void VirtualDisplay::steer(const std::string& words) const {
    const std::string command = _environment + " " + XDOTOOL + " " + words + " >/dev/null";
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
    for (const auto end = steady_clock::now() + seconds(20); steady_clock::now() < end;) {
        if (condition()) return true;
        std::this_thread::sleep_for(milliseconds(50));
    }
    return condition();
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
