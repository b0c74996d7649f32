// The four meshes of the 180-degree view. Modes: 0 disc, 1 stretched, 2 cylinder, 3 curved screen.
#include <algorithm>

#include "mesh_reading.h"

using namespace fovix;

struct LensCase {
    const char* name;
    int width, height;
    Fec fec;
    double effH;
};

const LensCase kLenses[] = {
    {"as high as the picture", 1920, 1080, {960, 540, 540, 1920, 1080}, 1080.0},
    {"inside", 1920, 1080, {900, 500, 270, 1920, 1080}, 1080.0},
    {"cut above and below", 1920, 1080, {960, 600, 960, 1920, 1080}, 1080.0},
    {"squeezed", 1920, 1080, {900, 960, 700, 1920, 1920}, 1920.0},
    {"cut, off by the last bit", 720, 576, {360, 288, 358, 720, 576}, 576.0},
    {"square", 1000, 1000, {480, 520, 400, 1000, 1000}, 1000.0},
    {"tall", 1080, 1920, {560, 900, 700, 1080, 1920}, 1920.0},
};

/// A vertex of chord `row` (0 the first, 1 the last) at q (−1 its start, 1 its end), worked out from the
/// circle alone. Level chords go from right to left, upright ones from the top down.
Vertex vertexOf(const LensCase& each, int mode, double row, double q) {
    const double r = each.fec.radius, w = each.width, h = each.effH, m = 2.0 * r / w;
    const double cx = each.fec.xCenter, cy = each.fec.yCenter, offsetX = cx / w - 0.5, offsetY = cy / h - 0.5;
    const auto reach = [r](double toEdge) { return std::asin(std::min(toEdge / r, 1.0)); };
    const bool upright = mode == 1 && w <= each.height;
    const double first = upright ? reach(w - cx) : reach(cy), last = upright ? -reach(cx) : -reach(h - cy);
    const double angle = first + row * (last - first), along = q * r * std::cos(angle);
    const double right = upright ? r * std::sin(angle) : -along, up = upright ? -along : r * std::sin(angle);
    const double u = (cx + right) / w, v = (cy - up) / h, unit = 2.0 / std::max(each.width, each.height);
    const double bend = std::asin(1.0 / 1.06), arc = std::asin(q / 1.06), turn = 2.0 * std::asin(q);
    const double screen = 1.15 * 1.06 * m, tall = 2.0 * r / h;
    // x of the disc runs against u: the view turns the mesh round.
    if (mode == 0) return {-right * unit - offsetX, up * unit, 0.0, u, v};
    if (upright) return {1.2 * w / h * (2.0 * row - 1.0), 2.0 - tall - (1.0 + q) / tall, -0.26, u, v};
    const double shown = 3.8 / (2.12 * bend) * (0.98 - (1.0 - offsetY) * 0.485 - row);
    if (mode == 1) return {1.06 * arc - offsetX / m, shown, -0.26, u, v};
    const double y = (mode == 2 ? 0.35 * kPi : 2.12 * bend) * h / w * (0.48 - row);
    if (mode == 2) return {-0.6 * m * std::sin(turn), y, 0.6 * m * std::cos(turn), u, v};
    return {screen * std::sin(arc / 1.15), y, screen * (1.0 - std::cos(arc / 1.15)), u, v};
}

TEST(HalfView, LaysChordsOfTheLensCircleOnTheSurface) {
    for (const LensCase& each : kLenses) {
        for (const int mode : {0, 1, 2, 3}) {
            SCOPED_TRACE(testing::Message() << each.name << ", mode " << mode);
            const FishEyeConfig lens = lensOf(1, each.width, each.height, each.fec);
            const GridMesh mesh = GridMesh_Create_180VR(mode, lens, 1280, 720).value();
            const double m = 2.0 * each.fec.radius / each.width;
            EXPECT_NEAR(mesh.extent, mode == 2 ? m : mode == 3 ? 1.219 * m : 0.0, 1e-12);
            const auto cells = cellsOf(mesh);
            ASSERT_EQ(cells.size(), 6000u);
            const bool upright = mode == 1 && each.width <= each.height;
            for (std::size_t k = 0; k < cells.size(); ++k) {
                const double row = static_cast<double>(k / 120) / 50.0;
                const double q = static_cast<double>(k % 120) / 60.0 - 1.0;
                const Vertex first = vertexOf(each, mode, row, q);
                const Vertex last = vertexOf(each, mode, row + 0.02, q + 1.0 / 60.0);
                ASSERT_PRED3(shows, upright ? cells[k].b : cells[k].a, first, 1e-7);
                ASSERT_PRED3(shows, upright ? cells[k].d : cells[k].c, last, 1e-7);
            }
            const Vertex &start = cells[840].a, &end = cells[959].d;
            EXPECT_TRUE(mode != 2 || (start.x == end.x && start.z == end.z)) << "an open seam";
        }
    }
}
