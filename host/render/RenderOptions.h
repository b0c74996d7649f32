// The command line of fovix-render.
#pragma once

#include <optional>
#include <string>

#include "cli/OptionValues.h"
#include "options/InputOptions.h"
#include "options/ViewOptions.h"
#include "render/OutputOptions.h"

namespace fovix_host {

struct RenderOptions {
    InputOptions input;
    ViewOptions view;
    bool findLens = false;  // print the lens circle instead of rendering
    OutputOptions output;
    SurfaceSize surface{1280, 720};
    std::string script;              // file name; empty without
    int frames = 0;                  // 0: not given
    std::optional<double> start;     // position in the inputs, seconds
    std::optional<double> duration;  // seconds
    int every = 1;                   // write every Nth frame; 0: only the last one
    unsigned int background = 0;     // 0xRRGGBB
    bool verbose = false;
    bool quiet = false;
};

// Throws UsageError or TextRequest.
RenderOptions parseRenderOptions(int argc, const char* const* argv);

}  // namespace fovix_host
