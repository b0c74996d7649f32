// Applies the keys that change the view.
#pragma once

#include <string>

#include "viewer/state/Keys.h"
#include "viewer/state/ShownView.h"

namespace fovix_host {

// Returns a message for the user; empty if the change is obvious.
std::string changeView(ShownView& shown, const Key& key);

}  // namespace fovix_host
