#include "circle/LensSearch.h"

#include <algorithm>

#include "circle/EdgeScan.h"

namespace fovix_host {
namespace {

std::vector<EdgePoint> edgesOf(const std::vector<DirectionScan>& scans) {
    std::vector<EdgePoint> edges;
    for (const DirectionScan& scan : scans)
        if (scan.edge) edges.push_back(*scan.edge);
    return edges;
}

// Share of the pixels clearly outside the circle that are as bright as the scene.
double litShare(const GreyImage& image, const Surround& surround, const Circle& circle) {
    constexpr double kClearance = 1.04;  // of the radius: skips the blurred edge
    const double reach = circle.radius * kClearance;
    int all = 0, lit = 0;
    constexpr int kStride = 3;  // a ninth of the pixels is enough for a share
    for (int y = 0; y < image.height; y += kStride)
        for (int x = 0; x < image.width; x += kStride) {
            const double dx = x + 0.5 - circle.x, dy = y + 0.5 - circle.y;
            if (dx * dx + dy * dy <= reach * reach) continue;
            ++all;
            lit += !surround.isDark(image.row(y)[x]);
        }
    return all > 0 ? static_cast<double>(lit) / all : 1.0;
}

CircleEvidence evidenceFor(const Circle& circle, const GreyImage& image, const Surround& surround,
                           const std::vector<DirectionScan>& scans) {
    CircleEvidence evidence;
    std::vector<EdgePoint> agreeing;
    for (const DirectionScan& scan : scans) {
        ++evidence.visible;
        evidence.light += scan.beginsLit;
        if (!scan.edge) continue;
        const double away = outside(circle, *scan.edge);
        if (away > edgeTolerance(circle))
            ++evidence.light;
        else if (away >= -edgeTolerance(circle))
            agreeing.push_back(*scan.edge);
        else
            ++evidence.within;
    }
    evidence.agreeing = static_cast<int>(agreeing.size());
    evidence.doubt = doubtIn(circle, agreeing);
    evidence.litSurround = litShare(image, surround, circle);
    return evidence;
}

// The constants are empirical: FoundLens::kMinConfidence has to separate right circles from wrong ones.
double confidenceIn(const CircleEvidence& evidence) {
    if (evidence.agreeing == 0) return 0.0;
    // Edges elsewhere are evidence against the circle; darkness, as in a night scene, hardly is.
    const int elsewhere = evidence.light + evidence.within;
    const int dark = evidence.visible - evidence.agreeing - elsewhere;
    const double agreement = evidence.agreeing / (evidence.agreeing + elsewhere + 0.1 * dark);
    // Neither a short nor a ragged arc determines a circle.
    const double length = std::min(evidence.agreeing / 50.0, 1.0);
    const double certainty = std::clamp(1.5 - 35.0 * evidence.doubt, 0.0, 1.0);
    const double surround = std::clamp(1.1 - 3.0 * evidence.litSurround, 0.0, 1.0);
    return agreement * length * certainty * surround;
}

std::optional<SearchResult> searchCircle(const GreyImage& image, const Surround& surround) {
    const int shorter = std::min(image.width, image.height), longer = std::max(image.width, image.height);
    // Diameters from half the shorter side to a circle that is cut off at all sides.
    const CircleLimits limits{0.25 * shorter, 0.75 * longer, double(image.width), double(image.height)};
    constexpr double kConsensus = 0.01;  // of the radius
    auto circle = agreedCircle(scanFromBorder(image, surround), limits, kConsensus);
    // Refine it with edges from ever narrower windows around it, as shares of the radius.
    constexpr double kNarrowest = 0.04;
    for (const double window : {2 * kNarrowest, kNarrowest, kNarrowest}) {
        if (!circle || !limits.allow(*circle)) return std::nullopt;
        const auto edges = edgesOf(scanAround(image, surround, *circle, window));
        circle = fitted(edges, *circle, 1.5 * edgeTolerance(*circle));
    }
    if (!circle || !limits.allow(*circle)) return std::nullopt;
    const auto scans = scanAround(image, surround, *circle, kNarrowest);
    const CircleEvidence evidence = evidenceFor(*circle, image, surround, scans);
    return SearchResult{*circle, evidence, confidenceIn(evidence)};
}

}  // namespace

double edgeTolerance(const Circle& circle) {
    constexpr double kShare = 0.01;
    return std::max(1.0, kShare * circle.radius);
}

std::optional<SearchResult> searchCircle(const GreyImage& image) {
    const int shorter = std::min(image.width, image.height);
    constexpr int kMinSide = 64;  // smaller circles have too few edge points
    if (shorter < kMinSide) return std::nullopt;
    Surround surround = surroundOf(image);
    std::optional<SearchResult> best;
    // In the glare of a bright scene the edge is not the first rise but a steeper one.
    for (const float steeper : {1.0f, 2.5f, 2.5f}) {
        surround.step *= steeper;
        const auto found = searchCircle(image, surround);
        if (!found || (best && best->confidence >= found->confidence)) continue;
        best = found;
        constexpr double kCertain = 0.9;  // no need to try steeper edges
        if (best->confidence > kCertain) break;
    }
    return best;
}

}  // namespace fovix_host
