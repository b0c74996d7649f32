#include "cli/CommandLine.h"

#include <Fovix.h>
#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace fovix_host {
namespace {

// Omits the inputs, which the usage line shows already.
struct BriefFormatter : CLI::Formatter {
    std::string make_positionals(const CLI::App*) const override { return {}; }
};

}  // namespace

int print(const TextRequest& request, const char* program) {
    if (std::fputs(request.text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0) return 0;
    // Ignore a closed pipe.
    if (errno != EPIPE)
        std::fprintf(stderr, "%s: cannot write to standard output: %s\n", program, std::strerror(errno));
    return 1;
}

CommandLine::CommandLine(const std::string& program, const std::string& purpose, const std::string& examples)
    : _program(program), _app(std::make_unique<CLI::App>(purpose, program)) {
    _app->set_help_flag("-h,--help", "show this help")->disable_flag_override();
    _app->set_version_flag("--version", program + " with libfovix " + Fovix_Version())
        ->description("show the version")
        ->disable_flag_override();
    _app->formatter(std::make_shared<BriefFormatter>());
    constexpr std::size_t kOptionColumns = 31;  // fits the longest option
    _app->get_formatter()->column_width(kOptionColumns);
    _app->footer(examples);
}

CommandLine::~CommandLine() = default;

void CommandLine::addInputs(std::vector<std::string>& inputs) {
    _app->add_option("INPUT", inputs)->type_name("");
}

void CommandLine::addText(const char* names, const char* placeholder, const char* meaning, Take take,
                          Value value) {
    CLI::Option* option = _app->add_option_function<std::string>(names, std::move(take), meaning);
    option->type_name(placeholder);
    if (value == Value::kOptional) option->expected(0, 1);
}

void CommandLine::addText(const char* names, const char* placeholder, const char* meaning,
                          std::string& text) {
    _app->add_option(names, text, meaning)
        ->type_name(placeholder)
        ->check([this, names, placeholder](const std::string& value) {
            if (value.empty()) refuseCommandLine(std::string(names) + " needs a value, " + placeholder);
            return std::string();
        });
}

void CommandLine::addTexts(const char* name, const char* placeholder, const char* meaning,
                           std::vector<std::string>& texts) {
    _app->add_option(name, texts, meaning)->type_name(placeholder)->allow_extra_args(false);
}

void CommandLine::addFlag(const char* name, const char* meaning, bool& flag) {
    _app->add_flag(name, flag, meaning)->disable_flag_override();
}

void CommandLine::addList(const char* name, const char* meaning, std::string (*text)()) {
    _app->add_flag_callback(
            name, [text] { throw TextRequest{text()}; }, meaning)
        ->disable_flag_override();
}

std::vector<std::string> CommandLine::given() const {
    std::vector<std::string> names;
    for (const CLI::Option* option : std::as_const(*_app).get_options())
        if (option->count() > 0) names.push_back(option->get_name());
    return names;
}

void CommandLine::refuseCommandLine(const std::string& why) const {
    throw UsageError(why + "; " + _program + " --help lists the options");
}

// CLI11 distinguishes these cases only by message text.
void CommandLine::refuseArguments(const std::string& why) const {
    const auto mentions = [&](const char* words) { return why.find(words) != why.npos; };
    if (mentions("flag override")) refuseCommandLine("--" + why.substr(0, why.find(' ')) + " takes no value");
    const std::string name = why.substr(0, why.find(':'));
    if (mentions("received")) refuseCommandLine(name + " is given more than once");
    refuseCommandLine(name + " needs a value, " + _app->get_option(name)->get_type_name());
}

void CommandLine::parse(int argc, const char* const* argv) {
    try {
        _app->parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        throw TextRequest{_app->help()};
    } catch (const CLI::CallForVersion& version) {
        throw TextRequest{std::string(version.what()) + "\n"};
    } catch (const CLI::ExtrasError&) {
        refuseCommandLine("unknown option '" + _app->remaining().front() + "'");
    } catch (const CLI::ArgumentMismatch& error) {
        refuseArguments(error.what());
    } catch (const CLI::ParseError& error) {
        refuseCommandLine(error.what());
    }
}

}  // namespace fovix_host
