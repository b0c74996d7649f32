// Where fovix-render's frames go: parts of videos, raw bytes, and what is left when it is stopped.

#include <algorithm>
#include <cmath>
#include <numeric>

#include "Drawn.h"
#include "ProgramRun.h"
#include "media/FrameSource.h"
#include "output/ProgressLine.h"

using namespace fovix_host;

namespace {

using Words = std::vector<std::string>;

// The luma of the lower left quadrant tells the number of a frame.
int numberOf(int luma) {
    return static_cast<int>(std::lround((luma - kQuadrants[2].y) / double{kLumaStep}));
}

struct Numbered {
    const char* file;
    const char* encoder;
};

TEST(FrameSource, StartsAtThePictureAskedForInEveryContainer) {
    for (const Numbered& made :
         {Numbered{"a.mp4", "libx264"}, Numbered{"a.mkv", "mpeg2video"}, Numbered{"a.ts", "mpeg2video"},
          Numbered{"b.ts", "libx264"}, Numbered{"a.avi", "mpeg4"}, Numbered{"a.h264", "libx264"}}) {
        writeMedia(fileInTest(made.file), made.encoder, AV_PIX_FMT_YUV420P, 64, 48, 30);
        for (const auto& [start, first] : {std::pair{0.0, 0}, std::pair{0.04, 1}, std::pair{0.48, 12},
                                           std::pair{0.49, 13}, std::pair{1.16, 29}}) {
            SCOPED_TRACE(testing::Message() << made.file << " from " << start);
            MediaOptions demands;
            demands.start = start;
            const auto source = openMedia(fileInTest(made.file), demands);
            for (int frame = first; frame < 30; ++frame) {
                const auto picture = source->next();
                ASSERT_TRUE(picture);
                ASSERT_EQ(numberOf(picture->data[36 * 64 + 16]), frame);
                ASSERT_NEAR(source->seconds(), (frame - first) / 25.0, 0.001);
            }
            EXPECT_FALSE(source->next());
        }
    }
}

class RenderOutput : public testing::Test {
  protected:
    RenderOutput() { writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 32, 32, 30); }

    // The numbers of the frames in a video that fovix-render made.
    static std::vector<int> render(Words words, const std::string& file) {
        words.insert(words.end(), {"--size", "32x32", "--quiet", "-o", file});
        const ProgramRun run = runFovixRender(words);
        EXPECT_EQ(run.errors, "");
        EXPECT_EQ(run.output, file + "\n");
        std::vector<int> numbers;
        MediaReader reader(fileInTest(file));
        FramePacker packer(PackedFormats::kRgba);
        while (const AVFrame* frame = reader.next()) {
            const unsigned char* p = packer.pack(*frame).data + (24 * 32 + 8) * 4;
            constexpr double kGreenStep = kLumaStep * 255 / 219.0;
            numbers.push_back(
                static_cast<int>(std::lround((p[1] - fromLimitedRange(kQuadrants[2]).g) / kGreenStep)));
        }
        return numbers;
    }
};

TEST_F(RenderOutput, HoldsTheAskedPartOfTheInput) {
    const auto span = [](int first, std::size_t count) {
        std::vector<int> numbers(count);
        std::iota(numbers.begin(), numbers.end(), first);
        return numbers;
    };
    EXPECT_EQ(render({"in.mkv", "--quality", "4"}, "v.mp4"), span(0, 30));
    EXPECT_EQ(render({"in.mkv", "--start", "0:00.4", "--duration", "0:0:0.2"}, "v.mp4"), span(10, 5));
    EXPECT_EQ(render({"in.mkv", "--start", "1", "--codec", "ffv1"}, "v.mkv"), span(25, 5));
    EXPECT_EQ(render({"in.mkv", "--frames", "2", "--fps", "12.5"}, "v.mkv"), span(0, 2));
    EXPECT_NEAR(MediaReader(fileInTest("v.mkv")).frameRate(), 12.5, 0.001);
    // The longer one of several inputs counts, and a still picture lasts.
    EXPECT_EQ(render({"in.mkv", "in.mkv", "--type", "lenses", "--duration", "9"}, "v.mp4"), span(0, 30));
    runFovixRender({"in.mkv", "-o", "still.png"});
    EXPECT_EQ(render({"still.png", "--duration", "0.4"}, "v.mp4").size(), 10u);
    EXPECT_EQ(render({"--sample", "--type", "grid", "--grid", "1x1", "--duration", "0.12"}, "v.mp4").size(),
              3u);
}

TEST_F(RenderOutput, IsRawBytesWithoutAnyOtherWordOnStandardOutput) {
    writeText(testFolder() / "calls.txt", "1..30 get-type");
    const std::string common = " in.mkv --script calls.txt --size 5x7 --frames 3";
    const ProgramRun raw = runInShell("\"$RENDER\" --verbose -o -" + common);
    ASSERT_EQ(raw.status, 0) << raw.errors;
    ASSERT_EQ(raw.output.size(), 3u * 5 * 7 * 4);
    EXPECT_NE(raw.errors.find("frame 3: get-type 2\n"), std::string::npos) << raw.errors;
    runInShell("\"$RENDER\" -o v.png" + common);
    const Drawn last("v-0003.png");
    for (int i = 0; i < 5 * 7; ++i) {
        const auto* p = reinterpret_cast<const unsigned char*>(raw.output.data()) + (2 * 5 * 7 + i) * 4;
        expectColour({p[0], p[1], p[2]}, last.at(i % 5, i / 5), 0, std::to_string(i));
    }
    // Nor where standard error is closed, and its number free for the next file.
    EXPECT_EQ(runInShell("\"$RENDER\" --verbose -o -" + common + " 2>&-").output, raw.output);
    EXPECT_EQ(runInShell("\"$RENDER\" - --quiet --size 5x7 --frames 3 -o - <in.mkv | wc -c").output, "420\n");
    // A reader that has enough ends it without a word.
    const ProgramRun cut = runInShell(
        "{ \"$RENDER\" in.mkv --frames 100000 -o -; echo $? >status.txt; } | head -c 9 >nine.rgba");
    EXPECT_EQ(cut.errors, "");
    EXPECT_EQ(readText(testFolder() / "status.txt"), "1\n");
}

TEST_F(RenderOutput, IsPlayableWhenStoppedAndAbsentWhenKilled) {
    writeText(testFolder() / "calls.txt", "1..1000000 get-type");
    const std::string untilBusy =
        " & until grep -q 'frame 30:' stdout.txt || ! kill -0 $!; do sleep 0.02; done; kill -";
    for (const auto& [signal, status] :
         {std::pair{"INT", 130}, std::pair{"TERM", 143}, std::pair{"HUP", 129}, std::pair{"KILL", 137}}) {
        SCOPED_TRACE(signal);
        writeText(testFolder() / "v.mp4", "before");
        const ProgramRun run = runInShell(
            "env --default-signal=INT \"$RENDER\" in.mkv --script calls.txt --size 32x32 -o v.mp4" +
            untilBusy + signal + " $!; wait $!");
        EXPECT_EQ(run.status, status) << run.errors;
        for (const auto& entry : std::filesystem::directory_iterator(testFolder()))
            EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
        if (signal == std::string("KILL")) {
            EXPECT_EQ(readText(testFolder() / "v.mp4"), "before");
            continue;
        }
        MediaReader reader(fileInTest("v.mp4"));
        while (reader.next()) {
        }
        EXPECT_GE(reader.framesRead(), 30);
        EXPECT_NE(run.errors.find(std::string("stopped by SIG") + signal + "; 'v.mp4' holds " +
                                  std::to_string(reader.framesRead()) + " frames\n"),
                  std::string::npos)
            << run.errors;
    }
}

TEST_F(RenderOutput, StopsWhileItWaitsForItsInput) {
    for (const std::string work : {"--find-lens", "-o v.png"}) {
        const ProgramRun run = runInShell(
            "mkfifo in; { : >opened; exec sleep 20; } >in & feeder=$!; \"$RENDER\" in " + work +
            " & until [ -e opened ] || ! kill -0 $!; do sleep 0.02; done; sleep 0.2; kill -TERM $!; wait $!; "
            "status=$?; kill $feeder; rm in opened; exit $status");
        EXPECT_EQ(run.status, 143);
        EXPECT_EQ(run.errors.find("fovix-render: stopped by SIGTERM: 'in' cannot be opened"), 0u)
            << run.errors;
    }
}

TEST_F(RenderOutput, LeavesNothingOfAFileThatGrowsTooLarge) {
    for (const std::string file : {"v.mp4", "v.mkv", "v.png"}) {
        const ProgramRun run = runInShell("ulimit -f 2; \"$RENDER\" --sample --frames 1 -o " + file);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errors, "fovix-render: cannot write '" + file + "': File too large\n");
        EXPECT_FALSE(std::filesystem::exists(fileInTest(file)));
    }
}

TEST_F(RenderOutput, RefusesAVideoForAPipeBeforeTheWork) {
    const ProgramRun run =
        runInShell("mkfifo v.mkv; cat v.mkv & \"$RENDER\" --sample --frames 1000000 -o v.mkv");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors.find("fovix-render: cannot write 'v.mkv': a video wants a file"), 0u) << run.errors;
    EXPECT_EQ(run.output, "");
}

TEST(ProgressLine, ShowsHowFarTheWorkIsAndHowLongItTakes) {
    EXPECT_EQ(progressLine(50, 200, 10, 60), "[######-------------------] 25 %, frame 50 of 200, 0:30 left");
    EXPECT_EQ(progressLine(1, 4000, 2, 30), "0 %, frame 1 of 4000, 2:13:18 ");
    EXPECT_EQ(progressLine(200, 200, 10, 47), "[##########] 100 %, frame 200 of 200, 0:00 left");
    EXPECT_EQ(progressLine(77, 0, 3725, 80), "frame 77, 1:02:05");
}

}  // namespace
