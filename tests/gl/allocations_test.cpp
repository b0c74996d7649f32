// What a picture costs besides GL: one copy, and in the steady state no memory. The linker leads the
// allocations and copies of the library's own objects (not the driver's) through the counters here.
#include <gtest/gtest.h>

#include "HeadlessGl.h"

namespace {

struct Counters {
    std::size_t allocations = 0, copied = 0;
};
thread_local constinit Counters counters;

}  // namespace

extern "C" {
void* __real_malloc(std::size_t);
void* __real__Znwm(std::size_t);
void* __real_memcpy(void*, const void*, std::size_t);
void* __real_memmove(void*, const void*, std::size_t);
void* __wrap_malloc(std::size_t size) {
    ++counters.allocations;
    return __real_malloc(size);
}
void* __wrap__Znwm(std::size_t size) {
    ++counters.allocations;
    return __real__Znwm(size);
}
void* __wrap_memcpy(void* to, const void* from, std::size_t size) {
    counters.copied += size;
    return __real_memcpy(to, from, size);
}
void* __wrap_memmove(void* to, const void* from, std::size_t size) {
    counters.copied += size;
    return __real_memmove(to, from, size);
}
}

namespace fovix_test {
namespace {

template <class Call>
Counters countedIn(Call&& call) {
    counters = {};
    call();
    return counters;
}

TEST(SteadyState, AllocatesNothingAndCopiesEachPictureOnce) {
    for (const int type : {0, 1, 2, 3, 22, 24}) {
        Stage stage(type, 64, 48, Fovix_Create);
        for (const int pixelFmt : {FOVIX_FORMAT_RGBA, FOVIX_FORMAT_YUV420P, FOVIX_FORMAT_NV12}) {
            SCOPED_TRACE(testing::Message() << "type " << type << ", code " << pixelFmt);
            const Bytes bytes = Image::chequered(160, 120).inFormat(pixelFmt);
            const int size = static_cast<int>(bytes.size());
            const auto set = [&] { Fovix_SetTexture(stage.view, pixelFmt, bytes.data(), size, 160, 120); };
            for (int frame = 0; frame < 6; ++frame) {
                Counters setting, drawing;
                printedBy([&] { setting = countedIn(set); });
                printedBy([&] { drawing = countedIn([&] { Fovix_Drawself(stage.view); }); });
                // What comes first makes the slot's buffer and the mesh, which shows that the counters count.
                const bool isFirst = frame == 0 && pixelFmt == FOVIX_FORMAT_RGBA;
                if (frame < 3 && !isFirst) continue;
                EXPECT_EQ(setting.allocations > 0, isFirst);
                EXPECT_EQ(drawing.allocations > 0, isFirst);
                EXPECT_GE(setting.copied, bytes.size());
                EXPECT_LT(setting.copied, bytes.size() + 1024) << "a second copy";
                EXPECT_LT(isFirst ? 0 : drawing.copied, 4096u) << "the picture is copied again";
            }
        }
    }
}

}  // namespace
}  // namespace fovix_test
