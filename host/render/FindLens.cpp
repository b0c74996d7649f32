#include "render/FindLens.h"

#include <cstdio>
#include <stdexcept>

#include "circle/LensChoice.h"
#include "circle/LensText.h"
#include "media/InputName.h"
#include "media/LensInMedia.h"
#include "render/StopSignals.h"

namespace fovix_host {

void printLens(const RenderOptions& options, OwnOutput& out) {
    const std::string& input = options.input.inputs.front();
    const auto found = findLens(input, [] { return stopSignal() != 0; });
    if (!found) throw std::runtime_error(quotedName(input) + " shows no lens circle");
    if (!found->isSure())
        throw std::runtime_error(quotedName(input) + " shows no clear lens circle; the best guess is " +
                                 textOf(found->circle) + " with " + found->description());
    if (!options.input.camera.empty()) {
        const auto choice = lensWithoutSearch({found->circle, options.input.camera});
        if (!options.quiet) std::fprintf(stderr, "fovix-render: %s\n", choice->message.c_str());
    }
    out.line(textOf(found->circle));
    out.line(found->description());
}

}  // namespace fovix_host
