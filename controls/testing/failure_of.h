#pragma once

#include "com/error.h"

#include <windows.h>

namespace d2d::fakes {

/// What a call throws as `com::error`; `S_OK` for nothing.
template <class Call>
[[nodiscard]] HRESULT failure_of(Call&& call) {
    try {
        call();
    } catch (const com::error& failed) {
        return failed.hresult;
    }
    return S_OK;
}

}  // namespace d2d::fakes
