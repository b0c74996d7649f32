#include "Image.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fovix_test {

namespace {

int distance(const Rgba& a, const Rgba& b) {
    return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])});
}

std::string disagreement(int x, int y, const Rgba& found, const Rgba& wanted) {
    char text[100];
    std::snprintf(text, sizeof text, "at (%d, %d): actual %d %d %d, expected %d %d %d", x, y, found[0],
                  found[1], found[2], wanted[0], wanted[1], wanted[2]);
    return text;
}

/// FOVIX_PICTURE_DIR/<suite>.<test>.<number>.<role>.ppm, so that later failures do not overwrite it.
std::string writePpm(const Image& image, const std::string& role) {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    static int count = 0;
    const std::filesystem::path path = std::string(FOVIX_PICTURE_DIR "/") + test.test_suite_name() + "." +
                                       test.name() + "." + std::to_string(++count) + "." + role + ".ppm";
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << "P6\n" << image.width << " " << image.height << "\n255\n";
    for (std::size_t i = 0; i + 3 < image.bytes.size(); i += 4) {
        file.write(reinterpret_cast<const char*>(image.bytes.data() + i), 3);
    }
    return "\nwritten: " + path.string();
}

}  // namespace

Image::Image(int imageWidth, int imageHeight, Rgba fill) : width(imageWidth), height(imageHeight) {
    bytes.resize(offset(0, height));
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = fill[i % 4];
}

std::size_t Image::offset(int x, int y) const {
    return (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 4;
}

Rgba Image::at(int x, int y) const {
    const std::size_t i = offset(x, y);
    return {bytes.at(i), bytes.at(i + 1), bytes.at(i + 2), bytes.at(i + 3)};
}

void Image::set(int x, int y, Rgba colour) {
    for (std::size_t channel = 0; channel < 4; ++channel) bytes.at(offset(x, y) + channel) = colour[channel];
}

testing::AssertionResult showsAt(const Image& actual, const std::vector<Probe>& probes, int tolerance) {
    Image expected(actual.width, actual.height, kAnything);
    for (const Probe& probe : probes) expected.set(probe.x, probe.y, probe.colour);
    return looksLike(actual, expected, tolerance);
}

testing::AssertionResult looksLike(const Image& actual, const Image& expected, int tolerance) {
    if (actual.width != expected.width || actual.height != expected.height) {
        return testing::AssertionFailure() << actual.width << " x " << actual.height << " pixels, expected "
                                           << expected.width << " x " << expected.height;
    }
    std::string first;
    int count = 0;
    const Image difference = Image::of(actual.width, actual.height, [&](int x, int y) {
        const Rgba found = actual.at(x, y), wanted = expected.at(x, y);
        const int by = wanted == kAnything ? 0 : distance(found, wanted);
        if (by <= tolerance) return rgb(0);
        if (count++ == 0) first = disagreement(x, y, found, wanted);
        return rgb(0x010101u * static_cast<unsigned>(std::min(255, 8 * by)));
    });
    if (count == 0) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << count << " pixels differ, first " << first << writePpm(actual, "actual")
           << writePpm(expected, "expected") << writePpm(difference, "difference");
}

}  // namespace fovix_test
