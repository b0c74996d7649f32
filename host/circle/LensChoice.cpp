#include "circle/LensChoice.h"

#include <algorithm>

#include "circle/CameraFile.h"
#include "circle/LensText.h"

namespace fovix_host {
namespace {

// Saves the lens and returns a message; does nothing without a camera.
std::string save(const LensRequest& request, const LensCircle& lens) {
    if (request.camera.empty()) return {};
    const CameraFile file(request.camera);
    file.save(lens);
    return "saved in '" + file.path().string() + "'";
}

}  // namespace

std::optional<LensChoice> lensWithoutSearch(const LensRequest& request) {
    if (request.given) {
        const std::string saved = save(request, *request.given);
        return LensChoice{request.given,
                          saved.empty() ? "" : "lens circle " + textOf(*request.given) + " " + saved};
    }
    if (request.camera.empty()) return std::nullopt;
    const CameraFile file(request.camera);
    const auto lens = file.read();
    if (!lens) return std::nullopt;
    return LensChoice{lens, "lens circle " + textOf(*lens) + " from '" + file.path().string() + "'"};
}

LensChoice lensAfterSearch(const LensRequest& request, const std::optional<FoundLens>& found) {
    if (!found || !found->isSure())
        return {std::nullopt, "no lens circle found" +
                                  (found ? " (confidence " + found->percent() + ")" : "") +
                                  ", assuming a centred one; --lens sets it"};
    const std::string saved = save(request, found->circle);
    return {found->circle, "lens circle " + textOf(found->circle) + " found (confidence " + found->percent() +
                               ")" + (saved.empty() ? "" : " and " + saved) + "; --lens overrides it"};
}

std::string misfitOf(const LensCircle& lens, int width, int height) {
    constexpr double kTolerance = 1.02;  // encoders cut or add a few rows
    const double across = static_cast<double>(width) / lens.imageWidth;
    const double down = static_cast<double>(height) / lens.imageHeight;
    if (std::max(across, down) <= kTolerance * std::min(across, down)) return {};
    const std::string size = std::to_string(width) + "," + std::to_string(height);
    return "lens circle " + textOf(lens) + " refers to an image with another aspect ratio than the " +
           std::to_string(width) + "x" + std::to_string(height) + " frame; use --lens CX,CY,RADIUS," + size;
}

}  // namespace fovix_host
