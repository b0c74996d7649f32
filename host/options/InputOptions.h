// The options that say where pictures come from: inputs or the sample, and their lens circle.
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
    bool samplesDiffer = false;  // no camera was named: where several are shown they take turns
    std::optional<LensCircle> lens;
    std::string camera;  // name under which the lens is kept; empty without
};

// The options outlive the parsing.
void describeInputOptions(CommandLine& line, InputOptions& options);

// How many inputs there may be, and whether they go with --sample and --camera. Throws UsageError.
void checkInputOptions(const InputOptions& options, const ViewOptions& view);

}  // namespace fovix_host
