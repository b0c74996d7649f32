// The sample scene as the inputs of a view: as many, and seen from where, as the display type wants.
#pragma once

#include <memory>
#include <vector>

#include "media/FrameSource.h"
#include "options/InputOptions.h"
#include "options/ViewOptions.h"

namespace fovix_host {

// None without --sample. The largest size is that of a sample that stands alone.
std::vector<std::unique_ptr<FrameSource>> openSamples(const InputOptions& input, const ViewOptions& view,
                                                      int largest = kSampleSize);

}  // namespace fovix_host
