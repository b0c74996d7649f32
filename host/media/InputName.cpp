#include "media/InputName.h"

#include <string_view>

namespace fovix_host {

std::string shownName(const std::string& input) {
    constexpr std::string_view kAfterScheme = "://";
    const std::size_t scheme = input.find(kAfterScheme);
    if (scheme == input.npos) return input;
    const std::size_t user = scheme + kAfterScheme.size();
    // A password may contain an @ itself: the last one ends it.
    const std::size_t host = input.substr(0, input.find_first_of("/?#", user)).rfind('@');
    const std::size_t colon = input.find(':', user);
    if (host == input.npos || host < user || colon > host) return input;
    return input.substr(0, colon + 1) + "..." + input.substr(host);
}

std::string quotedName(const std::string& input) {
    return "'" + shownName(input) + "'";
}

}  // namespace fovix_host
