#include "options/ViewOptions.h"

#include <algorithm>
#include <string_view>

#include "cli/CommandLine.h"
#include "cli/OptionValues.h"
#include "options/ViewTypes.h"

namespace fovix_host {
namespace {

int parseType(const std::string& text) {
    if (text.empty()) return FOVIX_TYPE_ORIGINAL;
    if (const auto code = codeOfViewType(text)) return *code;
    const auto number = numberIn<int>(text);
    if (!number || *number < 0) refuse("--type", text, "a number or one of " + viewTypeNames());
    return *number;
}

struct Fit {
    const char* option;
    bool given;
    std::vector<int> types;
};

void checkFit(const ViewTexts& texts, int type) {
    const auto any = [](const auto& value) { return !value.empty(); };
    const Fit fits[] = {
        {"--mount", any(texts.mount), {FOVIX_TYPE_360VR}},
        {"--shape", any(texts.shape), {FOVIX_TYPE_360VR, FOVIX_TYPE_180VR}},
        {"--draw-mode", any(texts.drawMode), {FOVIX_TYPE_180VR, FOVIX_TYPE_SINGLE_PIP}},
        {"--two-lenses", any(texts.twoLenses), {FOVIX_TYPE_TWO_LENSES}},
        {"--logic-zoom", any(texts.logicZoom), {FOVIX_TYPE_TWO_LENSES}},
        {"--ptz", any(texts.ptz), {FOVIX_TYPE_360VR}},
        {"--select", any(texts.select), {FOVIX_TYPE_360VR}},
        {"--grid", any(texts.grid), {FOVIX_TYPE_MULTI_IMAGE}},
        {"--show-lens", any(texts.showLens), {FOVIX_TYPE_MULTI_LENS}},
    };
    for (const Fit& fit : fits) {
        if (!fit.given || std::find(fit.types.begin(), fit.types.end(), type) != fit.types.end()) continue;
        std::string right = "--type " + viewTypeName(fit.types.front());
        if (fit.types.size() > 1) right += " or " + viewTypeName(fit.types.back());
        throw UsageError(std::string(fit.option) + " does not apply to --type " + viewTypeName(type) +
                         "; use it with " + right);
    }
    if (any(texts.shape) && any(texts.drawMode))
        throw UsageError("--shape and --draw-mode both select the projection of type 180; give only one");
    if (!texts.rotateZoom.empty() && type == FOVIX_TYPE_360VR)
        throw UsageError("--rotate-zoom does not apply to --type 360; use --ptz");
}

template <typename Table>
std::optional<int> parseCode(std::string_view option, std::string_view text, const Table& table) {
    if (text.empty()) return std::nullopt;
    const auto number = numberIn<int>(text);
    for (const auto& row : table)
        if (row.name == text || row.code == number) return row.code;
    refuse(option, text, "a number from --list or one of " + namesIn(table));
}

const NamedShape& shapeRow(const ViewOptions& view) {
    const auto table = view.type == FOVIX_TYPE_180VR ? shapesOf180() : shapesOf360();
    const int shape = view.shape.value_or(FOVIX_SHAPE_SINGLE);
    return *std::find_if(table.begin(), table.end(), [&](const NamedShape& r) { return r.code == shape; });
}

void checkMount(const ViewOptions& view) {
    if (view.type != FOVIX_TYPE_360VR) return;
    const char mount = static_cast<char>('0' + view.mount.value_or(FOVIX_MOUNT_CEILING));
    if (shapeRow(view).mounts.find(mount) != std::string_view::npos) return;
    std::string fitting;
    for (const NamedShape& shape : shapesOf360())
        if (shape.mounts.find(mount) != std::string_view::npos)
            fitting.append(fitting.empty() ? "" : ", ").append(shape.name);
    throw UsageError("--shape " + std::string(shapeRow(view).name) + " is not available with --mount " +
                     std::string(cameraMounts()[static_cast<std::size_t>(*view.mount)].name) +
                     "; choose from " + fitting);
}

// SCREEN:a,b,c[,d]; the zoom is the last required number.
ViewOptions::ScreenView parseView(const char* option, const std::string& text, std::size_t required,
                                  const char* expected, int screens) {
    const std::size_t colon = text.find(':');
    const auto screen = numberIn<int>(std::string_view(text).substr(0, colon));
    const auto numbers =
        colon == text.npos ? std::nullopt : numbersIn<double>(std::string_view(text).substr(colon + 1));
    if (!screen || !numbers || numbers->size() < required || numbers->size() > 4)
        refuse(option, text, expected);
    if (*screen < 0 || *screen >= screens)
        refuse(option, text,
               screens == 1 ? "screen 0, the only one" : "a screen from 0 to " + std::to_string(screens - 1));
    if ((*numbers)[required - 1] <= 0) refuse(option, text, "a zoom above 0");
    ViewOptions::ScreenView view{*screen, {}};
    std::copy(numbers->begin(), numbers->end(), view.values.begin());
    return view;
}

std::vector<ViewOptions::ScreenView> parseViews(const char* option, const std::vector<std::string>& texts,
                                                std::size_t required, const char* expected, int screens) {
    std::vector<ViewOptions::ScreenView> views;
    for (const std::string& text : texts) {
        const auto view = parseView(option, text, required, expected, screens);
        for (const auto& previous : views)
            if (previous.screen == view.screen) refuse(option, text, "a different screen each time");
        views.push_back(view);
    }
    return views;
}

void parseTwoLenses(const std::string& text, ViewOptions& view) {
    const std::size_t comma = text.find(',');
    view.twoLensesMode = parseCode("--two-lenses", text.substr(0, comma), twoLensesModes());
    if (comma == text.npos) return;
    if (view.twoLensesMode != FOVIX_TWO_LENSES_BOTH)
        refuse("--two-lenses", text, "a screen only with the mode both (such as both,first)");
    view.twoLensesScreen =
        parseCode("the screen of --two-lenses", text.substr(comma + 1), twoLensesScreens());
    if (!view.twoLensesScreen) refuse("--two-lenses", text, "both, first or second after the comma");
}

ViewOptions::LogicZoom parseLogicZoom(const std::string& text) {
    const auto numbers = numbersIn<double>(text);
    if (!numbers || numbers->size() != 4 || *std::min_element(numbers->begin(), numbers->end()) <= 0.0 ||
        numbers->at(0) > numbers->at(1))
        refuse(
            "--logic-zoom", text,
            "four numbers above 0 (minimum and maximum zoom, the threshold at which the lower lens is shown, "
            "and the zoom)");
    const auto& n = *numbers;
    return {n[0], n[1], n[2], n[3]};
}

ViewOptions::Grid parseGrid(const std::string& text) {
    const auto numbers = numbersIn<int>(text, 'x');
    if (!numbers || numbers->size() != 2 || numbers->front() < 1 || numbers->back() < 1 ||
        numbers->front() > kMaxInputs || numbers->back() > kMaxInputs ||
        numbers->front() * numbers->back() > kMaxInputs)
        refuse("--grid", text,
               "ROWSxCOLUMNS with at most " + std::to_string(kMaxInputs) + " cells (such as 2x3)");
    return {numbers->front(), numbers->back()};
}

ViewOptions::SurfacePoint parsePoint(const std::string& text) {
    const auto numbers = numbersIn<float>(text);
    if (!numbers || numbers->size() != 2) refuse("--select", text, "X,Y in pixels from the top left");
    return {numbers->front(), numbers->back()};
}

int parseLens(const std::string& text) {
    const auto lens = numberIn<int>(text);
    if (!lens || *lens < 0 || *lens >= kMaxInputs)
        refuse("--show-lens", text, "a number from 0 to " + std::to_string(kMaxInputs - 1));
    return *lens;
}

}  // namespace

void describeViewOptions(CommandLine& line, ViewTexts& texts, ViewOptionSet set) {
    line.addText("--type", "TYPE",
                 set == ViewOptionSet::kAll ? "360, 180, original, korvel, grid, ... [original]"
                                            : "360, 180, original, korvel, grid, ... [360]",
                 texts.type);
    line.addText("--mount", "MOUNT", "360: ceiling, wall, wall-inverted or floor", texts.mount);
    line.addText("--shape", "SHAPE", "360, 180: layout, such as four-screens", texts.shape);
    line.addText("--draw-mode", "MODE", "180: projection; pip: plain or inset", texts.drawMode);
    line.addText("--two-lenses", "MODE[,SCREEN]", "by-zoom, both, upper or lower", texts.twoLenses);
    line.addText("--logic-zoom", "MIN,MAX,DIV,Z", "two lenses: limits, threshold and zoom", texts.logicZoom);
    if (set == ViewOptionSet::kAll) {
        line.addTexts("--ptz", "VIEW", "360: SCREEN:PAN,TILT,ZOOM[,ROLL]; repeatable", texts.ptz);
        line.addTexts("--rotate-zoom", "VIEW", "other types: SCREEN:X,Y,Z,ZOOM; repeatable",
                      texts.rotateZoom);
        line.addTexts("--select", "X,Y", "360: tap this pixel of the surface; repeatable", texts.select);
    }
    line.addText("--grid", "ROWSxCOLUMNS", "size of the grid [smallest that fits]", texts.grid);
    line.addText("--show-lens", "N", "lenses: the input to show, counted from 0 [0]", texts.showLens);
}

ViewOptions readViewOptions(const ViewTexts& texts) {
    ViewOptions view;
    view.type = parseType(texts.type);
    checkFit(texts, view.type);
    view.mount = parseCode("--mount", texts.mount, cameraMounts());
    const bool is180 = view.type == FOVIX_TYPE_180VR;
    view.shape = parseCode("--shape", texts.shape, is180 ? shapesOf180() : shapesOf360());
    checkMount(view);
    view.drawMode = parseCode("--draw-mode", texts.drawMode, is180 ? drawModesOf180() : drawModesOfInset());
    if (!texts.twoLenses.empty()) parseTwoLenses(texts.twoLenses, view);
    if (!texts.logicZoom.empty()) view.logicZoom = parseLogicZoom(texts.logicZoom);
    if (!texts.grid.empty()) view.grid = parseGrid(texts.grid);
    if (!texts.showLens.empty()) view.lensShown = parseLens(texts.showLens);
    for (const std::string& text : texts.select) view.select.push_back(parsePoint(text));
    const bool hasScreens = is180 || view.type == FOVIX_TYPE_360VR;
    const int screens = hasScreens ? shapeRow(view).screens : 1;
    view.ptz = parseViews("--ptz", texts.ptz, 3, "SCREEN:PAN,TILT,ZOOM[,ROLL] (such as 0:90,45,40)", screens);
    view.rotateZoom =
        parseViews("--rotate-zoom", texts.rotateZoom, 4, "SCREEN:X,Y,Z,ZOOM (such as 0:0,30,0,2)", screens);
    return view;
}

}  // namespace fovix_host
