#include "button_list.h"
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

/// Measures what `show_elements` leaves in memory. What it shows stays, so that later figures are not of
/// memory that earlier ones have given back.
template <class Show>
void measure_bytes(const char* name, std::size_t count, Show&& show_elements) {
    const std::size_t before = private_bytes();
    show_elements();
    const std::size_t after = private_bytes();
    std::printf("%s\t%.0f\t%zu\n", name, static_cast<double>(after - before) / static_cast<double>(count),
                count);
}

}  // namespace

void run_memory_workload() {
    scene_fixture nodes;
    if (selected("bytes_per_node")) {
        constexpr std::size_t count = 100'000;
        measure_bytes("bytes_per_node", count, [&] { nodes.show(nodes.make_flat(count)); });
    }
    if (!selected("bytes_per_button")) return;
    constexpr std::size_t count = 10'000;
    scene_fixture buttons;
    button_list list = make_buttons(1);  // and the style with it
    measure_bytes("bytes_per_button", count, [&] {
        list = make_buttons(count);
        buttons.show(list.parent);
    });
}

}  // namespace bench
