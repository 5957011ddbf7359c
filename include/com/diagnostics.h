#pragma once

#include "com/api.h"

namespace com {

/// How many objects of the library's object model are alive in this process: created by `com::create_object`
/// and not yet destroyed. For tests that look for leaks; may be called from any thread.
[[nodiscard]] MOSSHARBOUR_API long live_object_count() noexcept;

namespace detail {
MOSSHARBOUR_API void count_object(long change) noexcept;
}

}  // namespace com
