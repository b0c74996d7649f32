// The Korvel lens bends the straight lines of a scene into arcs of conics around the frame's centre; sampling
// the frame along these arcs straightens them. The grid fills the whole surface.
#include <algorithm>
#include <array>
#include <cmath>

#include "base/Diagnostics.h"
#include "lens/PictureFit.h"
#include "mesh/GridCells.h"

namespace fovix {

namespace {

constexpr int kCells = 50;  ///< in each direction

/// Axes of the lens's conics in frame widths.
struct ConicAxes {
    double level, upright;
};

constexpr ConicAxes kAxes = {1.5, 1.35};

/// Frames of 704 × 576 pixels, whose pixels are not square, have axes of their own.
constexpr ConicAxes kAxesOf4Cif = {2.0, 1.31};

/// Where points that no arc passes through are placed, frame sizes from the centre: outside the frame.
constexpr double kOutside = 1.5;

/// Half axes of the lens's conics, texture pixels.
struct Conic {
    double a, b;
};

Conic conicOf(double imgW, double imgH) {
    const ConicAxes& axes = imgW == 704.0 && imgH == 576.0 ? kAxesOf4Cif : kAxes;
    return {imgW * axes.level * 0.5, imgW * axes.upright * 0.5};
}

/// A column or a row of grid points: its place in model units, its offset from the frame's centre in pixels,
/// and the terms of the arcs' equations that all its points share.
struct GridLine {
    GridLine() = default;
    GridLine(double linePlace, double lineOffset, double ownAxis, double otherAxis)
        : place(linePlace), offset(lineOffset) {
        const double square = offset * offset, own = ownAxis * ownAxis;
        beyondOther = square - otherAxis * otherAxis;
        inverse = offset != 0.0 ? own / square : 0.0;
        ratio = square / own;
    }

    double place, offset, beyondOther, inverse, ratio;
};

using GridLines = std::array<GridLine, kCells + 1>;

/// √(numerator ÷ denominator) with the sign of `offset`, or `outside` for the points of a tall frame that no
/// arc passes through.
double alongArc(double numerator, double denominator, double offset, double outside) {
    const double square = denominator != 0.0 ? numerator / denominator : -1.0;
    return std::copysign(square >= 0.0 ? std::sqrt(square) : outside, offset);
}

/// Texture coordinates of a grid point, u and v.
std::array<double, 2> samplePoint(const GridLine& column, const GridLine& row, double imgW, double imgH) {
    double x = column.offset, y = row.offset;
    if (x != 0.0 && y != 0.0) {
        x = alongArc(-row.beyondOther, column.inverse - row.ratio, x, kOutside * imgW);
        y = alongArc(column.beyondOther, column.ratio - row.inverse, y, kOutside * imgH);
    }
    return {std::max(x + imgW / 2.0, 0.0) / imgW, std::max(y + imgH / 2.0, 0.0) / imgH};
}

}  // namespace

GridMesh GridMesh_Create_Korvel(const FishEyeConfig& lens, int backingWidth, int backingHeight) {
    const auto fit = fitPicture(lens);
    const double imgW = fit.imgW, imgH = fit.imgH, effH = fit.effH;
    printLine("korvel : %f x %f, length = %f\n", imgW, imgH, 2.0);
    printLine("backing : %d x %d\n", backingWidth, backingHeight);

    double ratio = 1.0, ratioX = 1.0, ratioY = 1.0;
    if (backingWidth >= 1 && backingHeight >= 1) {
        const double surfaceW = backingWidth, surfaceH = backingHeight;
        const double picture = effH / imgW, surface = surfaceH / surfaceW;
        if (picture > surface) {
            ratioX = picture / surface;
            ratio = surfaceH * imgW / surfaceW / effH;
        } else {
            ratioY = surface / picture;
        }
    }
    printLine("display as : %f x %f, ratio : %f, ratioX : %f, ratioY : %f\n", imgW, effH, ratio, ratioX,
              ratioY);

    const Conic conic = conicOf(imgW, imgH);
    printLine("display as : %f\n", conic.b / conic.a);

    const double height = 2.0 * effH / imgW;
    GridLines columns, rows;
    for (int i = 0; i <= kCells; ++i) {
        const auto line = static_cast<std::size_t>(i);
        const double x = (i * 2.0 / kCells - 1.0) * ratio * ratioX;
        const double y = -(height / 2.0 - i * height / kCells) * ratio * ratioY;
        columns[line] = {x, i * imgW / kCells - imgW / 2.0, conic.a, conic.b};
        rows[line] = {y, imgH / 2.0 - i * imgH / kCells, conic.b, conic.a};
    }
    return layGrid(kCells, kCells, kLinesAside, [&](int i, int j) -> MeshPoint {
        const GridLine &column = columns[static_cast<std::size_t>(i)],
                       &row = rows[static_cast<std::size_t>(j)];
        const auto [u, v] = samplePoint(column, row, imgW, imgH);
        return {column.place, row.place, 0.0, u, v};
    });
}

}  // namespace fovix
