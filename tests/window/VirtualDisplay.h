// A virtual display of its own for a test, and the programs on it: started, steered with xdotool, looked at,
// and gone at the end whatever happens.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

#include "image/RgbaImage.h"

// A line of the shell in the folder of the test; it ends with its owner, or with the test.
class ChildProcess {
  public:
    // What it prints goes to outputs + ".stdout" and ".stderr".
    ChildProcess(const std::string& line, const std::string& outputs);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void signal(int number) const;
    // The exit code once it has ended; -1 when a signal ended it, -2 when it still runs after the limit.
    int wait();
    std::string output() const;
    std::string errors() const;

  private:
    bool isRunning();

    std::string _outputs;
    pid_t _id;
    int _status = 0;
    bool _ended = false;
};

class VirtualDisplay {
  public:
    static constexpr int kWidth = 1280, kHeight = 720;

    VirtualDisplay();

    // "DISPLAY=:7 ", for the programs on it.
    const std::string& environment() const { return _environment; }

    // Words of xdotool, separated by blanks.
    void steer(const std::string& words) const;
    fovix_host::RgbaImage grab() const;
    // The display once nothing changes on it any more; fails the test when that takes too long.
    fovix_host::RgbaImage settled() const;

  private:
    ChildProcess _server;
    std::string _name, _environment;
};

// Asks again and again, for up to 20 seconds; a slow machine gets its time, a fast one does not wait.
bool becomesTrue(const std::function<bool()>& condition);

// The part of the pixels, 0 to 1, that differ in any colour by more than 24.
double difference(const fovix_host::RgbaImage& a, const fovix_host::RgbaImage& b);
