// What people are shown of an input's name.
#pragma once

#include <string>

namespace fovix_host {

// The name as it was given, but for the password of an address: titles and messages are seen by others.
std::string shownName(const std::string& input);

// The same in quotation marks, for sentences.
std::string quotedName(const std::string& input);

}  // namespace fovix_host
