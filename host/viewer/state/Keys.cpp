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
    {"t", Action::kNextType, 1, false, "t  T", "next display type, the one before"},
    {"T", Action::kNextType, -1, false, "", ""},
    {"m", Action::kNextMount, 1, false, "m", "mount: ceiling, wall, wall inverted, floor"},
    {"s", Action::kNextShape, 1, false, "s  S", "next shape, the one before"},
    {"S", Action::kNextShape, -1, false, "", ""},
    {"d", Action::kNextMode, 1, false, "d", "next draw mode"},
    {"n", Action::kNextLens, 1, false, "n", "next lens"},
    {"c", Action::kCruise, 1, false, "c", "cruise, or stop"},
    {"+", Action::kCruiseSpeed, 1, true, "+  -", "cruise faster, slower and back"},
    {"-", Action::kCruiseSpeed, -1, true, "", ""},
    {"r", Action::kReset, 1, false, "r  Home", "the view as it was at first"},
    {"Home", Action::kReset, 1, false, "", ""},
    {"Space", Action::kPause, 1, false, "Space", "pause, go on"},
    {"Left", Action::kSeek, -5, true, "Left  Right", "5 seconds back, on"},
    {"Right", Action::kSeek, 5, true, "", ""},
    {"Down", Action::kSeek, -60, true, "Down  Up", "a minute back, on"},
    {"Up", Action::kSeek, 60, true, "", ""},
    {".", Action::kStep, 1, true, ".", "one picture on"},
    {"b", Action::kBackground, 1, false, "b", "next background"},
    {"f", Action::kFullScreen, 1, false, "f  F11", "full screen"},
    {"F11", Action::kFullScreen, 1, false, "", ""},
    {"p", Action::kScreenshot, 1, false, "p  F12", "save what is shown as a PNG file"},
    {"F12", Action::kScreenshot, 1, false, "", ""},
    {"i", Action::kStatistics, 1, false, "i", "frame rate and dropped pictures"},
    {"?", Action::kHelp, 1, false, "?  h  F1", "this help"},
    {"h", Action::kHelp, 1, false, "", ""},
    {"F1", Action::kHelp, 1, false, "", ""},
    {"q", Action::kQuit, 1, false, "q  Esc", "quit; Esc leaves help and full screen first"},
    {"Escape", Action::kLeave, 1, false, "", ""},
};

constexpr HelpLine kMouseLines[] = {
    {"Drag", "look round; let go while moving to fling"},
    {"Wheel, pinch", "zoom"},
    {"Double click", "look there; other types: closer, and back"},
    {"Shift + drag", "show a rectangle"},
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
