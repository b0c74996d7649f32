#include "media/LensInMedia.h"

#include <bit>
#include <stdexcept>

#include "media/FrameLuma.h"

namespace fovix_host {
namespace {

// Looks at the 1st, 2nd, 4th, 8th... of so many pictures: decoding is the larger part of the work, and
// pictures that follow each other closely show the same.
class SpreadLook {
  public:
    SpreadLook(MediaReader& reader, const MediaReader::Interrupted& interrupted)
        : _reader(reader), _interrupted(interrupted) {}

    void lookAt(unsigned int pictures, LensFinder& finder) {
        constexpr double kLongEnough = 60.0;  // seconds
        for (unsigned int number = 1; number <= pictures && _reader.seconds() < kLongEnough; ++number) {
            const AVFrame* frame = _reader.next();
            if (_interrupted && _interrupted())
                throw std::runtime_error("the search for the lens circle in '" + _reader.input() +
                                         "' was interrupted");
            if (!frame) return;
            if (!std::has_single_bit(number)) continue;
            const auto luma = lumaOf(*frame);
            finder.add(luma ? *luma : packed(*frame));
        }
    }

  private:
    LumaView packed(const AVFrame& frame) try {
        return lumaOf(_packer.pack(frame));
    } catch (const std::runtime_error& problem) {
        throw std::runtime_error("'" + _reader.input() + "' cannot be shown: " + problem.what());
    }

    MediaReader& _reader;
    const MediaReader::Interrupted& _interrupted;
    FramePacker _packer;
};

}  // namespace

std::optional<FoundLens> findLens(const std::string& input, const MediaReader::Interrupted& interrupted) {
    MediaReader reader(input, interrupted);
    LensFinder finder;
    SpreadLook look(reader, interrupted);
    constexpr unsigned int kInARow = 8, kKeyFrames = 32, kLive = 64;
    look.lookAt(reader.isLive() ? kLive : kInARow, finder);
    if (!reader.isLive() && !reader.isStill()) {
        reader.onlyKeyFrames();
        look.lookAt(kKeyFrames, finder);
    }
    return finder.result();
}

}  // namespace fovix_host
