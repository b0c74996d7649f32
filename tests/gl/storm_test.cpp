// Storms of changes between frames while pictures arrive from another thread: no draw reads past a bound
// array, and afterwards a handle draws what a fresh one draws in the same state.
#include <GL/glew.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <chrono>
#include <functional>

#include "HeadlessGl.h"
#include "Storm.h"

namespace {

int meshDraws = 0, overlongDraws = 0;

/// Whether count vertices of size floats lie in the heap block that an attribute points at.
bool holds(const char* attribute, int count, int size) {
    GLint program = 0;
    void* pointer = nullptr;
    glGetIntegerv(GL_CURRENT_PROGRAM, &program);
    const GLint location = glGetAttribLocation(static_cast<GLuint>(program), attribute);
    glGetVertexAttribPointerv(static_cast<GLuint>(location), GL_VERTEX_ATTRIB_ARRAY_POINTER, &pointer);
    const auto bytes = static_cast<std::size_t>(count) * static_cast<std::size_t>(size) * sizeof(float);
    return count == 0 || malloc_usable_size(pointer) >= bytes;
}

}  // namespace

/// Stands before GL's own in this program: every mesh that the library draws comes by. Meshes lie in heap
/// blocks of their own; the loops of lines do not.
extern "C" void GLAPIENTRY glDrawArrays(GLenum mode, GLint first, GLsizei count) {
    static const auto draw =
        reinterpret_cast<void(GLAPIENTRY*)(GLenum, GLint, GLsizei)>(dlsym(RTLD_NEXT, "glDrawArrays"));
    if (mode == GL_TRIANGLES) {
        const bool fits = first == 0 && holds("a_position", count, 3) && holds("a_textureCoords", count, 2);
        ++meshDraws;
        overlongDraws += !fits;
        if (!fits) return;
    }
    draw(mode, first, count);
}

namespace fovix_test {
namespace {

constexpr int kWidth = 120, kHeight = 90;

struct State {
    int type, mount, shape, drawMode, lensMode, lensScreen;
};

State anyState(Dice& dice) {
    return {kTypes[dice.from(0, 8)], dice.from(0, 3), dice.from(0, 10),
            dice.from(0, 3),         dice.from(0, 3), dice.from(0, 2)};
}

/// The shapes that a type knows: others change nothing.
bool knowsShape(const State& state) {
    return state.type != FOVIX_TYPE_180VR || state.shape == 3 || state.shape == 7 || state.shape % 5 == 0;
}

void handInPictures(VRHANDLE view, int type) {
    const Image picture = Image::chequered(96, 80);
    for (int slot = 0; slot < 4 && (type == FOVIX_TYPE_MULTI_IMAGE || type == FOVIX_TYPE_MULTI_LENS);
         ++slot) {
        Fovix_Multi_SetRGBTexture(view, slot, picture.bytes.data(), picture.size(), 96, 80);
    }
    Fovix_SetRGBTexture(view, picture.bytes.data(), picture.size(), 96, 80);
    Fovix_SetFecParams(view, 50, 38, 36, 96, 80);
}

void setViews(VRHANDLE view, int type) {
    Fovix_ResetPosition(view);
    Fovix_SetRotationFor180VR(view, 0);
    const double unit = type == FOVIX_TYPE_SINGLE_PIP ? 0.02 : 1;
    for (int screen = 5; screen >= 0; --screen) {
        Fovix_SetPTZ_SubScreen(view, screen, 30 + 50 * screen, 25 + 5 * screen, 35, 0, 0);
        Fovix_SetRotateZoom_SubScreen(view, screen, unit * (screen + 3), unit * (screen - 5), 0.7, 1.5);
    }
}

void enterType(VRHANDLE view, int type) {
    if (Fovix_GetType(view) == type) return;
    Fovix_SetType(view, FOVIX_TYPE_ORIGINAL);  // the straightened picture is not reached from every type
    Fovix_SetType(view, type);
}

/// Goes to a state from wherever the handle is, keeping its type if that is the state's, and draws until
/// nothing moves any more.
void enter(VRHANDLE view, const State& state) {
    enterType(view, state.type);
    Fovix_Init(view, kWidth, kHeight);
    Fovix_SetBackground(view, 0x203040);
    Fovix_Multi_SetScreenNumber(view, 2, 2);
    Fovix_Multi_SetLens(view, 4);
    Fovix_Multi_SwitchLens(view, 2);
    handInPictures(view, state.type);
    Fovix_SetCameraMount(view, state.mount);
    Fovix_SetShape(view, state.shape);
    Fovix_SetDrawMode(view, state.drawMode);
    setViews(view, state.type);
    Fovix_SetTwoLensesDrawMode(view, FOVIX_TWO_LENSES_BY_ZOOM);
    Fovix_SetLogicZoom(view, 1, 10, 3, 1);
    Fovix_Drawself(view);
    Fovix_SetTwoLensesDrawMode(view, state.lensMode);
    Fovix_SetTwoLensesScreen(view, state.lensScreen);
    Fovix_OnTouchDown(view, 3, kHeight - 3);
    Fovix_OnTouchDown(view, 3, 3);  // selects a screen where the one below is none to select
    const bool glides = state.type == FOVIX_TYPE_TWO_LENSES && state.lensMode == FOVIX_TWO_LENSES_BOTH;
    for (int frame = 0; frame < (glides ? 110 : 31); ++frame) Fovix_Drawself(view);
    setViews(view, state.type);
    Fovix_Drawself(view);
}

/// Meshes that are kept must follow what comes later.
void useEveryMesh(VRHANDLE view) {
    handInPictures(view, Fovix_GetType(view));
    Fovix_SetFecParams(view, 40, 50, 30, 96, 80);
    for (int shape = 0; shape <= 10; ++shape) {
        Fovix_SetShape(view, shape);
        Fovix_SetDrawMode(view, shape % 4);
        Fovix_Drawself(view);
    }
}

/// Changes and frames in any order, pictures arriving meanwhile.
void storm(VRHANDLE view, Dice& dice, int changes, bool changesType) {
    const Worker pictures([step = decoder(view, static_cast<unsigned>(changes))]() mutable {
        step();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    });
    auto anything = settings(view, static_cast<unsigned>(dice.from(0, 1 << 20)));
    for (int i = 0; i < changes; ++i) {
        switch (dice.from(0, 8)) {
            case 0:
            case 1:
                Fovix_SetShape(view, dice.from(0, 10));
                break;
            case 2:
                Fovix_SetCameraMount(view, dice.from(0, 1));
                break;
            case 3:
                Fovix_SetDrawMode(view, dice.from(0, 4));
                break;
            case 4:
                Fovix_SetFecParams(view, dice.from(20, 80), dice.from(20, 80), dice.from(9, 80), 100, 100);
                break;
            case 5:
                Fovix_Init(view, dice.from(0, kWidth), dice.from(0, kHeight));
                break;
            default:
                if (changesType) anything();
        }
        if (dice.from(0, 2) == 0) Fovix_Drawself(view);
    }
}

TEST(TypeStorm, LeavesAFrameLikeThatOfAFreshHandleInTheSameState) {
    Stage stage(FOVIX_TYPE_360VR, kWidth, kHeight);
    Dice dice(11);
    std::string lines;
    for (int round = 0; round < 18; ++round) {
        State state = anyState(dice);
        state.type = kTypes[round % 9];
        lines += printedBy([&] {
            storm(stage.view, dice, 120, true);
            enterType(stage.view, state.type);
            storm(stage.view, dice, 60, false);
            useEveryMesh(stage.view);
            if (round >= 9) state.mount = Fovix_GetCameraMount(stage.view);
            if (!knowsShape(state)) state.shape = FOVIX_SHAPE_FOUR_SCREENS;
            enter(stage.view, state);
        });
        const Image shown = stage.gl.readPixels();
        const View fresh;
        printedBy([&] {
            Fovix_Prepare(fresh);
            enter(fresh, state);
        });
        const Image expected = stage.gl.readPixels();
        EXPECT_TRUE(looksLike(shown, expected, 0))
            << "type " << state.type << ", mount " << state.mount << ", shape " << state.shape
            << ", draw mode " << state.drawMode << ", lenses " << state.lensMode << ", screen "
            << state.lensScreen;
    }
    EXPECT_EQ(lines.find("OpenGLError"), std::string::npos) << lines.substr(lines.find("OpenGLError"), 200);
    EXPECT_GT(meshDraws, 1000);
    EXPECT_EQ(overlongDraws, 0);
}

TEST(TypeStorm, FailedFetchesDrawNothingBeyondTheBoundMesh) {
    const Image picture = Image::chequered(96, 80);
    for (const int before : {0, 3, 22, 24}) {
        SCOPED_TRACE(before);
        Stage stage(before, kWidth, kHeight);
        const auto expectFailedFetch = [&](const std::function<void()>& change) {
            stage.show(picture);
            printedBy(change);
            stage.draw();
            EXPECT_NE(stage.lines.find("buildVertices failed, Vertices is empty!\n"), std::string::npos);
            EXPECT_EQ(overlongDraws, 0);
        };
        stage.show(picture);
        stage.draw();
        // The cartoon's first mesh is built and counted, its last one does not exist: the old mesh stays
        // bound.
        printedBy([&] { Fovix_SetType(stage.view, FOVIX_TYPE_180VR); });
        expectFailedFetch([&] { Fovix_SetDrawModeCartoon(stage.view, 0, 4, 1, 20); });
        expectFailedFetch([&] { Fovix_SetDrawMode(stage.view, 4); });
        Fovix_CleanUp(stage.view);
        EXPECT_TRUE(looksLike(stage.draw(), Image(kWidth, kHeight)));
        expectFailedFetch([] {});
        Fovix_SetDrawMode(stage.view, FOVIX_180_DISC);
        const int drawsBefore = meshDraws;
        stage.draw();
        EXPECT_EQ(meshDraws, drawsBefore + 1);
    }
}

}  // namespace
}  // namespace fovix_test
