// A mesh as coloured patches: several cells joined, with one colour for the place in the lens circle that
// they show. The same patch has the same colour in the picture, in space and on the screen.
#pragma once

#include <string>
#include <vector>

#include "lens/FishEyeConfig.h"
#include "mesh/GridCells.h"
#include "mesh/GridMesh.h"

namespace fovix::drawings {

/// A circle in the texture, in shares of its width (u) and height (v).
struct LensDisc {
    double u, v, radiusU, radiusV;
};

LensDisc discOf(const FishEyeConfig& lens);

/// How the cells of a mesh lie, and how many of them make a patch.
struct PatchSize {
    CellCorners corners;
    int cellsPerLine;
    int lines, places;  ///< of one patch
};

struct Patch {
    std::vector<MeshPoint> outline;
    std::string colour;
};

/// Cells of a mesh that are not drawn one by one; discs: the nearest one colours a patch.
std::vector<Patch> patchesOf(const GridMesh& mesh, const PatchSize& size, const std::vector<LensDisc>& discs);

/// A rectangle of two triangles: one dark patch for all of it, and the lens circles that lie on it in sectors
/// and rings.
std::vector<Patch> patchesOfRectangle(const GridMesh& mesh, const std::vector<LensDisc>& discs);

}  // namespace fovix::drawings
