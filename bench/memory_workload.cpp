#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

#include <cstdio>

#include <windows.h>

namespace bench {
namespace {

/// The memory that this process has committed for itself. Asked of the address space page by page: Wine's
/// process counters do not have it.
std::size_t private_bytes() {
    std::size_t total = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; VirtualQuery(at, &region, sizeof(region)) != 0;
         at = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) total += region.RegionSize;
    }
    return total;
}

}  // namespace

void run_memory_workload() {
    if (!selected("bytes_per_node")) return;
    constexpr std::size_t count = 100'000;
    scene_fixture fixture;
    const std::size_t before = private_bytes();
    const auto root = fixture.make_flat(count);
    fixture.show(root);
    const std::size_t after = private_bytes();
    std::printf("bytes_per_node\t%.0f\t%zu\n",
                static_cast<double>(after - before) / static_cast<double>(count), count);
}

}  // namespace bench
