// The order in which keys step through types, mounts, shapes and draw modes, limited to valid combinations;
// and descriptions of the choice.
#pragma once

#include <string>

#include "options/ViewOptions.h"

namespace fovix_host {

// Each returns the changed options, or the same ones if the type has no such choice.
ViewOptions withTypeNumber(const ViewOptions& view, int number);  // 1 to 8
ViewOptions withNextType(const ViewOptions& view, int by);
ViewOptions withNextMount(const ViewOptions& view);
ViewOptions withNextShape(const ViewOptions& view, int by);
ViewOptions withNextMode(const ViewOptions& view);
// The next input of type lenses, or the next screen of type two-lenses.
ViewOptions withNextLens(const ViewOptions& view, int inputs);

// "360 · ceiling · four-screens"
std::string describe(const ViewOptions& view, int inputs);

bool canCruise(const ViewOptions& view);

}  // namespace fovix_host
