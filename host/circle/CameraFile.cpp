#include "circle/CameraFile.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "circle/LensText.h"
#include "output/OutputFile.h"

namespace fovix_host {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExpectedLine =
    "expected 'lens = CX,CY,RADIUS,W,H', such as 'lens = 960,960,940,1920,1920'";

fs::path folderIn(const char* variable) {
    const char* value = std::getenv(variable);
    const fs::path folder = value ? value : "";
    return folder.is_absolute() ? folder : fs::path();  // XDG says to ignore relative paths
}

fs::path configurationFolder() {
    if (const fs::path folder = folderIn("XDG_CONFIG_HOME"); !folder.empty()) return folder;
    if (const fs::path home = folderIn("HOME"); !home.empty()) return home / ".config";
    throw std::runtime_error("no folder for camera files; set HOME or XDG_CONFIG_HOME to an absolute path");
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

bool isCameraName(std::string_view name) {
    constexpr std::string_view kAllowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_";
    constexpr std::size_t kMaxLength = 100;  // leaves room for the ending within the limits of file systems
    return !name.empty() && name.size() <= kMaxLength && name.find_first_not_of(kAllowed) == name.npos;
}

CameraFile::CameraFile(const std::string& name)
    : _name(name), _path(configurationFolder() / "fovix" / "cameras" / (name + ".conf")) {}

std::optional<LensCircle> CameraFile::read() const {
    std::error_code ignored;
    if (!fs::exists(_path, ignored)) return std::nullopt;
    const auto fail = [&](const std::string& why) {
        throw std::runtime_error("'" + _path.string() + "' " + why + std::string(kExpectedLine));
    };
    std::ifstream file(_path);
    if (!fs::is_regular_file(_path, ignored) || !file)
        throw std::runtime_error("'" + _path.string() + "' cannot be read; expected a text file");
    std::optional<LensCircle> lens;
    int number = 0;
    for (std::string text; std::getline(file, text);) {
        ++number;
        const std::string_view line = trimmed(text);
        if (line.empty() || line.starts_with('#')) continue;
        const std::size_t equals = line.find('=');
        const bool isLens = equals != line.npos && trimmed(line.substr(0, equals)) == "lens";
        const auto value = isLens ? lensIn(trimmed(line.substr(equals + 1))) : std::nullopt;
        if (!value) fail("has an invalid line " + std::to_string(number) + "; ");
        if (lens) fail("has a second lens in line " + std::to_string(number) + "; ");
        lens = value;
    }
    if (!lens) fail("has no lens; ");
    return lens;
}

void CameraFile::save(const LensCircle& lens) const {
    std::error_code problem;
    fs::create_directories(_path.parent_path(), problem);
    if (problem)
        throw std::runtime_error("cannot create the folder '" + _path.parent_path().string() +
                                 "': " + problem.message());
    const std::string text = "# Camera " + _name +
                             ": centre x, centre y and radius of its lens circle in pixels, and the width "
                             "and height of the image they refer to.\nlens = " +
                             textOf(lens) + "\n";
    OutputFile file(_path.string());
    file.write(text.data(), text.size());
    file.publish();
}

}  // namespace fovix_host
