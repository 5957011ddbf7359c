#include "d2d/ui/ILabelList.h"
#include "d2d/ui/ITextLabel.h"
#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

#include <string>
#include <vector>

namespace bench {
namespace {

constexpr D2D_RECT_F view{0, 0, 200, 400};

std::vector<com::ptr<d2d::ui::ITextLabel>> make_labels(std::size_t count) {
    std::vector<com::ptr<d2d::ui::ITextLabel>> labels;
    labels.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        labels.push_back(d2d::ui::create_text_label("row " + std::to_string(i), nullptr, nullptr));
    return labels;
}

void append(d2d::ui::ILabelList& list, const std::vector<com::ptr<d2d::ui::ITextLabel>>& labels) {
    int value = 0;
    for (const auto& label : labels) list.insert_item(-1, label.get(), value++);
}

/// Adds rows, one by one, to a list that is shown.
void run_fill(scene_fixture& fixture, const char* name, std::size_t count) {
    if (!selected(name)) return;
    stopwatch watch;
    for (int i = 0; i < stopwatch::repetitions; ++i) {
        const auto labels = make_labels(count);
        const auto list = d2d::ui::create_label_list(nullptr);
        list->arrange(view);
        fixture.show(list->get_node());
        watch.run_once([&] { append(*list, labels); });
        fixture.show(nullptr);
    }
    report(name, watch.nanoseconds(), count);
}

/// Takes all rows away.
void run_clear(scene_fixture& fixture, const char* name, std::size_t count) {
    if (!selected(name)) return;
    stopwatch watch;
    const auto list = d2d::ui::create_label_list(nullptr);
    list->arrange(view);
    fixture.show(list->get_node());
    for (int i = 0; i < stopwatch::repetitions; ++i) {
        append(*list, make_labels(count));
        watch.run_once([&] { list->clear(); });
    }
    fixture.show(nullptr);
    report(name, watch.nanoseconds(), count);
}

/// Moves the mouse to and fro between two rows and presses there.
void run_select(scene_fixture& fixture, const char* name, std::size_t count) {
    if (!selected(name)) return;
    namespace mouse = d2d::input::mouse;
    constexpr std::size_t times = 1'000;
    const auto list = d2d::ui::create_label_list(nullptr);
    list->arrange(view);
    append(*list, make_labels(count));
    fixture.show(list->get_node());
    auto& edge = fixture.lower_edge();
    measure(name, times, [&] {
        for (std::size_t i = 0; i < times; ++i) {
            const D2D_POINT_2F at{12, i % 2 == 0 ? 8.0f : 44.0f};
            edge.on_mouse_event({mouse::event_type::move, {}, 0, at, 0});
            edge.on_mouse_event({mouse::event_type::button_down, mouse::button::left, 1, at, 0});
        }
    });
    fixture.show(nullptr);
}

}  // namespace

void run_list_workloads() {
    scene_fixture fixture;
    run_fill(fixture, "list_fill_1000", 1'000);
    run_fill(fixture, "list_fill", 10'000);
    run_select(fixture, "list_select_1000", 1'000);
    run_select(fixture, "list_select", 10'000);
    run_clear(fixture, "list_clear_1000", 1'000);
    run_clear(fixture, "list_clear", 10'000);
}

}  // namespace bench
