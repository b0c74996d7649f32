// Where fovix-render's frames go: parts of videos, raw bytes, and what is left when it is stopped.

#include <algorithm>
#include <cmath>

#include "Drawn.h"
#include "ProgramRun.h"
#include "output/ProgressLine.h"

using namespace fovix_host;

namespace {

// A frame of a video that fovix-render made.
struct Frame {
    int number;
    double seconds;
};

class RenderOutput : public testing::Test {
  protected:
    RenderOutput() { writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 32, 32, 30); }

    // Each is seen to have its quadrants.
    static std::vector<Frame> render(const std::string& arguments, const std::string& file = "v.mp4") {
        const ProgramRun run = runFovixRender(arguments + " --quiet -o " + file);
        EXPECT_EQ(run.errors, "");
        EXPECT_EQ(run.output, file + "\n");
        std::vector<Frame> frames;
        MediaReader reader(fileInTest(file));
        FramePacker packer(PackedFormats::kRgba);
        while (const AVFrame* frame = reader.next()) {
            const bool isYuv = arguments.find("ffv1") == std::string::npos;
            EXPECT_EQ(frame->colorspace, isYuv ? AVCOL_SPC_BT709 : AVCOL_SPC_RGB);
            EXPECT_EQ(frame->color_range, isYuv ? AVCOL_RANGE_MPEG : AVCOL_RANGE_JPEG);
            const PackedFrame rgba = packer.pack(*frame);
            constexpr double kGreenStep = kLumaStep * 255 / 219.0;
            const int green = colourAt(rgba, rgba.width / 4, rgba.height * 3 / 4).g;
            const double steps = (green - fromLimitedRange(kQuadrants[2]).g) / kGreenStep;
            frames.push_back({static_cast<int>(std::lround(steps)), reader.seconds()});
            if (frames.back().number < 8) expectQuadrants(rgba, false, isYuv ? 5 : 1, frames.back().number);
        }
        return frames;
    }
};

TEST_F(RenderOutput, HoldsTheAskedPartOfTheInput) {
    struct Part {
        const char* arguments;
        int first;
        std::size_t count;
        const char* file = "v.mp4";
    };
    for (const Part& part : {
             Part{"in.mkv --quality 4", 0, 30},
             Part{"in.mkv --quality 4 --start 0:00.4 --duration 0:0:0.2", 10, 5},
             Part{"in.mkv --start 1 --codec ffv1", 25, 5, "v.mkv"},
             // The longest of several inputs counts.
             Part{"in.mkv in.mkv --type lenses --quality 4 --duration 9", 0, 30},
         }) {
        SCOPED_TRACE(part.arguments);
        const auto frames = render(part.arguments + std::string(" --size 32x32"), part.file);
        ASSERT_EQ(frames.size(), part.count);
        for (int i = 0; const Frame& frame : frames) EXPECT_EQ(frame.number, part.first + i++);
    }
    runFovixRender("in.mkv -o still.png");
    for (const std::string endless :
         {"still.png --duration 0.4", "--sample --type grid --grid 1x1 --duration 0.4"}) {
        EXPECT_EQ(runFovixRender(endless + " --size 32x32 --quiet -o v.mp4").errors, "");
        EXPECT_NEAR(MediaReader(fileInTest("v.mp4")).duration().value_or(0), 0.4, 0.001) << endless;
    }
}

TEST_F(RenderOutput, KeepsTheTimesOfACameraThatStutters) {
    const std::vector<int> due{0, 1, 2, 5, 6, 10};
    const auto stuttering = [&](AVPixelFormat format, int width, int height, int number) {
        FrameOwner frame = quadrantFrame(format, width, height, number);
        frame->pts = due.at(static_cast<std::size_t>(number));
        return frame;
    };
    writeMedia(fileInTest("stutter.mkv"), "ffv1", AV_PIX_FMT_YUV444P, 64, 48, 6, stuttering);
    struct Film {
        const char *options, *file;
        double framesPerSecond;
        bool isEven = false;
    };
    for (const Film& film :
         {Film{"--size 66x34 --quality 10", "v.mp4", 25}, Film{"--size 33x21 --codec ffv1", "v.mkv", 25},
          Film{"--quality 10 --size 64x48 --fps 29.97002997", "v.mkv", 30000.0 / 1001, true},
          Film{"--quality 10 --size 64x48 --fps 0.5", "v.mp4", 0.5, true}}) {
        SCOPED_TRACE(film.options);
        const auto frames = render(std::string("stutter.mkv ") + film.options, film.file);
        ASSERT_EQ(frames.size(), 6u);
        for (int i = 0; const Frame& frame : frames) {
            const int time = film.isEven ? i : due.at(static_cast<std::size_t>(i));
            EXPECT_EQ(frame.number, i++);
            EXPECT_NEAR(frame.seconds, time / film.framesPerSecond, 0.001);
        }
        const double frameLength = 1 / film.framesPerSecond;
        EXPECT_NEAR(MediaReader(fileInTest(film.file)).duration().value_or(0),
                    frames.back().seconds + frameLength, 0.002);
    }
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
