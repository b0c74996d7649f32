// The inputs that a script names: media files, or the procedural sample as "sample" (from the ceiling),
// "sample=wall" and "sample=two-lenses" (both in one frame).
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "media/FrameScaler.h"
#include "media/FrameSource.h"

namespace fovix_host {

class ScriptFrames {
  public:
    explicit ScriptFrames(MediaOptions options) : _options(std::move(options)) {}

    // The next frame of a source, which restarts after its last one; valid until the next call. Throws
    // std::runtime_error with a message that names the source.
    PackedFrame next(const std::string& name);

    // The same in a given format, FOVIX_FORMAT_RGBA or FOVIX_FORMAT_YUV420P. A conversion drops an odd last
    // column or row.
    PackedFrame next(const std::string& name, int pixelFormat);

  private:
    MediaOptions _options;
    std::map<std::string, std::unique_ptr<FrameSource>> _sources;
    FrameScaler _scaler;
    std::vector<unsigned char> _converted;
};

}  // namespace fovix_host
