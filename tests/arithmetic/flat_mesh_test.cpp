// The flat picture, its halves, and the straightened grid of the Korvel lens.
#include <climits>
#include <cmath>

#include "mesh_reading.h"

using namespace fovix;

const Fec kTallCamera = {1280, 960, 900, 2560, 1920};

TEST(FlatPicture, FitsTheSurfaceWithoutDistortion) {
    const struct {
        int width, height;
        Fec fec;
        int backingWidth, backingHeight;
        double halfWidth, halfHeight;
    } cases[] = {
        {1920, 1080, {}, 1280, 720, 1.0, 0.5625},
        {1920, 1080, {}, 1000, 1000, 1.0, 0.5625},
        {1920, 1080, {}, 2000, 500, 4.0 / 9.0, 0.25},
        {1920, 1088, kTallCamera, 0, 720, 1.0, 0.75},
        {1920, 1088, kTallCamera, 1280, 720, 0.75, 0.5625},
        {1920, 1080, {}, -2000, 500, 1.0, 0.5625},
        {1920, 1080, {}, 2000, -500, 1.0, 0.5625},
        {1920, 1080, {}, INT_MAX, 1, 1920.0 / 1080.0 / INT_MAX, 1.0 / INT_MAX},
    };
    const struct {
        GridMesh (*create)(const FishEyeConfig&, int, int);
        double top, bottom;
    } builders[] = {{GridMesh_Create_Original, 0.0, 1.0},
                    {GridMesh_Create_HalfTop, 0.0, 0.5},
                    {GridMesh_Create_HalfBottom, 0.5, 1.0}};
    for (const auto& each : cases) {
        const FishEyeConfig lens = lensOf(3, each.width, each.height, each.fec);
        const double x = each.halfWidth, y = each.halfHeight;
        for (const auto& [create, top, bottom] : builders) {
            const auto vertices = verticesOf(create(lens, each.backingWidth, each.backingHeight));
            const Vertex expected[] = {{-x, y, 0, 0, top},     {-x, -y, 0, 0, bottom}, {x, y, 0, 1, top},
                                       {-x, -y, 0, 0, bottom}, {x, -y, 0, 1, bottom},  {x, y, 0, 1, top}};
            ASSERT_EQ(vertices.size(), 6u);
            for (std::size_t k = 0; k < 6; ++k) {
                SCOPED_TRACE(testing::Message()
                             << each.backingWidth << " x " << each.backingHeight << ", vertex " << k);
                EXPECT_DOUBLE_EQ(vertices[k].x, expected[k].x);
                EXPECT_DOUBLE_EQ(vertices[k].y, expected[k].y);
                EXPECT_EQ(vertices[k].z, 0.0);
                EXPECT_EQ(vertices[k].u, expected[k].u);
                EXPECT_EQ(vertices[k].v, expected[k].v);
            }
        }
    }
}

TEST(FlatPicture, PrintsItsFit) {
    const FishEyeConfig lens = lensOf(3, 1920, 1088, kTallCamera);
    EXPECT_EQ(printed([&] { GridMesh_Create_HalfTop(lens, 1280, 720); }),
              "backing : 1280 x 720\noriginal : 1920.000000 x 1088.000000, length = 2.000000\n"
              "display as : 1920.000000 x 1440.000000, ratio : 0.750000\n");
    EXPECT_EQ(
        printed([&] { GridMesh_Create_Korvel(lens, 2000, 500); }),
        "korvel : 1920.000000 x 1088.000000, length = 2.000000\nbacking : 2000 x 500\n"
        "display as : 1920.000000 x 1440.000000, ratio : 0.333333, ratioX : 3.000000, ratioY : 1.000000\n"
        "display as : 0.900000\n");
}

TEST(Korvel, FillsTheSurface) {
    const FishEyeConfig lens = lensOf(3, 1920, 1080);
    const struct {
        int backingWidth, backingHeight;
        double halfHeight;
    } cases[] = {
        {1280, 720, 0.5625}, {1000, 1000, 1.0}, {2000, 500, 0.25}, {0, 500, 0.5625}, {1, INT_MAX, INT_MAX}};
    for (const auto& [width, height, halfHeight] : cases) {
        const auto cells = cellsOf(GridMesh_Create_Korvel(lens, width, height));
        ASSERT_EQ(cells.size(), 2500u);
        EXPECT_NEAR(cells.front().a.x, -1.0, 1e-12) << width << " x " << height;
        EXPECT_NEAR(cells.front().a.y / halfHeight, -1.0, 1e-12) << width << " x " << height;
        EXPECT_NEAR(cells.back().c.x, 1.0, 1e-12) << width << " x " << height;
        EXPECT_NEAR(cells.back().c.y / halfHeight, 1.0, 1e-12) << width << " x " << height;
    }
}

TEST(Korvel, SamplesAlongTheLensArcs) {
    const struct {
        int width, height;
        double a, b;
    } cases[] = {{704, 576, 704.0, 461.12}, {1920, 1080, 1440.0, 1296.0}, {704, 575, 528.0, 475.2}};
    for (const auto& [width, height, a, b] : cases) {
        for (const MeshCell& cell : cellsOf(GridMesh_Create_Korvel(lensOf(3, width, height), 0, 0))) {
            // On the quad the unbent picture lies upright: x and y in pixels from its centre, y downwards.
            const double x = cell.b.x * width / 2.0, y = -cell.b.y * width / 2.0;
            const double bend = x * y / (a * b);
            const double arcX = x * std::sqrt((1.0 - y * y / (a * a)) / (1.0 - bend * bend));
            const double arcY = y * std::sqrt((1.0 - x * x / (b * b)) / (1.0 - bend * bend));
            EXPECT_NEAR(cell.b.u, arcX / width + 0.5, 1e-9) << width << ": " << x << ", " << y;
            EXPECT_NEAR(cell.b.v, arcY / height + 0.5, 1e-9) << width << ": " << x << ", " << y;
        }
    }
}

TEST(Korvel, ShowsNothingBeyondTheArcsOfATallPicture) {
    for (const int height : {2025, 3000}) {  // the arcs meet the first one's corners exactly
        int beyond = 0;
        for (const MeshCell& cell : cellsOf(GridMesh_Create_Korvel(lensOf(3, 1000, height), 0, 0))) {
            const double x = cell.a.x * 500.0, y = cell.a.y * 500.0, u = cell.a.u, v = cell.a.v;
            ASSERT_TRUE(std::isfinite(u) && std::isfinite(v)) << x << ", " << y;
            if (std::abs(x) < 1.0 || std::abs(y) < 751.0) continue;  // the middle column stays as it is
            EXPECT_TRUE(u <= 0.0 || u >= 1.0 || v <= 0.0 || v >= 1.0) << x << ", " << y << ": " << u;
            ++beyond;
        }
        EXPECT_GT(beyond, 500) << height;
    }
}
