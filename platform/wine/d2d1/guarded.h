#pragma once

#include <windows.h>

#include <exception>
#include <new>

namespace completion {

/// Nothing thrown leaves through a table of operations.
template <typename Work>
[[nodiscard]] HRESULT guarded(Work work) noexcept {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception&) {
        return E_FAIL;
    }
}

}  // namespace completion
