#include "button_list.h"
#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

namespace bench {
namespace {

/// Buttons that draw themselves anew, with a label that changes its brush each time.
void run_refresh(scene_fixture& fixture) {
    if (!selected("button_refresh")) return;
    constexpr std::size_t refreshes = 20'000;
    const button_list list = make_buttons(100);
    fixture.show(list.parent);
    measure("button_refresh", refreshes, [&] {
        for (std::size_t i = 0; i < refreshes; ++i) {
            list.buttons[i % list.buttons.size()]->set_checked(i / list.buttons.size() % 2 == 0);
        }
    });
    fixture.show(nullptr);
}

void run_create(scene_fixture& fixture) {
    if (!selected("create_button")) return;
    constexpr std::size_t count = 2'000;
    stopwatch watch;
    for (int i = 0; i < stopwatch::repetitions; ++i) {
        button_list list{d2d::scene::create_node(), {}};
        list.buttons.reserve(count);
        fixture.show(list.parent);
        watch.run_once([&] { add_buttons(list, count); });
        fixture.show(nullptr);
    }
    report("create_button", watch.nanoseconds(), count);
}

}  // namespace

void run_button_workloads() {
    scene_fixture fixture;
    run_refresh(fixture);
    run_create(fixture);
}

}  // namespace bench
