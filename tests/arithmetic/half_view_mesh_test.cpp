// The four meshes of the 180-degree view. Modes: 0 disc, 1 stretched, 2 cylinder, 3 curved screen.
#include <array>
#include <cmath>

#include "mesh_reading.h"

using namespace fovix;

struct LensCase {
    const char* name;
    int width, height;
    Fec fec;
    double firstV, lastV;  ///< of the level chords
    double effH;
};

const LensCase kLenses[] = {
    {"as high as the picture", 1920, 1080, {960, 540, 540, 1920, 1080}, 0.0, 1.0, 1080.0},
    {"inside", 1920, 1080, {900, 500, 270, 1920, 1080}, 230.0 / 1080, 770.0 / 1080, 1080.0},
    {"cut above and below", 1920, 1080, {960, 600, 960, 1920, 1080}, 0.0, 1.0, 1080.0},
    {"squeezed", 1920, 1080, {900, 960, 700, 1920, 1920}, 260.0 / 1920, 1660.0 / 1920, 1920.0},
    {"cut, off by the last bit", 720, 576, {360, 288, 358, 720, 576}, 0.0, 1.0, 576.0},
    {"square", 1000, 1000, {480, 520, 400, 1000, 1000}, 0.12, 0.92, 1000.0},
    {"tall", 1080, 1920, {560, 900, 700, 1080, 1920}, 200.0 / 1920, 1600.0 / 1920, 1920.0},
};

FishEyeConfig lensFor(const LensCase& each) {
    return lensOf(1, each.width, each.height, each.fec);
}

struct HalfView {
    HalfView(int mode, const FishEyeConfig& lens)
        : mesh(GridMesh_Create_180VR(mode, lens, 1280, 720).value()), cells(cellsOf(mesh)) {}
    const MeshCell& at(std::size_t chord, std::size_t place) const { return cells.at(chord * 120 + place); }

    GridMesh mesh;
    std::vector<MeshCell> cells;
};

TEST(HalfView, SamplesChordsThatEndOnTheCircle) {
    for (const LensCase& each : kLenses) {
        const FishEyeConfig lens = lensFor(each);
        for (const int mode : {0, 1, 2, 3}) {
            SCOPED_TRACE(testing::Message() << each.name << ", mode " << mode);
            const HalfView view(mode, lens);
            ASSERT_EQ(view.mesh.triangleCount, 12000);
            const bool upright = mode == 1 && each.width <= each.height;
            for (std::size_t chord = 0; chord < 50; ++chord) {
                const MeshCell &first = view.at(chord, 0), &last = view.at(chord, 119);
                for (const Vertex& end : {first.a, first.b, last.c, last.d}) {
                    const double dx = end.u * each.width - lens.xCenter;
                    const double dy = (end.v * each.height - lens.yCenter) * each.effH / each.height;
                    ASSERT_NEAR(std::hypot(dx, dy) / lens.radius, 1.0, 1e-9);
                }
                const Vertex& middle = view.at(chord, 60).a;
                EXPECT_NEAR(upright ? middle.v * each.height : middle.u * each.width,
                            upright ? lens.yCenter : lens.xCenter, 1e-6);
                // A level chord starts at its right-hand end, an upright one at its top.
                EXPECT_GE(upright ? last.d.v : first.a.u, (upright ? first.a.v : last.d.u) - 1e-12);
            }
            if (upright) {  // the rightmost chord first
                EXPECT_NEAR(view.at(0, 0).b.u, std::min(1.0, (lens.xCenter + lens.radius) / each.width),
                            1e-9);
                EXPECT_NEAR(view.at(49, 0).a.u, std::max(0.0, (lens.xCenter - lens.radius) / each.width),
                            1e-9);
            } else {
                EXPECT_NEAR(view.at(0, 0).a.v, each.firstV, 1e-9);
                EXPECT_NEAR(view.at(49, 0).b.v, each.lastV, 1e-9);
            }
        }
    }
}

TEST(HalfView, DiscKeepsThePictureAsItIs) {
    for (const LensCase& each : kLenses) {
        const FishEyeConfig lens = lensFor(each);
        const double unit = 2.0 / std::max(each.width, each.height);  // model units per pixel
        const double offsetU = static_cast<double>(lens.xCenter) / each.width - 0.5;
        for (const Vertex& vertex : verticesOf(HalfView(0, lens).mesh)) {
            // x runs against u: the view turns the mesh round.
            const double right = vertex.u * each.width - lens.xCenter;
            const double up = (lens.yCenter - vertex.v * each.height) * each.effH / each.height;
            ASSERT_NEAR(vertex.x, -right * unit - offsetU, 1e-9) << each.name;
            ASSERT_NEAR(vertex.y, up * unit, 1e-9) << each.name;
            ASSERT_EQ(vertex.z, 0.0);
        }
    }
}

TEST(HalfView, BentSurfacesHaveTheirOutlineAndHeight) {
    const double bend = std::asin(1.0 / 1.06), halfBend = std::asin(0.5 / 1.06);
    for (const LensCase& each : kLenses) {
        const FishEyeConfig lens = lensFor(each);
        const double m = 2.0 * lens.radius / each.width, shown = each.effH / each.width;
        const double aside = (static_cast<double>(lens.xCenter) / each.width - 0.5) / m;
        const double down = static_cast<double>(lens.yCenter) / each.height - 0.5;
        const double screen = 1.15 * 1.06 * m, targetH = 3.8 / (2.12 * bend);
        const auto onScreen = [&](double angle) {
            return std::array{screen * std::sin(angle / 1.15), screen - screen * std::cos(angle / 1.15)};
        };
        const struct {
            int mode;
            double extent, height, top;
            std::array<double, 2> start, quarter, middle, end;  ///< x and z
        } cases[] = {
            {1,
             0.0,
             targetH,
             targetH * (0.98 - (1.0 - down) * 0.485),
             {-1.06 * bend - aside, -0.26},
             {-1.06 * halfBend - aside, -0.26},
             {-aside, -0.26},
             {1.06 * bend - aside, -0.26}},
            {2,
             m,
             0.35 * kPi * shown,
             0.48 * 0.35 * kPi * shown,
             {0, -0.6 * m},
             {0.3 * std::sqrt(3.0) * m, 0.3 * m},
             {0, 0.6 * m},
             {0, -0.6 * m}},
            {3,
             screen,
             2.12 * bend * shown,
             0.48 * 2.12 * bend * shown,
             onScreen(-bend),
             onScreen(-halfBend),
             {0, 0},
             onScreen(bend)},
        };
        for (const auto& expected : cases) {
            if (expected.mode == 1 && each.width <= each.height) continue;
            SCOPED_TRACE(testing::Message() << each.name << ", mode " << expected.mode);
            const HalfView view(expected.mode, lens);
            EXPECT_NEAR(view.mesh.extent, expected.extent, 1e-12);
            for (std::size_t chord = 0; chord < 50; ++chord) {
                const auto expectAt = [&](const Vertex& vertex, const std::array<double, 2>& outline,
                                          std::size_t row) {
                    EXPECT_NEAR(vertex.x, outline[0], 1e-9);
                    EXPECT_NEAR(vertex.z, outline[1], 1e-9);
                    EXPECT_NEAR(vertex.y, expected.top - static_cast<double>(row) * expected.height / 50.0,
                                1e-9);
                };
                expectAt(view.at(chord, 0).a, expected.start, chord);
                expectAt(view.at(chord, 29).c, expected.quarter, chord + 1);
                expectAt(view.at(chord, 60).b, expected.middle, chord + 1);
                expectAt(view.at(chord, 119).d, expected.end, chord);
            }
            if (expected.mode == 2) {  // its ends meet to the last bit
                EXPECT_EQ(view.at(7, 0).a.x, view.at(7, 119).d.x);
                EXPECT_EQ(view.at(7, 0).a.z, view.at(7, 119).d.z);
            }
        }
    }
}

TEST(HalfView, TallStretchStandsUpright) {
    const HalfView view(1, lensFor(kLenses[6]));
    const double m = 1400.0 / 1920.0, halfWidth = 1.2 * 1080 / 1920;
    for (std::size_t strip = 0; strip < 50; ++strip) {
        const double left = halfWidth * (static_cast<double>(strip) / 25.0 - 1.0);
        EXPECT_NEAR(view.at(strip, 0).a.x, left + halfWidth / 25.0, 1e-12);
        EXPECT_NEAR(view.at(strip, 0).b.x, left, 1e-12);
        EXPECT_NEAR(view.at(strip, 0).a.y, 2.0 - m, 1e-12);
        EXPECT_NEAR(view.at(strip, 119).d.y, 2.0 - 2.0 / m - m, 1e-12);
        EXPECT_EQ(view.at(strip, 0).a.z, -0.26);
    }
}

TEST(HalfView, PrintsWhatItBuilds) {
    const FishEyeConfig wide = lensOf(1, 1920, 1080, {900, 600, 540, 1920, 1080});
    const FishEyeConfig square = lensOf(1, 1000, 1000, {500, 500, 500, 1000, 1000});
    const struct {
        int mode;
        const FishEyeConfig& lens;
        const char* lines;
    } cases[] = {
        {0, wide,
         "180vr original : 1920.000000 x 1080.000000, length = 2.000000\n"
         "180vr display as : 1920.000000 x 1080.000000\n180vr mRadius : 540.000000, mRadiusF : 0.562500\n"
         "180vr center : 900.000000 x 600.000000\n180vr original offset: -60.000000 x 60.000000\n"
         "180vr original offset: -0.031250 x 0.055556\ndispAngle = 1.570796, uRate = 1.000000, vRate = "
         "1.000000\n"},
        {1, wide,
         "180vr stretch : 1920.000000 x 1080.000000\n"
         "----------> backingWidth = 1280, backingHeight = 720, width = 1.125000, height = 1.470025, targetW "
         "= "
         "2.000000, targetH = 1.454057\n"
         "----------> dispCenterX = 900.000000, dispCenterY = 600.000000, mRadius = 540.000000\n"},
        {1, square,
         "180vr stretch : 1000.000000 x 1000.000000\n"
         "-----------> dispWidth = 1000.000000, dispHeight = 1000.000000, mRadiusF=1.000000, width = "
         "0.716710, height "
         "= 2.000000, targetW = 2.400000, targetH = 2.000000, offsetU = 0.000000, offsetV = 0.000000\n"
         "----------> xBase = 1.200000, yBase = 0.000000 \n"
         "----------> dispCenterX = 500.000000, dispCenterY = 500.000000, mRadius = 500.000000\n"},
        {4, wide, "GridMesh_Create_180VR Error : drawMode = 4\n"},
        {-1, wide, "GridMesh_Create_180VR Error : drawMode = -1\n"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(printed([&] {
                      const auto mesh = GridMesh_Create_180VR(each.mode, each.lens, 1280, 720);
                      EXPECT_EQ(mesh.has_value(), each.mode >= 0 && each.mode < 4);
                  }),
                  "GridMesh_Create_180VR : drawMode = " + std::to_string(each.mode) + "\n" + each.lines);
    }
}
