#include "ProgramRun.h"

#include <sys/wait.h>

#include <cstdlib>

#include "TestFiles.h"

namespace {

// Adds a word for the shell, whatever characters are in it.
void addWord(std::string& command, const std::string& word) {
    command += " '";
    for (const char letter : word)
        if (letter == '\'')
            command += "'\\''";
        else
            command += letter;
    command += '\'';
}

}  // namespace

ProgramRun runFovixRender(const std::vector<std::string>& arguments,
                          const std::vector<std::string>& environment) {
    const auto folder = testFolder();
    std::string command = "cd";
    addWord(command, folder.string());
    command += " && env";
    for (const std::string& word : environment) addWord(command, word);
    addWord(command, FOVIX_RENDER);
    for (const std::string& word : arguments) addWord(command, word);
    const int ended = std::system((command + " >stdout.txt 2>stderr.txt").c_str());
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, readText(folder / "stdout.txt"),
            readText(folder / "stderr.txt")};
}
