// Writes all bytes to a descriptor, continuing after signals and partial writes.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace fovix_host {

// Returns false on failure, with errno set.
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
