// Options for the view: display type, layout and the views of the screens.
#pragma once

#include <Fovix.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace fovix_host {

class CommandLine;

constexpr int kMaxInputs = 36;  // of the types grid and lenses

// The unparsed values; empty if not given.
struct ViewTexts {
    std::string type, mount, shape, drawMode, twoLenses, logicZoom, grid, showLens;
    std::vector<std::string> ptz, rotateZoom, select;
};

struct ViewOptions {
    struct Grid {
        int rows, columns;
    };
    // Pan, tilt, zoom and roll, or the three values and the zoom of Fovix_SetRotateZoom.
    struct ScreenView {
        int screen;
        std::array<double, 4> values;
    };
    struct LogicZoom {
        double min, max, div, zoom;
    };
    struct SurfacePoint {
        float x, y;
    };

    int type = FOVIX_TYPE_ORIGINAL;
    std::optional<int> mount, shape, drawMode, twoLensesMode, twoLensesScreen, lensShown;
    std::optional<Grid> grid;
    std::optional<LogicZoom> logicZoom;
    std::vector<ScreenView> ptz, rotateZoom;
    std::vector<SurfacePoint> select;

    bool takesSeveralInputs() const {
        return type == FOVIX_TYPE_MULTI_IMAGE || type == FOVIX_TYPE_MULTI_LENS;
    }
    // The other types show the whole frame and ignore its lens circle.
    bool showsLensCircle() const { return type == FOVIX_TYPE_360VR || type == FOVIX_TYPE_180VR; }
    bool setsViews() const { return !ptz.empty() || !rotateZoom.empty() || logicZoom; }
};

enum class ViewOptionSet {
    kAll,
    kLayout  // without the views of the screens, for interactive programs
};

// The texts must outlive the parsing.
void describeViewOptions(CommandLine& line, ViewTexts& texts, ViewOptionSet set = ViewOptionSet::kAll);

// Throws UsageError.
ViewOptions readViewOptions(const ViewTexts& texts);

}  // namespace fovix_host
