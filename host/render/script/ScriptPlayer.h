// Makes the calls of a script, frame by frame.
#pragma once

#include "output/OwnOutput.h"
#include "render/script/Script.h"

namespace fovix_host {

class ScriptPlayer {
  public:
    // All but the demands outlive the player.
    ScriptPlayer(const Script& script, View& view, OwnOutput& out, const MediaOptions& demands)
        : _script(script), _out(out), _stage{view, ScriptFrames(demands)} {}

    // The calls before frame 1, 2, and so on; what they read becomes lines of output. Throws
    // std::runtime_error with file, line and reason.
    void playBefore(int frame);

  private:
    const Script& _script;
    OwnOutput& _out;
    ScriptStage _stage;
};

}  // namespace fovix_host
