// Runs the programs as a user does, in the folder of the test, and keeps what they printed.
#pragma once

#include <string>
#include <vector>

struct ProgramRun {
    int status = -1;  // exit code; -1 when it did not end by itself
    std::string output;
    std::string errors;
};

// "--type 360" as two words.
std::vector<std::string> wordsOf(const std::string& text);
std::vector<std::string> linesOf(const std::string& text);

// A line of the shell in the folder of the test, which finds fovix-render and fovix-view by their names.
std::string shellLine(const std::string& line);
ProgramRun runInShell(const std::string& line);
ProgramRun runFovixRender(const std::string& arguments);
