// Writes to a descriptor until everything is there, whatever interrupts.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace fovix_host {

// False on failure; errno then tells why.
inline bool writeAll(int descriptor, const void* bytes, std::size_t count) {
    const char* next = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t written = ::write(descriptor, next, count);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        next += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace fovix_host
