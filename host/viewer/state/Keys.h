// The keys of the viewer: one table for the keyboard and for the help.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace fovix_host {

enum class Action {
    kSetType,  // amount: number of the key
    kNextType,
    kNextMount,
    kNextShape,
    kNextMode,
    kNextLens,
    kCruise,
    kCruiseSpeed,
    kReset,
    kPause,
    kSeek,  // amount: seconds
    kStep,
    kBackground,
    kFullScreen,
    kScreenshot,
    kStatistics,
    kHelp,
    kLeave,  // the help, else full screen, else the program
    kQuit
};

struct Key {
    std::string_view name;  // the typed character, or SDL's name of the key
    Action action;
    int amount;                // see Action; else 1 for forwards and -1 for backwards
    bool repeats;              // while it is held
    std::string_view shown;    // in the help; empty if the previous line covers it
    std::string_view meaning;  // the same
};

std::span<const Key> keyTable();

// A capital without a meaning of its own counts as its small letter: Caps Lock may be on.
const Key* keyNamed(std::string_view name);

struct HelpLine {
    std::string_view keys, meaning;
};
std::vector<HelpLine> helpLines();  // mouse first, then keys

}  // namespace fovix_host
