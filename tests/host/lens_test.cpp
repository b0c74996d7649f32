// The lens circle: found in drawn discs of every kind and nowhere else, chosen by the programs, and kept per
// camera.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

#include "MediaFiles.h"
#include "ProgramRun.h"
#include "TestFiles.h"
#include "circle/CameraFile.h"
#include "circle/LensChoice.h"
#include "circle/LensFinder.h"
#include "circle/LensText.h"
#include "media/FrameLuma.h"
#include "media/LensInMedia.h"
#include "media/PngWriter.h"
#include "sample/SampleScene.h"

using namespace fovix_host;

namespace {

enum class Light { kDay, kGlare, kHalfDark, kLamps, kPassing };

struct Disc {
    const char* name;
    int width, height;
    double x, y, radius;
    Light light = Light::kDay;
    double noise = 1;
    double rim = 1;           // brightness that vignetting leaves at the edge
    bool text = false;        // a timestamp in the surround
    double accuracy = 0.003;  // of the radius
};

struct Plane {
    int width, height;
    std::vector<std::uint8_t> luma;
    LumaView view() const { return {luma.data(), width, height, width, LumaView::Samples::kLuma}; }
};

// Luma of what the camera sees: blocks of random brightness, in the light of the disc.
double sceneAt(const Disc& disc, double x, double y, int moment) {
    const double angle = std::atan2(y - disc.y, x - disc.x);
    const auto block =
        static_cast<unsigned int>(static_cast<int>(x / 37) * 71 + static_cast<int>(y / 29) * 113);
    const double day = 30 + (block * 2654435761u >> 24) % 200;
    if (disc.light == Light::kGlare) return 240;
    if (disc.light == Light::kHalfDark) return x - disc.x > 0.3 * (y - disc.y) ? day : 0;
    if (disc.light == Light::kLamps) return std::sin(11 * angle) > 0.7 ? 120 : 1;
    if (disc.light == Light::kPassing) return std::cos(angle - 0.8 * moment) > 0.93 ? 150 : 1;
    return day;
}

Plane drawn(const Disc& disc, int moment = 0) {
    Plane plane{disc.width, disc.height, {}};
    std::minstd_rand random(static_cast<unsigned int>(moment) + 1);
    std::normal_distribution<double> noise(0, disc.noise);
    for (int row = 0; row < disc.height; ++row)
        for (int column = 0; column < disc.width; ++column) {
            const double x = column + 0.5, y = row + 0.5;
            const double inside = disc.radius - std::hypot(x - disc.x, y - disc.y);
            const double vignette = std::clamp(inside / (0.2 * disc.radius), disc.rim, 1.0);
            const double glare =
                disc.light == Light::kGlare ? 45 * std::exp(inside / (0.1 * disc.radius)) : 0;
            const double share = std::clamp(inside + 0.5, 0.0, 1.0);
            double luma = 16 + share * 0.9 * sceneAt(disc, x, y, moment) * vignette + (1 - share) * glare;
            if (disc.text && row > 20 && row < 50 && column > 20 && column < 420 && column / 6 % 3)
                luma = 235;
            plane.luma.push_back(static_cast<std::uint8_t>(std::clamp(luma + noise(random), 0.0, 255.0)));
        }
    return plane;
}

std::optional<FoundLens> findIn(const Plane& plane) {
    LensFinder finder;
    finder.add(plane.view());
    return finder.result();
}

void expectFound(const std::optional<FoundLens>& found, const Disc& disc) {
    SCOPED_TRACE(disc.name);
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->isSure()) << found->description();
    const double tolerance = disc.accuracy * disc.radius + 0.5;  // the numbers are whole
    EXPECT_NEAR(found->circle.xCenter, disc.x, tolerance);
    EXPECT_NEAR(found->circle.yCenter, disc.y, tolerance);
    EXPECT_NEAR(found->circle.radius, disc.radius, tolerance);
    EXPECT_EQ(found->circle.imageWidth, disc.width);
    EXPECT_EQ(found->circle.imageHeight, disc.height);
}

TEST(LensFinder, FindsCirclesOfEveryKind) {
    for (const Disc& disc : {
             Disc{"small image", 320, 240, 161.3, 117.6, 112},
             Disc{"large image", 2600, 1500, 1309, 741, 730},
             Disc{"off the middle", 1920, 1080, 702.4, 560.7, 480.2},
             Disc{"cut off at top and bottom", 1920, 1080, 967, 551, 900},
             Disc{"cut off left and right", 1080, 1920, 529, 955, 905},
             Disc{"cut off at the top", 1280, 1024, 640, 440, 520},
             Disc{"only the corners are dark", 1280, 1280, 645, 637, 790},
             Disc{"overexposed, with glare", 1280, 1280, 640, 640, 600, Light::kGlare, 2},
             Disc{"one side dark", 1280, 1280, 640, 650, 590, Light::kHalfDark, 2},
             Disc{"lamps at night", 1280, 1280, 655, 640, 600, Light::kLamps, 2},
             Disc{"vignetting", 1280, 960, 650, 480, 450, Light::kDay, 2, 0.25, false, 0.01},
             Disc{"noise", 1280, 960, 650, 480, 450, Light::kDay, 12, 1, false, 0.01},
             Disc{"text", 1920, 1080, 967, 551, 520, Light::kDay, 2, 1, true},
         })
        expectFound(findIn(drawn(disc)), disc);
}

TEST(LensFinder, SeesNoCircleWhereThereIsNone) {
    using Luma = double (*)(int x, int y, double luma);
    const Disc nowhere{"", 1280, 720, 640, 360, 5000};
    const Plane photograph = drawn(nowhere);
    for (const auto& [name, lumaAt] : {
             std::pair<const char*, Luma>{"photograph", [](int, int, double luma) { return luma; }},
             {"slope", [](int x, int, double) { return x / 6.0; }},
             {"letterbox", [](int, int y, double luma) { return y > 90 && y < 630 ? luma : 16; }},
             {"frame",
              [](int x, int y, double luma) {
                  return std::abs(y - 360) < 270 && std::abs(x - 600) < 400 ? luma : 16;
              }},
             {"moon", [](int x, int y, double) { return std::hypot(x - 400, y - 300) < 70 ? 230.0 : 16; }},
             {"ellipse",
              [](int x, int y, double) { return std::hypot(x - 640, 1.5 * (y - 360)) < 500 ? 200.0 : 16; }},
             {"lamps",
              [](int x, int y, double luma) { return luma > 200 && (x + y) % 200 < 40 ? luma : 16; }},
         }) {
        Plane plane = photograph;
        for (int i = 0; i < plane.width * plane.height; ++i) {
            std::uint8_t& luma = plane.luma[static_cast<std::size_t>(i)];
            luma = static_cast<std::uint8_t>(lumaAt(i % plane.width, i / plane.width, luma));
        }
        const auto found = findIn(plane);
        EXPECT_FALSE(found && found->isSure())
            << name << ": " << textOf(found->circle) << " " << found->description();
    }
    EXPECT_FALSE(findIn({3, 2, std::vector<std::uint8_t>(6)})) << "tiny";
}

TEST(LensFinder, GathersLightFromSeveralFrames) {
    const Disc disc{"a lamp that passes along the edge", 960, 960, 470, 485, 450, Light::kPassing, 2};
    LensFinder finder;
    finder.add(drawn(disc).view());
    const auto early = finder.result();
    EXPECT_FALSE(early && early->isSure()) << early->description();
    for (int moment = 1; moment < 10; ++moment) finder.add(drawn(disc, moment).view());
    // Neither a flash nor a grey frame spoils it.
    finder.add(Plane{960, 960, std::vector<std::uint8_t>(960 * 960, 200)}.view());
    expectFound(finder.result(), disc);

    const Disc other{"another size restarts the search", 800, 600, 400, 300, 280};
    finder.add(drawn(other).view());
    EXPECT_EQ(finder.frames(), 1);
    expectFound(finder.result(), other);
}

TEST(FrameLuma, IsReadInPlaceWhereItIsAPlane) {
    for (const auto& [format, isPlane] :
         {std::pair{AV_PIX_FMT_NV12, true}, std::pair{AV_PIX_FMT_GRAY8, true},
          std::pair{AV_PIX_FMT_YUYV422, false}, std::pair{AV_PIX_FMT_YUV420P10, false}})
        EXPECT_EQ(lumaOf(*quadrantFrame(format, 74, 50)).has_value(), isPlane) << format;
    // Limited-range frames of other formats reach the library as full-range RGBA.
    FramePacker packer;
    const LumaView luma = lumaOf(packer.pack(*quadrantFrame(AV_PIX_FMT_YUYV422, 74, 50)));
    EXPECT_NEAR(reduced(luma, 2).at(30, 20), (kQuadrants[3].y - 16) * 255 / 219.0, 2);
}

TEST(LensInMedia, LooksAtMoreThanTheBeginningOfAVideo) {
    const Disc disc{"", 640, 480, 330, 236, 220, Light::kDay, 2, 1, true, 0.01};
    const Plane plane = drawn(disc);
    const auto darkAtFirst = [&](AVPixelFormat format, int width, int height, int number) {
        FrameOwner frame = quadrantFrame(format, width, height, number);
        for (int y = 0; y < height; ++y) {
            std::uint8_t* row = frame->data[0] + y * frame->linesize[0];
            std::fill_n(row, width, std::uint8_t{16});
            if (number > 30) std::copy_n(&plane.luma[static_cast<std::size_t>(y * width)], width, row);
        }
        return frame;
    };
    writeMedia(fileInTest("night.ts"), "mpeg2video", AV_PIX_FMT_YUV420P, 640, 480, 120, darkAtFirst);
    expectFound(findLens(fileInTest("night.ts")), disc);
}

class CameraFiles : public testing::Test {
  protected:
    // The sample, and an image without a lens circle.
    void SetUp() override {
        setenv("XDG_CONFIG_HOME", testFolder().c_str(), 1);
        writePng(fileInTest("hall.png"), SampleScene(SampleScene::Camera::kCeiling, 400, 400).image(0));
        RgbaImage grey(200, 100);
        std::fill(grey.pixels.begin(), grey.pixels.end(), std::uint8_t{90});
        writePng(fileInTest("grey.png"), grey);
    }
    static std::string fileOf(const std::string& camera) {
        return fileInTest("fovix/cameras/" + camera + ".conf");
    }
    // What is drawn of an image in type 360, and what is printed.
    std::string draw(const std::string& arguments) {
        const ProgramRun run = runFovixRender(arguments + " --type 360 --size 64x64");
        EXPECT_EQ(run.status, 0) << run.errors;
        errors = run.errors;
        return readText(fileInTest("fovix.png"));
    }
    bool isPrinted(const std::string& words) const { return errors.find(words) != std::string::npos; }

    std::string errors;
    const std::string lens = "200,200,195,400,400";  // of hall.png
    const std::string otherLens = "100,200,150,400,400";
};

TEST_F(CameraFiles, FindLensPrintsWhatLensTakes) {
    const ProgramRun found = runFovixRender("--find-lens hall.png --camera hall.1-a_B");
    EXPECT_EQ(found.status, 0);
    EXPECT_TRUE(found.output.starts_with(lens + "\nconfidence ")) << found.output;
    EXPECT_NE(found.errors.find(fileOf("hall.1-a_B")), std::string::npos) << found.errors;
    EXPECT_NE(readText(fileOf("hall.1-a_B")).find("\nlens = " + lens + "\n"), std::string::npos);

    const ProgramRun nothing = runFovixRender("--find-lens grey.png --camera grey");
    EXPECT_EQ(nothing.status, 1);
    EXPECT_EQ(nothing.output, "");
    EXPECT_TRUE(nothing.errors.starts_with("fovix-render: 'grey.png' ")) << nothing.errors;
    EXPECT_FALSE(std::filesystem::exists(fileOf("grey")));
}

TEST_F(CameraFiles, ViewsShowTheLensGivenKeptOrFound) {
    const std::string right = draw("hall.png --lens " + lens), other = draw("hall.png --lens " + otherLens);
    ASSERT_NE(right, other);
    EXPECT_EQ(draw("hall.png"), right);
    EXPECT_TRUE(isPrinted(lens)) << errors;
    EXPECT_EQ(draw("hall.png --camera a"), right) << "found and kept";
    EXPECT_EQ(draw("hall.png --camera b --lens " + otherLens), other) << "given and kept";
    EXPECT_EQ(draw("hall.png --camera b"), other) << "kept";
    EXPECT_TRUE(isPrinted(otherLens) && isPrinted(fileOf("b"))) << errors;
    draw("grey.png --camera c");
    EXPECT_TRUE(isPrinted("--lens")) << errors;
    EXPECT_FALSE(std::filesystem::exists(fileOf("c")));
    // Nothing to choose, and nothing to say.
    draw("--sample");
    EXPECT_EQ(errors, "");
    EXPECT_EQ(runFovixRender("hall.png --size 64x64").errors, "");
}

TEST_F(CameraFiles, AreKnownToBelongToAnImageOfOtherProportions) {
    const LensCircle square{200, 200, 195, 400, 400}, wide{960, 540, 530, 1920, 1080};
    EXPECT_EQ(misfitOf(square, 4000, 4000), "");
    EXPECT_EQ(misfitOf(wide, 1920, 1088), "") << "rows that an encoder adds";
    EXPECT_NE(misfitOf(wide, 704, 480).find("704,480"), std::string::npos) << misfitOf(wide, 704, 480);
    EXPECT_NE(misfitOf(wide, 1080, 1920), "");
    draw("hall.png --camera hall --lens " + lens);
    EXPECT_FALSE(isPrinted("--lens CX")) << errors;
    draw("grey.png --camera hall");
    EXPECT_TRUE(isPrinted("--lens CX,CY,RADIUS,200,100")) << errors;
}

TEST_F(CameraFiles, PeopleMayWriteThem) {
    const CameraFile file("x");
    std::filesystem::create_directories(file.path().parent_path());
    const auto read = [&](const std::string& text) -> std::string {
        writeText(file.path(), text);
        try {
            return textOf(*file.read());
        } catch (const std::runtime_error& problem) {
            return problem.what();
        }
    };
    EXPECT_EQ(read("# mine\r\n\r\n\t lens=200,200,195,400,400 \r\n"), lens);
    for (const auto& [text, line] :
         {std::pair{"# mine\r\n\r\n  lens=200 , 1,1,1,1\r\n", " 3;"}, std::pair{"lens = 0,1,1,1,1\n", " 1;"},
          std::pair{"lens = 1,1,1,1,1\nmount = wall\n", " 2;"},
          std::pair{"lens = 1,1,1,1,1\nlens = 1,1,1,1,1\n", " 2;"}, std::pair{"# nothing\n", ";"}}) {
        EXPECT_TRUE(read(text).starts_with("'" + file.path().string() + "' ")) << read(text);
        EXPECT_NE(read(text).find(line), std::string::npos) << text << read(text);
    }
    EXPECT_EQ(runFovixRender("hall.png --type 360 --camera x").status, 1);
}

TEST_F(CameraFiles, AreKeptWholeOrNotAtAll) {
    const CameraFile file("x");
    EXPECT_FALSE(file.read());
    file.save({1, 2, 3, 4, 5});
    file.save({10, 20, 30, 40, 50});
    EXPECT_EQ(textOf(*file.read()), "10,20,30,40,50");
    std::filesystem::create_directories(fileOf("folder"));
    EXPECT_THROW(CameraFile("folder").save({1, 2, 3, 4, 5}), std::runtime_error);
    EXPECT_THROW(CameraFile("folder").read(), std::runtime_error);
    const auto cameras = std::filesystem::directory_iterator(fileInTest("fovix/cameras"));
    EXPECT_EQ(std::distance(begin(cameras), end(cameras)), 2) << "temporary files stay behind";

    writeText(fileInTest("file"), "");
    setenv("HOME", fileInTest("file").c_str(), 1);
    for (const char* folder : {"relative", "/dev/null"}) {
        setenv("XDG_CONFIG_HOME", folder, 1);
        EXPECT_THROW(CameraFile("x").save({1, 2, 3, 4, 5}), std::runtime_error) << folder;
    }
}

}  // namespace
