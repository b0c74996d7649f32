// fovix-render --script: what a timeline may say, and that its calls reach the view.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <sstream>

#include "MediaFiles.h"
#include "ProgramRun.h"
#include "TestFiles.h"
#include "media/MediaReader.h"

namespace {

const std::filesystem::path kSourceDir = FOVIX_SOURCE_DIR;

ProgramRun play(const std::string& script, std::vector<std::string> more = {}) {
    writeText(testFolder() / "calls.txt", script);
    more.insert(more.end(), {"--script", "calls.txt", "--size", "64x64", "-o", "v.png"});
    return runFovixRender(more);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

TEST(Script, RefusesLinesWithFileLineAndReason) {
    struct {
        const char* script;
        int line;
        const char* reason;
    } const cases[] = {
        {"1 prepare\n\n# comment\n2 touch-dwn 1 2\n", 4,
         "'touch-dwn' is not a verb; fovix-render --list-verbs"},
        {"0 prepare", 1, "a frame from 1 to 1000000 or a range such as 10..30, not '0'"},
        {"1000001 prepare", 1, "not '1000001'"},
        {"touch-down 1 2", 1, "not 'touch-down'"},
        {"2..1 prepare", 1, "the range of frames '2..1' goes back"},
        {"7", 1, "frame 7 has no verb"},
        {"7 # prepare", 1, "frame 7 has no verb"},
        {"5 prepare\n4..9 prepare", 2, "frame 4 cannot come after frame 5"},
        {"1 touch-down 1", 1, "touch-down takes X Y"},
        {"1 auto-adjust 1", 1, "auto-adjust takes no arguments"},
        {"1 touch-down 1 2y", 1, "Y of touch-down cannot be '2y'; it wants a number"},
        {"1 touch-down 1 1e39", 1, "cannot be '1e39'"},
        {"1 touch-down nan 1", 1, "cannot be 'nan'"},
        {"1 ppi-zoom 1.5", 1, "ZOOM of ppi-zoom cannot be '1.5'; it wants a whole number"},
        {"1 ppi-zoom 2147483648", 1, "cannot be '2147483648'"},
        {"1 background red", 1, "it wants hexadecimal digits RRGGBB"},
        {"1 type panorama", 1, "it wants a number or one of 360, 180, original"},
        {"1 shape sphere", 1, "four-screens"},
        {"1 touch-move 1..2 3", 1, "'1..2' wants a range of frames too"},
    };
    for (const auto& [script, line, reason] : cases) {
        const ProgramRun run = play(script);
        EXPECT_EQ(run.status, 2) << script;
        EXPECT_EQ(run.errors.find("fovix-render: calls.txt:" + std::to_string(line) + ": "), 0u)
            << script << '\n'
            << run.errors;
        EXPECT_NE(run.errors.find(reason), std::string::npos) << script << '\n' << run.errors;
    }
    const ProgramRun noFile = runFovixRender({"--script", "missing.txt"});
    EXPECT_EQ(noFile.status, 1);
    EXPECT_NE(noFile.errors.find("'missing.txt' cannot be read"), std::string::npos) << noFile.errors;
    const ProgramRun noPicture = play("1 prepare\n2 picture missing.png");
    EXPECT_EQ(noPicture.status, 1);
    EXPECT_EQ(noPicture.errors.find("fovix-render: calls.txt:2: 'missing.png' cannot be opened"), 0u)
        << noPicture.errors;
    EXPECT_EQ(noPicture.output, "v-0001.png\n");
}

TEST(Script, HasAVerbForEveryExport) {
    std::vector<std::string> called;
    std::string script;
    for (const std::string& line : linesOf(runFovixRender({"--list-verbs"}).output)) {
        std::istringstream text(line);
        std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
        if (line.substr(0, 2) != "  ") continue;
        called.push_back(words.back());
        script += "1 " + words[0];
        for (std::size_t i = 1; i + 1 < words.size(); ++i) script += words[i] == "FILE" ? " in.mkv" : " 1";
        script += words[0] == "release" ? "\n1 create\n1 prepare\n1 init 64 64\n" : "\n";
    }
    std::vector<std::string> exports = linesOf(readText(kSourceDir / "tests/api/exports.txt"));
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

TEST(Script, DragTurnsThePictureWithTheFinger) {
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 64, 64, 1);
    const ProgramRun run = play(
        "1 type 360\n1 lens 32 32 32 64 64\n1 picture in.mkv\n"
        "2 get-ptz\n2 touch-down 40 10 # near the top\n"
        "3..5 touch-move 40..17.5 10 # to the left: a quarter turn\n6 get-ptz\n"
        "6 fling -3000 0\n120..122 get-ptz\n123 touch-down 1 1\n124..130 get-ptz\n");
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_NE(run.output.find("frame 2: get-ptz 90 0 90 0\n"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("frame 6: get-ptz 180 0 90 0\n"), std::string::npos) << run.output;
    const auto colours = [](const std::string& file) {
        fovix_host::MediaReader reader(fileInTest(file));
        const AVFrame* frame = reader.next();
        std::vector<int> greens;  // of the quadrants, from the top left to the bottom right
        for (const int y : {20, 44})
            for (const int x : {20, 44}) greens.push_back(frame->data[0][y * frame->linesize[0] + 3 * x + 1]);
        return greens;
    };
    const std::vector<int> before = colours("v-0002.png");
    ASSERT_NE(before[0], before[1]);
    EXPECT_EQ(colours("v-0005.png"), (std::vector<int>{before[1], before[3], before[0], before[2]}));

    // The fling runs out into an even spin, which a touch ends.
    std::vector<double> pans;
    for (const std::string& line : linesOf(run.output))
        if (const std::size_t at = line.find("get-ptz "); at != line.npos)
            pans.push_back(std::stod(line.substr(at + 8)));
    ASSERT_EQ(pans.size(), 12u);
    EXPECT_GT(pans[3], pans[2] + 1);
    EXPECT_NEAR(pans[4] - pans[3], pans[3] - pans[2], 0.025);  // six digits of some thousand degrees
    EXPECT_EQ(pans[11], pans[5]);
}

TEST(Script, PlaysEveryExampleToItsLastFrame) {
    int examples = 0;
    for (const auto& file : std::filesystem::directory_iterator(kSourceDir / "examples/scripts")) {
        SCOPED_TRACE(file.path().filename());
        int last = 0, dots = 0;
        for (const std::string& line : linesOf(readText(file.path())))
            if (int first = 0, end = 0; (dots = std::sscanf(line.c_str(), "%d..%d", &first, &end)) > 0)
                last = std::max(last, dots == 2 ? end : first);
        const ProgramRun run =
            runFovixRender({"--script", file.path(), "--size", "48x48", "-o", "v.png", "--quiet"});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, "");
        const auto lines = linesOf(run.output);
        EXPECT_EQ(
            std::count_if(lines.begin(), lines.end(), [](const auto& l) { return l.ends_with(".png"); }),
            last);
        ++examples;
    }
    EXPECT_GE(examples, 10);
}

TEST(Script, WritesTheFramesAskedFor) {
    EXPECT_EQ(play("7 need-continue", {"--every", "3"}).output,
              "v-0003.png\nv-0006.png\nframe 7: need-continue 0\n");
    EXPECT_EQ(play("7 need-continue", {"--every", "last"}).output, "frame 7: need-continue 0\nv.png\n");
    EXPECT_EQ(play("7 need-continue", {"--frames", "2"}).output, "v-0001.png\nv-0002.png\n");
    EXPECT_EQ(play("1 version", {"--every", "0"}).status, 2);
}

}  // namespace
