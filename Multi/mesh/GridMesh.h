// Meshes that lay the camera's frame out as textured triangles in model space, in double precision.
//
// A builder takes a copy of the lens circle with a usable texture size (width and height above 0) and returns
// the whole mesh. Texture coordinates run from 0 to 1 across the texture, v = 0 at the frame's first row.
// Every grid cell yields two triangles, line by line; GridCells.h shows their corners.
#pragma once

#include <optional>
#include <vector>

#include "lens/FishEyeConfig.h"

namespace fovix {

struct GridMesh {
    std::vector<double> triangles;  ///< 15 doubles per triangle: x, y, z, u, v of three vertices
    int triangleCount = 0;
    double extent = 0.0;  ///< size of the curved meshes of the 180-degree view in model units; 0 elsewhere
};

inline constexpr int kDoublesPerTriangle = 15;

/// 2 triangles: the whole frame, two units wide, fitted to a surface of the given size (pixels; 0: unknown).
GridMesh GridMesh_Create_Original(const FishEyeConfig& lens, int backingWidth, int backingHeight);

/// 2 triangles: the upper (v 0 to 0.5) or the lower half (v 0.5 to 1) of the texture, fitted in the same way.
GridMesh GridMesh_Create_HalfTop(const FishEyeConfig& lens, int backingWidth, int backingHeight);
GridMesh GridMesh_Create_HalfBottom(const FishEyeConfig& lens, int backingWidth, int backingHeight);

/// 5000 triangles: the straightened frame of the Korvel lens, filling the surface.
GridMesh GridMesh_Create_Korvel(const FishEyeConfig& lens, int backingWidth, int backingHeight);

/// Up to 3600 triangles: hemisphere, cylinder or strip of the 360-degree panorama for a camera mount (0..3)
/// and a shape (0..10). Unsupported pairs yield degenerate triangles, all vertices at the origin.
GridMesh GridMesh_Create_360VR(const FishEyeConfig& lens, int mount, int shape);

/// 12000 triangles: disc (0), stretched panorama (1), full cylinder (2) or curved screen (3) of the
/// 180-degree view; nullopt for any other mode. The surface's size is only printed.
std::optional<GridMesh> GridMesh_Create_180VR(int drawMode, const FishEyeConfig& lens, int backingWidth,
                                              int backingHeight);

}  // namespace fovix
