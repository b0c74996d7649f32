// Detects whether a view moves by itself, so that a resting window need not be redrawn.
#pragma once

#include <Fovix.h>

#include <array>

namespace fovix_host {

class ViewWatch {
  public:
    // Returns true if the view of any screen has changed since the last call.
    bool hasMoved(VRHANDLE view);

  private:
    static constexpr int kScreens = 6;
    static constexpr int kValues = 8;  // per screen
    std::array<double, kValues * kScreens> _last{};
};

}  // namespace fovix_host
