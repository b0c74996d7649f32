// The door: pictures and grids that cannot be are refused with their line, and what was there before stays.
#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <utility>

#include "HeadlessGl.h"
#include "handle/FovixContext.h"

namespace fovix_test {
namespace {

TEST(Door, WhatIsNoPictureIsRefusedAndTheOldOneStays) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    stage.show(Image::chequered(40, 30));
    const auto expectRefused = [&](const unsigned char* data, int size, int width, int height) {
        char line[200];
        std::snprintf(line, sizeof line,
                      "Texture Parameter Error! data = %p, size = %d, width = %d, height = %d\n",
                      static_cast<const void*>(data), size, width, height);
        EXPECT_EQ(printedBy(Fovix_SetRGBTexture, stage.view, data, size, width, height), line);
        EXPECT_EQ(printedBy(Fovix_SetYUV420PTexture, stage.view, data, size, width, height), line);
        EXPECT_EQ(printedBy(Fovix_SetTexture, stage.view, 10, data, size, width, height), line);
    };
    const unsigned char some[64] = {};
    expectRefused(nullptr, 64, 4, 4);
    for (const int size : {-1, INT_MIN}) expectRefused(some, size, 4, 4);
    for (const int side : {0, -4, INT_MIN}) {
        expectRefused(some, 64, side, 4);
        expectRefused(some, 64, 4, side);
        expectRefused(some, 64, side, side);
    }
    expectRefused(some, 64, INT_MAX, INT_MAX);
    expectRefused(some, 64, 65536, 65536);
    expectRefused(some, 64, 536870656, 1);  // 4 times that + 1024 is 2^31
    for (const int pixelFmt : {0, 2, 4, 8, 11, -1, INT_MAX, INT_MIN}) {
        stage.show(pixelFmt, Bytes(40 * 30 * 4, 250), 40, 30);
        EXPECT_EQ(stage.lines, "") << pixelFmt;
    }
    EXPECT_EQ(stage.view->usingYUV, 0);
    EXPECT_TRUE(looksLike(stage.draw(), Image::chequered(40, 30)));
}

TEST(Door, ASizeUpToTheBufferIsTakenAndOneByteMoreIsNot) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    const Image grey(40, 30, rgb(0x969696));
    stage.show(FOVIX_FORMAT_RGBA, Bytes(40 * 30 * 4 + 1024, 150), 40, 30);
    EXPECT_TRUE(looksLike(stage.draw(), grey));
    stage.show(FOVIX_FORMAT_RGBA, Bytes(40 * 30 * 4 + 1025, 99), 40, 30);
    EXPECT_EQ(stage.lines, "Texture Buffer is too small[5824 < 5825]!\n");
    EXPECT_TRUE(looksLike(stage.draw(), grey)) << "the picture uploaded last stays";
    EXPECT_EQ(stage.lines, "");
    EXPECT_EQ(stage.view->frames[0].width, 0) << "the copy before it is gone";
    stage.show(FOVIX_FORMAT_YUV420P, Bytes(6000, 9), 10, 10);
    EXPECT_EQ(stage.lines.rfind("Texture Buffer is too small[5824 < 6000]!\nRefreshConfig\n", 0), 0u);
    EXPECT_EQ(stage.view->fishEye.TextureWidth, 10) << "the new size is told, the buffer not shrunk";
}

TEST(GridDoor, ScreenNumbersBeyond36CellsAreRefused) {
    Stage stage(FOVIX_TYPE_MULTI_IMAGE, 60, 60);
    stage.show(Image::chequered(20, 20));
    for (const auto& [rows, columns] :
         {std::pair{6, 7}, {1, 37}, {65536, 65536}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MIN}, {-7, -7}}) {
        EXPECT_EQ(printedBy(Fovix_Multi_SetScreenNumber, stage.view, rows, columns),
                  "parameters error, rowNum = " + std::to_string(rows) +
                      ", columnNum = " + std::to_string(columns) + "\n");
        EXPECT_EQ(stage.view->grid.get().rows * stage.view->grid.get().columns, 9);
    }
    for (const auto& [rows, columns] :
         {std::pair{6, 6}, {36, 1}, {2, 3}, {0, 5}, {-1, 5}, {INT_MIN, INT_MAX}}) {
        EXPECT_EQ(printedBy(Fovix_Multi_SetScreenNumber, stage.view, rows, columns), "");
        EXPECT_EQ(stage.view->grid.get().rows, rows);
        EXPECT_EQ(stage.view->grid.get().columns, columns);
        stage.draw();
        EXPECT_EQ(stage.lines == "parameter error in drawSelf()\n", rows < 1) << rows;
    }
}

TEST(GridDoor, PicturesAreTakenByTypeAndIndex) {
    constexpr int kGrid = FOVIX_TYPE_MULTI_IMAGE, kLenses = FOVIX_TYPE_MULTI_LENS;
    const char *const noGrid = "Not Multi_Image", *const noBoth = "Not Multi-Image or Multi-Lens",
                      *const badCell = "Multi_Image Parameter Error!",
                      *const badLens = "Multi-Lens Parameter Error!";
    const struct {
        int type, index;
        const char *rgba, *planar;
    } cases[] = {{FOVIX_TYPE_ORIGINAL, 0, noBoth, noGrid},
                 {kGrid, 3, "", ""},
                 {kGrid, 4, badCell, badCell},
                 {kGrid, -1, badCell, badCell},
                 {kGrid, INT_MAX, badCell, badCell},
                 {kLenses, 35, "", noGrid},
                 {kLenses, 36, badLens, noGrid},
                 {kLenses, INT_MIN, badLens, noGrid}};
    const View view;
    Fovix_Multi_SetScreenNumber(view, 2, 2);
    const unsigned char data[256] = {};
    for (const auto& [type, i, rgba, planar] : cases) {
        SCOPED_TRACE(testing::Message() << "type " << type << ", index " << i);
        printedBy(Fovix_SetType, view, type);
        EXPECT_EQ(printedBy(Fovix_Multi_SetRGBTexture, view, i, data, 256, 8, 8), rgba);
        EXPECT_EQ(printedBy(Fovix_Multi_SetYUV420PTexture, view, i, data, 96, 8, 8), planar);
        for (const int pixelFmt : {9, 2})
            EXPECT_EQ(printedBy(Fovix_Multi_SetTexture, view, i, pixelFmt, data, 96, 8, 8), planar);
    }
}

TEST(GridDoor, LensesAreChosenWithinTheirNumber) {
    const View view;
    const std::string end = "() current type is not support -> [1]!\n";
    EXPECT_EQ(printedBy(Fovix_Multi_SwitchLens, view, 0), "Fovix_Multi_SwitchLens" + end);
    EXPECT_EQ(printedBy(Fovix_Multi_SetLens, view, 5), "Fovix_Multi_SetLens" + end);
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(Fovix_Multi_GetLensCount(view), 0); }), "Fovix_Multi_GetLens" + end);
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(Fovix_Multi_GetLensIndex(view), 0); }), "Fovix_Multi_GetLens" + end);
    printedBy(Fovix_SetType, view, FOVIX_TYPE_MULTI_LENS);
    EXPECT_EQ(Fovix_Multi_GetLensCount(view), 1);
    const auto number = Fovix_Multi_SetLens, choice = Fovix_Multi_SwitchLens;
    const struct {
        void (*set)(VRHANDLE, int);
        int value, count, index;
    } steps[] = {{choice, 35, 1, 0},   {number, 37, 1, 0},   {number, 0, 1, 0},
                 {number, 36, 36, 0},  {choice, 35, 36, 35}, {choice, 36, 36, 35},
                 {choice, -1, 36, 35}, {number, 2, 2, 35},   {choice, 1, 2, 1}};
    for (const auto& [set, value, count, index] : steps) {
        EXPECT_EQ(printedBy(set, view, value), "");
        EXPECT_EQ(Fovix_Multi_GetLensCount(view), count);
        EXPECT_EQ(Fovix_Multi_GetLensIndex(view), index);
    }
}

}  // namespace
}  // namespace fovix_test
