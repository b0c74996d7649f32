#include "MeshPatches.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace fovix::drawings {

namespace {

/// Points of a mesh, line by line.
struct PointGrid {
    int lines, places;
    std::vector<MeshPoint> points;

    MeshPoint& at(int line, int place) { return points[static_cast<std::size_t>(line * places + place)]; }
    const MeshPoint& at(int line, int place) const {
        return points[static_cast<std::size_t>(line * places + place)];
    }
};

PointGrid makeGrid(int lines, int places) {
    return {lines, places, std::vector<MeshPoint>(static_cast<std::size_t>(lines * places))};
}

/// The corners A, B, C and D of a cell, whose triangles are A, B, D and B, C, D.
std::array<MeshPoint, 4> cornersOf(const GridMesh& mesh, int cell) {
    const double* first = mesh.triangles.data() + std::ptrdiff_t{2} * kDoublesPerTriangle * cell;
    const auto vertex = [first](int k) {
        return MeshPoint{first[5 * k], first[5 * k + 1], first[5 * k + 2], first[5 * k + 3],
                         first[5 * k + 4]};
    };
    return {vertex(0), vertex(1), vertex(4), vertex(2)};
}

PointGrid readGrid(const GridMesh& mesh, const PatchSize& size) {
    const int cells = mesh.triangleCount / 2;
    PointGrid grid = makeGrid(cells / size.cellsPerLine + 1, size.cellsPerLine + 1);
    for (int cell = 0; cell < cells; ++cell) {
        const auto corners = cornersOf(mesh, cell);
        for (std::size_t k = 0; k < corners.size(); ++k) {
            const CellCorner& corner = size.corners[k];
            grid.at(cell / size.cellsPerLine + (corner.onNewLine ? 1 : 0),
                    cell % size.cellsPerLine + (corner.atSecondPlace ? 1 : 0)) = corners[k];
        }
    }
    return grid;
}

/// Converts OKLCH to sRGB: colours of equal lightness look equally light.
std::string colourOf(double lightness, double chroma, double hue) {
    const double a = chroma * std::cos(hue), b = chroma * std::sin(hue);
    const double l = std::pow(lightness + 0.3963377774 * a + 0.2158037573 * b, 3);
    const double m = std::pow(lightness - 0.1055613458 * a - 0.0638541728 * b, 3);
    const double s = std::pow(lightness - 0.0894841775 * a - 1.2914855480 * b, 3);
    const std::array linear = {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
                               -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
                               -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
    std::array<unsigned, 3> bytes{};
    for (std::size_t k = 0; k < 3; ++k) {
        const double value = std::clamp(linear[k], 0.0, 1.0);
        const double gamma = value <= 0.0031308 ? 12.92 * value : 1.055 * std::pow(value, 1 / 2.4) - 0.055;
        bytes[k] = static_cast<unsigned>(std::lround(gamma * 255.0));
    }
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", bytes[0], bytes[1], bytes[2]);
    return text;
}

/// Hue encodes the direction from the lens's centre, lightness the distance; grey is outside the lens.
std::string colourAt(double u, double v, bool isOdd, const std::vector<LensDisc>& discs) {
    double nearest = 1e9, direction = 0.0;
    for (const LensDisc& disc : discs) {
        const double x = (u - disc.u) / disc.radiusU, y = (v - disc.v) / disc.radiusV;
        if (std::hypot(x, y) >= nearest) continue;
        nearest = std::hypot(x, y);
        direction = std::atan2(y, x);
    }
    const double checker = isOdd ? 0.035 : 0.0;
    if (nearest > 1.0) return colourOf(0.55 + checker, 0.0, 0.0);
    return colourOf(0.93 - 0.33 * nearest - checker, 0.03 + 0.12 * nearest, direction + 0.5);
}

Patch makePatch(const PointGrid& grid, int line, int place, const PatchSize& size,
                const std::vector<LensDisc>& discs) {
    const int lastLine = std::min(line + size.lines, grid.lines - 1);
    const int lastPlace = std::min(place + size.places, grid.places - 1);
    Patch patch;
    for (int p = place; p < lastPlace; ++p) patch.outline.push_back(grid.at(line, p));
    for (int l = line; l < lastLine; ++l) patch.outline.push_back(grid.at(l, lastPlace));
    for (int p = lastPlace; p > place; --p) patch.outline.push_back(grid.at(lastLine, p));
    for (int l = lastLine; l > line; --l) patch.outline.push_back(grid.at(l, place));
    double u = 0.0, v = 0.0;
    for (const MeshPoint& point : patch.outline) {
        u += point[3] / static_cast<double>(patch.outline.size());
        v += point[4] / static_cast<double>(patch.outline.size());
    }
    patch.colour = colourAt(u, v, (line / size.lines + place / size.places) % 2 != 0, discs);
    return patch;
}

std::vector<Patch> cutPatches(const PointGrid& grid, const PatchSize& size,
                              const std::vector<LensDisc>& discs) {
    std::vector<Patch> patches;
    for (int line = 0; line < grid.lines - 1; line += size.lines) {
        for (int place = 0; place < grid.places - 1; place += size.places)
            patches.push_back(makePatch(grid, line, place, size, discs));
    }
    return patches;
}

}  // namespace

LensDisc discOf(const FishEyeConfig& lens) {
    const double width = lens.TextureWidth, height = lens.TextureHeight;
    return {lens.xCenter / width, lens.yCenter / height, lens.maxRadius / width, lens.maxRadius / height};
}

std::vector<Patch> patchesOf(const GridMesh& mesh, const PatchSize& size,
                             const std::vector<LensDisc>& discs) {
    return cutPatches(readGrid(mesh, size), size, discs);
}

std::vector<Patch> patchesOfRectangle(const GridMesh& mesh, const std::vector<LensDisc>& discs) {
    constexpr int kSectors = 60, kRings = 10;
    const int joined = discs.size() > 1 ? 2 : 1;  // smaller circles have larger patches
    const auto corners = cornersOf(mesh, 0);
    const MeshPoint &topLeft = corners[0], &bottomRight = corners[2];
    const double top = topLeft[4], bottom = bottomRight[4];
    std::vector<Patch> patches = {{{corners.begin(), corners.end()}, "#3a3a3a"}};
    for (const LensDisc& disc : discs) {
        if (disc.v < top || disc.v > bottom) continue;
        PointGrid grid = makeGrid(kSectors + 1, kRings + 1);
        for (int sector = 0; sector <= kSectors; ++sector) {
            for (int ring = 0; ring <= kRings; ++ring) {
                const double angle = sector * 2.0 * std::numbers::pi / kSectors;
                const double share = static_cast<double>(ring) / kRings;
                const double u = disc.u + std::cos(angle) * share * disc.radiusU;
                const double v = disc.v + std::sin(angle) * share * disc.radiusV;
                const double low = (v - top) / (bottom - top);
                grid.at(sector, ring) = {topLeft[0] + (bottomRight[0] - topLeft[0]) * u,
                                         topLeft[1] + (bottomRight[1] - topLeft[1]) * low, topLeft[2], u, v};
            }
        }
        for (Patch& patch : cutPatches(grid, {kLinesAside, kRings, 3 * joined, joined}, discs))
            patches.push_back(std::move(patch));
    }
    return patches;
}

}  // namespace fovix::drawings
