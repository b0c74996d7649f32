#include "options/ViewTypes.h"

#include <Fovix.h>

#include <iomanip>
#include <sstream>

namespace fovix_host {
namespace {

constexpr NamedCode kTypeTable[] = {
    {"360", FOVIX_TYPE_360VR, "panorama of a camera on ceiling, wall or floor, with one to six screens"},
    {"180", FOVIX_TYPE_180VR, "180-degree view: disc, stretched flat, cylinder or curved screen"},
    {"original", FOVIX_TYPE_ORIGINAL, "the camera's image, unchanged"},
    {"fisheye", FOVIX_TYPE_ORIGINAL, "another name for original"},
    {"korvel", FOVIX_TYPE_KORVEL, "the straightened image of the Korvel lens"},
    {"grid", FOVIX_TYPE_MULTI_IMAGE, "up to 36 inputs of the same aspect ratio side by side"},
    {"lenses", FOVIX_TYPE_MULTI_LENS, "one of up to 36 inputs, selected with --show-lens"},
    {"pip", FOVIX_TYPE_SINGLE_PIP, "part of a wide image; on a square surface, with an inset of the whole"},
    {"two-lenses", FOVIX_TYPE_TWO_LENSES, "a camera with two lenses, one image above the other"},
};

constexpr NamedCode kMountTable[] = {
    {"ceiling", FOVIX_MOUNT_CEILING, "camera looks down; all shapes"},
    {"wall", FOVIX_MOUNT_WALL, "camera looks ahead; single, bowl, strip, two-strips, overview-five"},
    {"wall-inverted", FOVIX_MOUNT_WALL_INVERTED, "camera looks ahead, upside down; single"},
    {"floor", FOVIX_MOUNT_FLOOR, "camera looks up; single"},
};

constexpr NamedShape kShape360Table[] = {
    {{"single", FOVIX_SHAPE_SINGLE, "one pan-tilt-zoom screen"}, 1, "0123"},
    {{"dome", FOVIX_SHAPE_DOME, "the hemisphere as a dome"}, 1, "0"},
    {{"bowl", FOVIX_SHAPE_BOWL, "the hemisphere as a bowl"}, 1, "01"},
    {{"cylinder", FOVIX_SHAPE_CYLINDER, "a cylinder, seen from outside"}, 1, "0"},
    {{"cylinder-inside", FOVIX_SHAPE_CYLINDER_INSIDE, "a cylinder, seen from inside (mirrored)"}, 1, "0"},
    {{"strip", FOVIX_SHAPE_STRIP, "all 360 degrees, unrolled"}, 1, "01"},
    {{"two-strips", FOVIX_SHAPE_TWO_STRIPS, "two strips, half a turn apart"}, 1, "01"},
    {{"four-screens", FOVIX_SHAPE_FOUR_SCREENS, "two by two pan-tilt-zoom screens"}, 4, "0"},
    {{"overview-five", FOVIX_SHAPE_OVERVIEW_FIVE, "overview (screen 0) and five screens"}, 6, "01"},
    {{"two-and-strip", FOVIX_SHAPE_TWO_AND_STRIP, "two screens above the strip"}, 2, "0"},
};

constexpr NamedShape kShape180Table[] = {
    {{"disc", FOVIX_SHAPE_SINGLE, "the lens disc"}},
    {{"cylinder", FOVIX_SHAPE_CYLINDER, "around a full cylinder (mirrored)"}},
    {{"stretch", FOVIX_SHAPE_STRIP, "stretched flat"}},
    {{"four-screens", FOVIX_SHAPE_FOUR_SCREENS, "two by two screens"}, 4},
    {{"large-and-two", FOVIX_SHAPE_LARGE_AND_TWO, "a large screen above two small ones"}, 3},
};

constexpr NamedCode kDrawMode180Table[] = {
    {"disc", FOVIX_180_DISC, "the lens disc"},
    {"stretch", FOVIX_180_STRETCH, "stretched flat"},
    {"cylinder", FOVIX_180_CYLINDER, "around a full cylinder (mirrored)"},
    {"curved", FOVIX_180_CURVED, "on a shallow curved screen"},
};

constexpr NamedCode kInsetTable[] = {
    {"plain", 0, "without the inset"},
    {"inset", 3, "with the inset, on a square surface"},
};

constexpr NamedCode kTwoLensesTable[] = {
    {"by-zoom", FOVIX_TWO_LENSES_BY_ZOOM, "the upper half; at and above a zoom threshold, the lower one"},
    {"both", FOVIX_TWO_LENSES_BOTH, "side by side, or the one screen named after a comma"},
    {"upper", FOVIX_TWO_LENSES_UPPER, "only the upper half"},
    {"lower", FOVIX_TWO_LENSES_LOWER, "only the lower half"},
};

constexpr NamedCode kTwoLensesScreenTable[] = {
    {"both", FOVIX_TWO_LENSES_SCREEN_BOTH, "both images"},
    {"first", FOVIX_TWO_LENSES_SCREEN_FIRST, "the upper half fills a wide surface"},
    {"second", FOVIX_TWO_LENSES_SCREEN_SECOND, "the lower half fills a wide surface"},
};

template <typename Table>
void list(std::ostream& text, std::string_view heading, const Table& table) {
    text << heading << '\n';
    for (const auto& row : table)
        text << "  " << std::setw(3) << std::right << row.code << "  " << std::setw(16) << std::left
             << row.name << row.meaning << '\n';
}

}  // namespace

std::span<const NamedCode> viewTypes() {
    return kTypeTable;
}
std::span<const NamedCode> cameraMounts() {
    return kMountTable;
}
std::span<const NamedShape> shapesOf360() {
    return kShape360Table;
}
std::span<const NamedShape> shapesOf180() {
    return kShape180Table;
}
std::span<const NamedCode> drawModesOf180() {
    return kDrawMode180Table;
}
std::span<const NamedCode> drawModesOfInset() {
    return kInsetTable;
}
std::span<const NamedCode> twoLensesModes() {
    return kTwoLensesTable;
}
std::span<const NamedCode> twoLensesScreens() {
    return kTwoLensesScreenTable;
}

std::string viewTypeName(int type) {
    for (const NamedCode& row : kTypeTable)
        if (row.code == type) return std::string(row.name);
    return std::to_string(type);
}

std::string namesToList() {
    std::ostringstream text;
    list(text, "Display types (--type); any other number shows the camera's image, unchanged", kTypeTable);
    list(text, "Camera mounts (--mount, type 360)", kMountTable);
    list(text, "Shapes of type 360 (--shape)", kShape360Table);
    list(text, "Shapes of type 180 (--shape)", kShape180Table);
    list(text, "Draw modes of type 180 (--draw-mode)", kDrawMode180Table);
    list(text, "Draw modes of type pip (--draw-mode)", kInsetTable);
    list(text, "Draw modes of type two-lenses (--two-lenses)", kTwoLensesTable);
    list(text, "Screens of the draw mode both (--two-lenses both,SCREEN)", kTwoLensesScreenTable);
    return text.str();
}

}  // namespace fovix_host
