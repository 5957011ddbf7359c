#include "com/diagnostics.h"

#include <atomic>

namespace com {
namespace {
std::atomic<long> live_objects = 0;
}

long live_object_count() noexcept {
    return live_objects.load(std::memory_order_relaxed);
}

void detail::count_object(long change) noexcept {
    live_objects.fetch_add(change, std::memory_order_relaxed);
}

}  // namespace com
