#include "touch/FrameTarget.h"

#include <cstdint>

#include "base/Diagnostics.h"

namespace fovix {

FrameTarget locateTarget(int targetX, int targetY, int width, int height) {
    const double x = targetX, y = targetY, cx = width / 2, cy = height / 2;
    printLine("rect center(%f, %f)\n", x, y);
    printLine("image center(%f, %f)\n", cx, cy);
    printLine("dy : %f, dx = %f\n", y - cy, x - cx);
    return {cx, cy, x - cx, y - cy};
}

int middleOf(int from, int to) {
    return static_cast<int>((std::int64_t{from} + to) / 2);
}

}  // namespace fovix
