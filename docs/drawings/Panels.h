// The three panels of a drawing: the patches of a mesh in the image, in space with the eye, and on the
// surface after the matrix.
#pragma once

#include <vector>

#include "MeshPatches.h"
#include "SvgFile.h"
#include "base/Mat4.h"

namespace fovix::drawings {

/// Pixels from the top left.
struct Box {
    double x, y, width, height;
};

/// One drawing pass: patches through a matrix, on a part of the surface (fractions of it, from the top left).
struct Pass {
    const std::vector<Patch>* patches;
    Mat4 matrix;
    Box part = {0.0, 0.0, 1.0, 1.0};
    bool showsEye = true;  ///< in the space panel
};

enum class UpAxis { Y, Z, MinusZ };

/// Viewpoint of the space panel: rotation about the upright axis and elevation, in degrees.
struct Outlook {
    UpAxis up = UpAxis::Y;
    double turn = 30.0, lift = 20.0;
};

struct Picture {
    double width, height;  ///< pixels of the texture
    std::vector<LensDisc> discs;
};

void drawPicturePanel(SvgFile& svg, const Box& box, const Picture& picture, const std::vector<Pass>& passes);
void drawSpacePanel(SvgFile& svg, const Box& box, const Outlook& outlook, const std::vector<Pass>& passes);
void drawScreenPanel(SvgFile& svg, const Box& box, const std::vector<Pass>& passes);

}  // namespace fovix::drawings
