// Binds a function to a verb: the types of its parameters determine the arguments, and what it returns or
// writes through pointers becomes the result.
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

// What the calls of a script act on.
struct ScriptStage {
    View& view;
    ScriptFrames frames;
};

enum class ScriptKind { kWhole, kNumber, kColour, kText };

struct ScriptValue {
    double number = 0;
    std::string text;
};

// Takes the values of a line one by one and collects the result.
struct ScriptArguments {
    ScriptStage& stage;
    const std::vector<ScriptValue>& values;
    std::size_t used = 0;
    std::string result{};

    const ScriptValue& take() { return values.at(used++); }
    void add(const std::string& word) { result.append(result.empty() ? "" : " ").append(word); }
    void add(const char* word) { add(std::string(word)); }
    void add(double number) {
        char text[32];
        std::snprintf(text, sizeof text, "%.6g", number);
        add(std::string(text));
    }
};

// A parameter of a function during a call: by default, a number.
template <typename T>
struct ScriptSlot {
    T value;

    explicit ScriptSlot(ScriptArguments& arguments) : value(static_cast<T>(arguments.take().number)) {}
    T pass() { return value; }
    void result(ScriptArguments&) const {}
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
    void result(ScriptArguments&) const {}
    static void describe(std::vector<ScriptKind>& kinds) { kinds.push_back(ScriptKind::kText); }
};

template <>
struct ScriptSlot<ScriptStage&> {
    ScriptStage& stage;

    explicit ScriptSlot(ScriptArguments& arguments) : stage(arguments.stage) {}
    ScriptStage& pass() { return stage; }
    void result(ScriptArguments&) const {}
    static void describe(std::vector<ScriptKind>&) {}
};

template <>
struct ScriptSlot<VRHANDLE> {
    VRHANDLE handle;

    explicit ScriptSlot(ScriptArguments& arguments) : handle(arguments.stage.view.handle()) {}
    VRHANDLE pass() { return handle; }
    void result(ScriptArguments&) const {}
    static void describe(std::vector<ScriptKind>&) {}
};

// A result that is written through a pointer; "-" if the library does not write it.
template <typename T>
struct ScriptSlot<T*> {
    static constexpr T kUnwritten = std::numeric_limits<T>::lowest();
    T value = kUnwritten;

    explicit ScriptSlot(ScriptArguments&) {}
    T* pass() { return &value; }
    void result(ScriptArguments& arguments) const {
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
    // One for each argument of the verb.
    static std::vector<ScriptKind> kinds() {
        std::vector<ScriptKind> kinds;
        (ScriptSlot<Parameter>::describe(kinds), ...);
        return kinds;
    }

    // Makes the call; returns an empty text for functions without results.
    static std::string make(ScriptStage& stage, const std::vector<ScriptValue>& values) {
        ScriptArguments arguments{stage, values};
        // Brace initialisation guarantees left-to-right evaluation.
        std::tuple<ScriptSlot<Parameter>...> slots{ScriptSlot<Parameter>(arguments)...};
        std::apply(
            [&](auto&... slot) {
                if constexpr (std::is_void_v<Result>)
                    function(slot.pass()...);
                else
                    arguments.add(function(slot.pass()...));
                (slot.result(arguments), ...);
            },
            slots);
        return arguments.result;
    }
};

}  // namespace fovix_host
