// Two lenses in one picture, and a picture with its overview inset: landmarks appear where geometry puts
// them.
#include <gtest/gtest.h>

#include <cmath>

#include "HeadlessGl.h"
#include "Landmarks.h"

namespace fovix_test {
namespace {

struct Size {
    int width, height;
    double aspect() const { return 1.0 * width / height; }
};

/// 24 landmarks in the picture's two halves.
LandmarkPicture landmarksIn(const Size& size) {
    std::vector<PicturePoint> places;
    for (int i = 0; i < 24; ++i) {
        places.push_back({(i % 6 + 0.7) / 6.5 * size.width, (i / 6 + 0.45) / 4 * size.height});
    }
    return {size.width, size.height, places, 0.02 * size.width};
}

/// Half the size of the picture as it lies in the model: two wide, or as high as the surface allows.
struct Half {
    double width, height;
};

Half fitted(const Size& picture, const Size& surface) {
    const double width = std::min(1.0, picture.aspect() / surface.aspect());
    return {width, width / picture.aspect()};
}

void draw(Stage& stage, const Size& surface, const Image& picture, int frames,
          const std::function<void(VRHANDLE)>& set) {
    stage.show(picture);
    Fovix_SetBackground(stage.view, 0x204060);
    printedBy([&] {
        Fovix_Init(stage.view, surface.width, surface.height);
        Fovix_SetFecParams(stage.view, picture.width / 2, picture.height / 2, picture.height / 2,
                           picture.width, picture.height);
        set(stage.view);
        for (int frame = 0; frame < frames; ++frame) Fovix_Drawself(stage.view);
    });
}

struct LensCase {
    const char* name;
    int mode, screen, ppi;
    Size picture, surface;
    double x, y, zoom;  ///< the view
    /// What is shown of the upper and of the lower half: place in model units and scale; 0: nothing.
    double upperX, upperY, upperScale, lowerX, lowerY, lowerScale;
    int atLeast;
};

// Beside each other the pictures are drawn 0.49 in size, times 1.5 where the surface is one and a half times
// as wide as the picture.
const LensCase kLensCases[] = {
    {"far", 0, 0, 1, {600, 400}, {321, 241}, 20, 10, 1.5, -10 / 180.0, 20 / 180.0, 1.5, 0, 0, 0, 4},
    {"just before", 0, 0, 1, {800, 300}, {320, 240}, 0, 0, 2.9, 0, 0, 2.9, 0, 0, 0, 2},
    {"at the threshold", 0, 0, 2, {600, 400}, {160, 120}, 0, 0, 3, 0, 0, 0, 0, 0, 1, 12},
    {"close", 0, 0, 1, {600, 400}, {240, 320}, 0, 30, 6, 0, 0, 0, -30 / 180.0, 0, 2, 4},
    {"side by side",
     1,
     0,
     1,
     {600, 400},
     {450, 200},
     40,
     40,
     5,
     -1.004 / 1.5,
     0,
     0.735,
     1.004 / 1.5,
     0,
     0.735,
     24},
    {"first alone", 1, 1, 1, {600, 400}, {450, 200}, 18, 9, 1.25, -0.05, 0.1, 1.25, 0, 0, 0, 6},
    {"second alone", 1, 2, 1, {600, 400}, {450, 200}, 0, 0, 0.5, 0, 0, 0, 0, 0, 1, 12},
    {"stacked", 1, 0, 1, {640, 360}, {201, 301}, 5, 5, 4, 0, 0.565, 1, 0, -0.565, 1, 12},
    {"upper", 2, 0, 1, {600, 400}, {320, 240}, 50, 50, 4, 0, 0, 1, 0, 0, 0, 12},
    {"lower", 3, 0, 1, {800, 300}, {321, 121}, 50, 50, 4, 0, 0, 0, 0, 0, 1, 12},
};

TEST(TwoLenses, LandmarksAppearWhereTheyBelong) {
    for (const LensCase& c : kLensCases) {
        SCOPED_TRACE(c.name);
        Stage stage(FOVIX_TYPE_TWO_LENSES, c.surface.width * c.ppi, c.surface.height * c.ppi);
        const LandmarkPicture picture = landmarksIn(c.picture);
        Fovix_SetPPIZoom(c.ppi);
        draw(stage, c.surface, picture.image(), c.mode == 1 ? 120 : 1, [&](VRHANDLE view) {
            Fovix_SetTwoLensesDrawMode(view, c.mode);
            Fovix_SetTwoLensesScreen(view, c.screen);
            Fovix_SetRotateZoom(view, c.x, c.y, 0, c.zoom);
        });
        const Image shown = stage.draw();
        Fovix_SetPPIZoom(1);
        const Half half = fitted(c.picture, c.surface);
        const Projection projection = [&](const PicturePoint& p) -> Places {
            const bool upper = p.y < c.picture.height / 2.0;
            const double scale = upper ? c.upperScale : c.lowerScale;
            if (scale == 0) return {};
            const double across = 2 * p.x / c.picture.width - 1;
            const double down = 4 * p.y / c.picture.height - (upper ? 1 : 3);
            const double x = across * half.width + (upper ? c.upperX : c.lowerX);
            const double y = -down * half.height + (upper ? c.upperY : c.lowerY);
            return {seen({x, y, -1}, 90, scale, c.surface.aspect())};
        };
        EXPECT_TRUE(picture.isSeenIn(shown, {0, 0, shown.width, shown.height}, projection, c.atLeast));
    }
}

TEST(SinglePip, ShowsTheMainViewAndOnSquareSurfacesTheInset) {
    struct Case {
        Size surface;
        int drawMode, ppi;
        double x, y, distance, zoom, fieldOfView;
        bool hasInset;
        int atLeast;
    };
    const Case cases[] = {
        {{300, 300}, 3, 1, 0, 0, 0.715, 1, 90, true, 24},
        {{151, 151}, 1, 2, 0.4, -0.1, 0.715, 2, 78.75, true, 24},
        {{300, 300}, 0, 1, 0, 0, 0.5, 0.625, 119, false, 20},
        {{300, 200}, 3, 1, 0.2, 0.1, 0.3, 0.625, 119, false, 20},
        {{200, 301}, 3, 1, -0.2, 0, 0.6, 1, 90, false, 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.surface.width << " x " << c.surface.height << ", " << c.drawMode);
        const Size size = {900, 300};
        const LandmarkPicture picture = landmarksIn(size);
        Stage stage(FOVIX_TYPE_SINGLE_PIP, c.surface.width * c.ppi, c.surface.height * c.ppi);
        Fovix_SetPPIZoom(c.ppi);
        draw(stage, c.surface, picture.image(), 1, [&](VRHANDLE view) {
            Fovix_SetDrawMode(view, c.drawMode);
            Fovix_SetRotateZoom(view, c.x, c.y, c.distance, c.zoom);
        });
        const Image shown = stage.draw();
        Fovix_SetPPIZoom(1);
        const Half half = fitted(size, c.surface);
        const double scale = std::min(1.0, 1 / c.surface.aspect());
        const Projection projection = [&](const PicturePoint& p) -> Places {
            const double x = (2 * p.x / size.width - 1) * half.width;
            const double y = (1 - 2 * p.y / size.height) * half.height;
            Place main = seen({x - c.x, y + c.y, c.distance - 1}, c.fieldOfView, scale, c.surface.aspect());
            main.sure = true;  // near, but in one plane
            if (!c.hasInset) return {main};
            // The inset and its red marker cover the main view.
            main.sure = std::abs(main.x - 0.3) > 0.65 || std::abs(main.y + 0.7) > 0.25;
            return {{0.3 + 0.6 * x, -0.7 + 0.6 * y}, main};
        };
        EXPECT_TRUE(picture.isSeenIn(shown, {0, 0, shown.width, shown.height}, projection, c.atLeast));
    }
}

}  // namespace
}  // namespace fovix_test
