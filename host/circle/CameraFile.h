// Stores the lens circle of a camera between runs, in a small text file that users can edit:
// fovix/cameras/NAME.conf in their configuration folder.
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
    // Throws std::runtime_error if the user has no configuration folder.
    explicit CameraFile(const std::string& name);

    const std::filesystem::path& path() const { return _path; }

    // Returns nullopt if the file does not exist. Throws std::runtime_error with a message that names the
    // file and the invalid line.
    std::optional<LensCircle> read() const;

    // Replaces the file atomically. Throws std::runtime_error and leaves the old file if that fails.
    void save(const LensCircle& lens) const;

  private:
    std::string _name;
    std::filesystem::path _path;
};

}  // namespace fovix_host
