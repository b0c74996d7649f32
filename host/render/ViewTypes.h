// The display types that the program knows by name; every number is a type too.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include <Fovix.h>

namespace fovix_host {

struct ViewType {
    std::string_view name;
    int code;
};

inline constexpr std::array viewTypes{
    ViewType{"original", FOVIX_TYPE_ORIGINAL},
    ViewType{"fisheye", FOVIX_TYPE_ORIGINAL},
    ViewType{"korvel", FOVIX_TYPE_KORVEL},
};

inline std::optional<int> codeOfViewType(std::string_view name) {
    for (const ViewType& type : viewTypes)
        if (type.name == name) return type.code;
    return std::nullopt;
}

// "original, fisheye, korvel", for help and error sentences.
inline std::string viewTypeNames() {
    std::string names;
    for (const ViewType& type : viewTypes) names.append(names.empty() ? "" : ", ").append(type.name);
    return names;
}

}  // namespace fovix_host
