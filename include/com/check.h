#pragma once

#include "com/api.h"

#include <windows.h>

namespace com {

/// Throws `com::error` for a failed result, with the calling thread's pending error object, which is taken.
[[noreturn]] MOSSHARBOUR_API void throw_error(HRESULT result);

/// Lets a successful result pass (`S_FALSE` is one) and throws `com::error` for a negative one. Call it on
/// the thread of the failed call, directly behind it.
inline void check(HRESULT result) {
    if (result < 0) throw_error(result);
}

}  // namespace com
