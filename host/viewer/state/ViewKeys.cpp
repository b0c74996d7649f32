#include "viewer/state/ViewKeys.h"

#include <optional>

#include "viewer/state/ViewChoices.h"

namespace fovix_host {
namespace {

// The view that the key selects; nullopt for other keys.
std::optional<ViewOptions> choiceOf(const Key& key, const ViewOptions& view, int inputs) {
    switch (key.action) {
        case Action::kSetType:
            return withTypeNumber(view, key.amount);
        case Action::kNextType:
            return withNextType(view, key.amount);
        case Action::kNextMount:
            return withNextMount(view);
        case Action::kNextShape:
            return withNextShape(view, key.amount);
        case Action::kNextMode:
            return withNextMode(view);
        case Action::kNextLens:
            return withNextLens(view, inputs);
        default:
            return std::nullopt;
    }
}

}  // namespace

std::string changeView(ShownView& shown, const Key& key) {
    if (const auto choice = choiceOf(key, shown.options(), shown.inputs())) {
        const bool changes = shown.change(*choice) || key.action == Action::kSetType;
        return shown.description() + (changes ? "" : ": no other choice");
    }
    switch (key.action) {
        case Action::kCruise:
            return shown.toggleCruise() ? shown.cruiseDescription() : "this view cannot cruise";
        case Action::kCruiseSpeed:
            shown.changeCruiseSpeed(key.amount);
            return shown.cruiseDescription();
        case Action::kBackground:
            shown.nextBackground();
            return {};
        default:
            shown.reset();
            return shown.description();
    }
}

}  // namespace fovix_host
