// Handles that are null, foreign or released: every export says so, gives its failure result and reads none
// of the memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "HeadlessGl.h"
#include "handle/FovixContext.h"

namespace fovix_test {
namespace {

/// What the pointers among the arguments point to; nothing may be written there.
alignas(double) std::array<char, 64> memory;

template <class Argument>
Argument anyArgument() {
    if constexpr (std::is_pointer_v<Argument>)
        return reinterpret_cast<Argument>(memory.data());
    else
        return Argument{1};
}

using Call = std::function<double(VRHANDLE)>;

/// A call of an export with any arguments behind the handle; gives 0 where the export gives nothing.
template <class Result, class... Arguments>
Call calling(Result (*function)(VRHANDLE, Arguments...)) {
    return [function](VRHANDLE handle) -> double {
        if constexpr (!std::is_void_v<Result>) return function(handle, anyArgument<Arguments>()...);
        function(handle, anyArgument<Arguments>()...);
        return 0.0;
    };
}

template <class... Functions>
std::map<std::string, Call> callsOf(const char* names, Functions... functions) {
    std::map<std::string, Call> calls;
    std::istringstream list(names);
    std::string name;
    ((std::getline(list >> std::ws, name, ','), calls[name] = calling(functions)), ...);
    return calls;
}

#define CALLS_OF(...) callsOf(#__VA_ARGS__, __VA_ARGS__)

const std::map<std::string, Call> kExports = CALLS_OF(
    Fovix_AutoAdjust, Fovix_CleanUp, Fovix_DisplayRect, Fovix_DisplayTarget, Fovix_Drawself,
    Fovix_GetCameraMount, Fovix_GetLogicZoom, Fovix_GetPTZ, Fovix_GetPTZFor180VR, Fovix_GetPTZ_SubScreen,
    Fovix_GetRelativeXOffset, Fovix_GetRotateZoom, Fovix_GetRotateZoom_SubScreen, Fovix_GetShape,
    Fovix_GetTwoLensesScreen, Fovix_GetType, Fovix_Init, Fovix_Multi_GetLensCount, Fovix_Multi_GetLensIndex,
    Fovix_Multi_SetLens, Fovix_Multi_SetRGBTexture, Fovix_Multi_SetScreenNumber, Fovix_Multi_SetTexture,
    Fovix_Multi_SetYUV420PTexture, Fovix_Multi_SwitchLens, Fovix_OnAccelerometer, Fovix_OnOrientation,
    Fovix_OnTouchDown, Fovix_OnTouchFling, Fovix_OnTouchMove, Fovix_OnTouchPinch, Fovix_OnTouchPinchScale,
    Fovix_OnTouchUp, Fovix_Prepare, Fovix_Release, Fovix_ResetPosition, Fovix_SetBackground,
    Fovix_SetCameraMount, Fovix_SetDrawMode, Fovix_SetDrawModeCartoon, Fovix_SetFecParams, Fovix_SetLogicZoom,
    Fovix_SetPTZ, Fovix_SetPTZFor180VR, Fovix_SetPTZ_SubScreen, Fovix_SetRGBTexture, Fovix_SetRotateZoom,
    Fovix_SetRotateZoomRecoverMode, Fovix_SetRotateZoom_SubScreen, Fovix_SetRotationFor180VR, Fovix_SetShape,
    Fovix_SetTexture, Fovix_SetTwoLensesDrawMode, Fovix_SetTwoLensesScreen, Fovix_SetType,
    Fovix_SetYUV420PTexture, Fovix_StartAutoCruise, Fovix_StopAutoCruise, Fovix_getViewSize);

void expectRefused(VRHANDLE handle, const std::string& line) {
    std::map<std::string, double> failures;
    failures["Fovix_GetType"] = 1.0;
    failures["Fovix_GetCameraMount"] = 4.0;
    failures["Fovix_GetShape"] = -1.0;
    failures["Fovix_GetTwoLensesScreen"] = 3.0;
    std::map<std::string, std::string> ownLines;
    ownLines["Fovix_SetType"] = "Fovix_SetType() Error! handle is NULL!\n";
    ownLines["Fovix_DisplayRect"] = "Fovix_DisplayRect Error, handle is NULL!";
    ownLines["Fovix_DisplayTarget"] = "Fovix_DisplayRect Error, handle is NULL!";
    for (const auto& entry : kExports) {
        memory.fill('m');
        double result = 0.0;
        EXPECT_EQ(printedBy([&] { result = entry.second(handle); }), line + ownLines[entry.first])
            << entry.first;
        EXPECT_EQ(result, failures[entry.first]) << entry.first;
        EXPECT_EQ(std::count(memory.begin(), memory.end(), 'm'), 64) << entry.first;
    }
}

TEST(Handles, TheTableNamesEveryExportThatTakesAHandle) {
    std::set<std::string> names = {"Fovix_Create",       "Fovix_CreateNoTouchEvent",
                                   "Fovix_NeedContinue", "Fovix_SetPPIZoom",
                                   "Fovix_Version",      "checkOpenGLError"};
    for (const auto& [name, call] : kExports) names.insert(name);
    std::ifstream list(FOVIX_EXPORTS_LIST);
    EXPECT_EQ(names, std::set<std::string>(std::istream_iterator<std::string>(list), {}));
}

TEST(Handles, NullForeignAndReleasedOnesAreRefusedByEveryExport) {
    expectRefused(nullptr, "Error VRHANDLE, is NULL\n");
    // Looks like a live context at its first word, and is surrounded by memory that may not be read.
    alignas(FovixContext) static std::uint32_t lookalike[1] = {fovix::kLiveMagic};
    expectRefused(reinterpret_cast<VRHANDLE>(lookalike), "Error VRHANDLE\n");
    expectRefused(reinterpret_cast<VRHANDLE>(std::uintptr_t{8}), "Error VRHANDLE\n");
    View view(Fovix_Create);
    const VRHANDLE handle = view;
    EXPECT_EQ(printedBy([&] { view.release(); }), "");
    expectRefused(handle, "Error VRHANDLE\n");
}

TEST(Handles, AFailedFetchDrawsTheOwnMeshNotWhatAnotherHandleBound) {
    Stage stage(FOVIX_TYPE_180VR, 40, 40);
    stage.show(Image::chequered(40, 40));
    stage.draw();
    Fovix_SetDrawMode(stage.view, 7);  // no such mesh: the one bound last stays
    const Image alone = stage.draw();
    ASSERT_NE(stage.lines.find("buildVertices failed, Vertices is empty!\n"), std::string::npos);
    ASSERT_NE(alone.at(20, 15), alone.at(20, 25)) << "the old mesh is not in sight";
    View other;
    printedBy([&] {
        Fovix_SetType(other, FOVIX_TYPE_ORIGINAL);
        Fovix_Prepare(other);
        Fovix_Init(other, 40, 40);
        Fovix_SetRGBTexture(other, Image(20, 20).bytes.data(), 1600, 20, 20);
        Fovix_Drawself(other);
    });
    EXPECT_TRUE(looksLike(stage.draw(), alone)) << "after another handle";
    unsigned hostBuffer = 0;
    glGenBuffers(1, &hostBuffer);
    glBindBuffer(GL_ARRAY_BUFFER, hostBuffer);
    glBufferData(GL_ARRAY_BUFFER, 64, memory.data(), GL_STATIC_DRAW);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    EXPECT_TRUE(looksLike(stage.draw(), alone)) << "after the host";
    other.release();
    EXPECT_TRUE(looksLike(stage.draw(), alone)) << "after the other handle's release";
}

TEST(Creation, PrintsTheVersionAndStartsWithType1) {
    EXPECT_STREQ(Fovix_Version(), "1.2.1_dbg");
    for (const auto create : {Fovix_Create, Fovix_CreateNoTouchEvent}) {
        EXPECT_EQ(printedBy([&] { create(nullptr); }), "Fovix Version : 1.2.1_dbg\n");
        VRHANDLE handle = nullptr;
        const std::string lines = printedBy([&] { create(&handle); });
        ASSERT_NE(handle, nullptr);
        EXPECT_EQ(lines.rfind("Fovix Version : 1.2.1_dbg\n", 0), 0u) << lines;
        EXPECT_EQ(Fovix_GetType(handle), FOVIX_TYPE_180VR);
        EXPECT_EQ(handle->typeSwitchCount, 1);
        Fovix_Release(handle);
    }
}

}  // namespace
}  // namespace fovix_test
