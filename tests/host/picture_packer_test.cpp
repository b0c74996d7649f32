// FramePacker against the layouts written out by hand: every sample of every plane, padded rows, odd
// sizes, and colours worked out from the definition of luma and colour differences.

#include "media/FramePacker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "Drawn.h"

using namespace fovix_host;

namespace {

constexpr int kRgba = 1, kPlanar = 3, kPairsUFirst = 9, kPairsVFirst = 10;

std::uint8_t sample(int plane, int row, int byte) {
    return static_cast<std::uint8_t>(31 * plane + 17 * row + 5 * byte + 1);
}

// A frame whose planes lie in blocks of exactly their size, so that asan sees a read outside them.
struct TightFrame {
    AVFrame frame{};
    std::vector<std::vector<std::uint8_t>> planes;

    TightFrame(AVPixelFormat format, int width, int height, int padding,
               std::vector<std::array<int, 2>> sizes) {
        frame.format = format;
        frame.width = width;
        frame.height = height;
        for (std::size_t p = 0; p < sizes.size(); ++p) {
            const auto [rowBytes, rows] = sizes[p];
            const int stride = rowBytes + padding;
            // The padding of the last row is not there.
            planes.emplace_back(static_cast<std::size_t>(stride * rows - padding), std::uint8_t{0xEE});
            for (int row = 0; row < rows; ++row)
                for (int byte = 0; byte < rowBytes; ++byte)
                    planes[p][static_cast<std::size_t>(row * stride + byte)] =
                        sample(static_cast<int>(p), row, byte);
            frame.data[p] = planes[p].data();
            frame.linesize[p] = stride;
        }
    }
};

TightFrame tightFrame(AVPixelFormat format, int width, int height, int padding) {
    const std::array<int, 2> luma{width, height}, quarter{(width + 1) / 2, (height + 1) / 2};
    if (format == AV_PIX_FMT_RGBA) return {format, width, height, padding, {{4 * width, height}}};
    if (format == AV_PIX_FMT_YUV420P) return {format, width, height, padding, {luma, quarter, quarter}};
    return {format, width, height, padding, {luma, {2 * quarter[0], quarter[1]}}};
}

void expectRows(const PackedFrame& packed, int from, int rows, int rowBytes, int plane) {
    for (int row = 0; row < rows; ++row)
        for (int byte = 0; byte < rowBytes; ++byte)
            ASSERT_EQ(packed.data[from + row * rowBytes + byte], sample(plane, row, byte))
                << "plane " << plane << " row " << row << " byte " << byte;
}

TEST(FramePacker, HandsOverTheDecodersBytesInTheLibrarysLayout) {
    FramePacker packer;
    for (const auto& [width, height] :
         std::vector<std::array<int, 2>>{{2, 2}, {6, 4}, {5, 4}, {6, 5}, {7, 3}, {33, 17}})
        for (const int padding : {0, 1, 27}) {
            SCOPED_TRACE(testing::Message() << width << "x" << height << " padded by " << padding);
            const int luma = width * height, quarter = luma / 4;

            const TightFrame colours = tightFrame(AV_PIX_FMT_RGBA, width, height, padding);
            PackedFrame packed = packer.pack(colours.frame);
            EXPECT_EQ(packed.pixelFormat, kRgba);
            ASSERT_EQ(packed.size, 4 * luma);
            expectRows(packed, 0, height, 4 * width, 0);

            const TightFrame planes = tightFrame(AV_PIX_FMT_YUV420P, width, height, padding);
            packed = packer.pack(planes.frame);
            EXPECT_EQ(packed.pixelFormat, kPlanar);
            EXPECT_EQ(packed.width, width);
            EXPECT_EQ(packed.height, height);
            ASSERT_EQ(packed.size, luma + 2 * quarter);
            expectRows(packed, 0, height, width, 0);
            expectRows(packed, luma, height / 2, width / 2, 1);
            expectRows(packed, luma + quarter, height / 2, width / 2, 2);

            for (const auto& [format, code] :
                 {std::pair{AV_PIX_FMT_NV12, kPairsUFirst}, std::pair{AV_PIX_FMT_NV21, kPairsVFirst}}) {
                const TightFrame pairs = tightFrame(format, width, height, padding);
                packed = packer.pack(pairs.frame);
                EXPECT_EQ(packed.pixelFormat, code);
                ASSERT_EQ(packed.size, luma + 2 * quarter);
                expectRows(packed, 0, height, width, 0);
                expectRows(packed, luma, height / 2, width / 2 * 2, 1);
            }
        }
}

TEST(FramePacker, GivesLimitedRangeGreyNeutralChroma) {
    FramePacker packer;
    TightFrame grey(AV_PIX_FMT_GRAY8, 7, 5, 2, {{{7, 5}}});
    grey.frame.color_range = AVCOL_RANGE_MPEG;
    const PackedFrame packed = packer.pack(grey.frame);
    EXPECT_EQ(packed.pixelFormat, kPlanar);
    ASSERT_EQ(packed.size, 35 + 2 * 8);
    expectRows(packed, 0, 5, 7, 0);
    EXPECT_EQ(std::count(packed.data + 35, packed.data + packed.size, 128), 16);
}

TEST(FramePacker, CopiesOnlyWhatIsNotYetInOneBlock) {
    FramePacker packer;
    std::vector<std::uint8_t> block(8 * 6 * 4);
    AVFrame frame{};
    frame.width = 8;
    frame.height = 6;
    struct Layout {
        AVPixelFormat format;
        std::array<int, 3> strides, offsets;
    };
    for (const Layout& layout :
         {Layout{AV_PIX_FMT_RGBA, {32, 0, 0}, {0, 0, 0}}, Layout{AV_PIX_FMT_YUV420P, {8, 4, 4}, {0, 48, 60}},
          Layout{AV_PIX_FMT_NV12, {8, 8, 0}, {0, 48, 0}}}) {
        frame.format = layout.format;
        for (std::size_t p = 0; p < 3; ++p) {
            frame.data[p] = block.data() + layout.offsets[p];
            frame.linesize[p] = layout.strides[p];
        }
        EXPECT_EQ(packer.pack(frame).data, block.data()) << layout.format;
        frame.data[1] += 1;
        const bool inOneBlock = layout.format == AV_PIX_FMT_RGBA;
        EXPECT_EQ(packer.pack(frame).data == block.data(), inOneBlock) << layout.format;
    }

    const TightFrame padded = tightFrame(AV_PIX_FMT_YUV420P, 8, 6, 3);
    const unsigned char* first = packer.pack(padded.frame).data;
    EXPECT_EQ(packer.pack(padded.frame).data, first) << "the buffer is reused";
}

TEST(FramePacker, ReadsPicturesThatAreStoredBottomUp) {
    TightFrame stored = tightFrame(AV_PIX_FMT_RGBA, 5, 4, 6);
    AVFrame& frame = stored.frame;
    frame.data[0] += 3 * frame.linesize[0];
    frame.linesize[0] = -frame.linesize[0];
    FramePacker packer;
    const PackedFrame packed = packer.pack(frame);
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(packed.data[row * 20 + 2], sample(0, 3 - row, 2)) << "row " << row;
}

struct Conversion {
    AVPixelFormat format;
    AVColorRange range;
    bool full;
};

void expectQuadrants(const PackedFrame& packed, bool full) {
    const auto at = [&](int x, int y) {
        const unsigned char* pixel = packed.data + (y * packed.width + x) * 4;
        EXPECT_EQ(pixel[3], 255);
        return Rgb{pixel[0], pixel[1], pixel[2]};
    };
    ::expectQuadrants(at, packed.width, packed.height, full, 2);
}

TEST(FramePacker, ConvertsOtherFormatsAndFullRangeToRgba) {
    FramePacker packer;
    for (const auto& [format, range, full] : {Conversion{AV_PIX_FMT_YUVJ420P, AVCOL_RANGE_UNSPECIFIED, true},
                                              Conversion{AV_PIX_FMT_YUV420P, AVCOL_RANGE_JPEG, true},
                                              Conversion{AV_PIX_FMT_YUVJ422P, AVCOL_RANGE_JPEG, true},
                                              Conversion{AV_PIX_FMT_YUVJ444P, AVCOL_RANGE_JPEG, true},
                                              Conversion{AV_PIX_FMT_YUV422P, AVCOL_RANGE_UNSPECIFIED, false},
                                              Conversion{AV_PIX_FMT_YUV444P, AVCOL_RANGE_MPEG, false},
                                              Conversion{AV_PIX_FMT_YUV420P10, AVCOL_RANGE_MPEG, false},
                                              Conversion{AV_PIX_FMT_YUV411P, AVCOL_RANGE_MPEG, false}})
        for (const auto& [width, height] : {std::pair{64, 48}, std::pair{61, 45}}) {
            SCOPED_TRACE(testing::Message() << "format " << format << " range " << range << " " << width);
            const FrameOwner frame = quadrantFrame(format, width, height);
            frame->color_range = range;
            const PackedFrame packed = packer.pack(*frame);
            EXPECT_EQ(packed.pixelFormat, kRgba);
            ASSERT_EQ(packed.size, width * height * 4);
            expectQuadrants(packed, full);
        }
}

TEST(FramePacker, ScalesPicturesThatAreTooLargeDown) {
    struct Scaled {
        AVPixelFormat format;
        int width, height, newWidth, newHeight, packedFormat;
    };
    for (const Scaled& s : {Scaled{AV_PIX_FMT_YUV420P, 64, 48, 32, 24, kPlanar},
                            Scaled{AV_PIX_FMT_YUV420P, 45, 61, 22, 32, kPlanar},
                            Scaled{AV_PIX_FMT_NV12, 64, 40, 32, 20, kPairsUFirst},
                            Scaled{AV_PIX_FMT_YUVJ422P, 33, 33, 32, 32, kRgba},
                            Scaled{AV_PIX_FMT_YUV420P, 32, 31, 32, 31, kPlanar},
                            Scaled{AV_PIX_FMT_YUV420P, 900, 2, 32, 2, kPlanar},
                            Scaled{AV_PIX_FMT_YUV444P, 1, 90, 1, 32, kRgba}}) {
        SCOPED_TRACE(testing::Message() << s.format << " " << s.width << "x" << s.height);
        const FrameOwner frame = quadrantFrame(s.format, s.width, s.height);
        const PackedFrame packed = FramePacker(PackedFormats::kAll, 32).pack(*frame);
        EXPECT_EQ(packed.pixelFormat, s.packedFormat);
        EXPECT_EQ(packed.width, s.newWidth);
        EXPECT_EQ(packed.height, s.newHeight);
        FramePacker toRgba(PackedFormats::kRgba, 32);
        if (s.width > 20 && s.height > 20)
            expectQuadrants(toRgba.pack(*frame), s.format == AV_PIX_FMT_YUVJ422P);
    }
}

TEST(FramePacker, ConvertsGreyPalettesAndColours) {
    FramePacker packer;
    struct Shade {
        AVPixelFormat format;
        AVColorRange range;
        int stored, shown;
    };
    for (const Shade& shade : {Shade{AV_PIX_FMT_GRAY8, AVCOL_RANGE_UNSPECIFIED, 100, 100},
                               Shade{AV_PIX_FMT_GRAY8, AVCOL_RANGE_JPEG, 200, 200},
                               Shade{AV_PIX_FMT_RGB24, AVCOL_RANGE_UNSPECIFIED, 77, 77},
                               Shade{AV_PIX_FMT_BGRA, AVCOL_RANGE_UNSPECIFIED, 77, 77}}) {
        const FrameOwner frame(av_frame_alloc());
        frame->format = shade.format;
        frame->color_range = shade.range;
        frame->width = 19;
        frame->height = 7;
        ASSERT_EQ(av_frame_get_buffer(frame.get(), 0), 0);
        std::fill_n(frame->data[0], frame->linesize[0] * 7, static_cast<std::uint8_t>(shade.stored));
        const PackedFrame packed = packer.pack(*frame);
        for (int channel = 0; channel < 3; ++channel)
            EXPECT_NEAR(packed.data[(6 * 19 + 18) * 4 + channel], shade.shown, 1)
                << "format " << shade.format;
    }

    const FrameOwner indexed(av_frame_alloc());
    indexed->format = AV_PIX_FMT_PAL8;
    indexed->width = indexed->height = 8;
    ASSERT_EQ(av_frame_get_buffer(indexed.get(), 0), 0);
    std::fill_n(indexed->data[0], indexed->linesize[0] * 8, std::uint8_t{3});
    reinterpret_cast<std::uint32_t*>(indexed->data[1])[3] = 0xFF204060u;
    const PackedFrame packed = packer.pack(*indexed);
    EXPECT_EQ(std::vector<int>(packed.data, packed.data + 3), (std::vector<int>{0x20, 0x40, 0x60}));
}

TEST(FramePacker, UsesTheMatrixOfThePicture) {
    const FrameOwner frame = quadrantFrame(AV_PIX_FMT_YUV444P, 32, 32);
    frame->colorspace = AVCOL_SPC_BT709;
    FramePacker packer;
    const PackedFrame packed = packer.pack(*frame);
    // Luma 81 and colour differences -38 and 72 in limited range, by the weights of BT.709.
    EXPECT_NEAR(packed.data[0], 1.1644 * 65 + 1.7927 * 72, 2);
    EXPECT_NEAR(packed.data[1], 1.1644 * 65 - 0.2132 * -38 - 0.5329 * 72, 2);
    EXPECT_EQ(packed.data[2], 0);
}

// One pixel wide or high there is no chroma in the library's layout, but still a colour to show.
TEST(FramePacker, KeepsTheColourOfPicturesOnePixelWide) {
    const FrameOwner frame = quadrantFrame(AV_PIX_FMT_YUV420P, 1, 8);
    FramePacker packer;
    const PackedFrame packed = packer.pack(*frame);
    ASSERT_EQ(packed.pixelFormat, kRgba);
    const Rgb expected = fromLimitedRange(kQuadrants[1]);
    EXPECT_NEAR(packed.data[0], expected.r, 2);
    EXPECT_NEAR(packed.data[2], expected.b, 2);
}

TEST(FramePacker, RefusesWhatTheLibraryCannotTake) {
    std::uint8_t byte = 0;
    AVFrame frame{};
    frame.format = AV_PIX_FMT_RGBA;
    frame.data[0] = &byte;
    for (const auto& [width, height] :
         {std::pair{0, 4}, std::pair{4, -1}, std::pair{65536, 65536}, std::pair{23171, 23171}}) {
        frame.width = width;
        frame.height = height;
        EXPECT_THROW(FramePacker().pack(frame), std::runtime_error) << width << "x" << height;
    }
    frame.width = frame.height = 4;
    frame.data[0] = nullptr;
    EXPECT_THROW(FramePacker().pack(frame), std::runtime_error);
    frame.data[0] = &byte;
    frame.format = AV_PIX_FMT_VAAPI;
    EXPECT_THROW(FramePacker().pack(frame), std::runtime_error);
}

}  // namespace
