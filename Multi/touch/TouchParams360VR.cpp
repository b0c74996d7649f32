#include "touch/TouchParams360VR.h"

#include "base/Numbers.h"
#include "touch/TouchLimits360VR.h"

namespace fovix {

namespace {

constexpr double kWideEnough = 85.0;  ///< degrees; views with this field of view and above count as wide

/// Writes only if limiting changed the value, so that concurrent input is not overwritten.
void limitTo(Cell<double>& cell, double value, double limited) {
    if (value != limited) cell = limited;
}

}  // namespace

bool wantsCloseView(const VR360TouchParams& p) {
    return p.mZoom >= kWideEnough && p.mTilt > 0.0;
}

double maxTilt(const VR360TouchParams& p) {
    return touchMaxTilt(p.mMount, p.mZoom);
}

void startDrag(VR360TouchParams& p, double x, double y) {
    p.mPanAtDown = p.mPan;
    p.mTiltAtDown = p.mTilt;
    p.mDownX = x;
    p.mDownY = y;
}

void restartDrag(VR360TouchParams& p, float x, float y) {
    startDrag(p, truncateToInt(x), truncateToInt(y));
}

View360VR viewOf(const VR360TouchParams& p) {
    return {.mPan = p.mPan, .mRoll = p.mRoll, .mTilt = p.mTilt, .mPtzFifth = p.mPtzFifth, .mZoom = p.mZoom};
}

void setView(VR360TouchParams& p, const View360VR& view) {
    p.mPan = view.mPan;
    p.mRoll = view.mRoll;
    p.mTilt = view.mTilt;
    p.mPtzFifth = view.mPtzFifth;
    p.mZoom = view.mZoom;
}

void clampView(VR360TouchParams& p) {
    const View360VR view = viewOf(p), limited = touchLimitedView(view, p.mMount, p.mShape);
    limitTo(p.mPan, view.mPan, limited.mPan);
    limitTo(p.mTilt, view.mTilt, limited.mTilt);
    limitTo(p.mZoom, view.mZoom, limited.mZoom);
}

}  // namespace fovix
