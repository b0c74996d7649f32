// The verbs of scripts: one for each function of the public interface.
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
    std::string_view labels;  // of the parameters, separated by blanks
    std::vector<ScriptParameter> parameters;
    std::string (*call)(ScriptStage&, const std::vector<ScriptValue>&);
};

const std::vector<ScriptVerb>& scriptVerbs();

// nullptr if there is no such verb.
const ScriptVerb* scriptVerb(std::string_view name);

// The text of --list-verbs.
std::string scriptVerbList();

}  // namespace fovix_host
