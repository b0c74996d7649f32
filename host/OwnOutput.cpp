#include "OwnOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace fovix_host {

OwnOutput::OwnOutput(Diagnostics diagnostics) {
    std::fflush(stdout);
    const int own = dup(STDOUT_FILENO);  // fails when standard output was closed: then lines go nowhere
    if (own >= 0) _file.reset(fdopen(own, "w"));
    if (diagnostics == Diagnostics::toStandardError) {
        dup2(STDERR_FILENO, STDOUT_FILENO);
        // Line by line, so that both kinds of messages come in their order.
        std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
        return;
    }
    const int nowhere = open("/dev/null", O_WRONLY);
    if (nowhere < 0 || nowhere == STDOUT_FILENO) return;
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
}

void OwnOutput::line(const std::string& text) {
    if (!_file) return;
    if (std::fprintf(_file.get(), "%s\n", text.c_str()) < 0 || std::fflush(_file.get()) != 0)
        throw std::runtime_error(std::string("cannot write to standard output: ") + std::strerror(errno));
}

}  // namespace fovix_host
