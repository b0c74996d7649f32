// Names of inputs for display.
#pragma once

#include <string>

namespace fovix_host {

// The name without the password of an address, since others may see titles and messages.
std::string shownName(const std::string& input);

// The same in quotation marks, for messages.
std::string quotedName(const std::string& input);

}  // namespace fovix_host
