#include "sample/Traffic.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace fovix_host {
namespace {

// Coordinates of the car: x from boot to bonnet, y to the left, the origin below its centre.
constexpr double kCarHalfLength = 2.15;
constexpr double kCarHalfWidth = 0.88;
const Convex kCarBody = frustum({-kCarHalfLength, -kCarHalfWidth, 0.14}, {kCarHalfLength, kCarHalfWidth, 0},
                                {-2.08, -0.80, 0}, {2.02, 0.80, 0.86});
const Convex kCarCabin =
    frustum({-1.85, -0.80, 0.86}, {0.95, 0.80, 0}, {-1.35, -0.64, 0}, {0.20, 0.64, 1.42});

Finish bodyFinish(Vec3 p, Vec3 normal, Vec3 paint) {
    if (normal.z > 0.9) {
        // The gaps around the bonnet and the boot lid.
        const bool gap = std::abs(p.x - 1.0) < 0.02 || std::abs(p.x + 1.88) < 0.02;
        return {gap ? paint * 0.3 : paint};
    }
    if (std::abs(normal.y) > 0.5) {
        const double wheel = std::hypot(std::abs(p.x) - 1.32, p.z - 0.32);
        if (wheel < 0.19) return {{0.35, 0.35, 0.36}};
        if (wheel < 0.34) return {{0.015, 0.015, 0.015}};
        const bool seam = p.z > 0.3 && (std::abs(p.x - 0.85) < 0.015 || std::abs(p.x + 0.3) < 0.015);
        return {seam ? paint * 0.3 : paint};
    }
    const bool lamp = std::abs(p.y) > 0.48 && p.z > 0.55 && p.z < 0.72;
    if (lamp) return normal.x > 0 ? Finish{{0.9, 0.9, 0.75}, 0.9} : Finish{{0.6, 0.02, 0.02}, 0.35};
    if (std::abs(p.y) < 0.26 && p.z > 0.36 && p.z < 0.48) return {{0.75, 0.75, 0.7}};
    if (p.z < 0.3) return {{0.03, 0.03, 0.03}};
    return {paint};
}

Finish cabinFinish(Vec3 p, Vec3 normal, Vec3 paint) {
    if (normal.z > 0.9) return {paint};
    const bool side = std::abs(normal.y) > 0.5;
    if (p.z > 1.36 || (side && std::abs(p.x + 0.42) < 0.05)) return {paint};
    return {{0.025, 0.035, 0.045}, 0.03 + 0.05 * (p.z - 0.86)};
}

}  // namespace

bool Car::meets(const Ray& ray, Sight& sight) const {
    if (!passes(ray, bounds())) return false;
    const Vec3 from = ray.origin - Vec3{x, y, 0};
    const auto toLocal = [this](Vec3 v) {
        return Vec3{v.x * forwardX + v.y * forwardY, v.y * forwardX - v.x * forwardY, v.z};
    };
    const Ray local{toLocal(from), toLocal(ray.direction)};
    Hit hit = sight.hit;
    const bool body = fovix_host::meets(local, kCarBody, hit);
    const bool cabin = fovix_host::meets(local, kCarCabin, hit);
    if (!body && !cabin) return false;
    const Vec3 place = local.at(hit.distance);
    sight.finish = cabin ? cabinFinish(place, hit.normal, paint) : bodyFinish(place, hit.normal, paint);
    const Vec3 n = hit.normal;
    sight.hit = {hit.distance, {n.x * forwardX - n.y * forwardY, n.x * forwardY + n.y * forwardX, n.z}};
    return true;
}

double Car::floorLight(double floorX, double floorY) const {
    const double dx = floorX - x, dy = floorY - y;
    const double along = std::max(0.0, std::abs(dx * forwardX + dy * forwardY) - kCarHalfLength + 0.1);
    const double across = std::max(0.0, std::abs(dy * forwardX - dx * forwardY) - kCarHalfWidth + 0.1);
    const double away = std::min(1.0, std::hypot(along, across) / 0.7);
    return 0.25 + 0.75 * away * (2.0 - away);
}

bool Walker::meets(const Ray& ray, Sight& sight) const {
    if (!passes(ray, bounds())) return false;
    const auto place = [this](double aside, double ahead, double z) {
        return Vec3{x + aside, y + ahead * forwardY, z};
    };
    const Finish jacket{{0.85, 0.22, 0.02}}, trousers{{0.03, 0.04, 0.09}}, skin{{0.55, 0.32, 0.22}};
    const Finish hair{{0.05, 0.03, 0.02}};
    struct Limb {
        Vec3 from, to;
        double radius;
        Finish finish;
    };
    const double step = 0.32 * stride;
    const std::array limbs{
        Limb{place(-0.1, 0, 0.85), place(-0.1, step, 0.09), 0.09, trousers},
        Limb{place(0.1, 0, 0.85), place(0.1, -step, 0.09), 0.09, trousers},
        Limb{place(-0.08, 0, 0.98), place(-0.1, 0, 1.36), 0.16, jacket},
        Limb{place(0.08, 0, 0.98), place(0.1, 0, 1.36), 0.16, jacket},
        Limb{place(-0.25, 0, 1.40), place(-0.29, -step, 0.88), 0.06, jacket},
        Limb{place(0.25, 0, 1.40), place(0.29, step, 0.88), 0.06, jacket},
        Limb{place(0, 0.02, 1.64), place(0, 0.02, 1.68), 0.11, skin},
        Limb{place(0, -0.02, 1.68), place(0, -0.02, 1.70), 0.12, hair},
    };
    bool met = false;
    for (const Limb& limb : limbs) {
        if (!meetsCapsule(ray, limb.from, limb.to, limb.radius, sight.hit)) continue;
        sight.finish = limb.finish;
        met = true;
    }
    return met;
}

double Walker::floorLight(double floorX, double floorY) const {
    const double away = std::min(1.0, std::hypot(floorX - x, floorY - y) / 0.55);
    return 0.45 + 0.55 * away * (2.0 - away);
}

std::vector<Car> parkedCars() {
    const Vec3 silver{0.45, 0.47, 0.50}, white{0.75, 0.75, 0.75}, black{0.03, 0.03, 0.035};
    const Vec3 wine{0.32, 0.02, 0.04}, navy{0.03, 0.06, 0.20}, pine{0.03, 0.14, 0.09};
    // Some cars are parked backwards, and none quite straight.
    const auto parked = [](double x, double y, double towards, double lean, Vec3 paint) {
        return Car{x, y, std::sin(lean), towards * std::cos(lean), paint};
    };
    return {
        parked(-10.0, 5.65, 1, 0.02, silver), parked(-7.45, 5.5, 1, -0.03, wine),
        parked(-5.0, 5.6, -1, 0.01, white),   parked(-2.55, 5.55, 1, 0.04, navy),
        parked(5.0, 5.6, 1, -0.01, white),    parked(7.5, 5.6, 1, -0.02, black),
        parked(2.5, -5.6, 1, -0.03, silver),  parked(5.05, -5.55, -1, 0.02, pine),
        parked(7.5, -5.6, -1, -0.01, wine),   parked(10.0, -5.6, 1, 0.03, white),
    };
}

std::vector<Car> movingCars(int frame) {
    // From ramp to ramp at 2.5 m/s, that is 0.1 m per frame; frame 0 shows both cars on their way.
    const auto travelled = [frame](int delay) { return 0.1 * ((frame + delay) % (kTrafficPeriod / 2)); };
    return {
        Car{-15.0 + travelled(80), -kLaneCentre, 1, 0, {0.60, 0.60, 0.58}},
        Car{15.0 - travelled(95), kLaneCentre, -1, 0, {0.05, 0.12, 0.42}},
    };
}

Walker walkerAt(int frame) {
    // There and back across the zebra crossing, after the cars have passed it.
    constexpr int kCrossing = kTrafficPeriod / 2;
    const int clock = (frame + 230) % kTrafficPeriod;
    const bool north = clock < kCrossing;
    const double walked = 0.05 * (clock % kCrossing);
    return {0.0, north ? -7.5 + walked : 7.5 - walked, north ? 1.0 : -1.0,
            std::sin(2.0 * std::numbers::pi * frame / 25.0)};
}

}  // namespace fovix_host
