// What is known of a camera from one run to the next, in a small text file of its own that people can read
// and change: fovix/cameras/NAME.conf in the user's configuration folder.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "circle/LensCircle.h"

namespace fovix_host {

constexpr std::string_view kExpectedCameraName = "up to 100 letters, digits, dots, dashes and underscores";
bool isCameraName(std::string_view name);

class CameraFile {
  public:
    // Throws std::runtime_error where the user has no configuration folder.
    explicit CameraFile(const std::string& name);

    const std::filesystem::path& path() const { return _path; }

    // Nothing where there is no such file yet. Throws std::runtime_error with a sentence that names the file
    // and the line that is wrong.
    std::optional<LensCircle> read() const;

    // Replaces the file as a whole or, where it throws, not at all.
    void keep(const LensCircle& lens) const;

  private:
    std::string _name;
    std::filesystem::path _path;
};

}  // namespace fovix_host
