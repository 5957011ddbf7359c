#pragma once

#include <windows.h>

#include <new>

namespace completion {

/// A failed call, on its way to the edge of the completion.
struct failure {
    HRESULT result;
};

inline void check(HRESULT result) {
    if (FAILED(result)) {
        throw failure{result};
    }
}

/// Runs an operation at the edge of the completion: what it throws becomes the result.
template <typename Operation>
[[nodiscard]] HRESULT guarded(Operation operation) noexcept {
    try {
        return operation();
    } catch (const failure& failed) {
        return failed.result;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace completion
