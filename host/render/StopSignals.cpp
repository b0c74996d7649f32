#include "render/StopSignals.h"

#include <csignal>
#include <cstring>
#include <initializer_list>

namespace fovix_host {
namespace {

volatile std::sig_atomic_t received = 0;

void remember(int signal) {
    received = signal;
}

}  // namespace

void catchStopSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction previous {};
        if (sigaction(signal, nullptr, &previous) == 0 && previous.sa_handler == SIG_IGN) continue;
        struct sigaction action {};
        action.sa_handler = remember;
        // No SA_RESTART, so that the signal also interrupts a read that waits for input.
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigemptyset(&action.sa_mask);
        sigaction(signal, &action, nullptr);
    }
}

int stopSignal() {
    return received;
}

std::string stopText() {
    return std::string("stopped by SIG") + sigabbrev_np(received);
}

}  // namespace fovix_host
