#include "ProgramRun.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sstream>

#include "TestFiles.h"

namespace {

// For the shell, whatever characters are in it.
std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char letter : word) text += letter == '\'' ? "'\\''" : std::string(1, letter);
    return text + "' ";
}

}  // namespace

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

ProgramRun runInShell(const std::string& line) {
    const auto folder = testFolder();
    const std::string all = "cd " + quoted(folder.string()) + "; RENDER=" + quoted(FOVIX_RENDER) + "; {\n" +
                            line + "\n} >stdout.txt 2>stderr.txt";
    const int ended = std::system(all.c_str());
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, readText(folder / "stdout.txt"),
            readText(folder / "stderr.txt")};
}

ProgramRun runFovixRender(const std::vector<std::string>& arguments,
                          const std::vector<std::string>& environment) {
    std::string line = "env ";
    for (const std::string& word : environment) line += quoted(word);
    line += "\"$RENDER\" ";
    for (const std::string& word : arguments) line += quoted(word);
    return runInShell(line);
}

void expectRefusal(const Refusal& refusal, const std::vector<std::string>& environment) {
    const ProgramRun run = runFovixRender(refusal.arguments, environment);
    SCOPED_TRACE(testing::PrintToString(refusal.arguments) + '\n' + run.errors);
    EXPECT_EQ(run.status, refusal.status);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors.find("fovix-render: "), 0u);
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
    EXPECT_NE(run.errors.find(refusal.words), std::string::npos) << "missing: " << refusal.words;
}
