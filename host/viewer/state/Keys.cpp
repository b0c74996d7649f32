#include "viewer/state/Keys.h"

#include <algorithm>

namespace fovix_host {
namespace {

constexpr Key table[] = {
    {"1", Action::setType, 1, false, "1 ... 8", "360, 180, original, korvel, grid, lenses, pip, two lenses"},
    {"2", Action::setType, 2, false, "", ""},
    {"3", Action::setType, 3, false, "", ""},
    {"4", Action::setType, 4, false, "", ""},
    {"5", Action::setType, 5, false, "", ""},
    {"6", Action::setType, 6, false, "", ""},
    {"7", Action::setType, 7, false, "", ""},
    {"8", Action::setType, 8, false, "", ""},
    {"t", Action::nextType, 1, false, "t  T", "next display type, the one before"},
    {"T", Action::nextType, -1, false, "", ""},
    {"m", Action::nextMount, 1, false, "m", "mount: ceiling, wall, wall inverted, floor"},
    {"s", Action::nextShape, 1, false, "s  S", "next shape, the one before"},
    {"S", Action::nextShape, -1, false, "", ""},
    {"d", Action::nextMode, 1, false, "d", "next draw mode"},
    {"n", Action::nextLens, 1, false, "n", "next lens"},
    {"c", Action::cruise, 1, false, "c", "cruise, or stop"},
    {"+", Action::cruiseSpeed, 1, true, "+  -", "cruise faster, slower and back"},
    {"-", Action::cruiseSpeed, -1, true, "", ""},
    {"r", Action::reset, 1, false, "r  Home", "the view as it was at first"},
    {"Home", Action::reset, 1, false, "", ""},
    {"Space", Action::pause, 1, false, "Space", "pause, go on"},
    {"Left", Action::seek, -5, true, "Left  Right", "5 seconds back, on"},
    {"Right", Action::seek, 5, true, "", ""},
    {"Down", Action::seek, -60, true, "Down  Up", "a minute back, on"},
    {"Up", Action::seek, 60, true, "", ""},
    {".", Action::step, 1, true, ".", "one picture on"},
    {"b", Action::background, 1, false, "b", "next background"},
    {"f", Action::fullScreen, 1, false, "f  F11", "full screen"},
    {"F11", Action::fullScreen, 1, false, "", ""},
    {"p", Action::screenshot, 1, false, "p  F12", "save what is shown as a PNG file"},
    {"F12", Action::screenshot, 1, false, "", ""},
    {"i", Action::statistics, 1, false, "i", "frame rate and dropped pictures"},
    {"?", Action::help, 1, false, "?  h  F1", "this help"},
    {"h", Action::help, 1, false, "", ""},
    {"F1", Action::help, 1, false, "", ""},
    {"q", Action::quit, 1, false, "q  Esc", "quit; Esc leaves help and full screen first"},
    {"Escape", Action::leave, 1, false, "", ""},
};

constexpr HelpLine mouseLines[] = {
    {"Drag", "look round; let go while moving to fling"},
    {"Wheel, pinch", "zoom"},
    {"Double click", "look there; other types: closer, and back"},
    {"Shift + drag", "show a rectangle"},
};

}  // namespace

std::span<const Key> keyTable() {
    return table;
}

const Key* keyNamed(std::string_view name) {
    const auto* key =
        std::find_if(std::begin(table), std::end(table), [&](const Key& row) { return row.name == name; });
    if (key != std::end(table)) return key;
    const bool isCapital = name.size() == 1 && name[0] >= 'A' && name[0] <= 'Z';
    if (!isCapital) return nullptr;
    const char small = static_cast<char>(name[0] - 'A' + 'a');
    return keyNamed({&small, 1});
}

std::vector<HelpLine> helpLines() {
    std::vector<HelpLine> lines(std::begin(mouseLines), std::end(mouseLines));
    for (const Key& key : table)
        if (!key.shown.empty()) lines.push_back({key.shown, key.meaning});
    return lines;
}

}  // namespace fovix_host
