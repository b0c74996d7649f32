// The door: pictures and grids that cannot be are refused with their line, and what was there before stays.
#include <gtest/gtest.h>

#include <climits>
#include <cstdio>

#include "FovixContext.h"
#include "HeadlessGl.h"
#include "PlainPicture.h"

namespace fovix_test {
namespace {

TEST(Door, WhatIsNoPictureIsRefusedAndTheOldOneStays) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    const Image before = quadrants(40, 30);
    stage.show(before);
    const Image expected = flatPicture(sampled(before), {0.75}, 40, 30, rgb(0));
    const unsigned char some[64] = {};
    struct Case {
        const unsigned char* data;
        int size, width, height;
    };
    const Case cases[] = {
        {nullptr, 64, 4, 4},      {some, -1, 4, 4},
        {some, INT_MIN, 4, 4},    {some, 64, 0, 4},
        {some, 64, 4, 0},         {some, 64, -4, 4},
        {some, 64, 4, -4},        {some, 64, -4, -4},
        {some, 64, 65536, 65536}, {some, 64, INT_MAX, INT_MAX},
        {some, 64, 32768, 16384}, {some, 64, INT_MIN, INT_MIN},
        {some, 64, 536870656, 1},  // 4 times that + 1024 is 2^31
    };
    for (const Case& c : cases) {
        for (int setter = 0; setter < 6; ++setter) {
            char line[200];
            std::snprintf(line, sizeof line,
                          "Texture Parameter Error! data = %p, size = %d, width = %d, height = %d\n",
                          static_cast<const void*>(c.data), c.size, c.width, c.height);
            EXPECT_EQ(printedBy([&] {
                          if (setter == 0) Fovix_SetRGBTexture(stage.view, c.data, c.size, c.width, c.height);
                          if (setter == 1)
                              Fovix_SetYUV420PTexture(stage.view, c.data, c.size, c.width, c.height);
                          const int formats[] = {1, 3, 9, 10};
                          if (setter >= 2)
                              Fovix_SetTexture(stage.view, formats[setter - 2], c.data, c.size, c.width,
                                               c.height);
                      }),
                      line);
        }
        EXPECT_EQ(stage.view->frames[0].width, 40);
        EXPECT_EQ(stage.view->frames[0].capacity, 40 * 30 * 4 + 1024);
        EXPECT_EQ(stage.view->usingYUV, 0);
        EXPECT_TRUE(looksLike(stage.draw(), expected)) << c.width << "x" << c.height;
    }
}

TEST(Door, OtherPixelFormatsAreIgnoredInSilence) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    const Image before = quadrants(40, 30);
    stage.show(before);
    const std::vector<unsigned char> other(40 * 30 * 4, 250);
    for (const int pixelFmt : {0, 2, 4, 8, 11, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(
            printedBy([&] { Fovix_SetTexture(stage.view, pixelFmt, other.data(), 40 * 30 * 4, 40, 30); }),
            "");
    }
    EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(before), {0.75}, 40, 30, rgb(0))));
}

TEST(Door, ASizeUpToTheBufferIsTakenAndOneByteMoreIsNot) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    const int capacity = 40 * 30 * 4 + 1024;
    const std::vector<unsigned char> bytes(static_cast<std::size_t>(capacity) + 1, 150);
    const auto setOf = [&](int size) {
        return printedBy([&] { Fovix_SetRGBTexture(stage.view, bytes.data(), size, 40, 30); });
    };
    EXPECT_EQ(setOf(capacity).find("too small"), std::string::npos);
    const Image grey(40, 30, rgb(0x969696));
    EXPECT_TRUE(looksLike(stage.draw(), grey));
    EXPECT_EQ(setOf(capacity + 1), "Texture Buffer is too small[5824 < 5825]!\n");
    EXPECT_TRUE(looksLike(stage.draw(), grey)) << "the picture uploaded last stays";
    EXPECT_EQ(stage.lines, "");
    EXPECT_EQ(stage.view->frames[0].width, 0) << "the copy before it is gone";
    EXPECT_EQ(stage.view->frames[0].hasNewData, 0);
}

TEST(Door, ATooSmallBufferStillTellsTheNewSize) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    const std::vector<unsigned char> bytes(4096, 9);
    const std::string lines =
        printedBy([&] { Fovix_SetYUV420PTexture(stage.view, bytes.data(), 4096, 10, 10); });
    EXPECT_EQ(lines.rfind("Texture Buffer is too small[1424 < 4096]!\nRefreshConfig\n", 0), 0u) << lines;
    EXPECT_EQ(stage.view->fishEye.TextureWidth, 10);
    stage.draw();
    EXPECT_NE(stage.lines.find("texture not useful 2\n"), std::string::npos);
}

TEST(Door, TheBufferGrowsOnly) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    stage.show(quadrants(64, 32));
    const unsigned char* large = stage.view->frames[0].data.get();
    stage.show(quadrants(16, 16));
    EXPECT_EQ(stage.view->frames[0].data.get(), large);
    EXPECT_EQ(stage.view->frames[0].capacity, 64 * 32 * 4 + 1024);
    stage.show(quadrants(64, 33));
    EXPECT_EQ(stage.view->frames[0].capacity, 64 * 33 * 4 + 1024);
}

TEST(GridDoor, ScreenNumbersBeyond36CellsAreRefused) {
    Stage stage(FOVIX_TYPE_MULTI_IMAGE, 60, 60);
    stage.show(quadrants(20, 20));
    struct Case {
        int rows, columns;
        bool accepted;
    };
    const Case cases[] = {{6, 6, true},
                          {6, 7, false},
                          {36, 1, true},
                          {1, 37, false},
                          {65536, 65536, false},
                          {INT_MAX, INT_MAX, false},
                          {INT_MIN, INT_MIN, false},
                          {-7, -7, false},
                          {0, 5, true},
                          {-1, 5, true},
                          {INT_MIN, INT_MAX, true},
                          {2, 3, true}};
    int rows = 3, columns = 3;
    for (const Case& c : cases) {
        const std::string refusal = "parameters error, rowNum = " + std::to_string(c.rows) +
                                    ", columnNum = " + std::to_string(c.columns) + "\n";
        EXPECT_EQ(printedBy([&] { Fovix_Multi_SetScreenNumber(stage.view, c.rows, c.columns); }),
                  c.accepted ? "" : refusal);
        if (c.accepted) {
            rows = c.rows;
            columns = c.columns;
        }
        const fovix::GridSize grid = stage.view->grid;
        EXPECT_EQ(grid.rows, rows);
        EXPECT_EQ(grid.columns, columns);
        stage.draw();
        const bool drawable = rows >= 1 && columns >= 1;
        EXPECT_EQ(stage.lines == "parameter error in drawSelf()\n", !drawable) << rows << " x " << columns;
    }
}

TEST(GridDoor, PicturesAreTakenByTypeAndIndex) {
    constexpr int kPlain = FOVIX_TYPE_ORIGINAL, kGrid = FOVIX_TYPE_MULTI_IMAGE,
                  kLenses = FOVIX_TYPE_MULTI_LENS;
    const char *const noGrid = "Not Multi_Image", *const noBoth = "Not Multi-Image or Multi-Lens",
                      *const badCell = "Multi_Image Parameter Error!",
                      *const badLens = "Multi-Lens Parameter Error!";
    struct Case {
        int type, index;
        const char *rgba, *planar, *any;
    };
    const Case cases[] = {
        {kPlain, 0, noBoth, noGrid, noGrid},
        {FOVIX_TYPE_180VR, 0, noBoth, noGrid, noGrid},
        {kGrid, 3, "", "", ""},
        {kGrid, 4, badCell, badCell, badCell},
        {kGrid, -1, badCell, badCell, badCell},
        {kGrid, INT_MAX, badCell, badCell, badCell},
        {kLenses, 35, "", noGrid, noGrid},
        {kLenses, 36, badLens, noGrid, noGrid},
        {kLenses, -1, badLens, noGrid, noGrid},
        {kLenses, INT_MIN, badLens, noGrid, noGrid},
    };
    View view;
    Fovix_Multi_SetScreenNumber(view, 2, 2);
    const Image picture = quadrants(8, 8);
    const unsigned char* data = picture.bytes.data();
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "type " << c.type << ", index " << c.index);
        printedBy([&] { Fovix_SetType(view, c.type); });
        EXPECT_EQ(printedBy([&] { Fovix_Multi_SetRGBTexture(view, c.index, data, 256, 8, 8); }), c.rgba);
        EXPECT_EQ(printedBy([&] { Fovix_Multi_SetYUV420PTexture(view, c.index, data, 96, 8, 8); }), c.planar);
        EXPECT_EQ(printedBy([&] { Fovix_Multi_SetTexture(view, c.index, 9, data, 96, 8, 8); }), c.any);
        if (c.type == kGrid) {
            EXPECT_EQ(printedBy([&] { Fovix_Multi_SetTexture(view, c.index, 2, data, 96, 8, 8); }), c.any);
        }
    }
}

TEST(GridDoor, LensesAreChosenWithinTheirNumber) {
    View view;
    for (const int type : {FOVIX_TYPE_360VR, FOVIX_TYPE_MULTI_IMAGE}) {
        printedBy([&] { Fovix_SetType(view, type); });
        const std::string end = "() current type is not support -> [" + std::to_string(type) + "]!\n";
        EXPECT_EQ(printedBy([&] { Fovix_Multi_SwitchLens(view, 0); }), "Fovix_Multi_SwitchLens" + end);
        EXPECT_EQ(printedBy([&] { Fovix_Multi_SetLens(view, 5); }), "Fovix_Multi_SetLens" + end);
        EXPECT_EQ(printedBy([&] { EXPECT_EQ(Fovix_Multi_GetLensCount(view), 0); }),
                  "Fovix_Multi_GetLens" + end);
        EXPECT_EQ(printedBy([&] { EXPECT_EQ(Fovix_Multi_GetLensIndex(view), 0); }),
                  "Fovix_Multi_GetLens" + end);
    }
    printedBy([&] { Fovix_SetType(view, FOVIX_TYPE_MULTI_LENS); });
    EXPECT_EQ(Fovix_Multi_GetLensCount(view), 1);
    struct Step {
        void (*set)(VRHANDLE, int);
        int value, count, index;
    };
    const Step steps[] = {{Fovix_Multi_SwitchLens, 35, 1, 0},   {Fovix_Multi_SetLens, 37, 1, 0},
                          {Fovix_Multi_SetLens, 0, 1, 0},       {Fovix_Multi_SetLens, 36, 36, 0},
                          {Fovix_Multi_SwitchLens, 35, 36, 35}, {Fovix_Multi_SwitchLens, 36, 36, 35},
                          {Fovix_Multi_SwitchLens, -1, 36, 35}, {Fovix_Multi_SetLens, 2, 2, 35},
                          {Fovix_Multi_SwitchLens, 1, 2, 1}};
    for (const Step& step : steps) {
        EXPECT_EQ(printedBy([&] { step.set(view, step.value); }), "");
        EXPECT_EQ(Fovix_Multi_GetLensCount(view), step.count);
        EXPECT_EQ(Fovix_Multi_GetLensIndex(view), step.index);
    }
}

}  // namespace
}  // namespace fovix_test
