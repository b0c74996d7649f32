// Live handles: how an export finds the context behind a VRHANDLE.
//
// A process-wide table lists the live contexts, so that stale or foreign handles are rejected without being
// dereferenced. A caller holds a reference for the duration of the call, even if another thread releases the
// handle meanwhile. Every export goes through withContext, which also keeps exceptions inside the library.
#pragma once

#include <exception>
#include <memory>

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "base/Numbers.h"

namespace fovix {

using ContextPtr = std::shared_ptr<FovixContext>;

/// Puts a new context into the table; its address is the handle.
VRHANDLE registerContext(ContextPtr context);

/// Removes a context from the table; returns null when the handle is not live. Prints nothing.
ContextPtr unregisterContext(VRHANDLE handle);

/// The handle check: returns null after a line for null and for everything that is not a live handle.
ContextPtr contextOf(VRHANDLE handle);

void reportException(const std::exception& exception);

/// Runs operation(context) behind the handle check and returns its result; failure without a live handle.
template <class Result, class Operation>
Result withContext(VRHANDLE handle, Result failure, Operation&& operation) {
    try {
        const ContextPtr context = contextOf(handle);
        return context ? operation(*context) : failure;
    } catch (const std::exception& exception) {
        reportException(exception);
        return failure;
    }
}

/// The same for exports without a result; returns whether the handle was live.
template <class Operation>
bool withContext(VRHANDLE handle, Operation&& operation) {
    try {
        const ContextPtr context = contextOf(handle);
        if (context) operation(*context);
        return context != nullptr;
    } catch (const std::exception& exception) {
        reportException(exception);
        return true;
    }
}

/// Runs operation(context) behind the handle check when all values are finite, so that no view ever holds
/// others; exportName appears in the line that refuses them.
template <class Operation, class... Values>
void withFinite(VRHANDLE handle, const char* exportName, Operation&& operation, Values... values) {
    withContext(handle, [&](FovixContext& context) {
        if (allFinite(values...)) return operation(context);
        printLine("%s() Error : a value is not finite\n", exportName);
    });
}

}  // namespace fovix
