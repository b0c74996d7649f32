// The keys that change the view, one after the other, and the word that each says.
#pragma once

#include <string>

#include "viewer/state/Keys.h"
#include "viewer/state/ShownView.h"

namespace fovix_host {

// Nothing to say where what is seen says it.
std::string changeView(ShownView& shown, const Key& key);

}  // namespace fovix_host
