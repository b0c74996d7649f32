// The flat-colour frames and indicators over the picture: the lines lie where the selected screen and its
// view want them, on the whole surface, and nowhere else.
#include <gtest/gtest.h>

#include <cmath>

#include "HeadlessGl.h"
#include "Landmarks.h"

namespace fovix_test {
namespace {

Places box(double left, double right, double top, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

int wholeDegrees(double degrees) {
    const int remainder = static_cast<int>(degrees) % 360;
    return remainder < 0 ? remainder + 360 : remainder;
}

/// The sector round the overview's middle; tilt opens it.
Places fan(double heightByWidth, double pan, double tilt) {
    const double span = (1 / heightByWidth - 1) * 50 / 0.77777778 + 110, opened = 0.33 * (tilt / 60 - 1);
    const double outer = opened + 0.705, inner = opened + 0.05;
    const double outerFrom = wholeDegrees(90 - pan - span / 2), innerFrom = wholeDegrees(10 - pan);
    Places loop;
    for (int i = 0; i < 100; ++i) {
        const int back = inner > 0 ? 99 - i : i - 50;
        const double angle = radians(i < 50 ? outerFrom + i * span / 50 : innerFrom + 3.2 * back);
        const double radius = i < 50 ? outer : inner;
        loop.push_back(
            {std::cos(angle) * radius * heightByWidth - 1 / 3.0, std::sin(angle) * radius + 0.337333});
    }
    return loop;
}

/// The part of the strip that a screen above it looks at.
Places viewRect(double heightByWidth, double pan, double tilt, double zoom) {
    const double share = (zoom - 5) / 35;
    const double x = wholeDegrees(pan - 180) / 180.0 - 1;
    const double low = 0.05 * share - 0.4, high = 0.1 * share - 0.1;
    const double y = (high - low) * tilt / 50 + low - 2 / 3.0;
    const double size = 0.7 + 0.3 * share, width = 0.75 / heightByWidth * size, height = 0.8 * size;
    return box(x - width / 2, x + width / 2, y + height / 2, y - height / 2);
}

struct Case {
    int shape, x, y;  ///< the touch that selects the screen
    int width, height, ppi;
    double left, right, top, bottom;
    int screen;
    double pan, tilt, zoom;  ///< of that screen
};

const Case kCases[] = {
    {7, 10, 10, 320, 240, 1, -0.999, -0.001, 0.999, 0.001, 0, 90, 0, 40},
    {7, 300, 200, 321, 241, 1, 0.001, 0.999, -0.001, -0.999, 3, 90, 0, 40},
    {8, 10, 10, 320, 240, 1, 0.334333, 0.999, 0.999, 0.334333, 1, 30, 20,
     40},  // the overview is not selected
    {8, 300, 100, 320, 240, 1, 0.334333, 0.999, 0.332333, -0.332333, 2, 200, 90, 30},
    {8, 10, 130, 120, 160, 2, -0.999, -0.334333, -0.334333, -0.999, 5, 310, 50, 20},
    {9, 10, 10, 320, 240, 1, -0.999, -0.001, 0.999, -0.332333, 0, 300, 30, 40},
    {9, 300, 20, 321, 241, 1, 0.001, 0.999, 0.999, -0.332333, 1, 100, 50, 12},
    {10, 10, 10, 320, 240, 1, -0.999, 0.999, 0.999, -0.332333, 0, 90, 0, 90},
    {0, 10, 10, 320, 240, 1, 0, 0, 0, 0, 0, 90, 0, 90},
};

TEST(Overlays, ShowTheSelectedScreenAndWhereItLooks) {
    const Image picture(200, 200, rgb(0x404040));
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << "shape " << c.shape << ", screen " << c.screen);
        Stage stage(FOVIX_TYPE_360VR, c.width * c.ppi, c.height * c.ppi);
        stage.show(picture);
        Fovix_SetPPIZoom(c.ppi);
        printedBy([&] {
            Fovix_Init(stage.view, c.width, c.height);
            Fovix_SetShape(stage.view, c.shape);
            Fovix_OnTouchDown(stage.view, static_cast<float>(c.x), static_cast<float>(c.y));
            Fovix_SetPTZ_SubScreen(stage.view, c.screen, c.pan, c.tilt, c.zoom, 0, 0);
        });
        const Image shown = stage.draw();
        Fovix_SetPPIZoom(1);
        std::vector<Places> loops;
        if (c.left != c.right) loops.push_back(box(c.left, c.right, c.top, c.bottom));
        if (c.shape == 8) loops.push_back(fan(1.0 * c.height / c.width, c.pan, c.tilt));
        const double screenHeight = 2 * c.height / 3, screenWidth = c.width / 2;  // whole pixels
        if (c.shape == 9) loops.push_back(viewRect(screenHeight / screenWidth, c.pan, c.tilt, c.zoom));
        EXPECT_TRUE(showsLoops(shown, loops, kRedFrame));
    }
}

TEST(Overlays, MarkTheMainViewOnTheInset) {
    struct Marker {
        int width, height, drawMode;
        double offset, zoom, x, markerWidth, markerHeight;
    };
    for (const Marker& c :
         {Marker{900, 900, 3, 0, 1, 0.3, 0.34, 0.34}, Marker{301, 301, 3, 0.4, 3, 0.5405594, 0.255, 0.255},
          Marker{900, 900, 3, -0.2, 0.625, 0.1797203, 0.7616, 0.34}, Marker{300, 200, 3, 0, 1, 0, 0, 0},
          Marker{300, 300, 0, 0, 1, 0, 0, 0}}) {
        SCOPED_TRACE(testing::Message() << c.width << " x " << c.height << ", zoom " << c.zoom);
        Stage stage(FOVIX_TYPE_SINGLE_PIP, c.width, c.height);
        stage.show(Image(300, 100, rgb(0x404040)));
        Fovix_SetDrawMode(stage.view, c.drawMode);
        Fovix_SetRotateZoom(stage.view, c.offset, 0, 0.715, c.zoom);
        const Image shown = stage.draw();
        std::vector<Places> outline, marker;
        if (c.x != 0) {
            outline.push_back(box(-0.303, 0.903, -0.525, -0.875));
            marker.push_back(box(c.x - c.markerWidth / 2, c.x + c.markerWidth / 2, -0.7 + c.markerHeight / 2,
                                 -0.7 - c.markerHeight / 2));
        }
        EXPECT_TRUE(showsLoops(shown, marker, kRedFrame));
        EXPECT_TRUE(showsLoops(shown, outline, kWhiteFrame));
    }
}

}  // namespace
}  // namespace fovix_test
