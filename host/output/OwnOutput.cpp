#include "output/OwnOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "output/WriteAll.h"

namespace fovix_host {

namespace {

// If standard error is closed, the next file opened would get its descriptor and receive the messages.
void occupyStandardError() {
    if (fcntl(STDERR_FILENO, F_GETFD) >= 0) return;
    const int nowhere = open("/dev/null", O_WRONLY);
    if (nowhere < 0 || nowhere == STDERR_FILENO) return;
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

}  // namespace

OwnOutput::OwnOutput(Diagnostics diagnostics, Lines lines) : _lines(lines) {
    std::fflush(stdout);
    // Fails if standard output is closed; lines are then discarded.
    _own = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    occupyStandardError();
    if (diagnostics == Diagnostics::kToStandardError) {
        dup2(STDERR_FILENO, STDOUT_FILENO);
        // Line buffering keeps the library's and the program's messages in order.
        std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
        return;
    }
    const int nowhere = open("/dev/null", O_WRONLY);
    if (nowhere < 0 || nowhere == STDOUT_FILENO) return;
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
}

void OwnOutput::fail() {
    if (errno == EPIPE) throw ReaderGone{};
    throw std::runtime_error(std::string("cannot write to standard output: ") + std::strerror(errno));
}

OwnOutput::~OwnOutput() {
    if (_own >= 0) close(_own);
}

void OwnOutput::write(const void* bytes, std::size_t count) {
    if (!writeAll(_own, bytes, count)) fail();
}

void OwnOutput::line(const std::string& text) {
    const std::string line = text + '\n';
    if (_lines == Lines::kToStandardError)
        std::fputs(line.c_str(), stderr);
    else if (_own >= 0)
        write(line.data(), line.size());
}

void OwnOutput::bytes(const void* bytes, std::size_t count) {
    if (_own < 0) throw std::runtime_error("cannot write to standard output: it is closed");
    write(bytes, count);
}

bool OwnOutput::isTerminal() const {
    return _own >= 0 && isatty(_own) != 0;
}

}  // namespace fovix_host
