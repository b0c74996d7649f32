// Builds a grid mesh from a point function, line by line.
//
// Each grid point is evaluated once, so adjacent cells match to the last bit and no gap opens between them.
#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "mesh/GridMesh.h"

namespace fovix {

using MeshPoint = std::array<double, 5>;  ///< x, y, z, u, v

/// One corner of a cell: on the older or the newer of its two lines, at its first or second place there.
struct CellCorner {
    bool onNewLine, atSecondPlace;
};

using CellCorners = std::array<CellCorner, 4>;  ///< A, B, C, D

// Where the corners of a cell are. Its triangles are A, B, D and B, C, D.
//
//      kLinesAside             kLinesBelow          kLinesAsideFromNew
//
//      old     new          first    second           old     new
//       A-------D        old  A-------D                B-------A  first
//       |     / |             |     / |                | \     |
//       |   /   |             |   /   |                |   \   |
//       | /     |             | /     |                |     \ |
//       B-------C        new  B-------C                C-------D  second
//
inline constexpr CellCorners kLinesAside = {{{false, false}, {false, true}, {true, true}, {true, false}}};
inline constexpr CellCorners kLinesBelow = {{{false, false}, {true, false}, {true, true}, {false, true}}};
inline constexpr CellCorners kLinesAsideFromNew = {
    {{true, false}, {false, false}, {false, true}, {true, true}}};

/// A mesh of rows × cellsPerRow cells. pointAt(line, place) returns the point for line 0..rows and place
/// 0..cellsPerRow.
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
                const auto [onNewLine, atSecondPlace] = corners[static_cast<std::size_t>(name)];
                const MeshPoint& point = (onNewLine ? newLine : oldLine)[place + atSecondPlace];
                vertex = std::copy(point.begin(), point.end(), vertex);
            }
            mesh.triangles.insert(mesh.triangles.end(), cell.begin(), cell.end());
        }
    }
    return mesh;
}

}  // namespace fovix
