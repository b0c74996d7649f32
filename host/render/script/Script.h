// A timeline of calls, read from a text file and checked completely before the first frame.
#pragma once

#include <string>
#include <vector>

#include "render/script/ScriptVerbs.h"

namespace fovix_host {

constexpr int kMaxFrames = 1000000;  // eleven hours at 25 frames per second

// An argument: a text, or a number that changes evenly over the line's frames.
struct ScriptWord {
    double from = 0, to = 0;
    std::string text;
};

struct ScriptLine {
    int number = 0;
    int firstFrame = 0, lastFrame = 0;
    const ScriptVerb* verb = nullptr;
    std::vector<ScriptWord> words;

    std::vector<ScriptValue> valuesAt(int frame) const;
};

struct Script {
    std::string file;
    std::vector<ScriptLine> lines;  // ordered by first frame

    int lastFrame() const;
};

// Throws UsageError with file, line and reason if the script is invalid, std::runtime_error if it cannot be
// read.
Script readScript(const std::string& file);

}  // namespace fovix_host
