// Runs fovix-render as a user does, in the folder of the test, and keeps what it said.
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

// environment: "NAME=value" words that are added for this run.
ProgramRun runFovixRender(const std::vector<std::string>& arguments,
                          const std::vector<std::string>& environment = {});

// A line of the shell, in which $RENDER is the program.
ProgramRun runInShell(const std::string& line);

struct Refusal {
    std::vector<std::string> arguments;
    int status;
    std::string words;
};

// That fovix-render says these words in one line, and nothing else.
void expectRefusal(const Refusal& refusal, const std::vector<std::string>& environment = {});
