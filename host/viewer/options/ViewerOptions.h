// The command line of fovix-view.
#pragma once

#include "cli/OptionValues.h"
#include "options/InputOptions.h"
#include "options/ViewOptions.h"

namespace fovix_host {

struct ViewerOptions {
    InputOptions input;
    ViewOptions view;
    SurfaceSize window{1280, 720};
    unsigned int background = 0;  // 0xRRGGBB
    double start = 0;             // seconds
    bool fullScreen = false;
    bool loop = false;
    bool keepOpen = false;  // at the end of the inputs
    bool sensors = false;
    bool verbose = false;
};

// Throws UsageError or TextRequest.
ViewerOptions parseViewerOptions(int argc, const char* const* argv);

}  // namespace fovix_host
