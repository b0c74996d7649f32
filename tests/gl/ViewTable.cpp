#include "ViewTable.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "ApiCalls.h"

namespace fovix_test {

namespace {

constexpr Frame kFrame = {320, 240}, kSquare = {240, 240}, kTall = {200, 256}, kBanner = {300, 100};

const std::vector<ViewRow> kRows = {
    // The panorama, under a ceiling.
    {"360-single", 0, kSquare, ""},
    {"360-single-wide", 0, kFrame, "lens 170 125 110 320 240 ptz 0 30 50 60 0 0"},
    {"360-single-close-rolled", 0, kFrame, "lens 170 125 110 320 240 ptz 0 200 45 30 20 0"},
    {"360-single-dense", 0, kFrame, "lens 170 125 110 320 240 ptz 0 120 20 85 0 0", 61, 101, 2},
    {"360-dome", 0, kSquare, "shape 1 draw 30 ptz 0 60 75 90 0 0"},
    {"360-bowl", 0, kSquare, "shape 2 draw 30 ptz 0 40 -70 90 0 0"},
    {"360-cylinder", 0, kSquare, "shape 3 draw 30 ptz 0 120 15 90 0 0", 151, 101},
    {"360-cylinder-inside", 0, kSquare, "shape 4 draw 30 ptz 0 300 5 90 0 0"},
    {"360-strip", 0, kFrame, "lens 170 125 110 320 240 shape 5 draw 30 ptz 0 400 0 90 0 0", 180, 120},
    {"360-strip-over-its-seam", 0, kSquare, "shape 5 draw 30 ptz 0 40 0 90 0 0", 200, 101},
    {"360-two-strips-dense", 0, kSquare, "shape 6 draw 30 ptz 0 100 0 90 0 0", 76, 61, 2},
    {"360-four-screens", 0, kSquare,
     "shape 7 draw 30 ptz 0 0 20 40 0 0 ptz 1 100 30 40 0 0 ptz 2 190 40 35 0 0 ptz 3 280 50 40 0 0"},
    {"360-four-screens-selected", 0, kSquare, "shape 7 draw 30 ptz 3 280 50 20 0 0 down 100 80", 161, 121},
    {"360-overview-five", 0, kSquare,
     "shape 8 draw 30 ptz 1 10 20 40 0 0 ptz 2 90 30 39 0 0 ptz 3 170 40 38 0 0 ptz 4 250 40 40 0 0 ptz 5 "
     "330 30 40 0 0",
     196, 151},
    {"360-overview-five-selected", 0, kSquare, "shape 8 draw 30 down 10 80 ptz 5 310 90 20 0 0", 90, 120, 2},
    {"360-overview-five-keeps-its-selection", 0, kSquare, "shape 8 draw 1 down 10 140 down 10 10", 196, 151},
    {"360-two-and-strip", 0, kSquare, "shape 9 draw 30 ptz 0 300 30 30 0 0 ptz 1 200 40 40 0 0", 181, 151},
    {"360-two-and-strip-selected", 0, kSquare, "shape 9 draw 30 down 150 20 ptz 1 100 50 12 0 0"},
    {"360-layout-without-a-mesh", 0, kSquare, "shape 10 draw 30"},
    // On a wall and on the floor.
    {"360-wall", 0, kSquare, "mount 1"},
    {"360-wall-at-its-rim", 0, kFrame, "lens 170 125 110 320 240 mount 1 ptz 0 50 75 88 0 5"},
    {"360-wall-foot", 0, kSquare, "mount 1 ptz 0 100 130 80 10 0", 120, 160},
    {"360-wall-bowl", 0, kSquare, "mount 1 shape 2 draw 30 ptz 0 40 -90 90 0 0"},
    {"360-wall-strip", 0, kFrame, "lens 170 125 110 320 240 mount 1 shape 5 draw 30"},
    {"360-wall-two-strips", 0, kSquare, "mount 1 shape 6 draw 30 ptz 0 100 0 90 0 0"},
    {"360-wall-overview-five", 0, kSquare, "mount 1 shape 8 ptz 1 10 20 40 0 0 draw 30", 196, 151},
    {"360-wall-inverted", 0, kSquare, "mount 2 ptz 0 70 100 80 0 0"},
    {"360-floor", 0, kSquare, "mount 3 ptz 0 60 40 90 0 0"},
    // Between two shapes.
    {"360-single-to-cylinder", 0, kSquare, "draw 1 shape 3 draw 14"},
    {"360-single-to-cylinder-last", 0, kSquare, "draw 1 shape 3 draw 28"},
    {"360-single-to-cylinder-has-landed", 0, kSquare, "draw 1 shape 3 draw 29"},
    {"360-single-to-inside-from-far-away", 0, kSquare,
     "ptz 0 1e308 0 90 0 0 shape 4 ptz 0 -1e308 0 90 0 0 draw 9"},
    {"360-wall-to-bowl", 0, kSquare, "mount 1 draw 1 shape 2 draw 14"},
    {"360-cylinder-to-inside", 0, kSquare, "shape 3 draw 40 shape 4 draw 14"},
    {"360-dome-to-bowl", 0, kSquare, "shape 1 draw 40 ptz 0 60 75 90 0 0 shape 2 draw 14"},
    {"360-inside-to-four-screens", 0, kSquare, "shape 4 draw 40 shape 7 draw 7"},
    {"360-cylinder-to-single", 0, kSquare, "shape 3 draw 40 shape 0 draw 14"},
    {"360-single-to-strip", 0, kSquare, "draw 1 shape 5 draw 14"},
    // The half view.
    {"180-disc", 1, kSquare, ""},
    {"180-disc-moved", 1, kFrame, "lens 172 116 112 320 240 view 0 10 20 30 1.5", 121, 161},
    {"180-disc-of-a-squeezed-camera", 1, {320, 180}, "lens 660 352 480 1280 960"},
    {"180-disc-of-an-incomplete-circle", 1, kFrame, "lens 0 116 112 320 240"},
    {"180-stretch", 1, kFrame, "lens 172 116 112 320 240 shape 5 draw 20 view 0 5 -8 0 1", 161, 121},
    {"180-stretch-of-a-square", 1, kSquare, "shape 5 draw 20", 120, 160},
    {"180-stretch-of-a-tall-picture", 1, kTall, "lens 104 132 96 200 256 shape 5 draw 20 view 0 0 5 0 0.5"},
    {"180-cylinder", 1, kSquare, "shape 3"},
    {"180-cylinder-turned", 1, kFrame, "lens 172 116 112 320 240 shape 3 view 0 10 60 0 1"},
    {"180-curved", 1, kFrame, "lens 172 116 112 320 240 mode 3 view 0 8 -20 5 3"},
    {"180-four-screens", 1, kFrame,
     "lens 172 116 112 320 240 shape 7 view 0 5 10 15 1 view 1 -10 20 0 2 view 2 0 -25 0 0.5", 161, 121},
    {"180-large-and-two-dense", 1, kTall,
     "lens 104 132 96 200 256 shape 10 view 0 4 -10 0 1.5 view 1 10 20 -10 1", 81, 97, 2},
    {"180-rolled", 1, kFrame, "SetRotationFor180VR 33"},
    {"180-disc-to-stretch", 1, kFrame, "draw 1 shape 5 draw 9"},
    {"180-stretch-to-disc", 1, kFrame, "shape 5 draw 25 shape 0 draw 17"},
    {"180-stretch-to-disc-has-landed", 1, kFrame, "shape 5 draw 25 shape 0 draw 20"},
    {"180-cylinder-to-curved", 1, kFrame, "mode 2 SetDrawModeCartoon 2 3 4 10 draw 2"},
    {"180-cartoon-taken-up-again", 1, kFrame,
     "draw 1 SetDrawModeCartoon 0 1 5 10 draw 1 SetDrawModeCartoon 0 1 7 10"},
    {"180-cartoon-ended-by-a-mode", 1, kFrame, "draw 1 SetDrawModeCartoon 0 1 5 10 draw 1 mode 1"},
    // The plain picture: proportions, pixel formats, views.
    {"original", 2, {160, 120}, ""},
    {"original-on-a-wide-surface", 2, {161, 91}, "", 200, 80},
    {"original-on-a-tall-surface", 2, kFrame, "", 70, 151},
    {"original-of-a-squeezed-camera", 2, kFrame, "lens 960 960 960 1920 1920"},
    {"original-zoomed-and-moved", 2, kFrame, "view 0 -30 -60 77 5.75"},
    {"original-from-afar", 2, kFrame, "view 0 45 0 0 0.625"},
    {"original-after-other-types", 2, kFrame,
     "lens 960 960 960 1920 1920 draw 1 type 23 draw 1 type 21 draw 1 type 2"},
    {"original-planar", 2, {160, 120, FOVIX_FORMAT_YUV420P}, ""},
    {"original-planar-of-an-odd-size", 2, {63, 47, FOVIX_FORMAT_YUV420P}, "", 126, 94},
    {"original-nv12", 2, {130, 66, FOVIX_FORMAT_NV12}, ""},
    {"original-nv21-of-an-odd-size", 2, {37, 91, FOVIX_FORMAT_NV21}, ""},
    {"original-of-a-short-frame", 2, {160, 120}, "short 40000"},
    {"original-of-short-luma", 2, {160, 120, FOVIX_FORMAT_NV12}, "short 10000"},
    {"original-of-short-planes", 2, {160, 120, FOVIX_FORMAT_YUV420P}, "short 26000"},
    {"original-of-short-pairs", 2, {160, 120, FOVIX_FORMAT_NV21}, "short 22001"},
    {"original-type-without-a-name", 77, kFrame, "view 0 0 20 0 2"},
    {"korvel", 3, kFrame, "view 0 10 0 0 1.5"},
    {"korvel-of-a-squeezed-camera", 3, kFrame, "lens 128 96 90 256 192", 200, 80},
    {"360-of-planes", 0, {240, 240, FOVIX_FORMAT_NV12}, "ptz 0 30 50 60 0 0"},
    // Several pictures.
    {"grid", 20, kFrame, "Multi_SetScreenNumber 2 3 cell 0 cell 1 cell 2 cell 3 cell 5", 161, 121},
    {"grid-dense", 20, kFrame, "Multi_SetScreenNumber 3 2 cell 0 cell 3 cell 4 cell 5", 77, 62, 2},
    {"grid-of-planes", 20, {80, 60, FOVIX_FORMAT_NV21}, "Multi_SetScreenNumber 1 2 cell 0 10 cell 1 10"},
    {"lenses", 21, kFrame, "Multi_SetLens 4 cell 0 cell 2 draw 2 Multi_SwitchLens 2 view 0 30 0 0 0.625"},
    {"grid-of-formats-planes-last", 20, kFrame, "Multi_SetScreenNumber 1 2 cell 0 cell 1 9"},
    {"grid-of-formats-rgba-last", 20, kFrame, "Multi_SetScreenNumber 2 1 cell 1 3 cell 0"},
    {"grid-after-a-change", 20, kFrame,
     "Multi_SetScreenNumber 2 2 cell 0 cell 1 cell 2 cell 3 draw 1 Multi_SetScreenNumber 2 1 cell 1"},
    {"lenses-back-to-the-first", 21, kFrame,
     "Multi_SetLens 4 cell 0 cell 2 draw 1 Multi_SwitchLens 2 draw 1 Multi_SwitchLens 0"},
    {"lenses-without-a-picture", 21, kFrame, "Multi_SetLens 4 cell 0 draw 2 Multi_SwitchLens 3"},
    // A picture with an inset of the whole.
    {"pip", 22, kBanner, "", 150, 150},
    {"pip-moved-dense", 22, kBanner, "view 0 0.4 -0.1 0.715 2", 75, 75, 2},
    {"pip-from-afar", 22, kBanner, "view 0 -0.2 0 0.6 0.625", 150, 150},
    {"pip-aimed-in-the-inset", 22, kBanner, "pinch 0 0 10 0 pinch 0 0 50 0 up 0 0 down 128 131 move 83 2",
     150, 150, 1, true},
    {"pip-without-inset", 22, kBanner, "mode 0 view 0 0.2 0.1 0.5 0.625", 150, 150},
    {"pip-on-a-wide-surface", 22, kBanner, "view 0 0.2 0.1 0.3 0.625", 150, 100},
    // Two lenses in one picture.
    {"two-lenses-by-zoom-far", 24, kFrame, "view 0 20 10 0 1.5", 161, 121},
    {"two-lenses-by-zoom-close", 24, kFrame, "view 0 0 30 0 6", 120, 160},
    {"two-lenses-at-the-threshold-dense", 24, kFrame, "view 0 0 0 0 3", 80, 60, 2},
    {"two-lenses-beside-each-other", 24, kFrame, "lenses 1 draw 120", 225, 100},
    {"two-lenses-coming-together", 24, kFrame, "lenses 1 draw 6", 225, 100},
    {"two-lenses-going-to-the-second", 24, kFrame, "lenses 1 SetTwoLensesScreen 2 draw 2 view 0 18 36 5 4",
     225, 100},
    {"two-lenses-with-a-screen-that-is-none", 24, kFrame, "lenses 1 draw 120 SetTwoLensesScreen 77 draw 3",
     225, 100},
    {"two-lenses-beginning-again", 24, kFrame,
     "lenses 1 SetTwoLensesScreen 2 draw 30 lenses 1 SetTwoLensesScreen 1", 225, 100},
    {"two-lenses-at-a-threshold-of-0", 24, kFrame, "logic 1 10 0 1 view 0 0 0 0 2"},
    {"two-lenses-beyond-a-negative-threshold", 24, kFrame, "logic 1 10 -5 1 view 0 0 0 0 1"},
    {"two-lenses-first", 24, kFrame, "lenses 1 SetTwoLensesScreen 1 draw 120 view 0 18 9 0 1.25", 225, 100},
    {"two-lenses-second", 24, kFrame, "lenses 1 SetTwoLensesScreen 2 draw 120 view 0 0 0 0 0.5", 225, 100},
    {"two-lenses-stacked", 24, kFrame, "lenses 1 draw 120", 101, 151},
    {"two-lenses-upper", 24, kFrame, "lenses 2 view 0 50 50 0 4"},
    {"two-lenses-lower", 24, {400, 150}, "lenses 3 view 0 50 50 0 4", 161, 61},
};

}  // namespace

const std::vector<ViewRow>& viewRows() {
    return kRows;
}

void submit(VRHANDLE handle, const Image& picture, int pixelFmt) {
    const Bytes bytes = picture.inFormat(pixelFmt);
    Fovix_SetTexture(handle, pixelFmt, bytes.data(), static_cast<int>(bytes.size()), picture.width,
                     picture.height);
}

void submitTo(VRHANDLE handle, int slot, const Image& picture, int pixelFmt) {
    const Bytes bytes = picture.inFormat(pixelFmt);
    const auto set = [&](auto function, auto... format) {
        function(handle, slot, format..., bytes.data(), static_cast<int>(bytes.size()), picture.width,
                 picture.height);
    };
    if (pixelFmt != FOVIX_FORMAT_RGBA) return set(Fovix_Multi_SetTexture, pixelFmt);
    set(Fovix_Multi_SetRGBTexture);  // for lenses, too
}

void setUp(VRHANDLE handle, const ViewRow& row, const std::function<void()>& drawFrame) {
    const auto [width, height, pixelFmt] = row.frame;
    const Image picture = Image::chequered(width, height);
    const Verbs verbs = {
        // Another picture and size in every slot, in RGBA or the format that the call names.
        {"cell",
         [&](const Numbers& n) {
             const int slot = static_cast<int>(n.at(0));
             submitTo(handle, slot, Image::chequered(row.frame.width, row.frame.height - 10 * slot, slot),
                      n.size() > 1 ? static_cast<int>(n[1]) : FOVIX_FORMAT_RGBA);
         }},
        {"short",
         [&](const Numbers& n) {
             Fovix_SetTexture(handle, row.frame.pixelFmt, picture.inFormat(row.frame.pixelFmt).data(),
                              static_cast<int>(n.at(0)), picture.width, picture.height);
         }},
        {"draw",
         [&](const Numbers& n) {
             for (int frame = 0; frame < n.at(0); ++frame) drawFrame();
         }},
    };
    Fovix_SetType(handle, row.type);
    Fovix_Init(handle, row.width, row.height);
    Fovix_SetBackground(handle, 0x204060);
    submit(handle, picture, pixelFmt);
    play(handle, row.script, verbs);
}

testing::AssertionResult isAsStored(const ViewRow& row, const Image& actual) {
    return isAsStored(std::string(FOVIX_STORED_PICTURES "/") + row.name + ".png", actual);
}

}  // namespace fovix_test
