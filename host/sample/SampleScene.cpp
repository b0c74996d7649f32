#include "sample/SampleScene.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <thread>

namespace fovix_host {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

// Runs task(row) for each row on all processors.
template <typename Task>
void forEachRow(int top, int bottom, const Task& task) {
    const int workers = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1u, 16u));
    std::vector<std::jthread> threads;
    for (int worker = 0; worker < workers; ++worker)
        threads.emplace_back([=, &task] {
            for (int row = top + worker; row < bottom; row += workers) task(row);
        });
}

void store(std::uint8_t* pixel, Vec3 colour) {
    const auto byte = [](double value) { return static_cast<std::uint8_t>(std::lround(value)); };
    pixel[0] = byte(colour.x);
    pixel[1] = byte(colour.y);
    pixel[2] = byte(colour.z);
    pixel[3] = 255;
}

bool differ(const std::uint8_t* a, const std::uint8_t* b) {
    constexpr int kVisible = 14;  // levels; a smaller step needs no smoothing
    return std::abs(a[0] - b[0]) > kVisible || std::abs(a[1] - b[1]) > kVisible ||
           std::abs(a[2] - b[2]) > kVisible;
}

// Returns true if the pixel differs visibly from one of its neighbours.
bool onEdge(const RgbaImage& image, int x, int y) {
    const std::uint8_t* here = image.at(x, y);
    return (x > 0 && differ(here, image.at(x - 1, y))) || (y > 0 && differ(here, image.at(x, y - 1))) ||
           (x + 1 < image.width && differ(here, image.at(x + 1, y))) ||
           (y + 1 < image.height && differ(here, image.at(x, y + 1)));
}

FramePoint middleOf(int x, int y) {
    return {x + 0.5, y + 0.5};
}

LensCircle circleFor(int width, int height) {
    const int smaller = std::min(width, height);
    return {width / 2, height / 2, smaller / 2 - smaller / 80, width, height};
}

}  // namespace

FramePoint project(const LensCircle& lens, CameraDirection direction) {
    const double aside = std::hypot(direction.x, direction.y);
    const double offAxis = std::atan2(aside, direction.z) / kDegree;
    const double reach = aside > 0.0 ? lens.radius * offAxis / SampleScene::kHalfFieldOfView / aside : 0.0;
    return {lens.xCenter + direction.x * reach, lens.yCenter + direction.y * reach};
}

SampleScene::Pose SampleScene::poseOf(Camera camera) {
    if (camera == Camera::kWall) return {{-kHallHalfLength + 0.2, 0, 3.0}, {0, -1, 0}, {0, 0, -1}, {1, 0, 0}};
    return {{0, 0, 3.3}, {1, 0, 0}, {0, -1, 0}, {0, 0, -1}};
}

SampleScene::SampleScene(Camera camera, int width, int height)
    : _pose(poseOf(camera)), _lens(circleFor(width, height)) {}

CameraDirection SampleScene::toCamera(Vec3 place) const {
    const Vec3 to = place - _pose.place;
    return {dot(to, _pose.right), dot(to, _pose.down), dot(to, _pose.axis)};
}

std::optional<Ray> SampleScene::rayThrough(FramePoint point) const {
    const double dx = point.x - _lens.xCenter, dy = point.y - _lens.yCenter;
    const double reach = std::hypot(dx, dy);
    if (reach > _lens.radius) return std::nullopt;
    const double offAxis = reach / _lens.radius * kHalfFieldOfView * kDegree;
    const double aside = reach > 0.0 ? std::sin(offAxis) / reach : 0.0;
    const Vec3 direction =
        _pose.right * (dx * aside) + _pose.down * (dy * aside) + _pose.axis * std::cos(offAxis);
    return Ray{_pose.place, direction};
}

Vec3 SampleScene::lookAt(FramePoint point) const {
    const auto ray = rayThrough(point);
    return ray ? _carPark.look(*ray) : Vec3{};
}

// The mean of 3 by 3 rays within the pixel.
Vec3 SampleScene::smoothed(int x, int y) const {
    constexpr int kRaster = 3;
    Vec3 sum;
    for (int i = 0; i < kRaster; ++i)
        for (int j = 0; j < kRaster; ++j)
            sum = sum + lookAt({x + (i + 0.5) / kRaster, y + (j + 0.5) / kRaster});
    return sum * (1.0 / (kRaster * kRaster));
}

void SampleScene::drawStill() {
    const int width = _lens.imageWidth, height = _lens.imageHeight;
    _carPark.hideTraffic();
    _stillCentres = RgbaImage(width, height);
    forEachRow(0, height, [&](int y) {
        for (int x = 0; x < width; ++x) store(_stillCentres.at(x, y), lookAt(middleOf(x, y)));
    });
    _still = _stillCentres;
    forEachRow(0, height, [&](int y) {
        for (int x = 0; x < width; ++x)
            if (onEdge(_stillCentres, x, y)) store(_still.at(x, y), smoothed(x, y));
    });
}

void SampleScene::drawMoving(const Sphere& part) {
    const Area area = areaOf(part);
    if (area.left >= area.right || area.top >= area.bottom) return;
    RgbaImage centres(area.right - area.left, area.bottom - area.top);
    // The pixels that show traffic at their centres, plus a border that shows none.
    const int columns = centres.width + 2;
    std::vector<std::uint8_t> shows(static_cast<std::size_t>(columns * (centres.height + 2)));
    const auto at = [&](int column, int row) { return shows.begin() + (row + 1) * columns + column + 1; };
    forEachRow(0, centres.height, [&](int row) {
        std::copy_n(_stillCentres.at(area.left, area.top + row), centres.width * 4, centres.at(0, row));
        for (int column = 0; column < centres.width; ++column) {
            const auto ray = rayThrough(middleOf(area.left + column, area.top + row));
            if (!ray || !_carPark.mayShowTraffic(*ray)) continue;
            *at(column, row) = 1;
            store(centres.at(column, row), _carPark.look(*ray));
        }
    });
    const auto concerns = [&](int column, int row) {
        return *at(column, row) || *at(column - 1, row) || *at(column + 1, row) || *at(column, row - 1) ||
               *at(column, row + 1);
    };
    forEachRow(0, centres.height, [&](int row) {
        for (int column = 0; column < centres.width; ++column) {
            if (!concerns(column, row)) continue;
            const int x = area.left + column, y = area.top + row;
            if (onEdge(centres, column, row))
                store(_image.at(x, y), smoothed(x, y));
            else
                std::copy_n(centres.at(column, row), 4, _image.at(x, y));
        }
    });
}

SampleScene::Area SampleScene::areaOf(const Sphere& part) const {
    const Area whole{0, 0, _lens.imageWidth, _lens.imageHeight};
    const CameraDirection towards = toCamera(part.centre);
    const double distance = length(towards);
    if (distance <= part.radius) return whole;
    // An equidistant lens stretches small shapes across the radius by up to pi / 2 (at 90 degrees off the
    // axis).
    constexpr double kMaxStretch = 1.6;
    const double degrees = std::asin(part.radius / distance) / kDegree;
    const double reach = kMaxStretch * degrees / kHalfFieldOfView * _lens.radius;
    const FramePoint centre = project(_lens, towards);
    const auto pixel = [](double value, int end) {
        return static_cast<int>(std::clamp(value, 0.0, double(end)));
    };
    return {pixel(centre.x - reach, whole.right), pixel(centre.y - reach, whole.bottom),
            pixel(centre.x + reach + 1.0, whole.right), pixel(centre.y + reach + 1.0, whole.bottom)};
}

const RgbaImage& SampleScene::image(int frame) {
    if (_still.pixels.empty()) drawStill();
    _image = _still;
    _carPark.showTraffic(frame);
    for (const Sphere& part : _carPark.movingParts()) drawMoving(part);
    return _image;
}

std::vector<SampleScene::VisibleLandmark> SampleScene::visibleLandmarks() const {
    std::vector<VisibleLandmark> visible;
    for (const Landmark& mark : kLandmarks) {
        const CameraDirection direction = toCamera(mark.centre);
        const double offAxis = std::atan2(std::hypot(direction.x, direction.y), direction.z) / kDegree;
        if (offAxis < kHalfFieldOfView) visible.push_back({mark.name, mark.colour, unit(direction)});
    }
    return visible;
}

}  // namespace fovix_host
