#include "media/LensInMedia.h"

#include <bit>
#include <stdexcept>

#include "media/FrameLuma.h"

namespace fovix_host {
namespace {

// Searches the 1st, 2nd, 4th, 8th... of a number of frames, because neighbouring frames look the same.
class SparseSearch {
  public:
    SparseSearch(MediaReader& reader, const MediaReader::Interrupted& interrupted)
        : _reader(reader), _interrupted(interrupted) {}

    void search(unsigned int frames, LensFinder& finder) {
        constexpr double kMaxSeconds = 60.0;
        for (unsigned int number = 1; number <= frames && _reader.seconds() < kMaxSeconds; ++number) {
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
    SparseSearch sparse(reader, interrupted);
    // A recording is searched at its start, then, quickly, in key frames. A live input passes only once.
    constexpr unsigned int kConsecutive = 8, kKeyFrames = 32, kLive = 64;
    sparse.search(reader.isLive() ? kLive : kConsecutive, finder);
    if (!reader.isLive() && !reader.isStill()) {
        reader.onlyKeyFrames();
        sparse.search(kKeyFrames, finder);
    }
    return finder.result();
}

}  // namespace fovix_host
