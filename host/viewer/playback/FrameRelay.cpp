#include "viewer/playback/FrameRelay.h"

#include <utility>

namespace fovix_host {

FrameRelay::FrameRelay(VRHANDLE view, int inputs, std::function<void()> wake)
    : _view(view), _wake(std::move(wake)), _slots(static_cast<std::size_t>(inputs)) {}

void FrameRelay::show(int slot, const PackedFrame& picture) {
    {
        const std::lock_guard lock(_mutex);
        Slot& kept = _slots.at(static_cast<std::size_t>(slot));
        kept.bytes.assign(picture.data, picture.data + picture.size);
        kept.picture = picture;
        kept.picture.data = kept.bytes.data();
        handIn(slot);
    }
    if (!_new.exchange(true)) _wake();
}

FrameRelay::Size FrameRelay::size() const {
    const std::lock_guard lock(_mutex);
    return {_slots.front().picture.width, _slots.front().picture.height};
}

void FrameRelay::handIn(int slot) const {
    const PackedFrame& picture = _slots[static_cast<std::size_t>(slot)].picture;
    if (!picture.data) return;
    const int type = Fovix_GetType(_view);
    if (type == FOVIX_TYPE_MULTI_IMAGE)
        Fovix_Multi_SetTexture(_view, slot, picture.pixelFormat, picture.data, picture.size, picture.width,
                               picture.height);
    else if (type == FOVIX_TYPE_MULTI_LENS && picture.pixelFormat == FOVIX_FORMAT_RGBA)
        Fovix_Multi_SetRGBTexture(_view, slot, picture.data, picture.size, picture.width, picture.height);
    else if (slot == 0)
        Fovix_SetTexture(_view, picture.pixelFormat, picture.data, picture.size, picture.width,
                         picture.height);
}

void FrameRelay::handInAll() const {
    for (int slot = 0; slot < count(); ++slot) handIn(slot);
}

}  // namespace fovix_host
