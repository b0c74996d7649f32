#include "viewer/state/ViewChoices.h"

#include <vector>

#include "options/ViewTypes.h"

namespace fovix_host {
namespace {

// Each display type once; some have several names.
std::vector<int> typeCodes() {
    std::vector<int> codes;
    for (const NamedCode& row : viewTypes())
        if (codes.empty() || codes.back() != row.code) codes.push_back(row.code);
    return codes;
}

template <typename Table>
std::vector<int> codesOf(const Table& table) {
    std::vector<int> codes;
    for (const auto& row : table) codes.push_back(row.code);
    return codes;
}

int following(const std::vector<int>& codes, int code, int by) {
    const int count = static_cast<int>(codes.size());
    int at = 0;
    while (at < count && codes[static_cast<std::size_t>(at)] != code) ++at;
    if (at == count) return codes.front();
    return codes[static_cast<std::size_t>((at + by + count) % count)];
}

std::vector<int> shapesFor(const ViewOptions& view) {
    if (view.type == FOVIX_TYPE_180VR) return codesOf(shapesOf180());
    std::vector<int> codes;
    if (view.type != FOVIX_TYPE_360VR) return codes;
    const char mount = static_cast<char>('0' + view.mount.value_or(FOVIX_MOUNT_CEILING));
    for (const NamedShape& shape : shapesOf360())
        if (shape.mounts.find(mount) != std::string_view::npos) codes.push_back(shape.code);
    return codes;
}

// Mount, grid and lens survive a change of type; everything else is reset.
ViewOptions withType(const ViewOptions& view, int type) {
    if (type == view.type) return view;
    ViewOptions next;
    next.type = type;
    next.mount = view.mount;
    next.grid = view.grid;
    next.lensShown = view.lensShown;
    return next;
}

template <typename Table>
void add(std::string& text, const Table& table, int code) {
    for (const auto& row : table)
        if (row.code == code) {
            text.append(" · ").append(row.name);
            return;
        }
}

}  // namespace

ViewOptions withTypeNumber(const ViewOptions& view, int number) {
    const std::vector<int> codes = typeCodes();
    if (number < 1 || number > static_cast<int>(codes.size())) return view;
    return withType(view, codes[static_cast<std::size_t>(number - 1)]);
}

ViewOptions withNextType(const ViewOptions& view, int by) {
    return withType(view, following(typeCodes(), view.type, by));
}

ViewOptions withNextMount(const ViewOptions& view) {
    ViewOptions next = view;
    if (view.type != FOVIX_TYPE_360VR) return next;
    next.mount = following(codesOf(cameraMounts()), view.mount.value_or(FOVIX_MOUNT_CEILING), 1);
    next.shape = FOVIX_SHAPE_SINGLE;
    return next;
}

ViewOptions withNextShape(const ViewOptions& view, int by) {
    ViewOptions next = view;
    const std::vector<int> shapes = shapesFor(view);
    if (shapes.size() > 1) next.shape = following(shapes, view.shape.value_or(FOVIX_SHAPE_SINGLE), by);
    if (next.shape != view.shape) next.drawMode.reset();  // each shape has its own
    return next;
}

ViewOptions withNextMode(const ViewOptions& view) {
    ViewOptions next = view;
    if (view.type == FOVIX_TYPE_180VR) {
        next.shape = FOVIX_SHAPE_SINGLE;
        next.drawMode = following(codesOf(drawModesOf180()), view.drawMode.value_or(FOVIX_180_DISC), 1);
    } else if (view.type == FOVIX_TYPE_SINGLE_PIP) {
        next.drawMode = following(codesOf(drawModesOfInset()), view.drawMode.value_or(3), 1);
    } else if (view.type == FOVIX_TYPE_TWO_LENSES) {
        const int mode = view.twoLensesMode.value_or(FOVIX_TWO_LENSES_BY_ZOOM);
        next.twoLensesMode = following(codesOf(twoLensesModes()), mode, 1);
        next.twoLensesScreen.reset();
    }
    return next;
}

ViewOptions withNextLens(const ViewOptions& view, int inputs) {
    ViewOptions next = view;
    if (view.type == FOVIX_TYPE_MULTI_LENS && inputs > 1) {
        next.lensShown = (view.lensShown.value_or(0) + 1) % inputs;
    } else if (view.type == FOVIX_TYPE_TWO_LENSES) {
        const int screen = view.twoLensesScreen.value_or(FOVIX_TWO_LENSES_SCREEN_BOTH);
        const bool isBoth = view.twoLensesMode == FOVIX_TWO_LENSES_BOTH;
        next.twoLensesMode = FOVIX_TWO_LENSES_BOTH;
        next.twoLensesScreen = isBoth ? following(codesOf(twoLensesScreens()), screen, 1) : screen;
    }
    return next;
}

std::string describe(const ViewOptions& view, int inputs) {
    std::string text = viewTypeName(view.type);
    const int shape = view.shape.value_or(FOVIX_SHAPE_SINGLE);
    if (view.type == FOVIX_TYPE_360VR) {
        add(text, cameraMounts(), view.mount.value_or(FOVIX_MOUNT_CEILING));
        add(text, shapesOf360(), shape);
    } else if (view.type == FOVIX_TYPE_180VR) {
        if (view.drawMode && shape == FOVIX_SHAPE_SINGLE)
            add(text, drawModesOf180(), *view.drawMode);
        else
            add(text, shapesOf180(), shape);
    } else if (view.type == FOVIX_TYPE_SINGLE_PIP) {
        add(text, drawModesOfInset(), view.drawMode.value_or(3));
    } else if (view.type == FOVIX_TYPE_TWO_LENSES) {
        add(text, twoLensesModes(), view.twoLensesMode.value_or(FOVIX_TWO_LENSES_BY_ZOOM));
        if (view.twoLensesScreen) add(text, twoLensesScreens(), *view.twoLensesScreen);
    } else if (view.type == FOVIX_TYPE_MULTI_LENS) {
        text += " · " + std::to_string(view.lensShown.value_or(0) + 1) + " of " + std::to_string(inputs);
    }
    return text;
}

bool canCruise(const ViewOptions& view) {
    if (view.type == FOVIX_TYPE_360VR) return view.mount.value_or(FOVIX_MOUNT_CEILING) == FOVIX_MOUNT_CEILING;
    return view.type == FOVIX_TYPE_180VR || view.type == FOVIX_TYPE_SINGLE_PIP;
}

}  // namespace fovix_host
