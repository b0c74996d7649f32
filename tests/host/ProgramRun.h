// Runs fovix-render as a user does, in the folder of the test, and keeps what it said.
#pragma once

#include <string>
#include <vector>

struct ProgramRun {
    int status = -1;  // exit code; -1 when it did not end by itself
    std::string output;
    std::string errors;
};

// environment: "NAME=value" words that are added for this run.
ProgramRun runFovixRender(const std::vector<std::string>& arguments,
                          const std::vector<std::string>& environment = {});
