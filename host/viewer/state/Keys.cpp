#include "viewer/state/Keys.h"

#include <algorithm>

namespace fovix_host {
namespace {

constexpr Key kTable[] = {
    {"1", Action::kSetType, 1, false, "1 ... 8", "360, 180, original, korvel, grid, lenses, pip, two lenses"},
    {"2", Action::kSetType, 2, false, "", ""},
    {"3", Action::kSetType, 3, false, "", ""},
    {"4", Action::kSetType, 4, false, "", ""},
    {"5", Action::kSetType, 5, false, "", ""},
    {"6", Action::kSetType, 6, false, "", ""},
    {"7", Action::kSetType, 7, false, "", ""},
    {"8", Action::kSetType, 8, false, "", ""},
    {"t", Action::kNextType, 1, false, "t  T", "next or previous display type"},
    {"T", Action::kNextType, -1, false, "", ""},
    {"m", Action::kNextMount, 1, false, "m", "next mount: ceiling, wall, wall inverted, floor"},
    {"s", Action::kNextShape, 1, false, "s  S", "next or previous shape"},
    {"S", Action::kNextShape, -1, false, "", ""},
    {"d", Action::kNextMode, 1, false, "d", "next draw mode"},
    {"n", Action::kNextLens, 1, false, "n", "next lens"},
    {"c", Action::kCruise, 1, false, "c", "toggle cruise"},
    {"+", Action::kCruiseSpeed, 1, true, "+  -", "change cruise speed; negative reverses"},
    {"-", Action::kCruiseSpeed, -1, true, "", ""},
    {"r", Action::kReset, 1, false, "r  Home", "return to the initial view"},
    {"Home", Action::kReset, 1, false, "", ""},
    {"Space", Action::kPause, 1, false, "Space", "pause or resume"},
    {"Left", Action::kSeek, -5, true, "Left  Right", "seek 5 seconds backward or forward"},
    {"Right", Action::kSeek, 5, true, "", ""},
    {"Down", Action::kSeek, -60, true, "Down  Up", "seek a minute backward or forward"},
    {"Up", Action::kSeek, 60, true, "", ""},
    {".", Action::kStep, 1, true, ".", "step to the next frame"},
    {"b", Action::kBackground, 1, false, "b", "next background colour"},
    {"f", Action::kFullScreen, 1, false, "f  F11", "toggle full screen"},
    {"F11", Action::kFullScreen, 1, false, "", ""},
    {"p", Action::kScreenshot, 1, false, "p  F12", "save a screenshot as a PNG file"},
    {"F12", Action::kScreenshot, 1, false, "", ""},
    {"i", Action::kStatistics, 1, false, "i", "frame rate and dropped frames"},
    {"?", Action::kHelp, 1, false, "?  h  F1", "show or hide this help"},
    {"h", Action::kHelp, 1, false, "", ""},
    {"F1", Action::kHelp, 1, false, "", ""},
    {"q", Action::kQuit, 1, false, "q  Esc", "quit; Esc first closes the help, then leaves full screen"},
    {"Escape", Action::kLeave, 1, false, "", ""},
};

constexpr HelpLine kMouseLines[] = {
    {"Drag", "look around; release while moving to fling"},
    {"Wheel, pinch", "zoom"},
    {"Double click", "centre that point; other types: zoom in or out"},
    {"Shift + drag", "zoom to a rectangle"},
};

}  // namespace

std::span<const Key> keyTable() {
    return kTable;
}

const Key* keyNamed(std::string_view name) {
    const auto* key =
        std::find_if(std::begin(kTable), std::end(kTable), [&](const Key& row) { return row.name == name; });
    if (key != std::end(kTable)) return key;
    const bool isCapital = name.size() == 1 && name[0] >= 'A' && name[0] <= 'Z';
    if (!isCapital) return nullptr;
    const char small = static_cast<char>(name[0] - 'A' + 'a');
    return keyNamed({&small, 1});
}

std::vector<HelpLine> helpLines() {
    std::vector<HelpLine> lines(std::begin(kMouseLines), std::end(kMouseLines));
    for (const Key& key : kTable)
        if (!key.shown.empty()) lines.push_back({key.shown, key.meaning});
    return lines;
}

}  // namespace fovix_host
