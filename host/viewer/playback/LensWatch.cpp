#include "viewer/playback/LensWatch.h"

#include <utility>

#include "media/FrameLuma.h"

namespace fovix_host {
namespace {

constexpr int kApart = 10;  // pictures from one that is looked at to the next
constexpr int kMost = 8;    // that are looked at

}  // namespace

LensWatch::LensWatch(LensRequest request, bool searches)
    : _request(std::move(request)), _atHand(lensWithoutSearch(_request)), _searching(searches && !_atHand) {}

void LensWatch::look(const PackedFrame& picture) {
    const std::lock_guard lock(_mutex);
    if (!_searching || _decided || _seen++ % kApart != 0) return;
    _finder.add(lumaOf(picture));
    _found = _finder.result();
    _decided = (_found && _found->isSure()) || _finder.frames() >= kMost;
}

std::optional<LensChoice> LensWatch::takeChoice(bool noMoreFrames) {
    if (_atHand) return std::exchange(_atHand, std::nullopt);
    const std::unique_lock lock(_mutex, std::try_to_lock);
    if (!lock) return std::nullopt;  // a picture is being looked at; ask again
    if (!_searching || _seen == 0 || (!_decided && !noMoreFrames)) return std::nullopt;
    _searching = false;
    return lensAfterSearch(_request, _found);
}

}  // namespace fovix_host
