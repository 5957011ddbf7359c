#pragma once

#include "com/interface_traits.h"

namespace d2d::scene {

/// Runs something later on the thread of a host, outside the present event. Reached through `QueryService` of
/// a node in a view, with this interface's identifier as the service.
struct IDeferredExecutionService : IUnknown {
    /// Arranges that `function(data)` is called from the host's message loop. There is no cancelling, and no
    /// reference is taken: `data` has to stay valid until then. May be called from any thread.
    virtual void defer_execution(void* data, void (*function)(void*)) = 0;
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IDeferredExecutionService> : com::extends<> {
    static constexpr GUID id = com::guid("E91C1E59-EEE3-48A6-9FBE-C389CB4F55E0");
};
