// What the command lines of the programs have in common: how options are described, how the help looks, and
// the sentence that a wrong option gets. The parser itself stays behind this class: it takes long to compile.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cli/UsageError.h"

namespace CLI {
class App;
}

namespace fovix_host {

// What --help, --version and the lists ask for instead of the program's work.
struct TextWanted {
    std::string text;
};

// On standard output; the exit status of the program that does no more, with a sentence where it failed.
int print(const TextWanted& wanted, const char* program);

// Variables that options are to fill outlive the parsing.
class CommandLine {
  public:
    // Turns a text into a value, or refuses with a UsageError.
    using Take = std::function<void(const std::string&)>;
    enum class Value { kNeeded, kOptional };  // an optional one is taken as "" where it lacks

    // The examples close the help.
    CommandLine(const std::string& program, const std::string& purpose, const std::string& examples);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    // Whatever is no option.
    void addInputs(std::vector<std::string>& inputs);

    void addText(const char* names, const char* placeholder, const char* meaning, Take take,
                 Value value = Value::kNeeded);
    // An option whose text is kept for later and must not be empty.
    void addText(const char* names, const char* placeholder, const char* meaning, std::string& text);
    // An option that may be given several times.
    void addTexts(const char* name, const char* placeholder, const char* meaning,
                  std::vector<std::string>& texts);

    void addFlag(const char* name, const char* meaning, bool& flag);
    // A flag that has the program print a text and end.
    void addList(const char* name, const char* meaning, std::string (*text)());

    // Throws UsageError or TextWanted.
    void parse(int argc, const char* const* argv);

    // The options that were given, by name.
    std::vector<std::string> given() const;

  private:
    [[noreturn]] void refuseCommandLine(const std::string& why) const;
    [[noreturn]] void refuseArguments(const std::string& why) const;

    std::string _program;
    std::unique_ptr<CLI::App> _app;
};

}  // namespace fovix_host
