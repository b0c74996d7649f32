#include "Image.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fovix_test {

namespace {

std::string text(const Rgba& colour) {
    return std::string("(") + std::to_string(colour[0]) + ", " + std::to_string(colour[1]) + ", " +
           std::to_string(colour[2]) + ")";
}

int distance(const Rgba& a, const Rgba& b) {
    int most = 0;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        most = std::max(most, std::abs(int{a[channel]} - int{b[channel]}));
    }
    return most;
}

/// FOVIX_PICTURE_DIR/<suite>.<test>.<role>.ppm; a later failure of the same test gets a number.
std::string writePpm(const Image& image, const std::string& role) {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = test ? std::string(test->test_suite_name()) + "." + test->name() : "picture";
    std::replace(name.begin(), name.end(), '/', '_');
    const std::filesystem::path folder = FOVIX_PICTURE_DIR;
    std::filesystem::create_directories(folder);
    static int count = 0;
    const std::string path = (folder / (name + "." + std::to_string(++count) + "." + role + ".ppm")).string();
    std::ofstream file(path, std::ios::binary);
    file << "P6\n" << image.width << " " << image.height << "\n255\n";
    for (std::size_t i = 0; i + 3 < image.bytes.size(); i += 4) {
        file.write(reinterpret_cast<const char*>(image.bytes.data() + i), 3);
    }
    return file ? path : path + " (not written)";
}

Rgba differenceOf(const Rgba& a, const Rgba& b) {
    Rgba result = {0, 0, 0, 255};
    for (std::size_t channel = 0; channel < 3; ++channel) {
        result[channel] =
            static_cast<std::uint8_t>(std::min(255, 8 * std::abs(int{a[channel]} - int{b[channel]})));
    }
    return result;
}

}  // namespace

Image::Image(int imageWidth, int imageHeight, Rgba fill) : width(imageWidth), height(imageHeight) {
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    bytes.reserve(pixels * 4);
    for (std::size_t i = 0; i < pixels; ++i) bytes.insert(bytes.end(), fill.begin(), fill.end());
}

Rgba Image::at(int x, int y) const {
    const auto offset =
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 4;
    return {bytes.at(offset), bytes.at(offset + 1), bytes.at(offset + 2), bytes.at(offset + 3)};
}

void Image::set(int x, int y, Rgba colour) {
    const auto offset =
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 4;
    for (std::size_t channel = 0; channel < 4; ++channel) bytes.at(offset + channel) = colour[channel];
}

testing::AssertionResult showsAt(const Image& actual, const std::vector<Probe>& probes, int tolerance) {
    std::string differences;
    for (const Probe& probe : probes) {
        const Rgba found = actual.at(probe.x, probe.y);
        if (distance(found, probe.colour) <= tolerance) continue;
        differences += std::string("at (") + std::to_string(probe.x) + ", " + std::to_string(probe.y) +
                       "): actual " + text(found) + ", expected " + text(probe.colour) + "\n";
    }
    if (differences.empty()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << differences << "written: " << writePpm(actual, "actual");
}

testing::AssertionResult looksLike(const Image& actual, const Image& expected, int tolerance) {
    if (actual.width != expected.width || actual.height != expected.height) {
        return testing::AssertionFailure() << "actual " << actual.width << " x " << actual.height
                                           << ", expected " << expected.width << " x " << expected.height;
    }
    Image difference(actual.width, actual.height);
    std::string first;
    int count = 0;
    for (int y = 0; y < actual.height; ++y) {
        for (int x = 0; x < actual.width; ++x) {
            const Rgba found = actual.at(x, y), wanted = expected.at(x, y);
            if (wanted[3] == 0 || distance(found, wanted) <= tolerance) continue;
            difference.set(x, y, differenceOf(found, wanted));
            if (count++ == 0) {
                first = std::string("first at (") + std::to_string(x) + ", " + std::to_string(y) +
                        "): actual " + text(found) + ", expected " + text(wanted);
            }
        }
    }
    if (count == 0) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << count << " pixels differ, " << first << "\nwritten: " << writePpm(actual, "actual")
           << "\n         " << writePpm(expected, "expected") << "\n         "
           << writePpm(difference, "difference");
}

}  // namespace fovix_test
