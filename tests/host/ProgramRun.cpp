#include "ProgramRun.h"

#include <sys/wait.h>

#include <cstdlib>
#include <iterator>
#include <sstream>

#include "TestFiles.h"

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::string shellLine(const std::string& line) {
    return "cd '" + testFolder().string() + "'; PATH='" FOVIX_PROGRAMS ":'$PATH; export PATH; " + line;
}

ProgramRun runInShell(const std::string& line) {
    const auto folder = testFolder();
    const int ended = std::system(shellLine("{\n" + line + "\n} >stdout.txt 2>stderr.txt").c_str());
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, readText(folder / "stdout.txt"),
            readText(folder / "stderr.txt")};
}

ProgramRun runFovixRender(const std::string& arguments) {
    return runInShell("fovix-render " + arguments);
}
