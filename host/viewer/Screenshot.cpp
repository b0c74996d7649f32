#include "viewer/Screenshot.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace fovix_host {

std::string screenshotName(const std::string& folder, const std::tm& time) {
    char stamp[64];
    std::strftime(stamp, sizeof stamp, "fovix-%Y-%m-%d-%H%M%S", &time);
    const std::string start = folder.empty() ? stamp : folder + "/" + stamp;
    std::string name = start + ".png";
    std::error_code ignored;
    for (int number = 2; std::filesystem::exists(name, ignored); ++number)
        name = start + "-" + std::to_string(number) + ".png";
    return name;
}

std::string screenshotName() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const char* home = std::getenv("HOME");
    return screenshotName(access(".", W_OK) != 0 && home ? home : "", local);
}

}  // namespace fovix_host
