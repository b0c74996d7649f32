// Display type and display parameters of a handle. Any thread.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// Whether an index that the panorama or the 180-degree view takes lies in 0..last; prints a line when it
/// does not.
bool isInRange(const char* what, int index, int last);

/// Calls an operation of the model; gives whether there is a model that has it.
template <class Operation, class... Arguments>
bool tellModel(const Display& display, Operation FovixModelOperations::*operation, Arguments... arguments) {
    if (!display.model || !(display.model->operations.*operation)) return false;
    (display.model->operations.*operation)(*display.model, arguments...);
    return true;
}

/// What an operation of the model says; absent where there is no model that has it.
template <class Result>
Result askModel(const Display& display, Result (*FovixModelOperations::*operation)(FovixModel&),
                Result absent) {
    if (!display.model || !(display.model->operations.*operation)) return absent;
    return (display.model->operations.*operation)(*display.model);
}

}  // namespace fovix
