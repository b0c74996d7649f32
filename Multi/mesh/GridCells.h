// How a mesh grows: point by point along a line, cell by cell between two neighbouring lines.
//
// A builder says how many lines it has, how many cells lie along each, and what point stands where; every
// point is asked for once, so neighbouring cells share it to the last bit and no gap can open between them.
#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "mesh/GridMesh.h"

namespace fovix {

using MeshPoint = std::array<double, 5>;  ///< x, y, z, u, v

/// One corner of a cell: on the older or the newer of its two lines, at its first or second point there.
struct CellCorner {
    bool onNewLine, atSecondPoint;
};

using CellCorners = std::array<CellCorner, 4>;  ///< A, B, C, D

/// Lines stand side by side, cells follow each other along them.
inline constexpr CellCorners kLinesAside = {{{false, false}, {false, true}, {true, true}, {true, false}}};
/// Lines lie below one another.
inline constexpr CellCorners kLinesBelow = {{{false, false}, {true, false}, {true, true}, {false, true}}};
/// Lines stand side by side, and A is on the new one.
inline constexpr CellCorners kLinesAsideFromNew = {
    {{true, false}, {false, false}, {false, true}, {true, true}}};

/// pointAt(line, place) gives the point for line 0..rows and place 0..cellsPerRow.
template <class PointAt>
GridMesh layGrid(int rows, int cellsPerRow, const CellCorners& corners, PointAt&& pointAt) {
    constexpr std::array kTriangleCorners = {0, 1, 3, 1, 2, 3};  // A, B, D and B, C, D
    const auto places = static_cast<std::size_t>(cellsPerRow) + 1;
    std::vector<MeshPoint> oldLine(places), newLine(places);
    const auto fillNewLine = [&](int line) {
        for (std::size_t place = 0; place < places; ++place)
            newLine[place] = pointAt(line, static_cast<int>(place));
    };

    GridMesh mesh;
    mesh.triangleCount = rows * cellsPerRow * 2;
    mesh.triangles.reserve(static_cast<std::size_t>(mesh.triangleCount) * kDoublesPerTriangle);
    fillNewLine(0);
    for (int line = 1; line <= rows; ++line) {
        oldLine.swap(newLine);
        fillNewLine(line);
        for (std::size_t place = 0; place + 1 < places; ++place) {
            std::array<double, 2 * kDoublesPerTriangle> cell;
            auto vertex = cell.begin();
            for (const int name : kTriangleCorners) {
                const auto [onNewLine, atSecondPoint] = corners[static_cast<std::size_t>(name)];
                const MeshPoint& point = (onNewLine ? newLine : oldLine)[place + atSecondPoint];
                vertex = std::copy(point.begin(), point.end(), vertex);
            }
            mesh.triangles.insert(mesh.triangles.end(), cell.begin(), cell.end());
        }
    }
    return mesh;
}

}  // namespace fovix
