#include "Landmarks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <sstream>

namespace fovix_test {

namespace {

constexpr int kOutline = 24;       ///< points round a landmark
constexpr int kExact = 8;          ///< per channel: a pixel inside a landmark
constexpr double kNearest = 0.35;  ///< units before the eye; closer things may be cut off
constexpr Rgba kGround = {64, 64, 64, 255};

/// Colours that no blend of another one with the ground looks like.
Rgba colourOf(std::size_t landmark) {
    static const std::vector<Rgba> colours = [] {
        std::vector<Rgba> found;
        const std::array<std::uint8_t, 3> levels = {0, 128, 255};
        for (int i = 1; i < 26; ++i) {
            const auto level = [&](int digit) { return levels[static_cast<std::size_t>(digit % 3)]; };
            if (i != 13) found.push_back({level(i), level(i / 3), level(i / 9), 255});
        }
        return found;
    }();
    return colours.at(landmark);
}

bool isColour(const Rgba& pixel, const Rgba& colour) {
    return std::abs(pixel[0] - colour[0]) <= kExact && std::abs(pixel[1] - colour[1]) <= kExact &&
           std::abs(pixel[2] - colour[2]) <= kExact;
}

double fromSegment(double x, double y, const Place& a, const Place& b) {
    const double dx = b.x - a.x, dy = b.y - a.y, length = dx * dx + dy * dy;
    const double t = length > 0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / length, 0.0, 1.0) : 0.0;
    return std::hypot(x - a.x - t * dx, y - a.y - t * dy);
}

}  // namespace

double radians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

Vec turnedX(const Vec& p, double degrees) {
    const double c = std::cos(radians(degrees)), s = std::sin(radians(degrees));
    return {p.x, p.y * c + p.z * s, p.z * c - p.y * s};
}

Vec turnedY(const Vec& p, double degrees) {
    const double c = std::cos(radians(degrees)), s = std::sin(radians(degrees));
    return {p.x * c + p.z * s, p.y, p.z * c - p.x * s};
}

Vec turnedZ(const Vec& p, double degrees) {
    const double c = std::cos(radians(degrees)), s = std::sin(radians(degrees));
    return {p.x * c + p.y * s, p.y * c - p.x * s, p.z};
}

Vec moved(const Vec& p, double x, double y, double z) {
    return {p.x + x, p.y + y, p.z + z};
}

Place seen(const Vec& p, double fieldOfView, double scale, double aspect) {
    const double magnification = scale / std::tan(radians(fieldOfView) / 2.0), depth = -p.z;
    return {magnification * p.x / depth, magnification * aspect * p.y / depth, depth > kNearest};
}

struct LandmarkPicture::Spot {
    double x, y, reach, area;
    bool sure;
    double sumX = 0, sumY = 0;
    int pixels = 0;
};

LandmarkPicture::LandmarkPicture(int width, int height, std::vector<PicturePoint> landmarks, double radius)
    : landmarks_(std::move(landmarks)), radius_(radius), image_(width, height, kGround) {
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            for (std::size_t i = 0; i < landmarks_.size(); ++i) {
                const PicturePoint& centre = landmarks_[i];
                if (std::hypot(x + 0.5 - centre.x, y + 0.5 - centre.y) < radius)
                    image_.set(x, y, colourOf(i));
            }
        }
    }
}

std::vector<LandmarkPicture::Spot> LandmarkPicture::spotsOf(const PicturePoint& landmark,
                                                            const Projection& projection,
                                                            const Viewport& viewport,
                                                            int surfaceHeight) const {
    const double bottom = surfaceHeight - viewport.y;
    std::vector<Places> outline;
    for (int i = 0; i < kOutline; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / kOutline;
        outline.push_back(
            projection({landmark.x + radius_ * std::cos(angle), landmark.y + radius_ * std::sin(angle)}));
    }
    std::vector<Spot> spots;
    for (std::size_t copy = 0; copy < outline[0].size(); ++copy) {
        Places border;
        bool sure = true;
        for (const Places& places : outline) {
            const Place& place = places.at(copy);
            border.push_back({viewport.x + (place.x + 1) / 2 * viewport.width,
                              bottom - (place.y + 1) / 2 * viewport.height});
            const auto [x, y, any] = border.back();
            sure = sure && place.sure && x > viewport.x + 2 && x < viewport.x + viewport.width - 2 &&
                   y < bottom - 2 && y > bottom - viewport.height + 2;
        }
        double area = 0, x = 0, y = 0, reach = 0;
        for (std::size_t i = 0; i < border.size(); ++i) {  // centre of gravity of the outline's inside
            const Place &a = border[i], &b = border[(i + 1) % border.size()];
            const double cross = a.x * b.y - b.x * a.y;
            area += cross / 2;
            x += (a.x + b.x) * cross / 6;
            y += (a.y + b.y) * cross / 6;
        }
        x /= area;
        y /= area;
        for (const Place& place : border) reach = std::max(reach, std::hypot(place.x - x, place.y - y));
        spots.push_back({x, y, reach + 3.0, std::abs(area), sure});
    }
    return spots;
}

testing::AssertionResult LandmarkPicture::isSeenIn(const Image& surface, const Viewport& viewport,
                                                   const Projection& projection, int atLeast,
                                                   double tolerance) const {
    std::ostringstream wrong;
    std::vector<Probe> probes;
    int whole = 0;
    for (std::size_t i = 0; i < landmarks_.size(); ++i) {
        std::vector<Spot> spots = spotsOf(landmarks_[i], projection, viewport, surface.height);
        int strays = 0;
        for (int y = surface.height - viewport.y - viewport.height; y < surface.height - viewport.y; ++y) {
            for (int x = viewport.x; x < viewport.x + viewport.width; ++x) {
                if (!isColour(surface.at(x, y), colourOf(i))) continue;
                const auto spot = std::find_if(spots.begin(), spots.end(), [&](const Spot& s) {
                    return std::hypot(x + 0.5 - s.x, y + 0.5 - s.y) < s.reach;
                });
                if (spot == spots.end()) {
                    if (strays++ == 0) wrong << "landmark " << i << " strays to " << x << ", " << y << "\n";
                    continue;
                }
                spot->sumX += x + 0.5;
                spot->sumY += y + 0.5;
                ++spot->pixels;
            }
        }
        for (const Spot& spot : spots) {
            if (!spot.sure || spot.area < 12) continue;
            ++whole;
            const double x = spot.sumX / spot.pixels, y = spot.sumY / spot.pixels;
            const bool fits = spot.pixels > 0.3 * spot.area && spot.pixels < 1.2 * spot.area + 4;
            if (fits && std::hypot(x - spot.x, y - spot.y) <= tolerance) continue;
            wrong << "landmark " << i << " expected at " << spot.x << ", " << spot.y << " with " << spot.area
                  << " pixels, found at " << x << ", " << y << " with " << spot.pixels << "\n";
            probes.push_back({static_cast<int>(spot.x), static_cast<int>(spot.y), colourOf(i)});
        }
    }
    if (whole < atLeast)
        wrong << "only " << whole << " landmarks lie in the viewport, not " << atLeast << "\n";
    if (wrong.str().empty()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << wrong.str() << showsAt(surface, probes).message();
}

LandmarkPicture Lens::picture() const {
    std::vector<PicturePoint> places;
    for (const double angle : {20.0, 38.0, 56.0, 72.0}) {
        for (int i = 0; i < 6; ++i) {
            const double azimuth = radians(60.0 * i + angle / 2.0 + 8.0);
            places.push_back({xCenter + angle / 85.0 * rx * std::cos(azimuth),
                              yCenter + angle / 85.0 * ry * std::sin(azimuth)});
        }
    }
    return {width, height, places, rx * 0.022};
}

testing::AssertionResult showsLoops(const Image& surface, const std::vector<Places>& loops, Rgba colour) {
    constexpr double kReach = 2.3;  // half of two pixels' width, and a pixel for the rasteriser
    std::vector<std::pair<Place, Place>> lines;
    for (const Places& loop : loops) {
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const auto pixel = [&](const Place& p) -> Place {
                return {(p.x + 1) / 2 * surface.width, (1 - p.y) / 2 * surface.height};
            };
            lines.emplace_back(pixel(loop[i]), pixel(loop[(i + 1) % loop.size()]));
        }
    }
    std::vector<Place> coloured;
    std::ostringstream wrong;
    for (int y = 0; y < surface.height; ++y) {
        for (int x = 0; x < surface.width; ++x) {
            if (!isColour(surface.at(x, y), colour)) continue;
            coloured.push_back({x + 0.5, y + 0.5});
            const bool onLine = std::any_of(lines.begin(), lines.end(), [&](const auto& line) {
                return fromSegment(x + 0.5, y + 0.5, line.first, line.second) < kReach;
            });
            if (!onLine && wrong.str().empty()) wrong << "no line runs through " << x << ", " << y << "\n";
        }
    }
    for (const auto& [a, b] : lines) {
        const double steps = std::ceil(std::hypot(b.x - a.x, b.y - a.y) / 3.0);
        for (double step = 0; step <= steps; ++step) {
            const double x = std::lerp(a.x, b.x, step / steps), y = std::lerp(a.y, b.y, step / steps);
            if (x < 0 || y < 0 || x > surface.width || y > surface.height) continue;
            const bool found = std::any_of(coloured.begin(), coloured.end(), [&](const Place& p) {
                return std::hypot(p.x - x, p.y - y) < kReach;
            });
            if (!found) return testing::AssertionFailure() << "no line at " << x << ", " << y;
        }
    }
    if (wrong.str().empty()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << wrong.str();
}

}  // namespace fovix_test
