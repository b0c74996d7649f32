#include "viewer/playback/LensWatch.h"

#include <utility>

#include "media/FrameLuma.h"

namespace fovix_host {
namespace {

constexpr int kInterval = 10;  // searches one in this number of frames
constexpr int kMaxSearched = 8;

}  // namespace

LensWatch::LensWatch(LensRequest request, bool searches)
    : _request(std::move(request)), _known(lensWithoutSearch(_request)), _searching(searches && !_known) {}

void LensWatch::look(const PackedFrame& frame) {
    const std::lock_guard lock(_mutex);
    if (!_searching || _decided || _seen++ % kInterval != 0) return;
    _finder.add(lumaOf(frame));
    _found = _finder.result();
    _decided = (_found && _found->isSure()) || _finder.frames() >= kMaxSearched;
}

std::optional<LensChoice> LensWatch::takeChoice(bool noMoreFrames) {
    if (_known) return std::exchange(_known, std::nullopt);
    const std::unique_lock lock(_mutex, std::try_to_lock);
    if (!lock) return std::nullopt;  // a search is running; try again later
    if (!_searching || _seen == 0 || (!_decided && !noMoreFrames)) return std::nullopt;
    _searching = false;
    return lensAfterSearch(_request, _found);
}

}  // namespace fovix_host
