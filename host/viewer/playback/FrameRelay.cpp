#include "viewer/playback/FrameRelay.h"

#include <utility>

namespace fovix_host {

FrameRelay::FrameRelay(VRHANDLE view, int inputs, std::function<void()> wake)
    : _view(view), _wake(std::move(wake)), _slots(static_cast<std::size_t>(inputs)) {}

void FrameRelay::show(int slot, const PackedFrame& frame) {
    {
        const std::lock_guard lock(_mutex);
        Slot& copy = _slots.at(static_cast<std::size_t>(slot));
        copy.bytes.assign(frame.data, frame.data + frame.size);
        copy.frame = frame;
        copy.frame.data = copy.bytes.data();
        submit(slot);
    }
    if (!_new.exchange(true)) _wake();
}

FrameRelay::Size FrameRelay::size() const {
    const std::lock_guard lock(_mutex);
    return {_slots.front().frame.width, _slots.front().frame.height};
}

void FrameRelay::submit(int slot) const {
    const PackedFrame& frame = _slots[static_cast<std::size_t>(slot)].frame;
    if (!frame.data) return;
    const int type = Fovix_GetType(_view);
    if (type == FOVIX_TYPE_MULTI_IMAGE)
        Fovix_Multi_SetTexture(_view, slot, frame.pixelFormat, frame.data, frame.size, frame.width,
                               frame.height);
    else if (type == FOVIX_TYPE_MULTI_LENS && frame.pixelFormat == FOVIX_FORMAT_RGBA)
        Fovix_Multi_SetRGBTexture(_view, slot, frame.data, frame.size, frame.width, frame.height);
    else if (slot == 0)
        Fovix_SetTexture(_view, frame.pixelFormat, frame.data, frame.size, frame.width, frame.height);
}

void FrameRelay::submitAll() const {
    for (int slot = 0; slot < count(); ++slot) submit(slot);
}

}  // namespace fovix_host
