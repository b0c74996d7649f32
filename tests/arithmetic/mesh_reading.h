// Makes lenses for the mesh tests and reads meshes back vertex by vertex.
#pragma once

#include <gtest/gtest.h>

#include <numbers>
#include <string>
#include <vector>

#include "FishEyeConfig.h"
#include "GridMesh.h"

namespace fovix {

inline constexpr double kPi = std::numbers::pi;

/// What the host reports about the lens; the default reports nothing.
struct Fec {
    int xCenter = -1, yCenter = -1, radius = -1, imgWidth = -1, imgHeight = -1;
};

inline FishEyeConfig lensOf(int displayType, int width, int height, const Fec& fec = {}) {
    FishEyeConfig lens;
    lens.displayType = displayType;
    lens.TextureWidth = width;
    lens.TextureHeight = height;
    lens.Fec_xCenter = fec.xCenter;
    lens.Fec_yCenter = fec.yCenter;
    lens.Fec_radius = fec.radius;
    lens.Fec_imgWidth = fec.imgWidth;
    lens.Fec_imgHeight = fec.imgHeight;
    RefreshConfig(lens);
    return lens;
}

struct Vertex {
    double x, y, z, u, v;
    bool operator==(const Vertex&) const = default;
};

inline std::vector<Vertex> verticesOf(const GridMesh& mesh) {
    std::vector<Vertex> vertices;
    for (auto at = mesh.triangles.begin(); at != mesh.triangles.end(); at += 5) {
        vertices.push_back({at[0], at[1], at[2], at[3], at[4]});
    }
    return vertices;
}

/// Corners A to D of the cells, in the order of the mesh: triangles A, B, D and B, C, D.
struct MeshCell {
    Vertex a, b, c, d;
};

inline std::vector<MeshCell> cellsOf(const GridMesh& mesh) {
    const std::vector<Vertex> vertices = verticesOf(mesh);
    std::vector<MeshCell> cells;
    for (std::size_t at = 0; at < vertices.size(); at += 6) {
        cells.push_back({vertices[at], vertices[at + 1], vertices[at + 4], vertices[at + 2]});
        EXPECT_EQ(vertices[at + 3], vertices[at + 1]) << "cell " << at / 6;
        EXPECT_EQ(vertices[at + 5], vertices[at + 2]) << "cell " << at / 6;
    }
    return cells;
}

/// What work prints on standard output.
template <class Work>
std::string printed(Work&& work) {
    testing::internal::CaptureStdout();
    work();
    return testing::internal::GetCapturedStdout();
}

}  // namespace fovix
