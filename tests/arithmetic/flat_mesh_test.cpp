// The flat picture, its halves, and the straightened grid of the Korvel lens.
#include <climits>

#include "mesh_reading.h"

using namespace fovix;

const Fec kTallCamera = {1280, 960, 900, 2560, 1920};

TEST(FlatPicture, FitsTheSurfaceWithoutDistortion) {
    const struct {
        int height;
        Fec fec;
        int backingWidth, backingHeight;
        double x, y;
    } cases[] = {
        {1080, {}, 1280, 720, 1.0, 0.5625},
        {1080, {}, 1000, 1000, 1.0, 0.5625},
        {1080, {}, 2000, 500, 4.0 / 9.0, 0.25},
        {1088, kTallCamera, 0, 720, 1.0, 0.75},
        {1088, kTallCamera, 1280, 720, 0.75, 0.5625},
        {1080, {}, -2000, 500, 1.0, 0.5625},
        {1080, {}, 2000, -500, 1.0, 0.5625},
        {1080, {}, INT_MAX, 1, 1920.0 / 1080.0 / INT_MAX, 1.0 / INT_MAX},
    };
    for (const auto& [height, fec, width, surfaceHeight, x, y] : cases) {
        const FishEyeConfig lens = lensOf(3, 1920, height, fec);
        const auto expectRows = [&, x = x, y = y](const GridMesh& mesh, double top, double bottom) {
            const MeshCell picture = cellsOf(mesh).at(0);
            EXPECT_PRED3(isAt, picture.a, (Vertex{-x, y, 0}), 1e-15);
            EXPECT_PRED3(isAt, picture.c, (Vertex{x, -y, 0}), 1e-15);
            EXPECT_TRUE(picture.a.v == top && picture.c.v == bottom) << picture.a;
        };
        expectRows(GridMesh_Create_Original(lens, width, surfaceHeight), 0.0, 1.0);
        expectRows(GridMesh_Create_HalfTop(lens, width, surfaceHeight), 0.0, 0.5);
        expectRows(GridMesh_Create_HalfBottom(lens, width, surfaceHeight), 0.5, 1.0);
    }
}

TEST(Korvel, FillsTheSurface) {
    const struct {
        int backingWidth, backingHeight;
        double halfHeight;
    } cases[] = {
        {1280, 720, 0.5625}, {1000, 1000, 1.0}, {2000, 500, 0.25}, {0, 500, 0.5625}, {1, INT_MAX, INT_MAX}};
    for (const auto& [width, height, halfHeight] : cases) {
        const auto cells = cellsOf(GridMesh_Create_Korvel(lensOf(3, 1920, 1080), width, height));
        ASSERT_EQ(cells.size(), 2500u);
        EXPECT_PRED3(isAt, cells.front().a, (Vertex{-1, -halfHeight, 0}), 1e-12 * (1 + halfHeight));
        EXPECT_PRED3(isAt, cells.back().c, (Vertex{1, halfHeight, 0}), 1e-12 * (1 + halfHeight));
    }
}

TEST(Korvel, SamplesAlongTheLensArcsAndNothingBeyondThem) {
    const struct {
        int width, height;
        double a, b;
    } cases[] = {{704, 576, 704.0, 461.12},
                 {1920, 1080, 1440.0, 1296.0},
                 {704, 575, 528.0, 475.2},
                 {1000, 2025, 750.0, 675.0},  // the arcs meet the corners exactly
                 {1000, 3000, 750.0, 675.0}};
    for (const auto& [width, height, a, b] : cases) {
        for (const MeshCell& cell : cellsOf(GridMesh_Create_Korvel(lensOf(3, width, height), 0, 0))) {
            SCOPED_TRACE(testing::Message() << width << " x " << height << ": " << cell.b);
            // On the quad the unbent picture lies upright: x and y in pixels from its centre, y downwards.
            const double x = cell.b.x * width / 2.0, y = -cell.b.y * width / 2.0, bend = x * y / (a * b);
            const double u = x * std::sqrt((1.0 - y * y / (a * a)) / (1.0 - bend * bend)) / width + 0.5;
            const double v = y * std::sqrt((1.0 - x * x / (b * b)) / (1.0 - bend * bend)) / height + 0.5;
            if (std::abs(x) > 1.0 && std::abs(y) > a) {
                ASSERT_TRUE(std::abs(cell.b.u - 0.5) >= 0.5 || std::abs(cell.b.v - 0.5) >= 0.5);
                ASSERT_TRUE(std::isfinite(cell.b.u) && std::isfinite(cell.b.v));
            } else if (std::abs(x) > 1.0) {  // the middle column stays as it is
                ASSERT_NEAR(cell.b.u, u, 1e-9);
                ASSERT_NEAR(cell.b.v, v, 1e-9);
            }
        }
    }
}
