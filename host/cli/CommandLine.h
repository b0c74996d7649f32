// Command lines of both programs: option descriptions, help text and error messages. The parser is hidden in
// the implementation because it is slow to compile.
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

// Thrown by --help, --version and the lists: a text to print instead of running the program.
struct TextRequest {
    std::string text;
};

// Prints to standard output and returns the exit status of the program; reports failures to standard error.
int print(const TextRequest& request, const char* program);

// Variables that options fill must outlive parse().
class CommandLine {
  public:
    // Parses and stores a value; throws UsageError if it is invalid.
    using Take = std::function<void(const std::string&)>;
    enum class Value { kRequired, kOptional };  // an omitted optional value is read as ""

    // The examples are printed at the end of the help.
    CommandLine(const std::string& program, const std::string& purpose, const std::string& examples);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    // Collects the arguments that are not options.
    void addInputs(std::vector<std::string>& inputs);

    void addText(const char* names, const char* placeholder, const char* meaning, Take take,
                 Value value = Value::kRequired);
    // An option whose value is stored unparsed and must not be empty.
    void addText(const char* names, const char* placeholder, const char* meaning, std::string& text);
    // An option that can be repeated.
    void addTexts(const char* name, const char* placeholder, const char* meaning,
                  std::vector<std::string>& texts);

    void addFlag(const char* name, const char* meaning, bool& flag);
    // A flag that prints a text and ends the program.
    void addList(const char* name, const char* meaning, std::string (*text)());

    // Throws UsageError or TextRequest.
    void parse(int argc, const char* const* argv);

    // Names of the options that were given.
    std::vector<std::string> given() const;

  private:
    [[noreturn]] void refuseCommandLine(const std::string& why) const;
    [[noreturn]] void refuseArguments(const std::string& why) const;

    std::string _program;
    std::unique_ptr<CLI::App> _app;
};

}  // namespace fovix_host
