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
#define EXPORT(name, function, labels) verb<function>(name, #function, labels)
#define STAND_IN(name, function, standIn, labels) verb<standIn>(name, #function, labels)

std::vector<ScriptVerb> makeVerbs() {
    return {
        EXPORT("version", Fovix_Version, ""),
        STAND_IN("create", Fovix_Create, create, ""),
        STAND_IN("create-without-touch", Fovix_CreateNoTouchEvent, createWithoutTouch, ""),
        EXPORT("prepare", Fovix_Prepare, ""),
        EXPORT("init", Fovix_Init, "WIDTH HEIGHT"),
        EXPORT("get-view-size", Fovix_getViewSize, ""),
        EXPORT("ppi-zoom", Fovix_SetPPIZoom, "ZOOM"),
        EXPORT("clean-up", Fovix_CleanUp, ""),
        STAND_IN("release", Fovix_Release, release, ""),

        EXPORT("type", Fovix_SetType, "TYPE"),
        EXPORT("get-type", Fovix_GetType, ""),
        EXPORT("draw-mode", Fovix_SetDrawMode, "MODE"),
        EXPORT("draw-mode-cartoon", Fovix_SetDrawModeCartoon, "MODE MODE STEP FRAMES"),
        EXPORT("mount", Fovix_SetCameraMount, "MOUNT"),
        EXPORT("get-mount", Fovix_GetCameraMount, ""),
        EXPORT("shape", Fovix_SetShape, "SHAPE"),
        EXPORT("get-shape", Fovix_GetShape, ""),
        EXPORT("lens", Fovix_SetFecParams, "CX CY RADIUS WIDTH HEIGHT"),
        EXPORT("two-lenses-draw-mode", Fovix_SetTwoLensesDrawMode, "LENSES"),
        EXPORT("two-lenses-screen", Fovix_SetTwoLensesScreen, "LENS"),
        EXPORT("get-two-lenses-screen", Fovix_GetTwoLensesScreen, ""),
        EXPORT("background", Fovix_SetBackground, "RRGGBB"),

        STAND_IN("picture", Fovix_SetTexture, picture, "FILE"),
        STAND_IN("rgb-picture", Fovix_SetRGBTexture, rgbPicture, "FILE"),
        STAND_IN("yuv-picture", Fovix_SetYUV420PTexture, yuvPicture, "FILE"),
        EXPORT("multi-screen-number", Fovix_Multi_SetScreenNumber, "ROWS COLUMNS"),
        STAND_IN("multi-picture", Fovix_Multi_SetTexture, multiPicture, "INDEX FILE"),
        STAND_IN("multi-rgb-picture", Fovix_Multi_SetRGBTexture, multiRgbPicture, "INDEX FILE"),
        STAND_IN("multi-yuv-picture", Fovix_Multi_SetYUV420PTexture, multiYuvPicture, "INDEX FILE"),
        EXPORT("switch-lens", Fovix_Multi_SwitchLens, "INDEX"),
        EXPORT("lens-count", Fovix_Multi_SetLens, "COUNT"),
        EXPORT("get-lens-count", Fovix_Multi_GetLensCount, ""),
        EXPORT("get-lens-index", Fovix_Multi_GetLensIndex, ""),

        EXPORT("draw", Fovix_Drawself, ""),
        EXPORT("need-continue", Fovix_NeedContinue, ""),
        EXPORT("check-gl-error", checkOpenGLError, "NAME LINE"),

        EXPORT("touch-down", Fovix_OnTouchDown, "X Y"),
        EXPORT("touch-move", Fovix_OnTouchMove, "X Y"),
        EXPORT("touch-up", Fovix_OnTouchUp, "X Y"),
        EXPORT("pinch", Fovix_OnTouchPinch, "X1 Y1 X2 Y2"),
        EXPORT("pinch-scale", Fovix_OnTouchPinchScale, "SCALE"),
        EXPORT("fling", Fovix_OnTouchFling, "VX VY"),
        EXPORT("auto-adjust", Fovix_AutoAdjust, ""),
        EXPORT("accelerometer", Fovix_OnAccelerometer, "X Y"),
        EXPORT("orientation", Fovix_OnOrientation, "A B C"),
        EXPORT("cruise", Fovix_StartAutoCruise, "SPEED"),
        EXPORT("stop-cruise", Fovix_StopAutoCruise, ""),
        EXPORT("reset", Fovix_ResetPosition, ""),

        EXPORT("ptz", Fovix_SetPTZ, "PAN TILT ZOOM ROLL FIFTH"),
        EXPORT("get-ptz", Fovix_GetPTZ, ""),
        EXPORT("screen-ptz", Fovix_SetPTZ_SubScreen, "SCREEN PAN TILT ZOOM ROLL FIFTH"),
        EXPORT("get-screen-ptz", Fovix_GetPTZ_SubScreen, "SCREEN"),
        EXPORT("rotate-zoom", Fovix_SetRotateZoom, "XANGLE YANGLE ZANGLE ZOOM"),
        EXPORT("rotate-zoom-recover", Fovix_SetRotateZoomRecoverMode, "XANGLE YANGLE ZANGLE ZOOM"),
        EXPORT("get-rotate-zoom", Fovix_GetRotateZoom, ""),
        EXPORT("screen-rotate-zoom", Fovix_SetRotateZoom_SubScreen, "SCREEN XANGLE YANGLE ZANGLE ZOOM"),
        EXPORT("get-screen-rotate-zoom", Fovix_GetRotateZoom_SubScreen, "SCREEN"),
        EXPORT("rotation-180", Fovix_SetRotationFor180VR, "DEGREES"),
        EXPORT("ptz-180", Fovix_SetPTZFor180VR, "XANGLE YANGLE ZANGLE ZOOM"),
        EXPORT("get-ptz-180", Fovix_GetPTZFor180VR, ""),
        EXPORT("display-rect", Fovix_DisplayRect, "LEFT TOP RIGHT BOTTOM WIDTH HEIGHT"),
        EXPORT("display-target", Fovix_DisplayTarget, "X Y WIDTH HEIGHT"),
        EXPORT("get-relative-x-offset", Fovix_GetRelativeXOffset, ""),
        EXPORT("logic-zoom", Fovix_SetLogicZoom, "MIN MAX DIV ZOOM"),
        EXPORT("get-logic-zoom", Fovix_GetLogicZoom, ""),
    };
}

#undef EXPORT
#undef STAND_IN

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
