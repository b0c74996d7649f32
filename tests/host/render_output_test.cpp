// Where fovix-render's frames go: parts of videos, raw bytes, and what is left when it is stopped.

#include <algorithm>
#include <cmath>
#include <numeric>

#include "Drawn.h"
#include "ProgramRun.h"
#include "output/ProgressLine.h"

using namespace fovix_host;

namespace {

class RenderOutput : public testing::Test {
  protected:
    RenderOutput() { writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 32, 32, 30); }

    // The numbers of the frames in a video that fovix-render made.
    static std::vector<int> render(const std::string& arguments, const std::string& file = "v.mp4") {
        const ProgramRun run = runFovixRender(arguments + " --size 32x32 --quiet -o " + file);
        EXPECT_EQ(run.errors, "");
        EXPECT_EQ(run.output, file + "\n");
        std::vector<int> numbers;
        MediaReader reader(fileInTest(file));
        FramePacker packer(PackedFormats::kRgba);
        while (const AVFrame* frame = reader.next()) {
            const unsigned char* p = packer.pack(*frame).data + (24 * 32 + 8) * 4;
            constexpr double kGreenStep = kLumaStep * 255 / 219.0;
            const double steps = (p[1] - fromLimitedRange(kQuadrants[2]).g) / kGreenStep;
            numbers.push_back(static_cast<int>(std::lround(steps)));
        }
        return numbers;
    }
    static std::vector<int> span(int first, std::size_t count) {
        std::vector<int> numbers(count);
        std::iota(numbers.begin(), numbers.end(), first);
        return numbers;
    }
};

TEST_F(RenderOutput, HoldsTheAskedPartOfTheInput) {
    EXPECT_EQ(render("in.mkv --quality 4"), span(0, 30));
    EXPECT_EQ(render("in.mkv --start 0:00.4 --duration 0:0:0.2"), span(10, 5));
    EXPECT_EQ(render("in.mkv --start 1 --codec ffv1", "v.mkv"), span(25, 5));
    EXPECT_EQ(render("in.mkv --frames 2 --fps 12.5", "v.mkv"), span(0, 2));
    EXPECT_NEAR(MediaReader(fileInTest("v.mkv")).frameRate(), 12.5, 0.001);
    // The longest of several inputs counts, and a still image lasts.
    EXPECT_EQ(render("in.mkv in.mkv --type lenses --duration 9"), span(0, 30));
    runFovixRender("in.mkv -o still.png");
    EXPECT_EQ(render("still.png --duration 0.4").size(), 10u);
    EXPECT_EQ(render("--sample --type grid --grid 1x1 --duration 0.12").size(), 3u);
}

TEST_F(RenderOutput, IsRawBytesAndNothingElseOnStandardOutput) {
    writeText(fileInTest("calls.txt"), "1..30 get-type");
    const std::string common = " in.mkv --script calls.txt --size 5x7 --frames 3";
    const ProgramRun raw = runFovixRender("--verbose -o -" + common);
    ASSERT_EQ(raw.status, 0) << raw.errors;
    ASSERT_EQ(raw.output.size(), 3u * 5 * 7 * 4);
    EXPECT_NE(raw.errors.find("frame 3: get-type 2\n"), std::string::npos) << raw.errors;
    runFovixRender("-o v.png" + common);
    const Drawn last("v-0003.png");
    for (int i = 0; i < 5 * 7; ++i) {
        const auto* p = reinterpret_cast<const unsigned char*>(raw.output.data()) + (2 * 5 * 7 + i) * 4;
        expectColour({p[0], p[1], p[2]}, last.at(i % 5, i / 5), 0, std::to_string(i));
    }
    // Nor where standard error is closed, and its number free for the next file.
    EXPECT_EQ(runFovixRender("--verbose -o -" + common + " 2>&-").output, raw.output);
    EXPECT_EQ(runFovixRender("- --quiet --size 5x7 --frames 3 -o - <in.mkv | wc -c").output, "420\n");
    // A reader that has enough ends it silently.
    const ProgramRun cut = runInShell(
        "{ fovix-render in.mkv --frames 100000 -o -; echo $? >status.txt; } | head -c 9 >nine.rgba");
    EXPECT_EQ(cut.errors, "");
    EXPECT_EQ(readText(fileInTest("status.txt")), "1\n");
}

TEST_F(RenderOutput, IsPlayableWhenStoppedAndAbsentWhenKilled) {
    writeText(fileInTest("calls.txt"), "1..1000000 get-type");
    for (const auto& [signal, status] :
         {std::pair{"INT", 130}, std::pair{"TERM", 143}, std::pair{"HUP", 129}, std::pair{"KILL", 137}}) {
        SCOPED_TRACE(signal);
        writeText(fileInTest("v.mp4"), "before");
        const ProgramRun run = runInShell(
            "env --default-signal=INT fovix-render in.mkv --script calls.txt --size 32x32 -o v.mp4 & "
            "until grep -q 'frame 30:' stdout.txt || ! kill -0 $!; do sleep 0.02; done; kill -" +
            std::string(signal) + " $!; wait $!");
        EXPECT_EQ(run.status, status) << run.errors;
        for (const auto& entry : std::filesystem::directory_iterator(testFolder()))
            EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
        if (status == 137) {
            EXPECT_EQ(readText(fileInTest("v.mp4")), "before");
            continue;
        }
        MediaReader reader(fileInTest("v.mp4"));
        while (reader.next()) {
        }
        EXPECT_GE(reader.framesRead(), 30);
        for (const std::string& words :
             {std::string("SIG") + signal, std::to_string(reader.framesRead()) + " frames\n"})
            EXPECT_NE(run.errors.find(words), std::string::npos) << words << run.errors;
    }
}

TEST_F(RenderOutput, StopsWhileItWaitsForItsInput) {
    for (const std::string work : {"--find-lens", "-o v.png"}) {
        const ProgramRun run = runInShell(
            "mkfifo in; { : >opened; exec sleep 20; } >in & feeder=$!; fovix-render in " + work +
            " & until [ -e opened ] || ! kill -0 $!; do sleep 0.02; done; sleep 0.1; kill -TERM $!; wait $!; "
            "status=$?; kill $feeder; rm in opened; exit $status");
        EXPECT_EQ(run.status, 143);
        EXPECT_TRUE(run.errors.starts_with("fovix-render: stopped by SIGTERM: 'in'")) << run.errors;
    }
}

TEST_F(RenderOutput, NeedsRoomAndAFileItCanGoBackIn) {
    for (const std::string file : {"v.mp4", "v.mkv", "v.png"}) {
        const ProgramRun run = runInShell("ulimit -f 2; fovix-render in.mkv --frames 1 -o " + file);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errors, "fovix-render: cannot write '" + file + "': File too large\n");
        EXPECT_FALSE(std::filesystem::exists(fileInTest(file)));
    }
    const ProgramRun run =
        runInShell("mkfifo v.mkv; cat v.mkv & fovix-render in.mkv --frames 1000000 -o v.mkv");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.errors.starts_with("fovix-render: cannot write 'v.mkv': a video")) << run.errors;
    EXPECT_EQ(run.output, "");
}

TEST(ProgressLine, ShowsHowFarTheWorkIsAndHowLongItTakes) {
    EXPECT_EQ(progressLine(50, 200, 10, 60), "[######-------------------] 25 %, frame 50 of 200, 0:30 left");
    EXPECT_EQ(progressLine(1, 4000, 2, 30), "0 %, frame 1 of 4000, 2:13:18 ");
    EXPECT_EQ(progressLine(200, 200, 10, 47), "[##########] 100 %, frame 200 of 200, 0:00 left");
    EXPECT_EQ(progressLine(77, 0, 3725, 80), "frame 77, 1:02:05");
}

}  // namespace
