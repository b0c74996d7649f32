// The sample scene as inputs of a view, in the number and from the viewpoints the display type needs.
#pragma once

#include <memory>
#include <vector>

#include "media/FrameSource.h"
#include "options/InputOptions.h"
#include "options/ViewOptions.h"

namespace fovix_host {

// Empty without --sample. A single sample is maxSide pixels wide.
std::vector<std::unique_ptr<FrameSource>> openSamples(const InputOptions& input, const ViewOptions& view,
                                                      int maxSide = kSampleSize);

}  // namespace fovix_host
