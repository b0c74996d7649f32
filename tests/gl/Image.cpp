#include "Image.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "Fovix.h"
#include "media/MediaReader.h"
#include "media/PngWriter.h"

namespace fovix_test {

namespace {

int distance(const Rgba& a, const Rgba& b) {
    return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])});
}

/// FOVIX_PICTURE_DIR/<suite>.<test>.<number>.<role>.png, so that later failures do not overwrite it.
std::string writeForTest(const Image& image, const std::string& role) {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    static int count = 0;
    const std::string file = std::string(FOVIX_PICTURE_DIR "/") + test.test_suite_name() + "." + test.name() +
                             "." + std::to_string(++count) + "." + role + ".png";
    std::filesystem::create_directories(FOVIX_PICTURE_DIR);
    writePng(file, image);
    return "\nwritten: " + file;
}

}  // namespace

Image::Image(int imageWidth, int imageHeight, Rgba fill) : width(imageWidth), height(imageHeight) {
    bytes.resize(offset(0, height));
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = fill[i % 4];
}

Image Image::chequered(int width, int height, int firstColumn) {
    return of(width, height, [&](int x, int y) {
        const int column = (firstColumn + x * 12 / width) % 12, row = y * 9 / height;
        const int red = 40 + 18 * column, green = 240 - 24 * row, blue = (column + row) % 2 ? 210 : 60;
        return rgb(static_cast<unsigned>(red << 16 | green << 8 | blue));
    });
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

Bytes Image::inFormat(int pixelFmt) const {
    if (pixelFmt == FOVIX_FORMAT_RGBA) return bytes;
    const auto level = [](const Rgba& p, int base, int red, int green, int blue) {
        return static_cast<std::uint8_t>(base + (red * p[0] + green * p[1] + blue * p[2]) / 256);
    };
    const std::size_t pixels = bytes.size() / 4, plane = pixels / 4;
    Bytes planes(pixels + 2 * plane, 7);
    for (std::size_t i = 0; i < pixels; ++i) {
        planes[i] = level({bytes[4 * i], bytes[4 * i + 1], bytes[4 * i + 2]}, 16, 66, 129, 25);
    }
    for (int i = 0; i < (width / 2) * (height / 2); ++i) {
        const Rgba pixel = at(i % (width / 2) * 2, i / (width / 2) * 2);
        const bool isPlanar = pixelFmt == FOVIX_FORMAT_YUV420P, vFirst = pixelFmt == FOVIX_FORMAT_NV21;
        const std::size_t k = static_cast<std::size_t>(i), first = pixels + (isPlanar ? k : 2 * k),
                          second = first + (isPlanar ? plane : 1);
        planes[vFirst ? second : first] = level(pixel, 128, -38, -74, 112);
        planes[vFirst ? first : second] = level(pixel, 128, 112, -94, -18);
    }
    return planes;
}

Image readPng(const std::string& file) {
    fovix_host::MediaReader reader(file);
    const AVFrame& frame = *reader.next();
    if (frame.format != AV_PIX_FMT_RGB24) throw std::runtime_error(file + " is not in RGB");
    return Image::of(frame.width, frame.height, [&](int x, int y) -> Rgba {
        const std::uint8_t* pixel = frame.data[0] + y * frame.linesize[0] + 3 * x;
        return {pixel[0], pixel[1], pixel[2], 255};
    });
}

void writePng(const std::string& file, const Image& image) {
    fovix_host::RgbaImage pixels(image.width, image.height);
    pixels.pixels = image.bytes;
    fovix_host::writePng(file, pixels);
}

Difference differenceOf(const Image& actual, const Image& expected, int tolerance) {
    Difference difference;
    for (int i = 0; i < actual.width * actual.height; ++i) {
        const int x = i % actual.width, y = i / actual.width,
                  by = distance(actual.at(x, y), expected.at(x, y));
        difference.pixels += by > tolerance;
        difference.largest = std::max(difference.largest, by);
    }
    return difference;
}

testing::AssertionResult looksLike(const Image& actual, const Image& expected, int tolerance,
                                   double shareOfOthers) {
    if (actual.width != expected.width || actual.height != expected.height) {
        return testing::AssertionFailure() << actual.width << " x " << actual.height << " pixels, expected "
                                           << expected.width << " x " << expected.height;
    }
    const Difference difference = differenceOf(actual, expected, tolerance);
    if (difference.pixels <= shareOfOthers * actual.width * actual.height) return testing::AssertionSuccess();
    const Image shown = Image::of(actual.width, actual.height, [&](int x, int y) {
        return rgb(0x010101u *
                   static_cast<unsigned>(std::min(255, 8 * distance(actual.at(x, y), expected.at(x, y)))));
    });
    return testing::AssertionFailure()
           << difference.pixels << " pixels differ, by up to " << difference.largest << " levels"
           << writeForTest(actual, "actual") << writeForTest(expected, "expected")
           << writeForTest(shown, "difference");
}

testing::AssertionResult isAsStored(const std::string& file, const Image& actual) {
    const Image stored = std::filesystem::exists(file) ? readPng(file) : Image();
    const bool hasItsSize = stored.width == actual.width && stored.height == actual.height;
    const Difference exact = hasItsSize ? differenceOf(actual, stored, 0) : Difference{-1, -1};
    if (exact.pixels == 0) return testing::AssertionSuccess();
    std::printf("%s: %d pixels differ, by up to %d levels\n", file.c_str(), exact.pixels, exact.largest);
    const testing::AssertionResult result = looksLike(actual, stored, kTolerance, 0.001);
    if (!std::getenv("FOVIX_UPDATE")) return result;
    std::printf("stored again: %s%s\n", file.c_str(), result.message());
    writePng(file, actual);
    return testing::AssertionSuccess();
}

}  // namespace fovix_test
