// What a player plays, behind one face: a media input or a source of ready pictures.
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

    // Decodes the next picture and tells its time in the input; nothing after the last one.
    virtual std::optional<double> next() = 0;
    // The picture decoded last, valid until the next one is decoded. Throws what FramePacker throws.
    virtual PackedFrame pack() = 0;

    virtual double frameLength() const = 0;
    virtual std::optional<double> duration() const { return std::nullopt; }
    virtual bool isStill() const { return false; }
    virtual bool isRealTime() const { return false; }
    // After the last picture: broken off by an error.
    virtual bool isLost() const { return false; }
    virtual bool isSeekable() const { return false; }
    virtual bool seek(double) { return false; }
    virtual void setHurry(bool) {}
};

// Throws what MediaReader throws; asks interrupted as that does.
std::unique_ptr<Feed> openMediaFeed(const std::string& input, FramePacker packer,
                                    std::function<bool()> interrupted);
// The source outlives the feed.
std::unique_ptr<Feed> makeSourceFeed(FrameSource& source);

}  // namespace fovix_host
