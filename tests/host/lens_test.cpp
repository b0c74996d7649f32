// The lens circle: found in drawn discs of every kind and nowhere else, chosen by the programs, and kept per
// camera.

#include <gtest/gtest.h>

#include <Fovix.h>

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

enum class Light {
    kDay,     // bright and dark things up to the edge
    kBright,  // overexposed, with glare in the surround
    kHalf,    // one side is dark
    kNight,   // a few lamps, most of the edge is dark
    kPatch    // a lamp that passes along a part of the edge
};

struct Disc {
    const char* name;
    int width, height;
    double x, y, radius;
    Light light = Light::kDay;
    double noise = 1;
    double rim = 1;           // brightness that vignetting leaves at the edge
    bool text = false;        // timestamp and logo in the surround
    double accuracy = 0.003;  // of the radius
};

struct Plane {
    int width, height;
    std::vector<std::uint8_t> luma;
    LumaView view() const { return {luma.data(), width, height, width, LumaView::Samples::kLuma}; }
};

// What is in front of the camera, 0 to 255: patches of random brightness.
double sceneAt(const Disc& disc, double x, double y, int moment) {
    const double angle = std::atan2(y - disc.y, x - disc.x);
    const auto block =
        static_cast<unsigned int>(static_cast<int>(x / 37) * 71 + static_cast<int>(y / 29) * 113);
    const double patch = (block * 2654435761u >> 24) % 200;
    switch (disc.light) {
        case Light::kBright:
            return 240;
        case Light::kHalf:
            return x - disc.x > 0.3 * (y - disc.y) ? 30 + patch : 0;
        case Light::kNight:
            return std::sin(11 * angle) > 0.7 ? 120 : 1;
        case Light::kPatch:
            return std::cos(angle - 0.8 * moment) > 0.93 ? 150 : 1;
        default:
            return 30 + patch;
    }
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
                disc.light == Light::kBright ? 45 * std::exp(inside / (0.1 * disc.radius)) : 0;
            const double share = std::clamp(inside + 0.5, 0.0, 1.0);
            double luma = 16 + share * 0.9 * sceneAt(disc, x, y, moment) * vignette + (1 - share) * glare;
            const bool timestamp = row > 20 && row < 50 && column > 20 && column < 420 && column / 6 % 3;
            const bool logo = row > disc.height - 60 && row < disc.height - 20 && column > disc.width - 180 &&
                              column < disc.width - 30;
            if (disc.text && (timestamp || logo)) luma = 235;
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
    EXPECT_TRUE(found->isSure()) << found->inWords();
    const double tolerance = disc.accuracy * disc.radius + 0.5;  // the numbers are whole
    EXPECT_NEAR(found->circle.xCenter, disc.x, tolerance);
    EXPECT_NEAR(found->circle.yCenter, disc.y, tolerance);
    EXPECT_NEAR(found->circle.radius, disc.radius, tolerance);
    EXPECT_EQ(found->circle.imageWidth, disc.width);
    EXPECT_EQ(found->circle.imageHeight, disc.height);
}

TEST(LensFinder, FindsCirclesOfEveryKind) {
    const Disc discs[] = {
        {"whole", 1280, 1280, 640, 640, 620},
        {"small picture", 320, 240, 161.3, 117.6, 112},
        {"large picture", 2600, 1500, 1309, 741, 730},
        {"off the middle", 1920, 1080, 702.4, 560.7, 480.2},
        {"cut off at top and bottom", 1920, 1080, 967, 551, 900},
        {"cut off left and right", 1080, 1920, 529, 955, 905},
        {"cut off at the top", 1280, 1024, 640, 440, 520},
        {"only the corners are dark", 1280, 1280, 645, 637, 790},
        {"overexposed, with glare", 1280, 1280, 640, 640, 600, Light::kBright, 2},
        {"one side dark", 1280, 1280, 640, 650, 590, Light::kHalf, 2},
        {"lamps at night", 1280, 1280, 655, 640, 600, Light::kNight, 2},
        {"vignetting", 1280, 960, 650, 480, 450, Light::kDay, 2, 0.25, false, 0.01},
        {"noise", 1280, 960, 650, 480, 450, Light::kDay, 12, 1, false, 0.01},
        {"text and logo", 1920, 1080, 967, 551, 520, Light::kDay, 2, 1, true},
        {"text and logo, cut off", 1920, 1080, 967, 551, 800, Light::kDay, 2, 1, true, 0.01},
    };
    for (const Disc& disc : discs) expectFound(findIn(drawn(disc)), disc);
}

TEST(LensFinder, SeesNoCircleWhereThereIsNone) {
    const Disc nowhere{"", 1280, 720, 640, 360, 5000};
    const auto picture = [&](const auto& lumaAt) {
        Plane plane = drawn(nowhere);
        for (int i = 0; i < plane.width * plane.height; ++i) {
            std::uint8_t& luma = plane.luma[static_cast<std::size_t>(i)];
            luma = static_cast<std::uint8_t>(lumaAt(i % plane.width, i / plane.width, double(luma)));
        }
        return plane;
    };
    std::minstd_rand random;
    const std::pair<const char*, Plane> pictures[] = {
        {"photograph", drawn(nowhere)},
        {"photograph with dark corners", picture([](int x, int y, double luma) {
             return luma * std::exp(-std::pow(std::hypot(x - 640, y - 360) / 450, 4));
         })},
        {"one brightness", picture([](int, int, double) { return 90; })},
        {"black", picture([](int, int, double) { return 0; })},
        {"noise", picture([&](int, int, double) { return random() % 256; })},
        {"slope", picture([](int x, int, double) { return x / 6; })},
        {"letterbox", picture([](int, int y, double luma) { return y > 90 && y < 630 ? luma : 16; })},
        {"frame", picture([](int x, int y, double luma) {
             return y > 90 && y < 630 && x > 200 && x < 1000 ? luma : 16;
         })},
        {"moon", picture([](int x, int y, double) { return std::hypot(x - 400, y - 300) < 70 ? 230 : 16; })},
        {"ellipse",
         picture([](int x, int y, double) { return std::hypot(x - 640, 1.5 * (y - 360)) < 500 ? 200 : 16; })},
        {"lamps",
         picture([](int x, int y, double luma) { return luma > 200 && (x + y) % 200 < 40 ? luma : 16; })},
        {"tiny", Plane{3, 2, std::vector<std::uint8_t>(6)}},
    };
    for (const auto& [name, plane] : pictures) {
        const auto found = findIn(plane);
        EXPECT_FALSE(found && found->isSure())
            << name << ": " << textOf(found->circle) << " " << found->inWords();
    }
}

TEST(LensFinder, GathersLightFromSeveralPictures) {
    const Disc disc{"", 960, 960, 470, 485, 450, Light::kPatch, 2};
    LensFinder finder;
    finder.add(drawn(disc).view());
    const auto early = finder.result();
    EXPECT_FALSE(early && early->isSure()) << early->inWords();
    for (int moment = 1; moment < 10; ++moment) finder.add(drawn(disc, moment).view());
    // Nor does a flash spoil it, or a grey picture.
    finder.add(Plane{960, 960, std::vector<std::uint8_t>(960 * 960, 200)}.view());
    expectFound(finder.result(), disc);

    const Disc other{"another size starts anew", 800, 600, 400, 300, 280};
    finder.add(drawn(other).view());
    EXPECT_EQ(finder.pictures(), 1);
    expectFound(finder.result(), other);
}

TEST(LensFinder, TakesLumaFromEveryPixelFormat) {
    const struct {
        AVPixelFormat format;
        bool hasLumaPlane;
    } cases[] = {{AV_PIX_FMT_YUV420P, true}, {AV_PIX_FMT_NV12, true},     {AV_PIX_FMT_NV21, true},
                 {AV_PIX_FMT_GRAY8, true},   {AV_PIX_FMT_YUVJ444P, true}, {AV_PIX_FMT_YUYV422, false}};
    for (const auto& [format, hasLumaPlane] : cases) {
        const FrameOwner frame = quadrantFrame(format, 74, 50);
        FramePacker packer;
        const auto plane = lumaOf(*frame);
        ASSERT_EQ(plane.has_value(), hasLumaPlane) << format;
        const LumaView packed = lumaOf(packer.pack(*frame));
        for (std::size_t q = 0; q < kQuadrants.size(); ++q) {
            const double x = q % 2 ? 60 : 10, y = q / 2 ? 40 : 10;
            if (plane) {
                EXPECT_NEAR(reduced(*plane, 2).at(x / 2, y / 2), kQuadrants[q].y, 1) << format;
            }
            // Limited-range frames of other formats go to the library as full-range RGBA.
            const double stretched = format == AV_PIX_FMT_YUYV422 ? 255.0 / 219.0 : 1.0;
            const double black = format == AV_PIX_FMT_YUYV422 ? 16 : 0;
            EXPECT_NEAR(reduced(packed, 1).at(x, y), (kQuadrants[q].y - black) * stretched, 2) << format;
        }
    }
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
    const std::string file = (testFolder() / "night.ts").string();
    writeMedia(file, "mpeg2video", AV_PIX_FMT_YUV420P, 640, 480, 120, darkAtFirst);
    expectFound(findLens(file), disc);
}

class CameraFiles : public testing::Test {
  protected:
    // Writes the sample's picture, and one without a lens circle.
    void SetUp() override {
        SampleScene scene(SampleScene::Camera::kCeiling, 400, 400);
        writePng((testFolder() / "hall.png").string(), scene.picture(0));
        RgbaImage grey(200, 100);
        std::fill(grey.pixels.begin(), grey.pixels.end(), std::uint8_t{90});
        writePng((testFolder() / "grey.png").string(), grey);
    }
    ProgramRun run(std::vector<std::string> arguments) {
        return runFovixRender(arguments, {"XDG_CONFIG_HOME=" + testFolder().string()});
    }
    std::filesystem::path fileOf(const std::string& camera) {
        return testFolder() / "fovix" / "cameras" / (camera + ".conf");
    }
    const std::string lens = "200,200,195,400,400";  // of hall.png
    const std::vector<std::string> view{"hall.png", "--type", "360", "--size", "64x64"};
    ProgramRun runView(std::vector<std::string> more = {}) {
        more.insert(more.end(), view.begin(), view.end());
        return run(more);
    }
};

TEST_F(CameraFiles, FindLensPrintsWhatLensTakes) {
    const ProgramRun found = run({"--find-lens", "hall.png", "--camera", "hall.1-a_B"});
    EXPECT_EQ(found.status, 0);
    EXPECT_EQ(found.output.find(lens + "\nconfidence "), 0u) << found.output;
    EXPECT_NE(found.output.find(" of 360 directions\n"), std::string::npos) << found.output;
    EXPECT_NE(found.errors.find(fileOf("hall.1-a_B").string()), std::string::npos) << found.errors;
    EXPECT_NE(readText(fileOf("hall.1-a_B")).find("\nlens = " + lens + "\n"), std::string::npos);

    const ProgramRun nothing = run({"--find-lens", "grey.png", "--camera", "grey"});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_EQ(nothing.output, "");
    EXPECT_EQ(nothing.errors, "fovix-render: 'grey.png' shows no lens circle\n");
    EXPECT_FALSE(std::filesystem::exists(fileOf("grey")));
}

TEST_F(CameraFiles, ViewsShowTheLensGivenKeptOrFound) {
    const auto picture = [](const ProgramRun& drawn) {
        EXPECT_EQ(drawn.status, 0) << drawn.errors;
        return readText(testFolder() / "fovix.png");
    };
    const std::string right = picture(runView({"--lens", lens}));
    const std::string other = picture(runView({"--lens", "100,200,150,400,400"}));
    ASSERT_NE(right, other);

    const ProgramRun found = runView();
    EXPECT_EQ(found.errors.find("fovix-render: lens circle " + lens + " found, confidence "), 0u)
        << found.errors;
    EXPECT_EQ(picture(found), right);
    EXPECT_EQ(picture(runView({"--camera", "a"})), right) << "found and kept";
    EXPECT_EQ(picture(runView({"--camera", "b", "--lens", "100,200,150,400,400"})), other)
        << "given and kept";
    const ProgramRun kept = runView({"--camera", "b"});
    EXPECT_EQ(picture(kept), other) << "kept";
    EXPECT_EQ(kept.errors,
              "fovix-render: lens circle 100,200,150,400,400 from '" + fileOf("b").string() + "'\n");

    const ProgramRun nothing = run({"grey.png", "--type", "180", "--camera", "c", "--size", "64x64"});
    EXPECT_EQ(nothing.status, 0);
    EXPECT_EQ(nothing.errors.find("fovix-render: no lens circle found"), 0u) << nothing.errors;
    EXPECT_FALSE(std::filesystem::exists(fileOf("c")));
    // Nothing to choose, and nothing to say.
    EXPECT_EQ(run({"hall.png", "--size", "64x64"}).errors, "");
    EXPECT_EQ(run({"--sample", "--type", "360", "--size", "64x64"}).errors, "");
}

TEST_F(CameraFiles, AreKnownToBelongToAnImageOfOtherProportions) {
    const LensCircle square{200, 200, 195, 400, 400}, wide{960, 540, 530, 1920, 1080};
    EXPECT_EQ(misfitOf(square, 4000, 4000), "");
    EXPECT_EQ(misfitOf(wide, 1920, 1088), "") << "rows that an encoder adds";
    const std::string wrong = "is that of an image with other proportions than the picture's ";
    EXPECT_EQ(misfitOf(wide, 704, 480), "lens circle 960,540,530,1920,1080 " + wrong +
                                            "704x480; --lens CX,CY,RADIUS,704,480 would be right");
    EXPECT_NE(misfitOf(wide, 1080, 1920), "");

    EXPECT_EQ(runView({"--camera", "hall", "--lens", lens}).errors.find(wrong), std::string::npos);
    const ProgramRun other = run({"grey.png", "--type", "360", "--camera", "hall", "--size", "64x64"});
    EXPECT_EQ(other.status, 0);
    EXPECT_NE(other.errors.find("\nfovix-render: lens circle " + lens + " " + wrong + "200x100; "),
              std::string::npos)
        << other.errors;
}

TEST_F(CameraFiles, PeopleMayWriteThemAndAreToldWhatIsWrong) {
    std::filesystem::create_directories(fileOf("x").parent_path());
    const std::pair<const char*, const char*> cases[] = {
        {"# mine\r\n\r\n  lens=200 , 1,1,1,1\r\n", "has a wrong line 3; it wants 'lens = CX,CY,RADIUS,W,H'"},
        {"lens = 0,1,1,1,1\n", "has a wrong line 1;"},
        {"lens = 1,1,1,1\n", "has a wrong line 1;"},
        {"lens = 1,1,1,1,1\nmount = wall\n", "has a wrong line 2;"},
        {"lens = 1,1,1,1,1\nlens = 1,1,1,1,1\n", "has a second lens in line 2;"},
        {"# nothing\n", "has no line with the lens;"},
        {"\xff\xfe\n", "has a wrong line 1;"},
    };
    for (const auto& [text, words] : cases) {
        writeText(fileOf("x"), text);
        const ProgramRun refused = runView({"--camera", "x"});
        EXPECT_EQ(refused.status, 1);
        EXPECT_EQ(refused.errors.find("fovix-render: '" + fileOf("x").string() + "' " + words), 0u)
            << text << refused.errors;
    }
    writeText(fileOf("x"), "# mine\r\n\r\n\t lens=200,200,195,400,400 \r\n");
    EXPECT_EQ(runView({"--camera", "x"}).status, 0);
}

TEST_F(CameraFiles, AreKeptWholeOrNotAtAll) {
    setenv("XDG_CONFIG_HOME", testFolder().c_str(), 1);
    const CameraFile file("x");
    EXPECT_FALSE(file.read());
    file.keep({1, 2, 3, 4, 5});
    file.keep({10, 20, 30, 40, 50});
    EXPECT_EQ(textOf(*file.read()), "10,20,30,40,50");
    std::filesystem::create_directories(fileOf("folder"));
    EXPECT_THROW(CameraFile("folder").keep({1, 2, 3, 4, 5}), std::runtime_error);
    EXPECT_THROW(CameraFile("folder").read(), std::runtime_error);
    const auto cameras = std::filesystem::directory_iterator(fileOf("x").parent_path());
    EXPECT_EQ(std::distance(begin(cameras), end(cameras)), 2) << "temporary files stay behind";

    writeText(testFolder() / "file", "");
    for (const char* folder : {"relative", "/dev/null"}) {
        setenv("XDG_CONFIG_HOME", folder, 1);
        setenv("HOME", (testFolder() / "file").c_str(), 1);
        EXPECT_THROW(CameraFile("x").keep({1, 2, 3, 4, 5}), std::runtime_error) << folder;
    }
}

TEST_F(CameraFiles, OptionsThatMakeNoSenseAreRefused) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"--find-lens"}, "--find-lens wants one picture or video"},
        {{"--find-lens", "a.png", "b.png"}, "--find-lens wants one picture or video"},
        {{"--find-lens", "--sample"}, "leave out --sample"},
        {{"--find-lens", "hall.png", "--lens", "1,1,1,1,1"}, "leave out --lens"},
        {{"--find-lens", "hall.png", "--type", "360", "--ptz", "0:1,2,3"}, "leave out --type"},
        {{"--find-lens", "hall.png", "-o", "a.png"}, "leave out --output"},
        {{"hall.png", "--camera", "../x"}, "letters, digits, dots, dashes and underscores"},
        {{"hall.png", "--camera", ""}, "letters, digits, dots, dashes and underscores"},
        {{"--sample", "--camera", "x"}, "--camera does not go with --sample"},
        {{"hall.png", "--camera", "x", "--type", "grid"}, "--camera does not fit --type grid"},
        {{"--script", "x", "--camera", "x"}, "--camera wants a picture or video"},
    };
    for (const auto& [arguments, words] : cases) {
        const ProgramRun refused = run(arguments);
        EXPECT_EQ(refused.status, 2) << words;
        EXPECT_NE(refused.errors.find(words), std::string::npos) << words << refused.errors;
        EXPECT_EQ(std::count(refused.errors.begin(), refused.errors.end(), '\n'), 1) << refused.errors;
    }
}

}  // namespace
