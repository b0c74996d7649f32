// Handles that are null, foreign or released: every export says so, gives its failure result and reads none
// of the memory.
#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "FovixContext.h"
#include "HeadlessGl.h"

namespace fovix_test {
namespace {

struct Export {
    const char* name;
    double (*call)(VRHANDLE handle);  ///< what the export gives; 0 for one without a result
    double failure = 0.0;
    const char* ownLine = "";  ///< what it prints after the line of the handle check
};

constexpr double kUntouched = 4711.0;
unsigned char pixels[4] = {1, 2, 3, 4};

/// An export without result as an entry of the table.
#define CALL(name, ...)                       \
    {                                         \
#name, [](VRHANDLE handle) -> double {      \
            name(handle __VA_OPT__(, ) __VA_ARGS__);       \
            return 0.0; \
        } \
    }

/// A getter that writes through pointers: what it left in four doubles, summed up.
template <class Getter>
double leftBehind(Getter&& getter) {
    double a = kUntouched, b = kUntouched, c = kUntouched, d = kUntouched;
    getter(&a, &b, &c, &d);
    return a + b + c + d;
}

#define READ(name, ...)                                                      \
    {                                                                        \
#name, [](VRHANDLE handle) -> double {                                     \
            return leftBehind([&](double* a, double* b, double* c, double* d) {    \
                name(handle __VA_OPT__(, ) __VA_ARGS__, a, b, c, d);               \
            });                                                                    \
        },                                                                         \
            4 * kUntouched \
    }

const Export kExports[] = {
    CALL(Fovix_Prepare),
    CALL(Fovix_Init, 10, 10),
    {"Fovix_getViewSize",
     [](VRHANDLE handle) -> double {
         int width = 4711, height = 4711;
         Fovix_getViewSize(handle, &width, &height);
         return width + height;
     },
     2 * kUntouched},
    CALL(Fovix_CleanUp),
    CALL(Fovix_Release),
    {"Fovix_SetType",
     [](VRHANDLE handle) -> double {
         Fovix_SetType(handle, 2);
         return 0.0;
     },
     0.0, "Fovix_SetType() Error! handle is NULL!\n"},
    {"Fovix_GetType", [](VRHANDLE handle) -> double { return Fovix_GetType(handle); }, 1.0},
    CALL(Fovix_SetDrawMode, 1),
    CALL(Fovix_SetDrawModeCartoon, 0, 1, 1, 5),
    CALL(Fovix_SetCameraMount, 1),
    {"Fovix_GetCameraMount", [](VRHANDLE handle) -> double { return Fovix_GetCameraMount(handle); }, 4.0},
    CALL(Fovix_SetShape, 3),
    {"Fovix_GetShape", [](VRHANDLE handle) -> double { return Fovix_GetShape(handle); }, -1.0},
    CALL(Fovix_SetFecParams, 1, 1, 1, 1, 1),
    CALL(Fovix_SetTwoLensesDrawMode, 1),
    CALL(Fovix_SetTwoLensesScreen, 1),
    {"Fovix_GetTwoLensesScreen", [](VRHANDLE handle) -> double { return Fovix_GetTwoLensesScreen(handle); },
     3.0},
    CALL(Fovix_SetBackground, 0xFFFFFFu),
    CALL(Fovix_SetRGBTexture, pixels, 4, 1, 1),
    CALL(Fovix_SetYUV420PTexture, pixels, 1, 1, 1),
    CALL(Fovix_SetTexture, 1, pixels, 4, 1, 1),
    CALL(Fovix_Multi_SetScreenNumber, 2, 2),
    CALL(Fovix_Multi_SetRGBTexture, 0, pixels, 4, 1, 1),
    CALL(Fovix_Multi_SetYUV420PTexture, 0, pixels, 1, 1, 1),
    CALL(Fovix_Multi_SetTexture, 0, 1, pixels, 4, 1, 1),
    CALL(Fovix_Multi_SwitchLens, 0),
    CALL(Fovix_Multi_SetLens, 2),
    {"Fovix_Multi_GetLensCount", [](VRHANDLE handle) -> double { return Fovix_Multi_GetLensCount(handle); }},
    {"Fovix_Multi_GetLensIndex", [](VRHANDLE handle) -> double { return Fovix_Multi_GetLensIndex(handle); }},
    CALL(Fovix_Drawself),
    CALL(Fovix_OnTouchDown, 1.0f, 1.0f),
    CALL(Fovix_OnTouchUp, 1.0f, 1.0f),
    CALL(Fovix_OnTouchMove, 1.0f, 1.0f),
    CALL(Fovix_OnTouchPinch, 1.0f, 1.0f, 2.0f, 2.0f),
    CALL(Fovix_OnTouchPinchScale, 1.5f),
    CALL(Fovix_OnTouchFling, 1.0f, 1.0f),
    CALL(Fovix_AutoAdjust),
    CALL(Fovix_OnAccelerometer, 1.0f, 1.0f),
    CALL(Fovix_OnOrientation, 1.0f, 1.0f, 1.0f),
    CALL(Fovix_StartAutoCruise, 1.0),
    CALL(Fovix_StopAutoCruise),
    CALL(Fovix_ResetPosition),
    CALL(Fovix_SetPTZ, 1.0, 1.0, 40.0, 0.0, 0.0),
    READ(Fovix_GetPTZ),
    CALL(Fovix_SetPTZ_SubScreen, 0, 1.0, 1.0, 40.0, 0.0, 0.0),
    READ(Fovix_GetPTZ_SubScreen, 0),
    CALL(Fovix_SetRotateZoom, 1.0, 1.0, 1.0, 1.0),
    CALL(Fovix_SetRotateZoomRecoverMode, 1.0, 1.0, 1.0, 1.0),
    READ(Fovix_GetRotateZoom),
    CALL(Fovix_SetRotateZoom_SubScreen, 0, 1.0, 1.0, 1.0, 1.0),
    READ(Fovix_GetRotateZoom_SubScreen, 0),
    CALL(Fovix_SetRotationFor180VR, 1.0),
    READ(Fovix_GetPTZFor180VR),
    CALL(Fovix_SetPTZFor180VR, 1.0, 1.0, 1.0, 12.0),
    {"Fovix_DisplayRect",
     [](VRHANDLE handle) -> double {
         Fovix_DisplayRect(handle, 0, 0, 1, 1, 2, 2);
         return 0.0;
     },
     0.0, "Fovix_DisplayRect Error, handle is NULL!"},
    {"Fovix_DisplayTarget",
     [](VRHANDLE handle) -> double {
         Fovix_DisplayTarget(handle, 0, 0, 2, 2);
         return 0.0;
     },
     0.0, "Fovix_DisplayRect Error, handle is NULL!"},
    {"Fovix_GetRelativeXOffset", [](VRHANDLE handle) -> double { return Fovix_GetRelativeXOffset(handle); }},
    CALL(Fovix_SetLogicZoom, 1.0, 2.0, 1.5, 1.0),
    {"Fovix_GetLogicZoom", [](VRHANDLE handle) -> double { return Fovix_GetLogicZoom(handle); }},
};

#undef CALL
#undef READ

void expectRefused(VRHANDLE handle, const std::string& line) {
    for (const Export& entry : kExports) {
        double result = 0.0;
        EXPECT_EQ(printedBy([&] { result = entry.call(handle); }), line + entry.ownLine) << entry.name;
        EXPECT_EQ(result, entry.failure) << entry.name;
    }
}

TEST(Handles, TheTableNamesEveryExportThatTakesAHandle) {
    std::set<std::string> names = {"Fovix_Create",       "Fovix_CreateNoTouchEvent",
                                   "Fovix_NeedContinue", "Fovix_SetPPIZoom",
                                   "Fovix_Version",      "checkOpenGLError"};
    for (const Export& entry : kExports) names.insert(entry.name);
    std::set<std::string> promised;
    std::ifstream list(FOVIX_EXPORTS_LIST);
    for (std::string name; std::getline(list, name);) promised.insert(name);
    EXPECT_EQ(names, promised);
}

TEST(Handles, NullIsRefusedByEveryExport) {
    expectRefused(nullptr, "Error VRHANDLE, is NULL\n");
}

TEST(Handles, ForeignMemoryIsRefusedUnread) {
    // Looks like a live context at its first word, and is surrounded by memory that may not be read.
    alignas(FovixContext) static std::uint32_t lookalike[1] = {fovix::kLiveMagic};
    expectRefused(reinterpret_cast<VRHANDLE>(lookalike), "Error VRHANDLE\n");
    expectRefused(reinterpret_cast<VRHANDLE>(std::uintptr_t{8}), "Error VRHANDLE\n");
}

TEST(Handles, ReleasedOnesAreRefusedAndCanBeReleasedTwice) {
    View view(Fovix_Create);
    const VRHANDLE handle = view;
    EXPECT_EQ(printedBy([&] { view.release(); }), "");
    expectRefused(handle, "Error VRHANDLE\n");
}

TEST(Handles, ReleaseInsideTheLifeOfAGlContextLeavesOthersDrawing) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 20, 20);
    stage.show(Image(20, 20, rgb(0x336699)));
    {
        View other(Fovix_Create);
        printedBy([&] {
            Fovix_Prepare(other);
            Fovix_Init(other, 20, 20);
            Fovix_SetRGBTexture(other, Image(20, 20).bytes.data(), 1600, 20, 20);
            Fovix_Drawself(other);
        });
    }
    EXPECT_TRUE(looksLike(stage.draw(), Image(20, 20, rgb(0x336699))));
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
