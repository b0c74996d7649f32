#include "handle/FovixHandle.h"

#include <cstddef>
#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>

#include "handle/FovixContext.h"

namespace fovix {

namespace {

struct HandleTable {
    std::mutex mutex;
    std::unordered_map<VRHANDLE, ContextPtr> contexts;
};

/// Never destroyed, since exports may be called by exit handlers. Static storage, so that dlclose() leaks
/// nothing.
HandleTable& handleTable() {
    alignas(HandleTable) static std::byte place[sizeof(HandleTable)];
    static HandleTable& table = *new (place) HandleTable;
    return table;
}

ContextPtr findContext(VRHANDLE handle) {
    HandleTable& table = handleTable();
    const std::lock_guard guard(table.mutex);
    const auto found = table.contexts.find(handle);
    return found == table.contexts.end() ? nullptr : found->second;
}

}  // namespace

VRHANDLE registerContext(ContextPtr context) {
    HandleTable& table = handleTable();
    const std::lock_guard guard(table.mutex);
    const VRHANDLE handle = context.get();
    table.contexts.emplace(handle, std::move(context));
    return handle;
}

ContextPtr unregisterContext(VRHANDLE handle) {
    HandleTable& table = handleTable();
    const std::lock_guard guard(table.mutex);
    const auto found = table.contexts.find(handle);
    if (found == table.contexts.end()) return nullptr;
    ContextPtr context = std::move(found->second);
    table.contexts.erase(found);
    // A plain = {} would keep the buckets.
    if (table.contexts.empty()) table.contexts = decltype(table.contexts)();
    return context;
}

ContextPtr contextOf(VRHANDLE handle) {
    if (!handle) {
        printLine("Error VRHANDLE, is NULL\n");
        return nullptr;
    }
    ContextPtr context = findContext(handle);
    if (context && context->magic == kLiveMagic) return context;
    printLine("Error VRHANDLE\n");
    return nullptr;
}

void reportException(const std::exception& exception) {
    printLine("Fovix Error : %s\n", exception.what());
}

}  // namespace fovix
