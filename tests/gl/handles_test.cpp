// Handles that are null, foreign or released: every export prints it, returns its failure result and reads
// none of the memory.
#include <gtest/gtest.h>

#include <map>

#include "ApiCalls.h"
#include "HeadlessGl.h"
#include "handle/FovixContext.h"

namespace fovix_test {
namespace {

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
    const Bytes picture(64, 'm');
    for (const auto& [name, call] : apiCalls()) {
        SCOPED_TRACE(name);
        Numbers results(6, 77.0);
        double result = 0.0;
        const std::string lines =
            printedBy([&] { result = call.make(handle, Numbers(8, 1.0), results, picture.data()); });
        EXPECT_EQ(lines, line + ownLines[name]);
        EXPECT_EQ(result, failures[name]);
        EXPECT_EQ(results, Numbers(6, 77.0));
    }
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
    glBufferData(GL_ARRAY_BUFFER, 64, nullptr, GL_STATIC_DRAW);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    EXPECT_TRUE(looksLike(stage.draw(), alone)) << "after the host";
    other.release();
    EXPECT_TRUE(looksLike(stage.draw(), alone)) << "after the other handle's release";
}

}  // namespace
}  // namespace fovix_test
