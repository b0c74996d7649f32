// Two lenses in one frame, one in its upper and one in its lower half.
//
// Draw mode 0 shows the half that the zoom asks for, 1 both or one of them alone with animated moves between,
// 2 the upper and 3 the lower one, fixed. The first half is the main mesh, normally the upper one; the second
// is the overlay mesh, always the lower one. Surfaces that are not wider than tall stack the two.
#pragma once

#include <memory>
#include <optional>

#include "base/Animators.h"
#include "base/Mat4.h"
#include "model/FovixModel.h"
#include "view/RotateZoomView.h"

namespace fovix {

/// A value that glides to a target, one step per rendered frame.
struct AnimatedValue {
    explicit AnimatedValue(double value) : current(value), target(value) {}
    void rest(double value);  ///< jumps there and stays
    void glideTo(double value);
    void step();

    double current;                           ///< the value drawn
    double target;                            ///< where it is heading
    std::unique_ptr<GlideAnimator> animator;  ///< null when no move runs
};

/// Place and scale of a half beside the other: a little less than half the surface each, with a small gap.
inline constexpr double kBesideX = 1.004, kBesideScale = 0.49;

/// Where a half is drawn: moved by (x, y) model units; at scale 1.0 it fills the surface's width.
struct PicturePlacement {
    double x, y, scale;
};

/// Draw mode 0 for a zoom factor; nullopt while shownHalf (0 upper, 1 lower) is not the half that the zoom
/// asks for.
std::optional<PicturePlacement> placeHalf(const RotateZoomView& view, double zoom, double zoomDiv,
                                          int shownHalf);

/// One of two halves side by side, or the one that is shown alone: only that one follows zoom and pan.
PicturePlacement placeBeside(double x, double scale, bool isAlone, const RotateZoomView& view);

/// One of two halves stacked, the first above the second.
PicturePlacement placeStacked(bool isFirst);

/// Model-view-projection matrix of a half on a surface of width × height pixels.
Mat4 twoLensesMatrix(const PicturePlacement& placement, int width, int height);

/// The surface's aspect ratio divided by the image's, at least 1.0; 1.0 for empty sizes.
double aspectFixOf(int width, int height, int imgWidth, int imgHeight);

struct TwoLensesParams : ModelParams {
    explicit TwoLensesParams(const FishEyeConfig& lens) : ModelParams(lens) {}

    Cell<int> mDrawMode = 0;      ///< 0..3; other values draw like 0
    RotateZoomView mView;         ///< mZoom is also the logic zoom
    Cell<double> mZoomDiv = 3.0;  ///< zoom at which draw mode 0 switches to the lower half
    Cell<double> mZoomMin = 1.0;  ///< only printed, like mZoomMax
    Cell<double> mZoomMax = 10.0;
    Cell<int> mVerticesDirty = 0;  ///< the next fetch rebuilds both meshes

    // GL thread.
    double mCheckedZoom = 1.0;    ///< zoom that draw mode 0 draws with
    VertexCachePtr mTopCache;     ///< upper half, built on first use
    VertexCachePtr mBottomCache;  ///< lower half, built on first use
    int mShownHalf = 0;           ///< half whose mesh draw mode 0 uses: 0 upper, 1 lower
    int mWantedHalf = 0;          ///< half that the zoom asks for

    // Under the lock; mScreen is also read without it.
    Cell<int> mScreen = 0;  ///< draw mode 1: 0 both, 1 the first half alone, 2 the second
    AnimatedValue mFirstX{-kBesideX}, mFirstScale{kBesideScale};
    AnimatedValue mSecondX{kBesideX}, mSecondScale{kBesideScale};
    double mAspectFix = 1.0;
};

ModelPtr FovixModelTwoLensesInOne_Create(const FishEyeConfig& lens);

}  // namespace fovix
