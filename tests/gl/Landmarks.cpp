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
    static Spot within(const Places& outline);

    double x, y, reach, area;
    bool sure;
    double sumX = 0, sumY = 0;
    int pixels = 0;
};

LandmarkPicture::LandmarkPicture(int width, int height, std::vector<PicturePoint> landmarks, double radius)
    : landmarks_(std::move(landmarks)), radius_(radius), image_(width, height, kGround) {
    for (std::size_t i = 0; i < landmarks_.size(); ++i) {
        const PicturePoint& centre = landmarks_[i];
        for (int y = static_cast<int>(centre.y - radius); y <= centre.y + radius; ++y) {
            for (int x = static_cast<int>(centre.x - radius); x <= centre.x + radius; ++x) {
                if (std::hypot(x + 0.5 - centre.x, y + 0.5 - centre.y) < radius)
                    image_.set(x, y, colourOf(i));
            }
        }
    }
}

/// The centre of gravity of what an outline in pixels encloses.
LandmarkPicture::Spot LandmarkPicture::Spot::within(const Places& outline) {
    Spot spot = {0, 0, 0, 0, true};
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Place &a = outline[i], &b = outline[(i + 1) % outline.size()];
        const double cross = a.x * b.y - b.x * a.y;
        spot.area += cross / 2;
        spot.x += (a.x + b.x) * cross / 6;
        spot.y += (a.y + b.y) * cross / 6;
        spot.sure = spot.sure && a.sure;
    }
    spot.x /= spot.area;
    spot.y /= spot.area;
    spot.area = std::abs(spot.area);
    for (const Place& place : outline) {
        spot.reach = std::max(spot.reach, std::hypot(place.x - spot.x, place.y - spot.y) + 3.0);
    }
    return spot;
}

std::vector<LandmarkPicture::Spot> LandmarkPicture::spotsOf(const PicturePoint& landmark,
                                                            const Projection& projection,
                                                            const Viewport& viewport,
                                                            int surfaceHeight) const {
    constexpr double kMargin = 2.0;  // pixels inside the viewport, so that all of the landmark counts
    const double halfWidth = viewport.width / 2.0, halfHeight = viewport.height / 2.0;
    std::vector<Places> outlines;
    for (int i = 0; i < kOutline; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / kOutline;
        const Places places =
            projection({landmark.x + radius_ * std::cos(angle), landmark.y + radius_ * std::sin(angle)});
        outlines.resize(places.size());
        for (std::size_t copy = 0; copy < places.size(); ++copy) {
            const auto [x, y, sure] = places[copy];
            const bool isInside =
                (1 - std::abs(x)) * halfWidth > kMargin && (1 - std::abs(y)) * halfHeight > kMargin;
            outlines[copy].push_back({viewport.x + (1 + x) * halfWidth,
                                      surfaceHeight - viewport.y - (1 + y) * halfHeight, sure && isInside});
        }
    }
    std::vector<Spot> spots;
    for (const Places& outline : outlines) spots.push_back(Spot::within(outline));
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
    return {width, height, places, rx * 0.03};
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
