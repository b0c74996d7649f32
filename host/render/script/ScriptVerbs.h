// The verbs of a script: one for each function of the public interface.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "render/script/ScriptCall.h"

namespace fovix_host {

struct ScriptParameter {
    std::string label;
    ScriptKind kind;
};

struct ScriptVerb {
    std::string_view name;
    std::string_view function;
    std::string_view labels;  // of the parameters, with blanks between
    std::vector<ScriptParameter> parameters;
    std::string (*call)(ScriptStage&, const std::vector<ScriptValue>&);
};

const std::vector<ScriptVerb>& scriptVerbs();

// nullptr for a word that is no verb.
const ScriptVerb* scriptVerb(std::string_view name);

// The form of a script and a line for each verb, for people.
std::string scriptVerbList();

}  // namespace fovix_host
