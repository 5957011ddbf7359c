#include "d2d/ui/IScrollArea.h"
#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

namespace bench {
namespace {

/// Steps to and fro across content that is larger than the view in both directions.
void run_scroll_step(scene_fixture& fixture, const char* name, std::size_t count) {
    if (!selected(name)) return;
    constexpr std::size_t steps = 100'000;
    constexpr D2D_RECT_F view{0, 0, 50, 50};
    const auto area = d2d::ui::create_scroll_area(view, nullptr);
    const std::size_t side = side_of(count);
    const float length = static_cast<float>(side) * 10;
    for (std::size_t i = 0; i < count; ++i) {
        area->add_content(
            fixture.make_leaf(static_cast<float>(i % side) * 10, static_cast<float>(i / side) * 10));
    }
    area->set_content_bounds({0, 0, length, length});
    area->set_margin_scrolled_size(1, 10);
    area->add_margin_scrolled_node(1, fixture.make_leaf(0, 0));
    fixture.show(area->get_node());
    measure(name, steps, [&] {
        for (std::size_t i = 0; i < steps; ++i) {
            area->set_scroll_position(static_cast<float>(i % 40), static_cast<float>(i % 39));
        }
    });
    fixture.show(nullptr);
}

}  // namespace

void run_scroll_workload() {
    scene_fixture fixture;
    run_scroll_step(fixture, "scroll_step_100", 100);
    run_scroll_step(fixture, "scroll_step", 10'000);
}

}  // namespace bench
