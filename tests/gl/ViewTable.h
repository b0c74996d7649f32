// Views of every type, mount, shape, draw mode and pixel format, and the small pictures in pictures/ that
// they look like. What a row says needs no GL: a handle takes it, and whatever draws frames is the caller's.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Fovix.h"
#include "Image.h"

namespace fovix_test {

/// A picture as the host decodes it; its content is chequered.
struct Frame {
    int width, height, pixelFmt = FOVIX_FORMAT_RGBA;
};

struct ViewRow {
    const char* name;  ///< of its picture, pictures/NAME.png
    int type;
    Frame frame;
    const char* script;  ///< see ApiCalls.h; "draw N" draws N frames, "cell N" shows the frame in a slot
    int width = 160, height = 120, ppi = 1;
    bool hasControllers = false;
};

const std::vector<ViewRow>& viewRows();

/// Brings a prepared handle into the state that a row shows with its next frame.
void setUp(VRHANDLE handle, const ViewRow& row, const std::function<void()>& drawFrame);

/// Looks like the picture of the row.
testing::AssertionResult isAsStored(const ViewRow& row, const Image& actual);

}  // namespace fovix_test
