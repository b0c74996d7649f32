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
    /// See ApiCalls.h. "draw N" draws N frames, "cell N" submits a frame for a slot, "short N" the first N
    /// bytes of the row's.
    const char* script;
    int width = 160, height = 120, ppi = 1;
    bool hasControllers = false;
};

const std::vector<ViewRow>& viewRows();

/// Submits a picture as a frame of a pixel format, for the only slot or for one of several.
void submit(VRHANDLE handle, const Image& picture, int pixelFmt = FOVIX_FORMAT_RGBA);
void submitTo(VRHANDLE handle, int slot, const Image& picture, int pixelFmt = FOVIX_FORMAT_RGBA);

/// Brings a prepared handle into the state that a row shows with its next frame.
void setUp(VRHANDLE handle, const ViewRow& row, const std::function<void()>& drawFrame);

/// Looks like the picture of the row.
testing::AssertionResult isAsStored(const ViewRow& row, const Image& actual);

}  // namespace fovix_test
