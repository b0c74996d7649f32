// Names of display types, mounts, shapes and draw modes. Any other number is a valid display type, too.
#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace fovix_host {

struct NamedCode {
    std::string_view name;
    int code;
    std::string_view meaning;  // one line for users
};

struct NamedShape : NamedCode {
    int screens = 1;            // with views of their own
    std::string_view mounts{};  // 360-degree type: digits of the supported mounts
};

std::span<const NamedCode> viewTypes();
std::span<const NamedCode> cameraMounts();
std::span<const NamedShape> shapesOf360();
std::span<const NamedShape> shapesOf180();
std::span<const NamedCode> drawModesOf180();
std::span<const NamedCode> drawModesOfInset();
std::span<const NamedCode> twoLensesModes();
std::span<const NamedCode> twoLensesScreens();

template <typename Table>
std::optional<int> codeIn(const Table& table, std::string_view name) {
    const auto row = std::find_if(table.begin(), table.end(), [&](const auto& r) { return r.name == name; });
    return row != table.end() ? std::optional(row->code) : std::nullopt;
}

// "ceiling, wall, floor", for the help and error messages.
template <typename Table>
std::string namesIn(const Table& table) {
    std::string names;
    for (const auto& row : table) names.append(names.empty() ? "" : ", ").append(row.name);
    return names;
}

inline std::optional<int> codeOfViewType(std::string_view name) {
    return codeIn(viewTypes(), name);
}
inline std::string viewTypeNames() {
    return namesIn(viewTypes());
}
// The first name of a type, or its number.
std::string viewTypeName(int type);

// The text of --list.
std::string namesToList();

}  // namespace fovix_host
