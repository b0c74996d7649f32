#include "ApiCalls.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <type_traits>

namespace fovix_test {

namespace {

const std::map<std::string, std::string> kShortNames = {
    {"adjust", "AutoAdjust"},      {"background", "SetBackground"},
    {"cruise", "StartAutoCruise"}, {"down", "OnTouchDown"},
    {"fling", "OnTouchFling"},     {"init", "Init"},
    {"lens", "SetFecParams"},      {"lenses", "SetTwoLensesDrawMode"},
    {"logic", "SetLogicZoom"},     {"mode", "SetDrawMode"},
    {"mount", "SetCameraMount"},   {"move", "OnTouchMove"},
    {"pinch", "OnTouchPinch"},     {"ptz", "SetPTZ_SubScreen"},
    {"rect", "DisplayRect"},       {"scale", "OnTouchPinchScale"},
    {"sense", "OnAccelerometer"},  {"set", "SetRotateZoomRecoverMode"},
    {"set180", "SetPTZFor180VR"},  {"shape", "SetShape"},
    {"stop", "StopAutoCruise"},    {"target", "DisplayTarget"},
    {"turn", "OnOrientation"},     {"type", "SetType"},
    {"up", "OnTouchUp"},           {"view", "SetRotateZoom_SubScreen"}};

/// What the arguments of one call are taken from, each list in its order.
struct Source {
    Numbers::const_iterator number;
    Numbers::iterator result, end;
    const unsigned char* data;
};

template <class Type>
struct Argument {
    static constexpr char kKind = std::is_integral_v<Type> ? 'i' : std::is_same_v<Type, float> ? 'f' : 'd';
    Type value;
    void take(Source& from) { value = static_cast<Type>(*from.number++); }
    Type pass() { return value; }
    void bringBack() {}
};

template <class Type>
struct Argument<Type*> {
    static constexpr char kKind = 'r';
    Type value = 0;
    double* to = nullptr;  ///< null when there are no more results
    void take(Source& from) {
        if (from.result == from.end) return;
        to = &*from.result++;
        value = static_cast<Type>(*to);
    }
    Type* pass() { return to ? &value : nullptr; }
    void bringBack() {
        if (to) *to = value;
    }
};

template <>
struct Argument<const unsigned char*> {
    static constexpr char kKind = 'p';
    const unsigned char* value;
    void take(Source& from) { value = from.data; }
    const unsigned char* pass() { return value; }
    void bringBack() {}
};

template <class Result, class... Types>
ApiCall callOf(Result (*function)(VRHANDLE, Types...)) {
    const auto make = [function](VRHANDLE handle, const Numbers& numbers, Numbers& results,
                                 const unsigned char* data) {
        Source from = {numbers.begin(), results.begin(), results.end(), data};
        return std::apply(
            [&](auto... argument) -> double {
                (argument.take(from), ...);
                double returned = 0.0;
                if constexpr (std::is_void_v<Result>)
                    function(handle, argument.pass()...);
                else
                    returned = function(handle, argument.pass()...);
                (argument.bringBack(), ...);
                return returned;
            },
            std::tuple<Argument<Types>...>());
    };
    return {make, {Argument<Types>::kKind...}, !std::is_void_v<Result>};
}

/// The few that take no handle.
template <class Function>
ApiCall callOf(Function) {
    return {};
}

}  // namespace

const std::map<std::string, ApiCall>& apiCalls() {
    static const std::map<std::string, ApiCall> calls = [] {
        std::map<std::string, ApiCall> all = {
#define EXPORT(function) {#function, callOf(function)},
#include "exports.inc"
#undef EXPORT
        };
        std::erase_if(all, [](const auto& call) { return !call.second.make; });
        return all;
    }();
    return calls;
}

std::vector<ScriptCall> callsIn(const std::string& script) {
    std::vector<ScriptCall> calls;
    std::istringstream in(script);
    for (std::string word; in >> word;) {
        char* end = nullptr;
        const double number = std::strtod(word.c_str(), &end);  // nan and inf, too
        if (*end)
            calls.push_back({word, {}});
        else
            calls.at(calls.size() - 1).numbers.push_back(number);
    }
    return calls;
}

const ApiCall& apiCallOf(const ScriptCall& call) {
    const auto shortName = kShortNames.find(call.verb);
    const std::string name = shortName == kShortNames.end() ? call.verb : shortName->second;
    auto found = apiCalls().find(name);
    if (found == apiCalls().end()) found = apiCalls().find("Fovix_" + name);
    if (found == apiCalls().end()) throw std::logic_error("no such call: " + call.verb);
    const auto isNumber = [](char kind) { return kind == 'i' || kind == 'f' || kind == 'd'; };
    const std::string& kinds = found->second.kinds;
    if (std::count_if(kinds.begin(), kinds.end(), isNumber) != std::ssize(call.numbers))
        throw std::logic_error("not the numbers of the call: " + call.verb);
    return found->second;
}

void play(VRHANDLE handle, const std::string& script, const Verbs& verbs) {
    for (const ScriptCall& call : callsIn(script)) {
        const auto verb = verbs.find(call.verb);
        Numbers results(6);
        if (verb != verbs.end())
            verb->second(call.numbers);
        else
            apiCallOf(call).make(handle, call.numbers, results, nullptr);
    }
}

}  // namespace fovix_test
