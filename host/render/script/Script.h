// A timeline of calls as a text file gives it, read and checked as a whole before the first frame.
#pragma once

#include <string>
#include <vector>

#include "render/script/ScriptVerbs.h"

namespace fovix_host {

constexpr int kMaxFrames = 1000000;

// A word of a line: a text, or a number that goes evenly from one value to another over the line's frames.
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
    std::vector<ScriptLine> lines;  // in the order of their first frames

    int lastFrame() const;
};

// Throws UsageError with file, line and reason for what cannot be meant, std::runtime_error for a file that
// cannot be read.
Script readScript(const std::string& file);

}  // namespace fovix_host
