// Live handles: how an export finds the context behind a VRHANDLE.
//
// A process-wide table lists the contexts that live, so that memory which is not ours, or not any more, is
// recognised without being read. Whoever found a context shares it until it is done, even when another thread
// releases the handle meanwhile. Every export goes through withContext, which also keeps exceptions inside
// the library.
#pragma once

#include <exception>
#include <memory>
#include <type_traits>
#include <utility>

#include "Fovix.h"
#include "base/Diagnostics.h"

namespace fovix {

using ContextPtr = std::shared_ptr<FovixContext>;

/// Puts a new context into the table; its address is the handle.
VRHANDLE registerContext(ContextPtr context);

/// Takes a context out of the table; null when the handle is not a live one. Prints nothing.
ContextPtr unregisterContext(VRHANDLE handle);

/// The handle check: null and a line on standard output for null and for anything that is not a live handle.
ContextPtr contextOf(VRHANDLE handle);

void reportException(const std::exception& exception);

/// Runs operation(context) behind the handle check and gives its result; failure without a live handle.
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

/// The same for exports without a result; gives whether the handle was a live one.
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

}  // namespace fovix
