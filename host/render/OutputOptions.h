// Options for the output of fovix-render.
#pragma once

#include <optional>
#include <string>

#include "media/VideoWriter.h"

namespace fovix_host {

class CommandLine;

enum class OutputKind { kImages, kVideo, kPipe };

struct OutputOptions {
    std::string name = "fovix.png";
    OutputKind kind = OutputKind::kImages;
    std::optional<VideoCodec> codec;
    std::optional<int> quality;
    std::optional<double> frameRate;
};

// The options must outlive the parsing.
void describeOutputOptions(CommandLine& line, OutputOptions& options);

// Checks them against each other and the size of the surface. Throws UsageError.
void checkOutputOptions(const OutputOptions& options, int width, int height);

}  // namespace fovix_host
