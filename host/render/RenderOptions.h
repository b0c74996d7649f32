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
    bool findLens = false;  // and print it, instead of drawing
    OutputOptions output;
    SurfaceSize surface{1280, 720};
    std::string script;              // file with a timeline of calls; empty without
    int frames = 0;                  // 0: not said
    std::optional<double> start;     // in seconds of the inputs
    std::optional<double> duration;  // in seconds, from there on
    int every = 1;                   // write each frame of this many; 0: only the last one
    unsigned int background = 0;     // 0xRRGGBB
    bool verbose = false;
    bool quiet = false;
};

// Throws UsageError or TextRequest.
RenderOptions parseRenderOptions(int argc, const char* const* argv);

}  // namespace fovix_host
