// The list of drawings: the mesh, its view, and the viewpoint of the space panel.
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
    std::string name;  ///< file name without extension
    std::function<Scene()> makeScene;
};

const std::vector<Drawing>& allDrawings();

}  // namespace fovix::drawings
