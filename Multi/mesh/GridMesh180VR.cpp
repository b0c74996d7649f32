// The 180-degree view: the lens circle cut into 50 chords of 120 cells each, shown as the disc that it is,
// stretched to a panorama, wrapped around a cylinder or bent to a curved screen.
//
// All forms but the disc show each chord at full width, which straightens the circle's edge. Positions along
// a chord are counted by q, from −1 at its first point over 0 in its middle to 1 at its last.
#include <algorithm>
#include <array>
#include <cmath>

#include "Fovix.h"
#include "base/Angles.h"
#include "base/Diagnostics.h"
#include "lens/PictureFit.h"
#include "mesh/GridCells.h"

namespace fovix {

namespace {

constexpr int kChords = 50;  ///< rows of cells; one chord more bounds them
constexpr int kCellsPerChord = 120;

/// Radius of the arc that bends a chord, in lens radii. A little above 1, so that the ends of a chord are not
/// stretched without limit.
constexpr double kBendRadius = 1.06;

// The stretched panorama, which fills a screen: behind the disc, so that its ends stay in sight; flattened
// when wide, broadened when tall.
constexpr double kStretchDepth = -0.26;
constexpr double kWideFlattening = 0.95;
constexpr double kTallBroadening = 1.2;

/// Share of half the wide panorama's height that lies below the lens's centre. The first chord is one step
/// below the top, so 1.0 would place the panorama a step too low.
constexpr double kWideBelowCentre = 0.97;

// The cylinder's radius in lens radii, which brings its front to 0.4 units from the eye for a circle as wide
// as the frame, and its height as a share of the unrolled circle's.
constexpr double kCylinderRadius = 0.6;
constexpr double kCylinderHeight = 0.35;

/// Radius of the curved screen in radii of the arcs that bend its chords: shallower than the arcs themselves.
constexpr double kScreenRadius = 1.15;

/// The lens circle in the frame, read once per mesh; offsetU and offsetV are shares of the frame's size.
struct LensPicture {
    explicit LensPicture(const FishEyeConfig& lens) : LensPicture(lens, fitPicture(lens)) {}
    LensPicture(const FishEyeConfig& lens, const PictureFit& fit)
        : imgW(fit.imgW),
          imgH(fit.imgH),
          effH(fit.effH),
          xCenter(lens.xCenter),
          yCenter(lens.yCenter),
          mRadius(lens.maxRadius) {}

    double imgW, imgH, effH;
    double xCenter, yCenter, mRadius;  ///< texture pixels
    double uRate = 1.0, vRate = imgH / effH;
    double offsetU = (xCenter - imgW / 2.0) / imgW, offsetV = (yCenter - imgH / 2.0) / imgH;
    double dispCenterX = xCenter / uRate, dispCenterY = yCenter / vRate;
};

/// Distance from the lens's centre to an edge of the frame in radii: at most 1, and negative for a centre
/// beyond the edge.
double radiusShare(double distance, double radius) {
    return std::clamp(distance / radius, -1.0, 1.0);
}

/// The texture coordinates of a chord: `across` is constant, the other runs ±half from the lens's centre.
struct Chord {
    double cosine, sine;
    double half, across;
};

using Chords = std::array<Chord, kChords + 1>;
using ChordPlaces = std::array<double, kChords + 1>;

constexpr double kCellsToMiddle = kCellsPerChord / 2;
double placeOnChord(int k) {
    return k / kCellsToMiddle - 1.0;
}

/// The angle at which the circle leaves the frame at the top; printed as dispAngle.
double firstChordAngle(const LensPicture& p) {
    return kPi - std::asin(radiusShare(p.dispCenterY, p.mRadius));
}

/// Level chords from the top of the circle to its bottom, within the frame.
Chords cutLevel(const LensPicture& p) {
    const double top = firstChordAngle(p);
    const double bottom = kPi + std::asin(radiusShare(p.effH - p.dispCenterY, p.mRadius));
    const double step = (bottom - top) / kChords;
    Chords chords;
    for (int r = 0; r <= kChords; ++r) {
        const double cosine = std::cos(top + r * step), sine = std::sin(top + r * step);
        const double v = (p.imgH / 2.0 - sine * p.mRadius * p.vRate) / p.imgH + p.offsetV;
        chords[static_cast<std::size_t>(r)] = {cosine, sine, -cosine * p.mRadius * p.uRate / p.imgW, v};
    }
    return chords;
}

/// Upright chords from the right of the circle to its left, within the frame.
Chords cutUpright(const LensPicture& p) {
    const double first = std::acos(radiusShare(p.imgW - p.dispCenterX, p.mRadius));
    const double last = kPi - std::acos(radiusShare(p.dispCenterX, p.mRadius));
    const double step = (last - first) / kChords;
    Chords chords;
    for (int s = 0; s <= kChords; ++s) {
        const double cosine = std::cos(first + s * step), sine = std::sin(first + s * step);
        const double u = (cosine * p.mRadius * p.uRate + p.imgW / 2.0) / p.imgW + p.offsetU;
        chords[static_cast<std::size_t>(s)] = {cosine, sine, sine * p.mRadius * p.vRate / p.imgH, u};
    }
    return chords;
}

/// A level chord runs from its right-hand end to its left-hand one.
double levelU(const LensPicture& p, const Chord& chord, double q) {
    return 0.5 + p.offsetU - q * chord.half;
}

/// The heights of the chords, the first one step below the top of the surface at base + height.
ChordPlaces chordHeights(double height, double base) {
    ChordPlaces places;
    for (int r = 0; r <= kChords; ++r)
        places[static_cast<std::size_t>(r)] = (kChords - 1 - r) * height / kChords + base;
    return places;
}

/// A surface of the same outline (x, z along q) at every height.
template <class Outline>
GridMesh layOnOutline(const LensPicture& p, const ChordPlaces& heights, Outline&& outlineAt) {
    std::array<std::array<double, 3>, kCellsPerChord + 1> outline;  // x, z, q
    for (int k = 0; k <= kCellsPerChord; ++k) {
        const double q = placeOnChord(k);
        const auto [x, z] = outlineAt(q);
        outline[static_cast<std::size_t>(k)] = {x, z, q};
    }
    const Chords chords = cutLevel(p);
    return layGrid(kChords, kCellsPerChord, kLinesBelow, [&](int r, int k) -> MeshPoint {
        const auto row = static_cast<std::size_t>(r);
        const auto [x, z, q] = outline[static_cast<std::size_t>(k)];
        return {x, heights[row], z, levelU(p, chords[row], q), chords[row].across};
    });
}

struct OutlinePoint {
    double x, z;
};

GridMesh createDisc(const LensPicture& p) {
    const double radiusF = p.mRadius * 2.0 / std::max(p.imgW, p.imgH);
    printLine("180vr original : %f x %f, length = %f\n", p.imgW, p.imgH, 2.0);
    printLine("180vr display as : %f x %f\n", p.imgW, p.effH);
    printLine("180vr mRadius : %f, mRadiusF : %f\n", p.mRadius, radiusF);
    printLine("180vr center : %f x %f\n", p.xCenter, p.yCenter);
    printLine("180vr original offset: %f x %f\n", p.xCenter - p.imgW / 2.0, p.yCenter - p.imgH / 2.0);
    printLine("180vr original offset: %f x %f\n", p.offsetU, p.offsetV);
    printLine("dispAngle = %f, uRate = %f, vRate = %f\n", firstChordAngle(p), p.uRate, p.vRate);

    const Chords chords = cutLevel(p);
    return layGrid(kChords, kCellsPerChord, kLinesBelow, [&](int r, int k) -> MeshPoint {
        const Chord& chord = chords[static_cast<std::size_t>(r)];
        const double q = placeOnChord(k);
        return {-q * chord.cosine * radiusF - p.offsetU, chord.sine * radiusF, 0.0, levelU(p, chord, q),
                chord.across};
    });
}

/// The height of a bent surface that is as wide as the lens circle of radius m, unrolled.
double bentHeight(const LensPicture& p, double m) {
    const double rho = kBendRadius * m;
    return 2.0 * std::asin(m / rho) * rho * (2.0 * p.imgH / p.imgW) / (2.0 * m);
}

void printLensPosition(const LensPicture& p) {
    printLine("----------> dispCenterX = %f, dispCenterY = %f, mRadius = %f\n", p.dispCenterX, p.dispCenterY,
              p.mRadius);
}

GridMesh createWideStretch(const LensPicture& p, int backingWidth, int backingHeight) {
    const double m = 2.0 * p.mRadius / p.imgW, rho = kBendRadius * m;
    const double width = 2.0 * m, height = bentHeight(p, m);
    const double targetW = 2.0;
    const double targetH =
        (2.0 * width / (height / p.vRate)) * p.effH / p.imgW * (2.0 / width * kWideFlattening);
    printLine("180vr stretch : %f x %f\n", p.imgW, p.imgH);
    printLine(
        "----------> backingWidth = %d, backingHeight = %d, width = %f, height = %f, targetW = %f, targetH = "
        "%f\n",
        backingWidth, backingHeight, width, height, targetW, targetH);
    printLensPosition(p);

    const double yStart = (1.0 - p.offsetV) * targetH * 0.5 * -kWideBelowCentre;
    return layOnOutline(p, chordHeights(targetH, yStart), [&](double q) -> OutlinePoint {
        return {rho * std::asin(q * m / rho) * 2.0 / width - p.offsetU * 2.0 / width, kStretchDepth};
    });
}

GridMesh createTallStretch(const LensPicture& p) {
    const double m = 2.0 * p.mRadius / p.imgH;
    const double targetW = kTallBroadening * 2.0 * p.imgW / p.effH, targetH = 2.0;
    const double width = 2.0 * kBendRadius * std::acos(1.0 / kBendRadius) * p.imgW / p.imgH;
    const double xBase = targetW * 0.5, yBase = (2.0 - 2.0 * m) * 0.5;
    printLine("180vr stretch : %f x %f\n", p.imgW, p.imgH);
    printLine(
        "-----------> dispWidth = %f, dispHeight = %f, mRadiusF=%f, width = %f, height = %f, targetW = %f, "
        "targetH = "
        "%f, offsetU = %f, offsetV = %f\n",
        p.imgW, p.effH, m, width, 2.0 * m, targetW, targetH, p.offsetU, p.offsetV);
    printLine("----------> xBase = %f, yBase = %f \n", xBase, yBase);
    printLensPosition(p);

    const Chords chords = cutUpright(p);
    return layGrid(kChords, kCellsPerChord, kLinesAsideFromNew, [&](int s, int k) -> MeshPoint {
        const Chord& chord = chords[static_cast<std::size_t>(s)];
        const double v = 0.5 + p.offsetV + placeOnChord(k) * chord.half;
        return {xBase - (kChords - s) * targetW / kChords, (m - k / kCellsToMiddle) / m + yBase,
                kStretchDepth, chord.across, v};
    });
}

GridMesh createCylinder(const LensPicture& p) {
    const double m = 2.0 * p.mRadius / p.imgW, radius = kCylinderRadius * m;
    const double height =
        std::asin(1.0) * 2.0 * m * (2.0 * p.imgH / p.imgW) / (2.0 * m) * kCylinderHeight / p.vRate;
    // Sine and cosine of 2·asin q + π without the angle itself, so that both ends meet to the last bit.
    auto mesh = layOnOutline(p, chordHeights(height, -height / 2.0), [&](double q) -> OutlinePoint {
        return {-2.0 * q * std::sqrt((1.0 - q) * (1.0 + q)) * radius, (1.0 - 2.0 * q * q) * radius};
    });
    mesh.extent = m;
    return mesh;
}

GridMesh createCurvedScreen(const LensPicture& p) {
    const double m = 2.0 * p.mRadius / p.imgW, rho = kBendRadius * m, screenRadius = kScreenRadius * rho;
    const double height = bentHeight(p, m) / p.vRate;
    auto mesh = layOnOutline(p, chordHeights(height, -height / 2.0), [&](double q) -> OutlinePoint {
        const double angle = std::asin(q * m / rho) * rho / screenRadius;
        return {std::sin(angle) * screenRadius, screenRadius - std::cos(angle) * screenRadius};
    });
    mesh.extent = screenRadius;
    return mesh;
}

}  // namespace

std::optional<GridMesh> GridMesh_Create_180VR(int drawMode, const FishEyeConfig& lens, int backingWidth,
                                              int backingHeight) {
    printLine("GridMesh_Create_180VR : drawMode = %d\n", drawMode);
    const LensPicture p(lens);
    switch (drawMode) {
        case FOVIX_180_DISC:
            return createDisc(p);
        case FOVIX_180_STRETCH:
            return p.imgW > p.imgH ? createWideStretch(p, backingWidth, backingHeight) : createTallStretch(p);
        case FOVIX_180_CYLINDER:
            return createCylinder(p);
        case FOVIX_180_CURVED:
            return createCurvedScreen(p);
        default:
            printLine("GridMesh_Create_180VR Error : drawMode = %d\n", drawMode);
            return std::nullopt;
    }
}

}  // namespace fovix
