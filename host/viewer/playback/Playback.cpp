#include "viewer/playback/Playback.h"

#include <algorithm>
#include <utility>

#include "media/MediaReader.h"
#include "setup/SampleInputs.h"

namespace fovix_host {

namespace {

constexpr int kLiveSample = 960;  // pixels; drawn in real time, with about half the work of the full size

}  // namespace

struct Playback::Opened {
    std::vector<PlayerInput> inputs;
    PlayerSettings settings;
    std::optional<LensCircle> lensOfSample;
    LensRequest lens;
};

Playback::Opened Playback::openAll(const ViewerOptions& options) {
    Opened opened;
    opened.settings.loop = options.loop;
    opened.settings.start = options.start;
    opened.lens = {options.input.lens, options.input.camera};
    for (const std::string& input : options.input.inputs) opened.inputs.emplace_back(input);
    for (auto& sample : openSamples(options.input, options.view, kLiveSample)) {
        if (!opened.lensOfSample) opened.lensOfSample = sample->lens();
        opened.inputs.emplace_back(std::move(sample));
    }
    // Type lenses accepts only RGBA, and all cells of the grid must have the same format.
    if (opened.inputs.size() > 1 || options.view.type == FOVIX_TYPE_MULTI_LENS)
        opened.settings.formats = PackedFormats::kRgba;
    return opened;
}

Playback::Opened Playback::openFile(const std::string& file, const ViewerOptions& options) {
    MediaReader(file).next();
    Opened opened;
    opened.settings.loop = options.loop;
    opened.inputs.emplace_back(file);
    return opened;
}

Playback::Playback(const ViewerOptions& options, const Host& host) : Playback(openAll(options), host) {}

Playback::Playback(const std::string& file, const ViewerOptions& options, const Host& host)
    : Playback(openFile(file, options), host) {}

Playback::Playback(Opened opened, const Host& host)
    : _host(host),
      _lensOfSample(opened.lensOfSample),
      _lens(opened.lens, opened.inputs.size() == 1 && !opened.lensOfSample),
      _frames(host.view, static_cast<int>(opened.inputs.size()), host.wake) {
    opened.settings.maxSide = host.maxTextureSize;
    for (PlayerInput& input : opened.inputs) open(std::move(input), opened.settings);
}

void Playback::open(PlayerInput input, const PlayerSettings& settings) {
    const int slot = static_cast<int>(_players.size());
    PlayerCallbacks callbacks;
    callbacks.show = [this, slot](const PackedFrame& frame) {
        _frames.show(slot, frame);
        if (slot == 0) _lens.look(frame);
    };
    callbacks.message = [this](const std::string& message) {
        {
            const std::lock_guard lock(_mutex);
            _messages.push_back(message);
        }
        _host.wake();
    };
    _players.push_back(std::make_unique<Player>(std::move(input), settings, std::move(callbacks)));
}

std::optional<LensChoice> Playback::takeLens() {
    const bool noMoreFrames = allAre({PlayerState::kStill, PlayerState::kEnded, PlayerState::kFailed});
    return _lens.takeChoice(noMoreFrames);
}

void Playback::togglePause() {
    _paused = !_paused;
    for (const auto& player : _players) player->pause(_paused);
}

void Playback::step() {
    _paused = true;
    for (const auto& player : _players) player->step();
}

bool Playback::seekBy(double seconds) {
    bool sought = false;
    for (const auto& player : _players) sought = player->seekBy(seconds) || sought;
    return sought;
}

bool Playback::allAre(std::initializer_list<PlayerState> states) const {
    return std::all_of(_players.begin(), _players.end(), [&](const auto& player) {
        return std::find(states.begin(), states.end(), player->status().state) != states.end();
    });
}

bool Playback::hasFailed() const {
    return allAre({PlayerState::kFailed});
}

bool Playback::hasEnded() const {
    return allAre({PlayerState::kFailed, PlayerState::kEnded});
}

long Playback::dropped() const {
    long sum = 0;
    for (const auto& player : _players) sum += player->status().dropped;
    return sum;
}

std::vector<std::string> Playback::takeMessages() {
    const std::lock_guard lock(_mutex);
    return std::exchange(_messages, {});
}

}  // namespace fovix_host
