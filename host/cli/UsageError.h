// A command line that cannot be meant; what() is a sentence that says what would be right.
#pragma once

#include <stdexcept>

namespace fovix_host {

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace fovix_host
