// Whether a view moves by itself, so that a window whose picture rests need not be drawn again and again.
#pragma once

#include <Fovix.h>

#include <array>

namespace fovix_host {

class ViewWatch {
  public:
    // Whether any screen looks elsewhere than at the last call.
    bool hasMoved(VRHANDLE view);

  private:
    static constexpr int kScreens = 6;
    std::array<double, 8 * kScreens> _last{};
};

}  // namespace fovix_host
