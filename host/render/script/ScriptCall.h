// Binds a function to a script's words: the types of its parameters say what each word must be, and what
// it returns or writes through pointers becomes the answer.
#pragma once

#include <Fovix.h>

#include <cstdio>
#include <limits>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "render/script/ScriptFrames.h"
#include "setup/View.h"

namespace fovix_host {

// What a script's calls act on.
struct ScriptStage {
    View& view;
    ScriptFrames pictures;
};

enum class ScriptKind { kWhole, kNumber, kColour, kText };

struct ScriptValue {
    double number = 0;
    std::string text;
};

// Takes the values of a line one after the other and collects the answer.
struct ScriptArguments {
    ScriptStage& stage;
    const std::vector<ScriptValue>& values;
    std::size_t used = 0;
    std::string answer{};

    const ScriptValue& take() { return values.at(used++); }
    void add(const std::string& word) { answer.append(answer.empty() ? "" : " ").append(word); }
    void add(const char* word) { add(std::string(word)); }
    void add(double number) {
        char text[32];
        std::snprintf(text, sizeof text, "%.6g", number);
        add(std::string(text));
    }
};

// One parameter of a function during a call: numbers, the view, texts.
template <typename T>
struct ScriptSlot {
    T value;

    explicit ScriptSlot(ScriptArguments& arguments) : value(static_cast<T>(arguments.take().number)) {}
    T pass() { return value; }
    void answer(ScriptArguments&) const {}
    static void describe(std::vector<ScriptKind>& kinds) {
        kinds.push_back(std::is_floating_point_v<T> ? ScriptKind::kNumber
                        : std::is_unsigned_v<T>     ? ScriptKind::kColour
                                                    : ScriptKind::kWhole);
    }
};

template <>
struct ScriptSlot<const char*> {
    const char* value;

    explicit ScriptSlot(ScriptArguments& arguments) : value(arguments.take().text.c_str()) {}
    const char* pass() { return value; }
    void answer(ScriptArguments&) const {}
    static void describe(std::vector<ScriptKind>& kinds) { kinds.push_back(ScriptKind::kText); }
};

template <>
struct ScriptSlot<ScriptStage&> {
    ScriptStage& stage;

    explicit ScriptSlot(ScriptArguments& arguments) : stage(arguments.stage) {}
    ScriptStage& pass() { return stage; }
    void answer(ScriptArguments&) const {}
    static void describe(std::vector<ScriptKind>&) {}
};

template <>
struct ScriptSlot<VRHANDLE> {
    VRHANDLE handle;

    explicit ScriptSlot(ScriptArguments& arguments) : handle(arguments.stage.view.handle()) {}
    VRHANDLE pass() { return handle; }
    void answer(ScriptArguments&) const {}
    static void describe(std::vector<ScriptKind>&) {}
};

// A result written through a pointer; "-" where the library writes none.
template <typename T>
struct ScriptSlot<T*> {
    static constexpr T kUnwritten = std::numeric_limits<T>::lowest();
    T value = kUnwritten;

    explicit ScriptSlot(ScriptArguments&) {}
    T* pass() { return &value; }
    void answer(ScriptArguments& arguments) const {
        if (value == kUnwritten)
            arguments.add("-");
        else
            arguments.add(static_cast<double>(value));
    }
    static void describe(std::vector<ScriptKind>&) {}
};

template <auto function>
struct ScriptCall;

template <typename Result, typename... Parameter, Result (*function)(Parameter...)>
struct ScriptCall<function> {
    // One for each word that the call takes.
    static std::vector<ScriptKind> kinds() {
        std::vector<ScriptKind> kinds;
        (ScriptSlot<Parameter>::describe(kinds), ...);
        return kinds;
    }

    // Makes the call; the answer is empty for functions that only do something.
    static std::string make(ScriptStage& stage, const std::vector<ScriptValue>& values) {
        ScriptArguments arguments{stage, values};
        // Braces take the values from the first to the last.
        std::tuple<ScriptSlot<Parameter>...> slots{ScriptSlot<Parameter>(arguments)...};
        std::apply(
            [&](auto&... slot) {
                if constexpr (std::is_void_v<Result>)
                    function(slot.pass()...);
                else
                    arguments.add(function(slot.pass()...));
                (slot.answer(arguments), ...);
            },
            slots);
        return arguments.answer;
    }
};

}  // namespace fovix_host
