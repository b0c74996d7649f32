#include "viewer/state/ViewKeys.h"

#include <optional>

#include "viewer/state/ViewChoices.h"

namespace fovix_host {
namespace {

// What the key chooses; nothing where it is no key for a choice.
std::optional<ViewOptions> choiceOf(const Key& key, const ViewOptions& view, int pictures) {
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
            return withNextLens(view, pictures);
        default:
            return std::nullopt;
    }
}

}  // namespace

std::string changeView(ShownView& shown, const Key& key) {
    if (const auto choice = choiceOf(key, shown.options(), shown.pictures())) {
        const bool changes = shown.change(*choice) || key.action == Action::kSetType;
        return shown.words() + (changes ? "" : ": no other choice");
    }
    switch (key.action) {
        case Action::kCruise:
            return shown.toggleCruise() ? shown.cruiseWords() : "this view cannot cruise";
        case Action::kCruiseSpeed:
            shown.changeCruiseSpeed(key.amount);
            return shown.cruiseWords();
        case Action::kBackground:
            shown.nextBackground();
            return {};
        default:
            shown.reset();
            return shown.words();
    }
}

}  // namespace fovix_host
