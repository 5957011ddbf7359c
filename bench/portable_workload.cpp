#include "measure.h"
#include "portable/testing/stub_element.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/IStackLayout.h"
#include "workloads.h"

#include <random>

namespace bench {
namespace {

using namespace ui::mossHarbour;

/// An element that costs nothing itself.
class fixed_element
    : public com::base_object<com::object_base, IElement, IMaterializableElement, IMaterializedElement> {
public:
    explicit fixed_element(const element_metrics& says) noexcept : said(says) {}

    com::ptr<IMaterializedElement> materialize(materialization_context&) override { return this; }
    void dematerialize(materialization_context&) override {}
    element_metrics measure(measure_context&) override { return said; }
    void arrange(int left, int, int, int) override { last_left = left; }

    int last_left = 0;

protected:
    ~fixed_element() = default;

private:
    const element_metrics said;
};

class random_elements {
public:
    [[nodiscard]] com::ptr<IElement> next() {
        element_metrics m{1, 1, 1, 1, 0, 0, 0, 0, 0, 0};
        fill(m.min_width, m.preferred_width, m.max_width);
        fill(m.min_height, m.preferred_height, m.max_height);
        return com::ptr<IElement>(static_cast<IElement*>(com::create_object<fixed_element>(m).get()));
    }

private:
    void fill(int& min, int& preferred, int& max) {
        min = 5 + length(20);
        preferred = min + length(30);
        max = length(10) == 0 ? unbounded_extent : preferred + length(50);
    }
    int length(unsigned limit) { return static_cast<int>(random() % limit); }

    std::mt19937 random{1};
};

/// Measures and arranges a layout in what it prefers and a tenth more.
void run(const char* name, IUnknown* layout, std::size_t items, std::size_t passes) {
    stubs::unused_context context;
    const com::ptr<IMaterializableElement> element(layout);
    const auto live = element->materialize(context);
    measure(name, passes * items, [&] {
        for (std::size_t i = 0; i < passes; ++i) {
            const auto m = live->measure(context);
            live->arrange(0, 0, m.preferred_width * 11 / 10, m.preferred_height * 11 / 10);
        }
    });
    element->dematerialize(context);
}

}  // namespace

void run_portable_workloads() {
    random_elements elements;
    const auto stack = create_stack_layout(orientation::vertical);
    for (int i = 0; i < 1'000; ++i) stack->add_item({}, elements.next());
    run("portable_stack", stack.get(), 1'000, 100);

    const auto grid = create_grid_layout();
    for (int row = 0; row < 50; ++row) {
        for (int column = 0; column < 100; ++column) {
            grid_item_details details;
            details.row = row;
            details.column = column;
            grid->add_item(details, elements.next());
        }
    }
    run("portable_grid", grid.get(), 5'000, 20);
}

}  // namespace bench
