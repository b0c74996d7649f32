#include "render/script/ScriptPlayer.h"

#include <stdexcept>

namespace fovix_host {

void ScriptPlayer::playBefore(int frame) {
    for (const ScriptLine& line : _script.lines) {
        if (line.firstFrame > frame) break;
        if (line.lastFrame < frame) continue;
        std::string result;
        try {
            result = line.verb->call(_stage, line.valuesAt(frame));
        } catch (const std::runtime_error& problem) {
            throw std::runtime_error(_script.file + ":" + std::to_string(line.number) + ": " +
                                     problem.what());
        }
        if (!result.empty())
            _out.line("frame " + std::to_string(frame) + ": " + std::string(line.verb->name) + " " + result);
    }
}

}  // namespace fovix_host
