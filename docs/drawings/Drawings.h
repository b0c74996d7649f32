// The list of drawings: which mesh, which view of it, and from where space is looked at.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Panels.h"

namespace fovix::drawings {

/// What a drawing shows. The passes point into meshes.
struct Scene {
    Picture picture;
    Outlook outlook;
    std::vector<std::unique_ptr<std::vector<Patch>>> meshes;
    std::vector<Pass> passes;
};

struct Drawing {
    std::string name;  ///< of the file, without its ending
    std::function<Scene()> makeScene;
};

const std::vector<Drawing>& allDrawings();

}  // namespace fovix::drawings
