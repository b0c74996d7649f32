// What a picture costs besides GL: one copy, and in the steady state no memory. The linker leads the
// allocations and copies of the library's own objects (not the driver's) through the counters here.
#include <gtest/gtest.h>

#include <new>

#include "FovixContext.h"
#include "HeadlessGl.h"
#include "PlainPicture.h"

namespace {

struct Counters {
    bool counting = false;
    int allocations = 0;
    std::size_t copied = 0;
};
thread_local constinit Counters counters;

void countAllocation() {
    if (counters.counting) ++counters.allocations;
}

}  // namespace

extern "C" {
void* __real_malloc(std::size_t);
void* __real_calloc(std::size_t, std::size_t);
void* __real_realloc(void*, std::size_t);
void* __real_memcpy(void*, const void*, std::size_t);
void* __real_memmove(void*, const void*, std::size_t);
void* __real__Znwm(std::size_t);
void* __real__Znam(std::size_t);
void* __wrap_malloc(std::size_t size) {
    countAllocation();
    return __real_malloc(size);
}
void* __wrap_calloc(std::size_t count, std::size_t size) {
    countAllocation();
    return __real_calloc(count, size);
}
void* __wrap_realloc(void* memory, std::size_t size) {
    countAllocation();
    return __real_realloc(memory, size);
}
void* __wrap__Znwm(std::size_t size) {
    countAllocation();
    return __real__Znwm(size);
}
void* __wrap__Znam(std::size_t size) {
    countAllocation();
    return __real__Znam(size);
}
void* __wrap_memcpy(void* to, const void* from, std::size_t size) {
    if (counters.counting) counters.copied += size;
    return __real_memcpy(to, from, size);
}
void* __wrap_memmove(void* to, const void* from, std::size_t size) {
    if (counters.counting) counters.copied += size;
    return __real_memmove(to, from, size);
}
}

namespace fovix_test {
namespace {

template <class Call>
Counters countedIn(Call&& call) {
    counters = {.counting = true};
    call();
    counters.counting = false;
    return counters;
}

class SteadyState : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Types, SteadyState,
                         testing::Values(FOVIX_TYPE_360VR, FOVIX_TYPE_180VR, FOVIX_TYPE_ORIGINAL,
                                         FOVIX_TYPE_KORVEL, FOVIX_TYPE_SINGLE_PIP, FOVIX_TYPE_TWO_LENSES));

TEST_P(SteadyState, AllocatesNothingAndCopiesEachPictureOnce) {
    Stage stage(GetParam(), 64, 48, Fovix_Create);
    const YuvPicture yuv = YuvPicture::sample(160, 120);
    for (const int pixelFmt : {FOVIX_FORMAT_RGBA, FOVIX_FORMAT_YUV420P, FOVIX_FORMAT_NV12}) {
        SCOPED_TRACE(testing::Message() << "code " << pixelFmt);
        const std::vector<std::uint8_t> bytes =
            pixelFmt == FOVIX_FORMAT_RGBA ? quadrants(160, 120).bytes : yuv.packed(pixelFmt);
        const auto set = [&] {
            Fovix_SetTexture(stage.view, pixelFmt, bytes.data(), static_cast<int>(bytes.size()), 160, 120);
        };
        printedBy([&] {
            for (int frame = 0; frame < 3; ++frame) {
                set();
                Fovix_Drawself(stage.view);
            }
            for (int frame = 0; frame < 3; ++frame) {
                const Counters setter = countedIn(set);
                EXPECT_EQ(setter.allocations, 0);
                EXPECT_GE(setter.copied, bytes.size());
                EXPECT_LT(setter.copied, bytes.size() + 1024) << "a second copy";
                const Counters drawing = countedIn([&] { Fovix_Drawself(stage.view); });
                EXPECT_EQ(drawing.allocations, 0);
                EXPECT_LT(drawing.copied, 4096u) << "the picture is copied again";
            }
        });
    }
}

TEST(Counting, SeesTheLibrarysAllocations) {
    VRHANDLE handle = nullptr;
    std::string lines =
        printedBy([&] { EXPECT_GT(countedIn([&] { Fovix_Create(&handle); }).allocations, 0); });
    const Image picture = quadrants(10, 10);
    lines = printedBy([&] {
        EXPECT_GE(countedIn([&] {
                      Fovix_SetRGBTexture(handle, picture.bytes.data(), picture.size(), 10, 10);
                  }).allocations,
                  1)
            << "the slot's buffer";
    });
    Fovix_Release(handle);
}

}  // namespace
}  // namespace fovix_test
