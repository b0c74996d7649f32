// Two lenses in one picture, one above the other.
//
// The upper or the lower picture by the zoom (draw mode 0), both at once or one of them alone with animated
// moves between (1), or one of them fixed (2 upper, 3 lower). The first picture is the main mesh, normally
// the upper one; the second is the overlay mesh, always the lower one. A surface that is not wider than tall
// stacks the two.
#pragma once

#include <memory>
#include <optional>

#include "base/Animators.h"
#include "base/Mat4.h"
#include "base/SharedLock.h"
#include "model/FovixModel.h"
#include "view/RotateZoomView.h"

namespace fovix {

/// A value on its way to a target, one animator step per frame.
struct AnimatedValue {
    explicit AnimatedValue(double value) : current(value), target(value) {}
    void rest(double value);
    void glideTo(double value);
    void step();

    double current;                           ///< the value drawn
    double target;                            ///< where it is heading
    std::unique_ptr<GlideAnimator> animator;  ///< null when no move runs
};

/// Place and size of a picture beside the other: a little less than half the surface, a hair's breadth
/// between.
inline constexpr double kBesideX = 1.004, kBesideScale = 0.49;

/// Where a picture is drawn: moved by (x, y) model units, scale 1.0 filling the surface's width.
struct PicturePlacement {
    double x, y, scale;
};

/// Draw mode 0's picture for a zoom; none while the half shown (0 upper, 1 lower) is not the one it asks for.
std::optional<PicturePlacement> placeHalf(const RotateZoomView& view, double zoom, double zoomDiv,
                                          int shownHalf);

/// One of two pictures side by side, or the one that stays alone: only that one follows zoom and pan.
PicturePlacement placeBeside(double x, double scale, bool isAlone, const RotateZoomView& view);

/// One of two pictures above each other.
PicturePlacement placeStacked(bool isFirst);

/// Model-view-projection matrix of a picture on a surface of width × height pixels.
Mat4 twoLensesMatrix(const PicturePlacement& placement, int width, int height);

/// How much relatively wider the surface (pixels) is than the picture, 1.0 when it is not.
double aspectFixOf(int width, int height, int imgWidth, int imgHeight);

struct TwoLensesParams : ModelParams {
    explicit TwoLensesParams(const FishEyeConfig& lens) : ModelParams(lens) {}

    Cell<int> mDrawMode = 0;      ///< 0..3; every other mode draws like 0
    RotateZoomView mView;         ///< mZoom is also the logic zoom
    Cell<double> mZoomDiv = 3.0;  ///< zoom at which draw mode 0 changes to the lower picture
    Cell<double> mZoomMin = 1.0;  ///< kept for the log line, like mZoomMax
    Cell<double> mZoomMax = 10.0;
    Cell<int> mVerticesDirty = 0;  ///< both meshes are dropped at the next fetch

    // GL thread.
    double mCheckedZoom = 1.0;    ///< zoom that draw mode 0 draws with
    VertexCachePtr mTopCache;     ///< upper picture, built on first use
    VertexCachePtr mBottomCache;  ///< lower picture, built on first use
    int mShownHalf = 0;           ///< half whose mesh draw mode 0 uses: 0 upper, 1 lower
    int mWantedHalf = 0;          ///< half that the zoom asks for

    SharedLock mLock;       ///< guards what follows; mScreen is also read without it
    Cell<int> mScreen = 0;  ///< draw mode 1: 0 both, 1 the first picture alone, 2 the second
    AnimatedValue mFirstX{-kBesideX}, mFirstScale{kBesideScale};
    AnimatedValue mSecondX{kBesideX}, mSecondScale{kBesideScale};
    double mAspectFix = 1.0;
};

ModelPtr FovixModelTwoLensesInOne_Create(const FishEyeConfig& lens);

}  // namespace fovix
