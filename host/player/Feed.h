// Common interface of everything a player can play: media inputs and frame sources.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "media/FramePacker.h"
#include "media/FrameSource.h"

namespace fovix_host {

class Feed {
  public:
    virtual ~Feed() = default;

    // Decodes the next frame and returns its time in the input; nullopt after the last one.
    virtual std::optional<double> next() = 0;
    // The last decoded frame, valid until the next call of next(). Throws what FramePacker throws.
    virtual PackedFrame pack() = 0;

    virtual double frameLength() const = 0;
    virtual std::optional<double> duration() const { return std::nullopt; }
    virtual bool isStill() const { return false; }
    virtual bool isRealTime() const { return false; }
    // After the last frame: the input failed instead of ending.
    virtual bool isLost() const { return false; }
    virtual bool isSeekable() const { return false; }
    virtual bool seek(double) { return false; }
    virtual void setHurry(bool) {}
};

// Throws what MediaReader throws; calls interrupted like it.
std::unique_ptr<Feed> openMediaFeed(const std::string& input, FramePacker packer,
                                    std::function<bool()> interrupted);
// The source must outlive the feed.
std::unique_ptr<Feed> makeSourceFeed(FrameSource& source);

}  // namespace fovix_host
