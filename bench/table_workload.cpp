#include "d2d/ui/ILabelTable.h"
#include "d2d/ui/ITextLabel.h"
#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

#include <array>
#include <string>

#include <windows.h>

namespace bench {
namespace {

constexpr std::size_t columns = 5;

/// A table with labels for its rows, which stay the same.
class table_fixture {
public:
    table_fixture(scene_fixture& scene, std::size_t row_count) : scene_(scene), labels_(row_count) {
        for (std::size_t i = 0; i < row_count; ++i) {
            for (std::size_t k = 0; k < columns; ++k) {
                const std::string text = std::to_string(i * 7919 % 10'007 * (k + 1));
                labels_[i][k] = d2d::ui::create_text_label(text, nullptr, nullptr);
            }
        }
        table->arrange({0, 0, 400, 400});
        scene_.show(table->get_node());
    }
    table_fixture(const table_fixture&) = delete;
    table_fixture& operator=(const table_fixture&) = delete;
    ~table_fixture() { scene_.show(nullptr); }

    void fill() {
        table->begin_update();
        for (std::size_t i = 0; i < labels_.size(); ++i) {
            const auto& row = labels_[i];
            table->add_row(static_cast<int>(i * 7919 % 10'007), static_cast<int>(i),
                           d2d::ui::ILabelTable::body,
                           {row[0].get(), row[1].get(), row[2].get(), row[3].get(), row[4].get()});
        }
        table->end_update();
    }

    void click(float y, std::uint32_t flags) {
        using namespace d2d::input::mouse;
        scene_.lower_edge().on_mouse_event({event_type::button_down, button::left, flags, {50, y}, 0});
    }

    const com::ptr<d2d::ui::ILabelTable> table = d2d::ui::create_label_table(nullptr);

private:
    scene_fixture& scene_;
    std::vector<std::array<com::ptr<d2d::ui::ITextLabel>, columns>> labels_;
};

/// Rows that come into an empty table, several times where they are few.
void run_fill(scene_fixture& scene, const char* name, std::size_t rows, std::size_t times) {
    if (!selected(name)) return;
    table_fixture fixture(scene, rows);
    stopwatch watch;
    for (int i = 0; i < stopwatch::repetitions; ++i) {
        watch.run_once([&] {
            for (std::size_t k = 0; k < times; ++k) {
                fixture.table->clear();
                fixture.fill();
            }
        });
    }
    report(name, watch.nanoseconds(), rows * times);
}

/// Turns the order of the rows round.
void run_sort(scene_fixture& scene, const char* name, std::size_t rows, std::size_t times) {
    if (!selected(name)) return;
    table_fixture fixture(scene, rows);
    fixture.fill();
    int direction = 1;
    measure(name, rows * times, [&] {
        for (std::size_t i = 0; i < times; ++i) {
            direction = -direction;
            fixture.table->begin_update();
            fixture.table->set_compare([=](int a, int b) { return direction * (a - b); });
            fixture.table->end_update();
        }
    });
}

/// Clicks on one row and then on another: a row alone visits all of them, Control only its own.
void run_select(scene_fixture& scene, const char* name, std::size_t rows, std::uint32_t flags) {
    if (!selected(name)) return;
    constexpr std::size_t clicks = 2'000;
    table_fixture fixture(scene, rows);
    fixture.fill();
    fixture.table->enable_multi_select();
    measure(name, clicks, [&] {
        for (std::size_t i = 0; i < clicks; ++i) fixture.click(i % 2 == 0 ? 25.0f : 105.0f, flags);
    });
}

}  // namespace

void run_table_workloads() {
    scene_fixture fixture;
    run_fill(fixture, "table_fill_1000", 1'000, 10);
    run_fill(fixture, "table_fill", 10'000, 1);
    run_sort(fixture, "table_sort_1000", 1'000, 10);
    run_sort(fixture, "table_sort", 10'000, 1);
    run_select(fixture, "table_select_1000", 1'000, MK_LBUTTON);
    run_select(fixture, "table_select", 10'000, MK_LBUTTON);
    run_select(fixture, "table_toggle_1000", 1'000, MK_LBUTTON | MK_CONTROL);
    run_select(fixture, "table_toggle", 10'000, MK_LBUTTON | MK_CONTROL);
}

}  // namespace bench
