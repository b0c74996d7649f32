// FramePacker against layouts written out by hand: every sample of every plane, padded rows and odd sizes;
// and colours worked out from the definition of luma and colour differences.

#include "media/FramePacker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "Drawn.h"

using namespace fovix_host;

namespace {

constexpr auto kLimited = AVCOL_RANGE_MPEG, kFull = AVCOL_RANGE_JPEG, kUnknown = AVCOL_RANGE_UNSPECIFIED;
constexpr int kRgba = 1, kPlanar = 3, kPairsUFirst = 9, kPairsVFirst = 10;

std::uint8_t sample(int plane, int row, int byte) {
    return static_cast<std::uint8_t>(31 * plane + 17 * row + 5 * byte + 1);
}

// Bytes of a plane's rows and how many rows there are: what a decoder stores of a format, and what the
// library takes.
struct Layout {
    AVPixelFormat format;
    int packedFormat;
    std::vector<std::array<int, 2>> stored, packed;
};

std::vector<Layout> layoutsOf(int width, int height) {
    const std::array<int, 2> luma{width, height}, up{(width + 1) / 2, (height + 1) / 2},
        down{width / 2, height / 2}, upPairs{2 * up[0], up[1]}, downPairs{2 * down[0], down[1]};
    return {{AV_PIX_FMT_RGBA, kRgba, {{4 * width, height}}, {{4 * width, height}}},
            {AV_PIX_FMT_YUV420P, kPlanar, {luma, up, up}, {luma, down, down}},
            {AV_PIX_FMT_NV12, kPairsUFirst, {luma, upPairs}, {luma, downPairs}},
            {AV_PIX_FMT_NV21, kPairsVFirst, {luma, upPairs}, {luma, downPairs}}};
}

// A frame whose planes are in blocks of exactly their size, so that asan sees a read outside them.
struct TightFrame {
    AVFrame frame{};
    std::vector<std::vector<std::uint8_t>> planes;

    TightFrame(AVPixelFormat format, int width, int height, int padding, bool isBottomUp,
               const std::vector<std::array<int, 2>>& sizes) {
        frame.format = format;
        frame.width = width;
        frame.height = height;
        for (std::size_t p = 0; p < sizes.size(); ++p) {
            const auto [rowBytes, rows] = sizes[p];
            const int stride = rowBytes + padding;
            // The padding of the last row is missing.
            planes.emplace_back(static_cast<std::size_t>(stride * rows - padding), std::uint8_t{0xEE});
            for (int row = 0; row < rows; ++row)
                for (int byte = 0; byte < rowBytes; ++byte)
                    planes[p][static_cast<std::size_t>(row * stride + byte)] =
                        sample(static_cast<int>(p), isBottomUp ? rows - 1 - row : row, byte);
            frame.data[p] = planes[p].data() + (isBottomUp ? (rows - 1) * stride : 0);
            frame.linesize[p] = isBottomUp ? -stride : stride;
        }
    }
};

TEST(FramePacker, KeepsDecoderBytesInTheLibrarysLayout) {
    FramePacker packer;
    for (const auto& [width, height] :
         std::vector<std::array<int, 2>>{{2, 2}, {6, 4}, {5, 4}, {6, 5}, {7, 3}, {33, 17}})
        for (const auto& [padding, isBottomUp] :
             {std::pair{0, false}, std::pair{1, true}, std::pair{27, false}})
            for (const Layout& layout : layoutsOf(width, height)) {
                SCOPED_TRACE(testing::Message()
                             << layout.format << " " << width << "x" << height << " padded " << padding);
                const TightFrame stored(layout.format, width, height, padding, isBottomUp, layout.stored);
                const PackedFrame packed = packer.pack(stored.frame);
                EXPECT_EQ(packed.pixelFormat, layout.packedFormat);
                EXPECT_EQ(packed.width, width);
                EXPECT_EQ(packed.height, height);
                // A quarter of the luma for each chroma plane, a few bytes more than odd sizes need.
                const int luma = width * height, quarter = luma / 4;
                ASSERT_EQ(packed.size, layout.packedFormat == kRgba ? 4 * luma : luma + 2 * quarter);
                const std::array<int, 3> begins{0, luma, luma + quarter};
                for (std::size_t p = 0; p < layout.packed.size(); ++p)
                    for (int i = 0; i < layout.packed[p][0] * layout.packed[p][1]; ++i)
                        ASSERT_EQ(
                            packed.data[begins[p] + i],
                            sample(static_cast<int>(p), i / layout.packed[p][0], i % layout.packed[p][0]))
                            << "plane " << p << " byte " << i;
            }
}

TEST(FramePacker, CopiesOnlyWhatIsNotYetInOneBlock) {
    FramePacker packer;
    std::vector<std::uint8_t> block(8 * 6 * 4);
    AVFrame frame{};
    frame.width = 8;
    frame.height = 6;
    for (const Layout& layout : layoutsOf(8, 6)) {
        frame.format = layout.format;
        const std::array<int, 3> begins{0, 48, 60};
        for (std::size_t p = 0; p < layout.packed.size(); ++p) {
            frame.data[p] = block.data() + begins[p];
            frame.linesize[p] = layout.packed[p][0];
        }
        EXPECT_EQ(packer.pack(frame).data, block.data()) << layout.format;
        if (layout.format == AV_PIX_FMT_RGBA) continue;
        frame.data[1] += 1;
        const unsigned char* copy = packer.pack(frame).data;
        EXPECT_NE(copy, block.data()) << layout.format;
        EXPECT_EQ(packer.pack(frame).data, copy) << "the buffer is reused";
    }
}

// Colours of other formats and ranges, and of frames that are too large: 60 pixels are the most here.
TEST(FramePacker, ConvertsAndScales) {
    struct Case {
        AVPixelFormat format;
        AVColorRange range;
        int width, height, packedFormat, newWidth, newHeight;
    };
    for (const Case& test : {
             Case{AV_PIX_FMT_YUVJ420P, kUnknown, 60, 48, kRgba, 60, 48},
             Case{AV_PIX_FMT_YUV420P, kFull, 59, 45, kRgba, 59, 45},
             Case{AV_PIX_FMT_YUVJ422P, kFull, 59, 45, kRgba, 59, 45},
             Case{AV_PIX_FMT_YUVJ444P, kFull, 59, 45, kRgba, 59, 45},
             Case{AV_PIX_FMT_YUV422P, kUnknown, 59, 45, kRgba, 59, 45},
             Case{AV_PIX_FMT_YUV444P, kLimited, 59, 45, kRgba, 59, 45},
             Case{AV_PIX_FMT_YUV420P10, kLimited, 59, 45, kRgba, 59, 45},
             Case{AV_PIX_FMT_YUV411P, kLimited, 59, 45, kRgba, 59, 45},
             Case{AV_PIX_FMT_YUV420P, kUnknown, 60, 45, kPlanar, 60, 45},
             Case{AV_PIX_FMT_YUV420P, kUnknown, 120, 90, kPlanar, 60, 44},
             Case{AV_PIX_FMT_YUV420P, kUnknown, 90, 122, kPlanar, 44, 60},
             Case{AV_PIX_FMT_NV12, kUnknown, 120, 75, kPairsUFirst, 60, 36},
             Case{AV_PIX_FMT_YUVJ422P, kUnknown, 61, 61, kRgba, 60, 60},
             Case{AV_PIX_FMT_YUV420P, kUnknown, 900, 2, kPlanar, 60, 2},
             Case{AV_PIX_FMT_YUV444P, kUnknown, 1, 90, kRgba, 1, 60},
             // One pixel wide or high there is no chroma in the library's layout, but still a colour to show.
             Case{AV_PIX_FMT_YUV420P, kUnknown, 1, 8, kRgba, 1, 8},
         }) {
        SCOPED_TRACE(testing::Message()
                     << test.format << " " << test.range << " " << test.width << "x" << test.height);
        const FrameOwner frame = quadrantFrame(test.format, test.width, test.height);
        frame->color_range = test.range;
        FramePacker all(PackedFormats::kAll, 60), toRgba(PackedFormats::kRgba, 60);
        const PackedFrame packed = all.pack(*frame), rgba = toRgba.pack(*frame);
        EXPECT_EQ(packed.pixelFormat, test.packedFormat);
        EXPECT_EQ(packed.width, test.newWidth);
        EXPECT_EQ(packed.height, test.newHeight);
        ASSERT_EQ(rgba.size, test.newWidth * test.newHeight * 4);
        const bool isFull =
            test.range == kFull || test.format == AV_PIX_FMT_YUVJ420P || test.format == AV_PIX_FMT_YUVJ422P;
        if (test.width > 20 && test.height > 20) expectQuadrants(rgba, isFull, 2);
        const Rgb first{rgba.data[0], rgba.data[1], rgba.data[2]};
        if (test.width == 1) expectColour(first, fromLimitedRange(kQuadrants[1]), 2, "first");
    }
}

struct Shade {
    AVPixelFormat format;
    AVColorRange range;
    int stored, packedFormat, shown;
};

TEST(FramePacker, ConvertsGreyPalettesAndColours) {
    for (const Shade& shade :
         {Shade{AV_PIX_FMT_GRAY8, kUnknown, 100, kRgba, 100}, Shade{AV_PIX_FMT_GRAY8, kFull, 200, kRgba, 200},
          Shade{AV_PIX_FMT_GRAY8, kLimited, 100, kPlanar, 100},
          Shade{AV_PIX_FMT_RGB24, kUnknown, 77, kRgba, 77}, Shade{AV_PIX_FMT_BGRA, kUnknown, 77, kRgba, 77},
          Shade{AV_PIX_FMT_PAL8, kUnknown, 3, kRgba, 0x40}}) {
        SCOPED_TRACE(testing::Message() << shade.format << " range " << shade.range);
        const FrameOwner frame(av_frame_alloc());
        frame->format = shade.format;
        frame->color_range = shade.range;
        frame->width = 19;
        frame->height = 7;
        ASSERT_EQ(av_frame_get_buffer(frame.get(), 0), 0);
        std::fill_n(frame->data[0], frame->linesize[0] * 7, static_cast<std::uint8_t>(shade.stored));
        if (shade.format == AV_PIX_FMT_PAL8)
            reinterpret_cast<std::uint32_t*>(frame->data[1])[3] = 0xFF204060u;
        FramePacker packer;
        const PackedFrame packed = packer.pack(*frame);
        ASSERT_EQ(packed.pixelFormat, shade.packedFormat);
        const auto* last = packed.data + (19 * 7 - 1) * (packed.pixelFormat == kRgba ? 4 : 1);
        EXPECT_NEAR(last[packed.pixelFormat == kRgba ? 1 : 0], shade.shown, 1);
        if (shade.format == AV_PIX_FMT_PAL8) {
            EXPECT_EQ(last[0] << 8 | last[2], 0x2060);
        }
        if (packed.pixelFormat == kPlanar) {
            EXPECT_EQ(std::count(last + 1, packed.data + packed.size, 128), packed.size - 19 * 7) << "chroma";
        }
    }
}

TEST(FramePacker, UsesTheMatrixOfTheFrame) {
    const FrameOwner frame = quadrantFrame(AV_PIX_FMT_YUV444P, 32, 32);
    frame->colorspace = AVCOL_SPC_BT709;
    FramePacker packer;
    const PackedFrame packed = packer.pack(*frame);
    // Luma 81 and colour differences -38 and 72 in limited range, by the weights of BT.709.
    EXPECT_NEAR(packed.data[0], 1.1644 * 65 + 1.7927 * 72, 2);
    EXPECT_NEAR(packed.data[1], 1.1644 * 65 - 0.2132 * -38 - 0.5329 * 72, 2);
    EXPECT_EQ(packed.data[2], 0);
}

TEST(FramePacker, RefusesWhatTheLibraryCannotTake) {
    std::uint8_t byte = 0;
    struct Case {
        AVPixelFormat format;
        int width, height;
        std::uint8_t* data;
    };
    for (const Case& wrong :
         {Case{AV_PIX_FMT_RGBA, 0, 4, &byte}, Case{AV_PIX_FMT_RGBA, 4, -1, &byte},
          Case{AV_PIX_FMT_RGBA, 65536, 65536, &byte}, Case{AV_PIX_FMT_RGBA, 23171, 23171, &byte},
          Case{AV_PIX_FMT_RGBA, 4, 4, nullptr}, Case{AV_PIX_FMT_VAAPI, 4, 4, &byte}}) {
        AVFrame frame{};
        frame.format = wrong.format;
        frame.width = wrong.width;
        frame.height = wrong.height;
        frame.data[0] = wrong.data;
        EXPECT_THROW(FramePacker().pack(frame), std::runtime_error) << wrong.width << "x" << wrong.height;
    }
}

}  // namespace
