// The frame rate of inputs that declare none, and of the sample.
#pragma once

namespace fovix_host {

inline constexpr double kDefaultFrameRate = 25;

}  // namespace fovix_host
