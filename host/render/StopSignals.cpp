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
        struct sigaction before {};
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) continue;
        struct sigaction action {};
        action.sa_handler = remember;
        // Nothing is restarted, so that a read that waits for its input ends too.
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
