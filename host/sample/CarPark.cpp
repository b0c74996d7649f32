#include "sample/CarPark.h"

#include <algorithm>
#include <array>

namespace fovix_host {
namespace {

constexpr std::array<double, 4> kPillarColumns{-8.75, -3.75, 3.75, 8.75};
constexpr double kPillarRow = 3.4;
constexpr double kPillarHalf = 0.25;
constexpr double kUndersideOfBeams = 3.5;

// Where the ray leaves the hall; the normal points back inside.
Hit meetHall(const Ray& ray) {
    Hit hit;
    const auto face = [&hit](double origin, double direction, double low, double high, Vec3 axis) {
        if (direction == 0.0) return;
        const double distance = ((direction > 0.0 ? high : low) - origin) / direction;
        if (distance < hit.distance) hit = {distance, axis * (direction > 0.0 ? -1.0 : 1.0)};
    };
    face(ray.origin.x, ray.direction.x, -kHallHalfLength, kHallHalfLength, {1, 0, 0});
    face(ray.origin.y, ray.direction.y, -kHallHalfWidth, kHallHalfWidth, {0, 1, 0});
    face(ray.origin.z, ray.direction.z, 0.0, kHallHeight, {0, 0, 1});
    return hit;
}

// Converts reflected light to display values: bright parts saturate softly, as on film, and the square root
// is close to a monitor's gamma.
Vec3 displayed(const Finish& finish, double light) {
    const Vec3 linear = finish.albedo * (light * (1.0 - finish.glow)) + finish.albedo * (1.6 * finish.glow);
    const auto shown = [](double value) { return 255.0 * std::sqrt(1.0 - std::exp(-1.25 * value)); };
    return {shown(linear.x), shown(linear.y), shown(linear.z)};
}

}  // namespace

CarPark::CarPark() : _parked(parkedCars()) {
    for (const double x : kPillarColumns) {
        for (const double y : {-kPillarRow, kPillarRow})
            addBlock(Block::Kind::kPillar, {x - kPillarHalf, y - kPillarHalf, 0},
                     {x + kPillarHalf, y + kPillarHalf, kUndersideOfBeams});
        addBlock(Block::Kind::kBeam, {x - 0.2, -kHallHalfWidth, kUndersideOfBeams},
                 {x + 0.2, kHallHalfWidth, kHallHeight});
    }
    for (const double x : {-10.0, -5.0, 0.0, 5.0, 10.0})
        for (const double y : {-kLampRow, kLampRow})
            addBlock(Block::Kind::kLamp, {x - 0.9, y - 0.1, 3.42}, {x + 0.9, y + 0.1, 3.5});
    addBlock(Block::Kind::kPipe, {-kHallHalfLength, -2.75, 3.36}, {kHallHalfLength, -2.65, 3.46});
    addBlock(Block::Kind::kDuct, {-kHallHalfLength, 4.6, 3.3}, {kHallHalfLength, 5.4, 3.5});
}

void CarPark::addBlock(Block::Kind kind, Vec3 low, Vec3 high) {
    _blocks.push_back({kind, low.z, box(low, high), {(low + high) * 0.5, 0.5 * length(high - low)}});
}

void CarPark::showTraffic(int frame) {
    const int clock = (frame % kTrafficPeriod + kTrafficPeriod) % kTrafficPeriod;
    _moving = movingCars(clock);
    _walkers = {walkerAt(clock)};
}

void CarPark::hideTraffic() {
    _moving.clear();
    _walkers.clear();
}

std::vector<Sphere> CarPark::movingParts() const {
    std::vector<Sphere> parts;
    for (const Car& car : _moving) parts.push_back(car.boundsWithShadow());
    for (const Walker& walker : _walkers) parts.push_back(walker.boundsWithShadow());
    return parts;
}

bool CarPark::mayShowTraffic(const Ray& ray) const {
    const bool falls = ray.direction.z < 0.0;
    const Vec3 floor = falls ? ray.at(-ray.origin.z / ray.direction.z) : Vec3{};
    Sight nearest;
    const auto seen = [&](const auto& mover) {
        return passes(ray, mover.boundsWithShadow()) &&
               (mover.meets(ray, nearest) || (falls && mover.floorLight(floor.x, floor.y) < 1.0));
    };
    return std::any_of(_moving.begin(), _moving.end(), seen) ||
           std::any_of(_walkers.begin(), _walkers.end(), seen);
}

void CarPark::meetBlocks(const Ray& ray, Sight& sight) const {
    for (const Block& block : _blocks) {
        const bool above = ray.direction.z <= 0.0 && block.foot > ray.origin.z;
        if (above || !passes(ray, block.bounds)) continue;
        if (!meets(ray, block.shape, sight.hit)) continue;
        switch (block.kind) {
            case Block::Kind::kPillar:
                sight.finish = pillarFinish(ray.at(sight.hit.distance), sight.hit.normal);
                break;
            case Block::Kind::kLamp:
                sight.finish = {{0.9, 0.9, 0.85}, 1.0};
                break;
            case Block::Kind::kBeam:
                sight.finish = {{0.42, 0.42, 0.41}};
                break;
            case Block::Kind::kPipe:
                sight.finish = {{0.45, 0.03, 0.02}};
                break;
            case Block::Kind::kDuct:
                sight.finish = {{0.5, 0.53, 0.56}};
                break;
        }
    }
}

void CarPark::meetTraffic(const Ray& ray, Sight& sight) const {
    if (ray.direction.z >= 0.0 && ray.origin.z > kTrafficHeight) return;
    for (const std::vector<Car>* cars : {&_parked, &_moving})
        for (const Car& car : *cars) car.meets(ray, sight);
    for (const Walker& walker : _walkers) walker.meets(ray, sight);
}

double CarPark::floorLight(Vec3 point) const {
    double light = 1.0;
    for (const std::vector<Car>* cars : {&_parked, &_moving})
        for (const Car& car : *cars)
            if (std::abs(point.x - car.x) < 3.5 && std::abs(point.y - car.y) < 3.5)
                light = std::min(light, car.floorLight(point.x, point.y));
    for (const Walker& walker : _walkers) light = std::min(light, walker.floorLight(point.x, point.y));
    const double toWall = std::min(kHallHalfLength - std::abs(point.x), kHallHalfWidth - std::abs(point.y));
    return light * (0.6 + 0.4 * std::min(1.0, toWall / 0.8));
}

Vec3 CarPark::look(const Ray& ray) const {
    Sight sight{meetHall(ray), {}};
    const double hallDistance = sight.hit.distance;
    meetBlocks(ray, sight);
    meetTraffic(ray, sight);

    const Vec3 point = ray.at(sight.hit.distance);
    const Vec3 normal = sight.hit.normal;
    double light = lightAt(point, normal);
    if (sight.hit.distance == hallDistance) {
        if (const Landmark* mark = landmarkAt(point))
            return {double(mark->colour[0]), double(mark->colour[1]), double(mark->colour[2])};
        if (normal.z > 0.5) {
            sight.finish = floorFinish(point);
            light *= floorLight(point);
        } else {
            sight.finish = normal.z < -0.5 ? ceilingFinish(point) : wallFinish(point, normal);
        }
    }
    return displayed(sight.finish, light);
}

}  // namespace fovix_host
