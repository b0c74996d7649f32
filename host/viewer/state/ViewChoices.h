// Which types, mounts, shapes and draw modes follow each other when somebody goes through them, only those
// that go together; and the words that tell the choice.
#pragma once

#include <string>

#include "options/ViewOptions.h"

namespace fovix_host {

// Each gives the options changed as said, or unchanged where the type has no such choice.
ViewOptions withTypeNumber(const ViewOptions& view, int number);  // 1 to 8
ViewOptions withNextType(const ViewOptions& view, int by);
ViewOptions withNextMount(const ViewOptions& view);
ViewOptions withNextShape(const ViewOptions& view, int by);
ViewOptions withNextMode(const ViewOptions& view);
// The next lens of several, or the next screen of two lenses in one picture.
ViewOptions withNextLens(const ViewOptions& view, int pictures);

// "360 · ceiling · four-screens"
std::string wordsFor(const ViewOptions& view, int pictures);

bool canCruise(const ViewOptions& view);

}  // namespace fovix_host
