#include "render/script/ScriptVerbs.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace fovix_host {
namespace {

void create(ScriptStage& stage) {
    stage.view.create(Fovix_Create);
}
void createWithoutTouch(ScriptStage& stage) {
    stage.view.create(Fovix_CreateNoTouchEvent);
}
void release(ScriptStage& stage) {
    stage.view.release();
}

void picture(ScriptStage& stage, const char* file) {
    const PackedFrame p = stage.frames.next(file);
    Fovix_SetTexture(stage.view.handle(), p.pixelFormat, p.data, p.size, p.width, p.height);
}
void rgbPicture(ScriptStage& stage, const char* file) {
    const PackedFrame p = stage.frames.next(file, FOVIX_FORMAT_RGBA);
    Fovix_SetRGBTexture(stage.view.handle(), p.data, p.size, p.width, p.height);
}
void yuvPicture(ScriptStage& stage, const char* file) {
    const PackedFrame p = stage.frames.next(file, FOVIX_FORMAT_YUV420P);
    Fovix_SetYUV420PTexture(stage.view.handle(), p.data, p.size, p.width, p.height);
}
void multiPicture(ScriptStage& stage, int index, const char* file) {
    const PackedFrame p = stage.frames.next(file);
    Fovix_Multi_SetTexture(stage.view.handle(), index, p.pixelFormat, p.data, p.size, p.width, p.height);
}
void multiRgbPicture(ScriptStage& stage, int index, const char* file) {
    const PackedFrame p = stage.frames.next(file, FOVIX_FORMAT_RGBA);
    Fovix_Multi_SetRGBTexture(stage.view.handle(), index, p.data, p.size, p.width, p.height);
}
void multiYuvPicture(ScriptStage& stage, int index, const char* file) {
    const PackedFrame p = stage.frames.next(file, FOVIX_FORMAT_YUV420P);
    Fovix_Multi_SetYUV420PTexture(stage.view.handle(), index, p.data, p.size, p.width, p.height);
}

// Assigns a label to each parameter.
ScriptVerb labelled(ScriptVerb verb, const std::vector<ScriptKind>& kinds) {
    std::istringstream words{std::string(verb.labels)};
    for (const ScriptKind kind : kinds) {
        std::string label;
        if (!(words >> label)) throw std::logic_error(std::string(verb.name) + " has too few labels");
        verb.parameters.push_back({label, kind});
    }
    if (std::string rest; words >> rest)
        throw std::logic_error(std::string(verb.name) + " has too many labels");
    return verb;
}

template <auto function>
ScriptVerb verb(std::string_view name, std::string_view exported, std::string_view labels) {
    using Call = ScriptCall<function>;
    return labelled({name, exported, labels, {}, Call::make}, Call::kinds());
}

// The verb of an export: it calls the export itself, or a function above in its place.
#define FOVIX_VERB(name, function, labels) verb<function>(name, #function, labels)
#define FOVIX_STAND_IN(name, function, standIn, labels) verb<standIn>(name, #function, labels)

std::vector<ScriptVerb> makeVerbs() {
    return {
        FOVIX_VERB("version", Fovix_Version, ""),
        FOVIX_STAND_IN("create", Fovix_Create, create, ""),
        FOVIX_STAND_IN("create-without-touch", Fovix_CreateNoTouchEvent, createWithoutTouch, ""),
        FOVIX_VERB("prepare", Fovix_Prepare, ""),
        FOVIX_VERB("init", Fovix_Init, "WIDTH HEIGHT"),
        FOVIX_VERB("get-view-size", Fovix_getViewSize, ""),
        FOVIX_VERB("ppi-zoom", Fovix_SetPPIZoom, "ZOOM"),
        FOVIX_VERB("clean-up", Fovix_CleanUp, ""),
        FOVIX_STAND_IN("release", Fovix_Release, release, ""),

        FOVIX_VERB("type", Fovix_SetType, "TYPE"),
        FOVIX_VERB("get-type", Fovix_GetType, ""),
        FOVIX_VERB("draw-mode", Fovix_SetDrawMode, "MODE"),
        FOVIX_VERB("draw-mode-cartoon", Fovix_SetDrawModeCartoon, "MODE MODE STEP FRAMES"),
        FOVIX_VERB("mount", Fovix_SetCameraMount, "MOUNT"),
        FOVIX_VERB("get-mount", Fovix_GetCameraMount, ""),
        FOVIX_VERB("shape", Fovix_SetShape, "SHAPE"),
        FOVIX_VERB("get-shape", Fovix_GetShape, ""),
        FOVIX_VERB("lens", Fovix_SetFecParams, "CX CY RADIUS WIDTH HEIGHT"),
        FOVIX_VERB("two-lenses-draw-mode", Fovix_SetTwoLensesDrawMode, "LENSES"),
        FOVIX_VERB("two-lenses-screen", Fovix_SetTwoLensesScreen, "LENS"),
        FOVIX_VERB("get-two-lenses-screen", Fovix_GetTwoLensesScreen, ""),
        FOVIX_VERB("background", Fovix_SetBackground, "RRGGBB"),

        FOVIX_STAND_IN("picture", Fovix_SetTexture, picture, "FILE"),
        FOVIX_STAND_IN("rgb-picture", Fovix_SetRGBTexture, rgbPicture, "FILE"),
        FOVIX_STAND_IN("yuv-picture", Fovix_SetYUV420PTexture, yuvPicture, "FILE"),
        FOVIX_VERB("multi-screen-number", Fovix_Multi_SetScreenNumber, "ROWS COLUMNS"),
        FOVIX_STAND_IN("multi-picture", Fovix_Multi_SetTexture, multiPicture, "INDEX FILE"),
        FOVIX_STAND_IN("multi-rgb-picture", Fovix_Multi_SetRGBTexture, multiRgbPicture, "INDEX FILE"),
        FOVIX_STAND_IN("multi-yuv-picture", Fovix_Multi_SetYUV420PTexture, multiYuvPicture, "INDEX FILE"),
        FOVIX_VERB("switch-lens", Fovix_Multi_SwitchLens, "INDEX"),
        FOVIX_VERB("lens-count", Fovix_Multi_SetLens, "COUNT"),
        FOVIX_VERB("get-lens-count", Fovix_Multi_GetLensCount, ""),
        FOVIX_VERB("get-lens-index", Fovix_Multi_GetLensIndex, ""),

        FOVIX_VERB("draw", Fovix_Drawself, ""),
        FOVIX_VERB("need-continue", Fovix_NeedContinue, ""),
        FOVIX_VERB("check-gl-error", checkOpenGLError, "NAME LINE"),

        FOVIX_VERB("touch-down", Fovix_OnTouchDown, "X Y"),
        FOVIX_VERB("touch-move", Fovix_OnTouchMove, "X Y"),
        FOVIX_VERB("touch-up", Fovix_OnTouchUp, "X Y"),
        FOVIX_VERB("pinch", Fovix_OnTouchPinch, "X1 Y1 X2 Y2"),
        FOVIX_VERB("pinch-scale", Fovix_OnTouchPinchScale, "SCALE"),
        FOVIX_VERB("fling", Fovix_OnTouchFling, "VX VY"),
        FOVIX_VERB("auto-adjust", Fovix_AutoAdjust, ""),
        FOVIX_VERB("accelerometer", Fovix_OnAccelerometer, "X Y"),
        FOVIX_VERB("orientation", Fovix_OnOrientation, "A B C"),
        FOVIX_VERB("cruise", Fovix_StartAutoCruise, "SPEED"),
        FOVIX_VERB("stop-cruise", Fovix_StopAutoCruise, ""),
        FOVIX_VERB("reset", Fovix_ResetPosition, ""),

        FOVIX_VERB("ptz", Fovix_SetPTZ, "PAN TILT ZOOM ROLL FIFTH"),
        FOVIX_VERB("get-ptz", Fovix_GetPTZ, ""),
        FOVIX_VERB("screen-ptz", Fovix_SetPTZ_SubScreen, "SCREEN PAN TILT ZOOM ROLL FIFTH"),
        FOVIX_VERB("get-screen-ptz", Fovix_GetPTZ_SubScreen, "SCREEN"),
        FOVIX_VERB("rotate-zoom", Fovix_SetRotateZoom, "XANGLE YANGLE ZANGLE ZOOM"),
        FOVIX_VERB("rotate-zoom-recover", Fovix_SetRotateZoomRecoverMode, "XANGLE YANGLE ZANGLE ZOOM"),
        FOVIX_VERB("get-rotate-zoom", Fovix_GetRotateZoom, ""),
        FOVIX_VERB("screen-rotate-zoom", Fovix_SetRotateZoom_SubScreen, "SCREEN XANGLE YANGLE ZANGLE ZOOM"),
        FOVIX_VERB("get-screen-rotate-zoom", Fovix_GetRotateZoom_SubScreen, "SCREEN"),
        FOVIX_VERB("rotation-180", Fovix_SetRotationFor180VR, "DEGREES"),
        FOVIX_VERB("ptz-180", Fovix_SetPTZFor180VR, "XANGLE YANGLE ZANGLE ZOOM"),
        FOVIX_VERB("get-ptz-180", Fovix_GetPTZFor180VR, ""),
        FOVIX_VERB("display-rect", Fovix_DisplayRect, "LEFT TOP RIGHT BOTTOM WIDTH HEIGHT"),
        FOVIX_VERB("display-target", Fovix_DisplayTarget, "X Y WIDTH HEIGHT"),
        FOVIX_VERB("get-relative-x-offset", Fovix_GetRelativeXOffset, ""),
        FOVIX_VERB("logic-zoom", Fovix_SetLogicZoom, "MIN MAX DIV ZOOM"),
        FOVIX_VERB("get-logic-zoom", Fovix_GetLogicZoom, ""),
    };
}

#undef FOVIX_VERB
#undef FOVIX_STAND_IN

constexpr std::string_view kScriptForm =
    "Each line of a script is one call: FRAME VERB ARGUMENTS. Frames count from 1 and\n"
    "must not decrease; a call is made before its frame is rendered. '#' starts a\n"
    "comment. If FRAME is a range FIRST..LAST, the call is made before each of these\n"
    "frames, and a number given as FROM..TO changes evenly over the range. Put words\n"
    "that contain blanks in double quotes. FILE is an image or video, or sample,\n"
    "sample=wall or sample=two-lenses; each call submits its next frame. X and Y are\n"
    "surface pixels. TYPE, MOUNT, SHAPE, MODE, LENSES and LENS may be names (--list\n"
    "prints them). Values that a call returns are printed. Verbs and their functions:\n";

}  // namespace

const std::vector<ScriptVerb>& scriptVerbs() {
    static const std::vector<ScriptVerb> kVerbs = makeVerbs();
    return kVerbs;
}

const ScriptVerb* scriptVerb(std::string_view name) {
    const auto& verbs = scriptVerbs();
    const auto found =
        std::find_if(verbs.begin(), verbs.end(), [&](const auto& v) { return v.name == name; });
    return found == verbs.end() ? nullptr : &*found;
}

std::string scriptVerbList() {
    std::string text(kScriptForm);
    text += '\n';
    constexpr std::size_t kColumn = 52;
    for (const ScriptVerb& verb : scriptVerbs()) {
        std::string line = "  " + std::string(verb.name) + " " + std::string(verb.labels);
        line.resize(std::max(kColumn, line.size() + 1), ' ');
        text += line.append(verb.function) += '\n';
    }
    return text;
}

}  // namespace fovix_host
