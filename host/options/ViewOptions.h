// The options that say what the view shows and where it looks, and which of them fit which display type.
#pragma once

#include <Fovix.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace fovix_host {

class CommandLine;

constexpr int kMaxInputs = 36;  // of the grid and of the lenses

// As the command line has them; empty where they are not given.
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
    // Other types show the whole picture, wherever its lens circle lies.
    bool showsLensCircle() const { return type == FOVIX_TYPE_360VR || type == FOVIX_TYPE_180VR; }
    bool setsViews() const { return !ptz.empty() || !rotateZoom.empty() || logicZoom; }
};

enum class ViewOptionSet {
    kAll,
    kLayout  // without those that aim the view, where a person does that
};

// The texts outlive the parsing.
void describeViewOptions(CommandLine& line, ViewTexts& texts, ViewOptionSet set = ViewOptionSet::kAll);

// Throws UsageError.
ViewOptions readViewOptions(const ViewTexts& texts);

}  // namespace fovix_host
