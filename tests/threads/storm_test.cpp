// Decoder, input and drawing thread at once, with changes of type, size, format and view at any moment of a
// frame: no draw reads past a bound array, and afterwards a handle draws what a fresh one draws in the same
// state.
#include <GL/glew.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <chrono>
#include <sstream>
#include <thread>

#include "CallStorm.h"
#include "HeadlessGl.h"
#include "ViewTable.h"

namespace {

int meshDraws = 0, overlongDraws = 0;

/// Whether count vertices of size floats are in the heap block that an attribute points at.
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

/// Comes before GL's own in this program, so that every mesh that the library draws passes here. Meshes have
/// heap blocks of their own; the loops of lines do not.
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

auto calling(CallStorm storm, VRHANDLE handle) {
    return [storm, handle]() mutable { storm.callOnce(handle); };
}

/// Frames of changing size and format, into single slots, cells and lenses.
auto decoder(VRHANDLE handle, unsigned seed) {
    return [handle, dice = Dice(seed), bytes = Bytes(200 * 200 * 4, 77)]() mutable {
        const int width = dice.from(1, 200), height = dice.from(1, 200), formats[] = {1, 3, 9, 10};
        const int pixelFmt = formats[dice.from(0, 3)], slot = dice.from(0, 8), target = dice.from(0, 4);
        const int size = width * height * (pixelFmt == 1 || target == 0 ? 8 : 3) / 2;
        if (target == 0) Fovix_Multi_SetRGBTexture(handle, slot, bytes.data(), size, width, height);
        if (target == 1) Fovix_Multi_SetTexture(handle, slot, pixelFmt, bytes.data(), size, width, height);
        if (target > 1) Fovix_SetTexture(handle, pixelFmt, bytes.data(), size, width, height);
    };
}

struct State {
    int type, mount, shape, drawMode, lensMode, lensScreen;
};

std::ostream& operator<<(std::ostream& out, const State& s) {
    return out << "type " << s.type << ", mount " << s.mount << ", shape " << s.shape << ", draw mode "
               << s.drawMode << ", lenses " << s.lensMode << ", screen " << s.lensScreen;
}

void drawFrames(VRHANDLE handle, int count) {
    for (; count > 0; --count) Fovix_Drawself(handle);
}

void submitAll(VRHANDLE handle, int type) {
    const Image picture = Image::chequered(96, 80);
    const bool hasSlots = type == FOVIX_TYPE_MULTI_IMAGE || type == FOVIX_TYPE_MULTI_LENS;
    for (int slot = 0; slot < 4 && hasSlots; ++slot) submitTo(handle, slot, picture);
    submit(handle, picture);
    Fovix_SetFecParams(handle, 50, 38, 36, 96, 80);
}

void setViews(VRHANDLE handle, int type) {
    Fovix_ResetPosition(handle);
    Fovix_SetRotationFor180VR(handle, 0);
    const double unit = type == FOVIX_TYPE_SINGLE_PIP ? 0.02 : 1;
    for (int screen = 5; screen >= 0; --screen) {
        Fovix_SetPTZ_SubScreen(handle, screen, 30 + 50 * screen, 25 + 5 * screen, 35, 0, 0);
        Fovix_SetRotateZoom_SubScreen(handle, screen, unit * (screen + 3), unit * (screen - 5), 0.7, 1.5);
    }
}

void enterType(VRHANDLE handle, int type) {
    if (Fovix_GetType(handle) == type) return;
    Fovix_SetType(handle, FOVIX_TYPE_ORIGINAL);  // not every type leads to that of the Korvel lens
    Fovix_SetType(handle, type);
}

/// Goes to a state from any other, and draws until nothing moves any more.
void enter(VRHANDLE handle, const State& state) {
    enterType(handle, state.type);
    play(handle,
         "init 120 90 background 2109504 Multi_SetScreenNumber 2 2 Multi_SetLens 4 Multi_SwitchLens 2");
    submitAll(handle, state.type);
    Fovix_SetCameraMount(handle, state.mount);
    Fovix_SetShape(handle, state.shape);
    Fovix_SetDrawMode(handle, state.drawMode);
    setViews(handle, state.type);
    play(handle, "lenses 0 logic 1 10 3 1 Drawself");
    Fovix_SetTwoLensesDrawMode(handle, state.lensMode);
    Fovix_SetTwoLensesScreen(handle, state.lensScreen);
    play(handle, "down 3 87 down 3 3");  // selects a screen where the first touch cannot
    drawFrames(handle,
               state.type == FOVIX_TYPE_TWO_LENSES && state.lensMode == FOVIX_TWO_LENSES_BOTH ? 110 : 31);
    setViews(handle, state.type);
    Fovix_Drawself(handle);
}

/// Meshes that are kept must follow what comes later.
void useEveryMesh(VRHANDLE handle) {
    submitAll(handle, Fovix_GetType(handle));
    play(handle, "lens 40 50 30 96 80");
    for (int shape = 0; shape <= 10; ++shape) {
        Fovix_SetShape(handle, shape);
        Fovix_SetDrawMode(handle, shape % 4);
        Fovix_Drawself(handle);
    }
}

/// Changes on the drawing thread, with frames in between.
void changeAndDraw(VRHANDLE handle, CallStorm changes, Dice& dice, int count) {
    for (int i = 0; i < count; ++i) {
        if (dice.from(0, 9) == 0) Fovix_Init(handle, dice.from(0, kWidth), dice.from(0, kHeight));
        changes.callOnce(handle);
        if (dice.from(0, 2) == 0) Fovix_Drawself(handle);
    }
}

/// A storm of every call, one that keeps the type, and the state that is to be compared.
void stormInto(VRHANDLE handle, const State& state, Dice& dice) {
    const auto seed = static_cast<unsigned>(dice.from(0, 1 << 20));
    const CallStorm looks(
        {"shape 0..10", "shape 3..7", "mode 0..4", "mount 0..1", "lens 20..80 20..80 9..80 100 100"}, seed);
    {
        const Worker input(calling(gestures(seed), handle)), menus(calling(settings(seed + 1), handle)),
            frames(decoder(handle, seed));
        changeAndDraw(handle, settings(seed), dice, 60);
    }
    enterType(handle, state.type);
    {
        const Worker frames(decoder(handle, seed + 2));
        changeAndDraw(handle, looks, dice, 90);
    }
    useEveryMesh(handle);
}

TEST(Storm, LeavesAFrameLikeThatOfAFreshHandle) {
    for (const auto create : {Fovix_Create, Fovix_CreateNoTouchEvent}) {
        Stage stage(FOVIX_TYPE_360VR, kWidth, kHeight, create);
        Dice dice(11);
        std::string lines;
        for (int round = 0; round < (create == Fovix_Create ? 9 : 18); ++round) {
            State state = {kTypes[round % 9], dice.from(0, 3), dice.from(0, 10),
                           dice.from(0, 3),   dice.from(0, 3), dice.from(0, 2)};
            lines += printedBy([&] {
                stormInto(stage.view, state, dice);
                if (round >= 9) state.mount = Fovix_GetCameraMount(stage.view);
                // An unknown shape changes nothing, and a controller keeps its views.
                if (state.type == FOVIX_TYPE_180VR)
                    state.shape = std::array{0, 3, 5, 7, 10}[static_cast<std::size_t>(state.shape % 5)];
                if (create == Fovix_Create) Fovix_SetType(stage.view, 23);
                enter(stage.view, state);
            });
            const Image shown = stage.gl.readPixels();
            const View fresh(create);
            printedBy([&] {
                Fovix_Prepare(fresh);
                enter(fresh, state);
            });
            EXPECT_TRUE(looksLike(shown, stage.gl.readPixels(), 0)) << state;
        }
        EXPECT_EQ(lines.find("OpenGLError"), std::string::npos)
            << lines.substr(lines.find("OpenGLError"), 200);
        std::istringstream text(lines);
        for (std::string line; std::getline(text, line);) {
            EXPECT_TRUE(line.find("Fovix Error") == std::string::npos ||
                        line.find(" is not in 0..") != std::string::npos)
                << line;
        }
    }
    EXPECT_GT(meshDraws, 1000);
    EXPECT_EQ(overlongDraws, 0);
}

TEST(Storm, FailedFetchesDrawNothingBeyondTheBoundMesh) {
    for (const int before : {0, 3, 22, 24}) {
        SCOPED_TRACE(before);
        Stage stage(before, kWidth, kHeight);
        const auto expectFailedFetch = [&](const char* change) {
            stage.show(Image::chequered(96, 80));
            stage.play(change);
            EXPECT_TRUE(looksLike(stage.draw(), Image(kWidth, kHeight))) << "drawn from another type's mesh";
            EXPECT_NE(stage.lines.find("buildVertices failed, Vertices is empty!\n"), std::string::npos);
            EXPECT_EQ(overlongDraws, 0);
        };
        stage.show(Image::chequered(96, 80));
        stage.draw();
        // The blend's first mesh is built and counted, its last one does not exist: the old mesh stays bound.
        expectFailedFetch("type 1 SetDrawModeCartoon 0 4 1 20");
        expectFailedFetch("mode 4");
        stage.play("CleanUp");
        EXPECT_TRUE(looksLike(stage.draw(), Image(kWidth, kHeight)));
        expectFailedFetch("");
        const int drawsBefore = meshDraws;
        stage.play("mode 0 draw 1");
        EXPECT_EQ(meshDraws, drawsBefore + 1);
    }
}

TEST(Storm, NoFrameMixesTwoPictures) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    const std::array pictures = {Image(80, 60, rgb(0xFF0000)), Image(40, 30, rgb(0x00FF00)),
                                 Image(200, 150, rgb(0x0000FF))};
    stage.show(pictures[0]);
    int mixed = 0, changes = 0;
    printedBy([&] {
        const auto decode = [&, next = std::size_t{0}]() mutable {
            const Image& picture = pictures[next++ % pictures.size()];
            Fovix_SetRGBTexture(stage.view, picture.bytes.data(), picture.size(), picture.width,
                                picture.height);
        };
        const Worker first(decode), second(decode);
        Rgba last = {};
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(1500);
        while (std::chrono::steady_clock::now() < end) {
            Fovix_Drawself(stage.view);
            const Image shown = stage.gl.readPixels();
            for (const int place : {1, 15, 28}) mixed += shown.at(place, place) != shown.at(20, 15);
            changes += shown.at(20, 15) != last;
            last = shown.at(20, 15);
        }
    });
    EXPECT_EQ(mixed, 0);
    EXPECT_GT(changes, 2);
}

TEST(Handles, CanBeReleasedWhileOtherThreadsUseThem) {
    const HeadlessGl gl(32, 32);
    for (int round = 0; round < 40; ++round) {
        View view(round % 2 ? Fovix_Create : Fovix_CreateNoTouchEvent);
        const VRHANDLE handle = view;
        const auto seed = static_cast<unsigned>(round);
        printedBy([&] {
            Fovix_Prepare(handle);
            Fovix_Init(handle, 32, 32);
            const Worker first(decoder(handle, seed)), second(calling(settings(seed), handle)),
                third(calling(gestures(seed), handle));
            const Worker others([] {
                VRHANDLE other = nullptr;
                Fovix_Create(&other);
                Fovix_Release(other);
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            });
            std::thread releasing([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(round % 7));
                view.release();
            });
            drawFrames(handle, 6);
            releasing.join();
        });
        EXPECT_EQ(printedBy(Fovix_Drawself, handle), "Error VRHANDLE\n");
    }
}

}  // namespace
}  // namespace fovix_test
