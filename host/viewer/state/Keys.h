// What the keys do: one table for the keyboard and for the help on the screen.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace fovix_host {

enum class Action {
    kSetType,  // amount: the number of the key
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
    kLeave,  // what is open: the help, the full screen, the program
    kQuit
};

struct Key {
    std::string_view name;  // a character as typed, or the name that SDL has for the key
    Action action;
    int amount;                // as Action says; else 1, and -1 for the other way
    bool repeats;              // while it is held
    std::string_view shown;    // in the help; empty where the line before covers it
    std::string_view meaning;  // likewise
};

std::span<const Key> keyTable();

// A capital that means nothing else is its small letter: Caps Lock may be on.
const Key* keyNamed(std::string_view name);

struct HelpLine {
    std::string_view keys, meaning;
};
std::vector<HelpLine> helpLines();  // those of the mouse first

}  // namespace fovix_host
