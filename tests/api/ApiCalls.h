// Every export by its name, called with numbers: what scripts, storms and the handle tests are made of.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Fovix.h"

namespace fovix_test {

using Numbers = std::vector<double>;

/// An export whose first argument is a handle.
struct ApiCall {
    /// Makes the call. Numbers go to its arguments in order, data to a picture's bytes; results receive what
    /// it writes through pointers. Returns what the export returns, or 0.
    std::function<double(VRHANDLE, const Numbers&, Numbers& results, const unsigned char* data)> make;
    std::string kinds;  ///< of its arguments: i, f and d for int, float and double, p for data, r for results
    bool returns = false;  ///< a value
};

const std::map<std::string, ApiCall>& apiCalls();

/// Words that a script has besides the exports, such as "draw".
using Verbs = std::map<std::string, std::function<void(const Numbers&)>>;

/// A call of a script: the name of an export, with or without "Fovix_", or one of the short names in
/// ApiCalls.cpp; its numbers follow it.
struct ScriptCall {
    std::string verb;
    Numbers numbers;
};
std::vector<ScriptCall> callsIn(const std::string& script);

/// Finds a call by what scripts call it; throws std::logic_error for unknown ones and wrong numbers of
/// numbers.
const ApiCall& apiCallOf(const ScriptCall& call);

/// Makes the calls of a script one after the other.
void play(VRHANDLE handle, const std::string& script, const Verbs& verbs = {});

}  // namespace fovix_test
