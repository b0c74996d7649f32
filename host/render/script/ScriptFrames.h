// The pictures that a script names: media files, or the procedural sample as "sample" (from the ceiling),
// "sample=wall" and "sample=two-lenses" (both in one picture).
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
    explicit ScriptFrames(MediaOptions demands) : _demands(std::move(demands)) {}

    // The next picture of a source, from the first again after the last; valid until the next call. Throws
    // std::runtime_error with a sentence that names the source.
    PackedFrame next(const std::string& name);

    // The same in one format, FOVIX_FORMAT_RGBA or FOVIX_FORMAT_YUV420P. Where it must be converted, an odd
    // last column or row is left out.
    PackedFrame next(const std::string& name, int pixelFormat);

  private:
    MediaOptions _demands;
    std::map<std::string, std::unique_ptr<FrameSource>> _sources;
    FrameScaler _scaler;
    std::vector<unsigned char> _converted;
};

}  // namespace fovix_host
