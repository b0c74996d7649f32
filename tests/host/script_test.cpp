// fovix-render --script: that its calls reach the view, and that every example plays.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "Drawn.h"
#include "ProgramRun.h"

namespace {

const std::filesystem::path kSourceDir = FOVIX_SOURCE_DIR;

ProgramRun play(const std::string& script, const std::string& more = "") {
    writeText(fileInTest("calls.txt"), script);
    return runFovixRender("--script calls.txt --size 64x64 -o v.png " + more);
}

TEST(Script, HasAVerbForEveryExport) {
    std::vector<std::string> called;
    std::string script;
    for (const std::string& line : linesOf(runFovixRender("--list-verbs").output)) {
        if (!line.starts_with("  ")) continue;
        const std::vector<std::string> words = wordsOf(line);
        called.push_back(words.back());
        script += "1 " + words[0];
        for (std::size_t i = 1; i + 1 < words.size(); ++i) script += words[i] == "FILE" ? " in.mkv" : " 1";
        script += words[0] == "release" ? "\n1 create\n1 prepare\n1 init 64 64\n" : "\n";
    }
    std::vector<std::string> exports = linesOf(readText(FOVIX_EXPORTS_LIST));
    std::sort(called.begin(), called.end());
    std::sort(exports.begin(), exports.end());
    EXPECT_EQ(called, exports);

    // Each of them can be called, with a live view and with one that was released.
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 21, 17, 2);
    const ProgramRun run = play(script + "1 release\n1 get-rotate-zoom\n");
    ASSERT_EQ(run.status, 0) << run.errors;
    for (const char* answer : {"version 1.2.1_dbg", "get-view-size 1 1", "get-type 1", "need-continue 0",
                               "get-rotate-zoom 1 1 1 1", "get-rotate-zoom - - - -", "check-gl-error 1"})
        EXPECT_NE(run.output.find(std::string("frame 1: ") + answer + "\n"), std::string::npos)
            << answer << '\n'
            << run.output;
}

TEST(Script, DragTurnsTheViewWithTheFinger) {
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 64, 64, 1);
    const ProgramRun run = play(
        "1 type 360\n1 lens 32 32 32 64 64\n1 picture in.mkv\n"
        "2 get-ptz\n2 touch-down 40 10 # near the top\n"
        "3..5 touch-move 40..17.5 10 # to the left: a quarter turn\n6 get-ptz\n"
        "6 fling -3000 0\n120..122 get-ptz\n123 touch-down 1 1\n124..130 get-ptz\n");
    ASSERT_EQ(run.status, 0) << run.errors;
    std::vector<double> pans;
    for (const std::string& line : linesOf(run.output))
        if (const std::size_t at = line.find("get-ptz "); at != line.npos)
            pans.push_back(std::stod(line.substr(at + 8)));
    ASSERT_EQ(pans.size(), 12u);
    EXPECT_NEAR(pans[0], 90, 1e-3);
    EXPECT_NEAR(pans[1], 180, 1e-3);
    EXPECT_GT(pans[3], pans[2] + 1) << "the fling ends in an even spin";
    EXPECT_NEAR(pans[4] - pans[3], pans[3] - pans[2], 0.025);  // six digits of some thousand degrees
    EXPECT_EQ(pans[11], pans[5]) << "which a touch ends";

    const auto greens = [](const std::string& file) {
        const Drawn drawn(file);
        return std::vector{drawn.at(20, 20).g, drawn.at(44, 20).g, drawn.at(20, 44).g, drawn.at(44, 44).g};
    };
    const std::vector<int> before = greens("v-0002.png");
    ASSERT_NE(before[0], before[1]);
    EXPECT_EQ(greens("v-0005.png"), (std::vector{before[1], before[3], before[0], before[2]}));
}

TEST(Script, PlaysEveryExampleToItsLastFrame) {
    int examples = 0;
    for (const auto& file : std::filesystem::directory_iterator(kSourceDir / "examples/scripts")) {
        SCOPED_TRACE(file.path().filename());
        int last = 0;
        for (const std::string& line : linesOf(readText(file.path())))
            if (int first = 0, end = 0; const int numbers = std::sscanf(line.c_str(), "%d..%d", &first, &end))
                last = std::max({last, first, numbers == 2 ? end : 0});
        const ProgramRun run =
            runFovixRender("--script '" + file.path().string() + "' --size 48x48 -o v.png --quiet");
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, "");
        const auto lines = linesOf(run.output);
        const auto isFrame = [](const std::string& line) { return line.ends_with(".png"); };
        EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isFrame), last);
        ++examples;
    }
    EXPECT_GE(examples, 10);
}

TEST(Script, WritesTheFramesAskedFor) {
    const std::string answer = "frame 7: need-continue 0\n";
    EXPECT_EQ(play("7 need-continue", "--every 3").output, "v-0003.png\nv-0006.png\n" + answer);
    EXPECT_EQ(play("7 need-continue", "--every last").output, answer + "v.png\n");
    EXPECT_EQ(play("7 need-continue", "--frames 2").output, "v-0001.png\nv-0002.png\n");
}

}  // namespace
