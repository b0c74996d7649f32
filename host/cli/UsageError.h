// An invalid command line; what() explains what would be valid.
#pragma once

#include <stdexcept>

namespace fovix_host {

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace fovix_host
