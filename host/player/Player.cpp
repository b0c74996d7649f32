#include "player/Player.h"

#include <utility>

#include "player/PlayerControl.h"
#include "player/PlayerLoop.h"

namespace fovix_host {

Player::Player(PlayerInput input, const PlayerSettings& settings, PlayerCallbacks callbacks)
    : _control(std::make_unique<PlayerControl>(settings.speed, settings.paused)),
      _loop(std::make_unique<PlayerLoop>(std::move(input), settings, std::move(callbacks), *_control)) {}

Player::~Player() = default;

void Player::pause(bool paused) {
    _control->pause(paused);
}

void Player::step() {
    _control->step();
}

bool Player::seekTo(double seconds) {
    return _control->seekTo(seconds);
}

bool Player::seekBy(double seconds) {
    return _control->seekBy(seconds);
}

PlayerStatus Player::status() const {
    return _control->status();
}

}  // namespace fovix_host
