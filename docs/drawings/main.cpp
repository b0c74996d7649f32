// draw_projections FOLDER: writes an SVG file for each projection. The mesh builders print on standard
// output.
#include <cstdio>
#include <exception>

#include "Drawings.h"

namespace {

using namespace fovix::drawings;

constexpr int kWidth = 920, kHeight = 270;
constexpr Box kPicturePanel = {20, 20, 210, 210};
constexpr Box kSpacePanel = {265, 20, 280, 210};
constexpr Box kScreenPanel = {580, 34, 320, 180};
constexpr double kCaptionY = 255;

void draw(const Drawing& drawing, const std::string& folder) {
    const Scene scene = drawing.makeScene();
    SvgFile svg(kWidth, kHeight);
    drawPicturePanel(svg, kPicturePanel, scene.picture, scene.passes);
    drawSpacePanel(svg, kSpacePanel, scene.outlook, scene.passes);
    drawScreenPanel(svg, kScreenPanel, scene.passes);
    svg.text({125, kCaptionY}, "the camera image");
    svg.text({405, kCaptionY}, scene.passes[0].showsEye ? "the mesh and the eye" : "the mesh of each half");
    svg.text({740, kCaptionY}, "the surface");
    svg.save(folder + "/" + drawing.name + ".svg");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: draw_projections FOLDER\n", stderr);
        return 2;
    }
    try {
        for (const Drawing& drawing : allDrawings()) draw(drawing, argv[1]);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "draw_projections: %s\n", exception.what());
        return 1;
    }
    return 0;
}
