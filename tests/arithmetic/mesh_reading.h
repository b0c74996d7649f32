// Makes lenses for the mesh tests and reads meshes back vertex by vertex.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "lens/FishEyeConfig.h"
#include "mesh/GridMesh.h"

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
    double x, y, z, u = 0.0, v = 0.0;
    bool operator==(const Vertex&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Vertex& p) {
    return out << p.x << ", " << p.y << ", " << p.z << " shows " << p.u << ", " << p.v;
}

/// Whether a vertex stands at a place.
inline bool isAt(const Vertex& vertex, const Vertex& place, double tolerance) {
    return std::hypot(vertex.x - place.x, vertex.y - place.y, vertex.z - place.z) <= tolerance;
}

/// The same, with what it shows there.
inline bool shows(const Vertex& vertex, const Vertex& expected, double tolerance) {
    return isAt(vertex, expected, tolerance) &&
           std::hypot(vertex.u - expected.u, vertex.v - expected.v) <= tolerance;
}

/// Corners A to D of a cell; its triangles are A, B, D and B, C, D.
struct MeshCell {
    Vertex a, b, c, d;
};

/// In the order of the mesh.
inline std::vector<MeshCell> cellsOf(const GridMesh& mesh) {
    std::vector<MeshCell> cells;
    for (auto at = mesh.triangles.begin(); at != mesh.triangles.end(); at += 30) {
        const auto vertex = [at](int k) {
            return Vertex{at[5 * k], at[5 * k + 1], at[5 * k + 2], at[5 * k + 3], at[5 * k + 4]};
        };
        cells.push_back({vertex(0), vertex(1), vertex(4), vertex(2)});
        EXPECT_TRUE(vertex(3) == vertex(1) && vertex(5) == vertex(2)) << "cell " << cells.size();
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
