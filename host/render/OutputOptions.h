// The options that say where the drawn frames go, and in which form.
#pragma once

#include <optional>
#include <string>

#include "media/VideoWriter.h"

namespace fovix_host {

class CommandLine;

enum class OutputKind { kPictures, kVideo, kPipe };

struct OutputOptions {
    std::string name = "fovix.png";
    OutputKind kind = OutputKind::kPictures;
    std::optional<VideoCodec> codec;
    std::optional<int> quality;
    std::optional<double> frameRate;
};

// The options outlive the parsing.
void describeOutputOptions(CommandLine& line, OutputOptions& options);

// Whether they fit each other and a surface of this size. Throws UsageError.
void checkOutputOptions(const OutputOptions& options, int width, int height);

}  // namespace fovix_host
