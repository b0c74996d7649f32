// The command line of fovix-render.
#pragma once

#include <Fovix.h>

#include <optional>
#include <stdexcept>
#include <string>

#include "LensCircle.h"
#include "sample/SampleScene.h"

namespace fovix_host {

struct Options {
    std::string input;  // empty with a sample
    std::optional<SampleScene::Camera> sample;
    std::string output = "fovix.png";
    std::optional<LensCircle> lens;
    int type = FOVIX_TYPE_ORIGINAL;
    int width = 1280;
    int height = 720;
    int frames = 1;
    unsigned int background = 0;  // 0xRRGGBB
    bool verbose = false;
};

// A command line that cannot be meant; what() is a sentence that says what would be right.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// What --help and --version ask for instead of a picture.
struct TextWanted {
    std::string text;
};

// Throws UsageError or TextWanted.
Options parseOptions(int argc, const char* const* argv);

}  // namespace fovix_host
