// Tables of operations: plain records of function pointers, null where a kind lacks an operation.
#pragma once

namespace fovix {

/// True if an operation is there, while compiling. GCC does not treat a function's address as a constant
/// under -fsanitize; it is still known to be non-null.
template <class Function>
constexpr bool isFilled(Function* operation) {
    return __builtin_constant_p(operation != nullptr) ? operation != nullptr : true;
}

}  // namespace fovix
