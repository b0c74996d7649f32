// The guide's table of the panorama's limits is what the library keeps to.

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "view/Views360VR.h"

namespace fovix {
namespace {

constexpr double kFar = 1e6;

/// "free", "90" or "5 to 90", with or without words behind it; a free value has no limit.
std::pair<double, double> rangeOf(const std::string& cell) {
    if (cell.starts_with("free")) return {-kFar, kFar};
    double low = std::numeric_limits<double>::quiet_NaN(), high = 0.0;
    const bool hasTwo = std::sscanf(cell.c_str(), "%lf to %lf", &low, &high) == 2;
    return {low, hasTwo ? high : low};
}

/// The cells between the bars of a table's row.
std::vector<std::string> cellsOf(const std::string& row) {
    std::vector<std::string> cells;
    for (std::size_t bar = row.find("| "); bar != row.npos;) {
        const std::size_t next = row.find(" |", bar + 1);
        if (next == row.npos) break;
        cells.push_back(row.substr(bar + 2, next - bar - 2));
        bar = next + 1;
    }
    return cells;
}

TEST(Guide, LimitsOfThePanoramaAreTheLibrarys) {
    const std::map<std::string, int> mounts = {
        {"ceiling", 0}, {"wall", 1}, {"wall, inverted", 2}, {"floor", 3}};
    std::ifstream guide(FOVIX_GUIDE);
    int checked = 0;
    for (std::string line; std::getline(guide, line);) {
        const std::vector<std::string> cells = cellsOf(line);
        if (cells.size() != 5 || !mounts.contains(cells[0])) continue;
        SCOPED_TRACE(line);
        for (const char shape : cells[1]) {
            if (shape < '0' || shape > '9') continue;
            const int mount = mounts.at(cells[0]);
            const View360VR low = limitedView({-kFar, 0, -kFar, 0, -kFar}, mount, shape - '0');
            const View360VR high = limitedView({kFar, 0, kFar, 0, kFar}, mount, shape - '0');
            EXPECT_EQ(rangeOf(cells[2]), std::pair(low.mPan, high.mPan));
            EXPECT_EQ(rangeOf(cells[3]), std::pair(low.mTilt, high.mTilt));
            EXPECT_EQ(rangeOf(cells[4]), std::pair(low.mZoom, high.mZoom));
            ++checked;
        }
    }
    EXPECT_EQ(checked, 17);  // mounts and shapes that show something
}

}  // namespace
}  // namespace fovix
