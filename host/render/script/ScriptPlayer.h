// Makes the calls of a script, frame by frame.
#pragma once

#include "output/OwnOutput.h"
#include "render/script/Script.h"

namespace fovix_host {

class ScriptPlayer {
  public:
    // Script, view and output must outlive the player.
    ScriptPlayer(const Script& script, View& view, OwnOutput& out, const MediaOptions& options)
        : _script(script), _out(out), _stage{view, ScriptFrames(options)} {}

    // Makes the calls before frame 1, 2, and so on, and prints their results. Throws std::runtime_error with
    // file, line and reason.
    void playBefore(int frame);

  private:
    const Script& _script;
    OwnOutput& _out;
    ScriptStage _stage;
};

}  // namespace fovix_host
