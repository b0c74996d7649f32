// The command line of fovix-render.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "LensCircle.h"
#include "UsageError.h"
#include "ViewOptions.h"
#include "sample/SampleScene.h"

namespace fovix_host {

struct Options {
    std::vector<std::string> inputs;  // empty with a sample
    std::optional<SampleScene::Camera> sample;
    bool samplesDiffer = false;  // no camera was named: where several are shown they take turns
    std::string output = "fovix.png";
    std::optional<LensCircle> lens;
    ViewOptions view;
    int width = 1280;
    int height = 720;
    std::string script;           // file with a timeline of calls; empty without
    int frames = 0;               // 0: one, or as many as the script has
    int every = 1;                // write each frame of this many; 0: only the last one
    unsigned int background = 0;  // 0xRRGGBB
    bool verbose = false;
};

// What --help and --version ask for instead of a picture.
struct TextWanted {
    std::string text;
};

// Throws UsageError or TextWanted.
Options parseOptions(int argc, const char* const* argv);

}  // namespace fovix_host
