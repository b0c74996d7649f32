#include "options/InputOptions.h"

#include <algorithm>
#include <cstdint>

#include "circle/CameraFile.h"
#include "circle/LensText.h"
#include "cli/CommandLine.h"
#include "cli/OptionValues.h"
#include "media/InputName.h"
#include "options/ViewTypes.h"

namespace fovix_host {
namespace {

SampleScene::Camera parseCamera(const std::string& text) {
    if (text.empty() || text == "ceiling") return SampleScene::Camera::kCeiling;
    if (text == "wall") return SampleScene::Camera::kWall;
    refuse("--sample", text, "ceiling or wall (and no other input)");
}

LensCircle parseLens(const std::string& text) {
    const auto lens = lensIn(text);
    if (!lens) refuse("--lens", text, kExpectedLens);
    const auto isBeyond = [&](int center, int length) {
        return center >= std::int64_t{lens->radius} + length;
    };
    if (isBeyond(lens->xCenter, lens->imageWidth) || isBeyond(lens->yCenter, lens->imageHeight))
        refuse("--lens", text, "a circle that overlaps its image");
    return *lens;
}

std::string parseCameraName(const std::string& text) {
    if (!isCameraName(text)) refuse("--camera", text, kExpectedCameraName);
    return text;
}

void checkNames(const std::vector<std::string>& inputs) {
    if (std::find(inputs.begin(), inputs.end(), "") != inputs.end())
        throw UsageError("an input has an empty name");
    if (std::count(inputs.begin(), inputs.end(), "-") > 1)
        throw UsageError("standard input can be read only once; give - once");
}

// Only single inputs with one lens have a circle to store.
void checkCamera(const InputOptions& options, const ViewOptions& view) {
    if (options.camera.empty()) return;
    if (options.sample) throw UsageError("--camera does not apply to --sample, whose lens is known");
    if (view.takesSeveralInputs() || view.type == FOVIX_TYPE_TWO_LENSES)
        throw UsageError("--camera does not apply to --type " + viewTypeName(view.type) +
                         "; use it with a type that shows one lens");
    if (options.inputs.empty()) throw UsageError("--camera needs an input from that camera");
}

}  // namespace

void describeInputOptions(CommandLine& line, InputOptions& options) {
    line.addInputs(options.inputs);
    line.addText(
        "--sample", "[=ceiling|wall]", "use a synthetic car park as input",
        [&](const std::string& value) {
            options.sample = parseCamera(value);
            options.samplesDiffer = value.empty();
        },
        CommandLine::Value::kOptional);
    line.addText("--lens", "CX,CY,RADIUS,W,H", "lens circle, and size of its image [detected]",
                 [&](const std::string& value) { options.lens = parseLens(value); });
    line.addText("--camera", "NAME", "load or store the lens circle under this name",
                 [&](const std::string& value) { options.camera = parseCameraName(value); });
}

void checkInputOptions(const InputOptions& options, const ViewOptions& view) {
    const auto& inputs = options.inputs;
    checkNames(inputs);
    if (options.sample && !inputs.empty())
        throw UsageError("--sample generates its own input; give either " + quotedName(inputs.front()) +
                         " or --sample");
    const int count = static_cast<int>(inputs.size());
    const int maxCount = view.grid ? view.grid->rows * view.grid->columns : kMaxInputs;
    if (count > 1 && !view.takesSeveralInputs())
        throw UsageError(quotedName(inputs[1]) + " is one input too many for --type " +
                         viewTypeName(view.type) + "; grid and lenses take several");
    if (count > maxCount)
        throw UsageError(std::to_string(count) + " inputs are too many; the maximum is " +
                         std::to_string(maxCount));
    if (count > 0 && view.lensShown.value_or(0) >= count)
        refuse("--show-lens", std::to_string(*view.lensShown),
               count == 1 ? "0, the only input" : "an input from 0 to " + std::to_string(count - 1));
    checkCamera(options, view);
}

}  // namespace fovix_host
