// A mesh as coloured patches: groups of cells whose colour encodes their position in the lens circle. A patch
// has the same colour in the image, in space and on the surface.
#pragma once

#include <string>
#include <vector>

#include "lens/FishEyeConfig.h"
#include "mesh/GridCells.h"
#include "mesh/GridMesh.h"

namespace fovix::drawings {

/// A circle in the texture, as fractions of its width (u) and height (v).
struct LensDisc {
    double u, v, radiusU, radiusV;
};

LensDisc discOf(const FishEyeConfig& lens);

/// The order of a mesh's cells, and how many of them form a patch.
struct PatchSize {
    CellCorners corners;
    int cellsPerLine;
    int lines, places;  ///< of one patch
};

struct Patch {
    std::vector<MeshPoint> outline;
    std::string colour;
};

/// Groups the cells of a mesh. The nearest disc colours a patch.
std::vector<Patch> patchesOf(const GridMesh& mesh, const PatchSize& size, const std::vector<LensDisc>& discs);

/// For a rectangle of two triangles: a dark patch for all of it, and sectors and rings for the lens circles
/// on it.
std::vector<Patch> patchesOfRectangle(const GridMesh& mesh, const std::vector<LensDisc>& discs);

}  // namespace fovix::drawings
