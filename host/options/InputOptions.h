// Options for the inputs: files, streams and devices, or the sample, and their lens circle.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "circle/LensCircle.h"
#include "options/ViewOptions.h"
#include "sample/SampleScene.h"

namespace fovix_host {

class CommandLine;

struct InputOptions {
    std::vector<std::string> inputs;  // empty with a sample
    std::optional<SampleScene::Camera> sample;
    bool samplesDiffer = false;  // several samples alternate between the cameras, because none was named
    std::optional<LensCircle> lens;
    std::string camera;  // name under which the lens is stored; empty without
};

// The options must outlive the parsing.
void describeInputOptions(CommandLine& line, InputOptions& options);

// Checks the number of inputs, and their use with --sample and --camera. Throws UsageError.
void checkInputOptions(const InputOptions& options, const ViewOptions& view);

}  // namespace fovix_host
