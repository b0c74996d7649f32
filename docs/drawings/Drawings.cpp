#include "Drawings.h"

#include <algorithm>

#include "Fovix.h"
#include "model/FovixModelOriginal.h"
#include "model/FovixModelTwoLensesInOne.h"
#include "view/Layouts360VR.h"
#include "view/Screens180VR.h"
#include "view/Views360VR.h"

namespace fovix::drawings {

namespace {

constexpr int kSurfaceWidth = 1280, kSurfaceHeight = 720;
constexpr int kPictureSide = 1280;
constexpr int kRings = 30;  ///< of a whole panorama; a band has fewer

FishEyeConfig lensOf(int type, int width, int height, int radius) {
    FishEyeConfig lens;
    lens.displayType = type;
    lens.TextureWidth = lens.Fec_imgWidth = width;
    lens.TextureHeight = lens.Fec_imgHeight = height;
    lens.Fec_xCenter = width / 2;
    lens.Fec_yCenter = height / 2;
    lens.Fec_radius = radius;
    RefreshConfig(lens);
    return lens;
}

FishEyeConfig squareLens(int type) {
    return lensOf(type, kPictureSide, kPictureSide, 624);
}

Picture pictureOf(const FishEyeConfig& lens) {
    return {static_cast<double>(lens.TextureWidth), static_cast<double>(lens.TextureHeight), {discOf(lens)}};
}

const std::vector<Patch>* keep(Scene& scene, std::vector<Patch> patches) {
    scene.meshes.push_back(std::make_unique<std::vector<Patch>>(std::move(patches)));
    return scene.meshes.back().get();
}

/// GL's y points up, a panel's down.
Box partOf(const SurfaceRect& rect) {
    return {static_cast<double>(rect.x) / kSurfaceWidth,
            1.0 - static_cast<double>(rect.y + rect.height) / kSurfaceHeight,
            static_cast<double>(rect.width) / kSurfaceWidth,
            static_cast<double>(rect.height) / kSurfaceHeight};
}

// The 360-degree panorama

std::vector<Patch> panoramaPatches(const FishEyeConfig& lens, int mount, int shape) {
    const GridMesh mesh = GridMesh_Create_360VR(lens, mount, shape);
    const int rings = mesh.triangleCount / 2 / 60;
    return patchesOf(mesh, {kLinesAside, rings, 3, rings < kRings - 2 ? 2 : 3}, {discOf(lens)});
}

Scene panorama(int mount, int shape, const View360VR& view, const Outlook& outlook) {
    const FishEyeConfig lens = squareLens(FOVIX_TYPE_360VR);
    Scene scene = {pictureOf(lens), outlook, {}, {}};
    const auto* patches = keep(scene, panoramaPatches(lens, mount, shape));
    Scene360VR seen = {mount, shape, kSurfaceWidth, kSurfaceHeight, {}, {}};
    seen.views.fill(view);
    scene.passes.push_back({patches, screenMatrix360VR(seen, 0, 0.0)});
    return scene;
}

/// Strips scroll through their screens and continue beyond their seam.
Scene strips(int mount, int shape, double pan) {
    const FishEyeConfig lens = squareLens(FOVIX_TYPE_360VR);
    Scene scene = {pictureOf(lens), {UpAxis::Y, -20.0, 12.0}, {}, {}};
    const auto* patches = keep(scene, panoramaPatches(lens, mount, shape));
    const Layout360VR layout = layout360VR(shape, kSurfaceWidth, kSurfaceHeight);
    const int screens = std::max(layout.count, 1);
    for (int screen = 0; screen < screens; ++screen) {
        const StripScroll scroll = scrollStrip(pan, screen, kSurfaceWidth, kSurfaceHeight / screens);
        Scene360VR seen = {mount, shape, kSurfaceWidth, kSurfaceHeight, {}, {}};
        seen.views.fill({.mPan = static_cast<double>(scroll.pan), .mZoom = 90.0});
        const Box part = layout.count > 0 ? partOf(layout.screens[static_cast<std::size_t>(screen)])
                                          : Box{0.0, 0.0, 1.0, 1.0};
        const bool isPastSeam = scroll.pan < 0;
        scene.passes.push_back({patches, screenMatrix360VR(seen, screen, 0.0), part, !isPastSeam});
        if (!scroll.showsSeam) continue;
        scene.passes.push_back({patches, screenMatrix360VR(seen, screen, kStripTurn), part, isPastSeam});
    }
    return scene;
}

// The 180-degree view

Scene halfView(const FishEyeConfig& lens, int drawMode, const RotateZoomView& view, const Outlook& outlook) {
    Scene scene = {pictureOf(lens), outlook, {}, {}};
    const GridMesh mesh = *GridMesh_Create_180VR(drawMode, lens, kSurfaceWidth, kSurfaceHeight);
    const bool isUpright = drawMode == FOVIX_180_STRETCH && lens.TextureWidth <= lens.TextureHeight;
    const auto* patches = keep(
        scene, patchesOf(mesh, {isUpright ? kLinesAsideFromNew : kLinesBelow, 120, 5, 10}, {discOf(lens)}));
    const Scene180VR seen = {drawMode, mesh.extent, 0.0, 0.0, 0.0};
    scene.passes.push_back({patches, screenMatrix180VR(view, seen, kSurfaceWidth, kSurfaceHeight)});
    return scene;
}

Scene squareHalfView(int drawMode, double yaw, double zoom, const Outlook& outlook) {
    RotateZoomView view;
    view.set(0.0, yaw, 0.0, zoom);
    return halfView(squareLens(FOVIX_TYPE_180VR), drawMode, view, outlook);
}

Scene wideStretch() {
    return halfView(lensOf(FOVIX_TYPE_180VR, 1920, 1080, 900), FOVIX_180_STRETCH, {},
                    {UpAxis::Y, 160.0, 12.0});
}

// Flat images

Scene flat(const FishEyeConfig& lens, const GridMesh& mesh) {
    Scene scene = {pictureOf(lens), {UpAxis::Y, -30.0, 15.0}, {}, {}};
    const bool isRectangle = mesh.triangleCount == 2;
    const auto* patches =
        keep(scene, isRectangle ? patchesOfRectangle(mesh, scene.picture.discs)
                                : patchesOf(mesh, {kLinesAside, 50, 3, 3}, scene.picture.discs));
    scene.passes.push_back({patches, flatPictureMatrix(1.0, 0.0, 0.0, kSurfaceWidth, kSurfaceHeight)});
    return scene;
}

Scene plain() {
    const FishEyeConfig lens = squareLens(FOVIX_TYPE_ORIGINAL);
    return flat(lens, GridMesh_Create_Original(lens, kSurfaceWidth, kSurfaceHeight));
}

Scene korvel() {
    const FishEyeConfig lens = lensOf(FOVIX_TYPE_KORVEL, 1280, 960, 800);
    return flat(lens, GridMesh_Create_Korvel(lens, kSurfaceWidth, kSurfaceHeight));
}

/// Side by side: the upper half on the left, the lower one on the right.
Scene twoLenses() {
    const FishEyeConfig lens = lensOf(FOVIX_TYPE_TWO_LENSES, kPictureSide, 2 * kPictureSide, 624);
    FishEyeConfig oneLens = lens;  // the host passes the size of one half
    oneLens.Fec_imgHeight = kPictureSide;
    Scene scene = {pictureOf(lens), {UpAxis::Y, -30.0, 15.0}, {}, {}};
    scene.picture.discs = {{0.5, 0.25, 0.49, 0.245}, {0.5, 0.75, 0.49, 0.245}};
    const double fix = aspectFixOf(kSurfaceWidth, kSurfaceHeight, kPictureSide, kPictureSide);
    for (const bool isFirst : {true, false}) {
        const auto build = isFirst ? GridMesh_Create_HalfTop : GridMesh_Create_HalfBottom;
        const GridMesh mesh = build(oneLens, kSurfaceWidth, kSurfaceHeight);
        const auto* patches = keep(scene, patchesOfRectangle(mesh, scene.picture.discs));
        const double x = (isFirst ? -kBesideX : kBesideX) / fix;
        const PicturePlacement placement = placeBeside(x, kBesideScale * fix, false, {});
        scene.passes.push_back(
            {patches, twoLensesMatrix(placement, kSurfaceWidth, kSurfaceHeight), {0, 0, 1, 1}, false});
    }
    return scene;
}

}  // namespace

const std::vector<Drawing>& allDrawings() {
    constexpr View360VR kWide = {.mPan = 90.0, .mTilt = 0.0, .mZoom = 90.0};
    constexpr View360VR kClose = {.mPan = 60.0, .mTilt = 50.0, .mZoom = 40.0};
    constexpr View360VR kAhead = {.mPan = 90.0, .mTilt = 90.0, .mZoom = 90.0};
    constexpr View360VR kUpwards = {.mPan = 90.0, .mTilt = 40.0, .mZoom = 60.0};
    constexpr View360VR kOnDome = {.mPan = 90.0, .mTilt = 75.0, .mZoom = 90.0};
    constexpr View360VR kOnBowl = {.mPan = 90.0, .mTilt = -75.0, .mZoom = 90.0};
    static const std::vector<Drawing> drawings = {
        {"plain", plain},
        {"korvel", korvel},
        {"360-ceiling-wide",
         [=] {
             return panorama(0, FOVIX_SHAPE_SINGLE, kWide, {UpAxis::MinusZ, 20, -15});
         }},
        {"360-ceiling-close",
         [=] {
             return panorama(0, FOVIX_SHAPE_SINGLE, kClose, {UpAxis::MinusZ, 110, -15});
         }},
        {"360-wall",
         [=] {
             return panorama(1, FOVIX_SHAPE_SINGLE, kAhead, {UpAxis::Y, 40, 15});
         }},
        {"360-floor",
         [=] {
             return panorama(3, FOVIX_SHAPE_SINGLE, kUpwards, {UpAxis::Z, 20, 15});
         }},
        {"360-dome",
         [=] {
             return panorama(0, FOVIX_SHAPE_DOME, kOnDome, {UpAxis::Z, -40, 15});
         }},
        {"360-bowl",
         [=] {
             return panorama(0, FOVIX_SHAPE_BOWL, kOnBowl, {UpAxis::MinusZ, -40, 15});
         }},
        {"360-cylinder",
         [=] {
             return panorama(0, FOVIX_SHAPE_CYLINDER, kWide, {UpAxis::Y, -50, 25});
         }},
        {"360-cylinder-inside",
         [=] {
             return panorama(0, FOVIX_SHAPE_CYLINDER_INSIDE, kWide, {UpAxis::Y, -50, 25});
         }},
        {"360-strip", [] { return strips(0, FOVIX_SHAPE_STRIP, 492.0); }},
        {"360-two-strips", [] { return strips(0, FOVIX_SHAPE_TWO_STRIPS, 512.0); }},
        {"360-wall-strip",
         [=] {
             return panorama(1, FOVIX_SHAPE_STRIP, kAhead, {UpAxis::Y, 40, 15});
         }},
        {"180-disc",
         [] {
             return squareHalfView(FOVIX_180_DISC, 0, 1, {UpAxis::Y, 150, 15});
         }},
        {"180-stretch-wide", wideStretch},
        {"180-stretch-tall",
         [] {
             return squareHalfView(FOVIX_180_STRETCH, 0, 1, {UpAxis::Y, 150, 15});
         }},
        {"180-cylinder",
         [] {
             return squareHalfView(FOVIX_180_CYLINDER, 0, 1, {UpAxis::Y, 150, 20});
         }},
        {"180-curved",
         [] {
             return squareHalfView(FOVIX_180_CURVED, 0, 10, {UpAxis::Y, 130, 25});
         }},
        {"two-lenses", twoLenses},
    };
    return drawings;
}

}  // namespace fovix::drawings
