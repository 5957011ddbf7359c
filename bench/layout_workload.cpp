#include "measure.h"
#include "scene/layout_stack.h"
#include "scene/testing/fake_element.h"
#include "workloads.h"

#include <random>

namespace bench {

/// Measures and arranges a stack of items some of which have no limit.
void run_layout_workload() {
    using namespace d2d::scene;
    constexpr std::size_t items = 1'000;
    constexpr std::size_t passes = 200;
    std::mt19937 random(1);
    const auto length = [&](unsigned limit) { return static_cast<float>(random() % limit); };
    const auto stack = layout::create_stack(0);
    float room = 0;
    for (std::size_t i = 0; i < items; ++i) {
        const float min = 5 + length(20);
        const float preferred = min + length(30);
        const float max = i % 10 == 0 ? layout::unlimited : preferred + length(50);
        const layout::metrics measured{{2, 1, 2, 1}, {10, min}, {layout::unlimited, max}, {50, preferred}};
        stack->add_item(com::create_object<fakes::fake_element>(measured), i % 2 == 0);
        room += preferred + 10;
    }
    measure("layout_stack", passes * items, [&] {
        for (std::size_t i = 0; i < passes; ++i) {
            keep(stack->measure());
            stack->arrange({0, 0, 100, room});
        }
    });
}

}  // namespace bench
