#include "render/script/Script.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "cli/OptionValues.h"
#include "cli/UsageError.h"
#include "options/ViewTypes.h"

namespace fovix_host {
namespace {

// An invalid line, before file and line number are added.
struct LineError {
    std::string reason;
};

// "FROM..TO", or a single value for both.
struct Span {
    std::string_view from, to;

    explicit Span(std::string_view text) : from(text), to(text) {
        const std::size_t dots = text.find("..");
        if (dots == text.npos) return;
        from = text.substr(0, dots);
        to = text.substr(dots + 2);
    }
};

int parseFrame(std::string_view text) {
    const auto frame = numberIn<int>(text);
    if (!frame || *frame < 1 || *frame > kMaxFrames)
        throw LineError{"expected a frame from 1 to " + std::to_string(kMaxFrames) +
                        " or a range such as 10..30, got '" + std::string(text) + "'"};
    return *frame;
}

// Labels whose values may be names. Shapes and draw modes have the names of all types, because the type may
// change during a script.
struct LabelNames {
    std::string_view label;
    std::optional<int> (*code)(std::string_view);
    std::string (*names)();
};

template <auto table, auto... more>
constexpr LabelNames namesFor(std::string_view label) {
    return {label,
            [](std::string_view text) {
                auto code = codeIn(table(), text);
                ((code = code ? code : codeIn(more(), text)), ...);
                return code;
            },
            [] { return (namesIn(table()) + ... + (", " + namesIn(more()))); }};
}

constexpr LabelNames kLabelNames[] = {
    namesFor<viewTypes>("TYPE"),
    namesFor<cameraMounts>("MOUNT"),
    namesFor<shapesOf360, shapesOf180>("SHAPE"),
    namesFor<drawModesOf180, drawModesOfInset>("MODE"),
    namesFor<twoLensesModes>("LENSES"),
    namesFor<twoLensesScreens>("LENS"),
};

const LabelNames* namesOf(const ScriptParameter& parameter) {
    for (const LabelNames& row : kLabelNames)
        if (row.label == parameter.label) return &row;
    return nullptr;
}

std::optional<double> numberOf(const ScriptParameter& parameter, std::string_view text) {
    if (const LabelNames* names = namesOf(parameter))
        if (const auto code = names->code(text)) return *code;
    switch (parameter.kind) {
        case ScriptKind::kWhole:
            return numberIn<int>(text);
        case ScriptKind::kColour:
            return numberIn<unsigned int>(text, 16);
        default: {
            // The library may convert it to float.
            const auto number = numberIn<double>(text);
            return number && std::abs(*number) <= FLT_MAX ? number : std::nullopt;
        }
    }
}

std::string expectedFor(const ScriptParameter& parameter) {
    if (const LabelNames* names = namesOf(parameter)) return "a number or one of " + names->names();
    if (parameter.kind == ScriptKind::kWhole) return "a whole number";
    if (parameter.kind == ScriptKind::kColour) return "hexadecimal digits RRGGBB";
    return "a number";
}

ScriptWord parseWord(const ScriptLine& line, const ScriptParameter& parameter, const std::string& text) {
    if (parameter.kind == ScriptKind::kText) return {0, 0, text};
    const Span span(text);
    const auto from = numberOf(parameter, span.from), to = numberOf(parameter, span.to);
    if (!from || !to)
        throw LineError{parameter.label + " of " + std::string(line.verb->name) + ": expected " +
                        expectedFor(parameter) + ", got '" + text + "'"};
    if (span.from.data() != span.to.data() && line.firstFrame == line.lastFrame)
        throw LineError{"the range '" + text + "' needs a range of frames, such as 10..30"};
    return {*from, *to, {}};
}

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream text(line);
    std::vector<std::string> words;
    for (std::string word; text >> std::ws && text.peek() != '#' && text >> std::quoted(word);)
        words.push_back(word);
    return words;
}

ScriptLine parseLine(const std::vector<std::string>& words, int number) {
    ScriptLine line{number, 0, 0, nullptr, {}};
    const Span frames(words[0]);
    line.firstFrame = parseFrame(frames.from);
    line.lastFrame = parseFrame(frames.to);
    if (line.lastFrame < line.firstFrame)
        throw LineError{"the range of frames '" + words[0] + "' is reversed"};
    if (words.size() < 2) throw LineError{"frame " + words[0] + " has no verb"};
    line.verb = scriptVerb(words[1]);
    if (!line.verb) throw LineError{"unknown verb '" + words[1] + "'; fovix-render --list-verbs lists them"};

    const auto& parameters = line.verb->parameters;
    if (words.size() != parameters.size() + 2)
        throw LineError{std::string(line.verb->name) + " takes " +
                        (parameters.empty() ? "no arguments" : std::string(line.verb->labels))};
    for (std::size_t i = 0; i < parameters.size(); ++i)
        line.words.push_back(parseWord(line, parameters[i], words[i + 2]));
    return line;
}

void checkOrder(const std::vector<ScriptLine>& lines, const ScriptLine& next) {
    if (!lines.empty() && next.firstFrame < lines.back().firstFrame)
        throw LineError{"frame " + std::to_string(next.firstFrame) + " cannot follow frame " +
                        std::to_string(lines.back().firstFrame)};
}

}  // namespace

std::vector<ScriptValue> ScriptLine::valuesAt(int frame) const {
    const double share =
        lastFrame > firstFrame ? static_cast<double>(frame - firstFrame) / (lastFrame - firstFrame) : 0.0;
    std::vector<ScriptValue> values;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const double value = words[i].from + (words[i].to - words[i].from) * share;
        const bool whole = verb->parameters[i].kind != ScriptKind::kNumber;
        values.push_back({whole ? std::round(value) : value, words[i].text});
    }
    return values;
}

int Script::lastFrame() const {
    int last = 1;
    for (const ScriptLine& line : lines) last = std::max(last, line.lastFrame);
    return last;
}

Script readScript(const std::string& file) {
    std::ifstream text(file);
    if (!text || text.peek() == std::ifstream::traits_type::eof())
        throw std::runtime_error("the script '" + file + "' cannot be read or is empty");
    Script script{file, {}};
    std::array<char, 4096> line{};
    int number = 1;
    for (; text.getline(line.data(), line.size()); ++number) {
        const std::vector<std::string> words = wordsOf(line.data());
        if (words.empty()) continue;
        try {
            ScriptLine parsed = parseLine(words, number);
            checkOrder(script.lines, parsed);
            script.lines.push_back(std::move(parsed));
        } catch (const LineError& error) {
            throw UsageError(file + ":" + std::to_string(number) + ": " + error.reason);
        }
    }
    if (!text.eof())
        throw UsageError(file + ":" + std::to_string(number) + ": the line is too long for a script");
    return script;
}

}  // namespace fovix_host
