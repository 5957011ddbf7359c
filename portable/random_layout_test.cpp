// Layouts of random items: compared with a model, and held against what has to be true of each layout.

#include "portable/testing/layout_fixture.h"
#include "portable/testing/layout_model.h"
#include "support/random_seed.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <iostream>
#include <random>

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;

class random_layouts : public layout_fixture {
protected:
    void SetUp() override {
        layout_fixture::SetUp();
        const auto seed = test_support::random_seed();
        std::cout << "seed " << seed << std::endl;
        random.seed(seed);
    }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    element_metrics next_metrics() {
        element_metrics m{};
        for (int* margin : {&m.margin_left, &m.margin_top, &m.margin_right, &m.margin_bottom}) {
            *margin = below(3) ? 0 : below(12);
        }
        next_sizes(m.min_width, m.preferred_width, m.max_width);
        next_sizes(m.min_height, m.preferred_height, m.max_height);
        return m;
    }
    void next_sizes(int& min, int& preferred, int& max) {
        min = below(40);
        preferred = min + below(60);
        max = below(4) == 0 ? unbounded_extent : preferred + below(80);
        if (below(50) == 0) preferred = max = unbounded_extent;
    }

    /// Mostly what the element says.
    void choose_sizes(item_sizes& item) {
        for (int* size : {&item.min_width, &item.min_height, &item.preferred_width, &item.preferred_height,
                          &item.max_width, &item.max_height}) {
            if (below(4) == 0) *size = next_length();
        }
        for (int* size : {&item.max_width, &item.max_height}) {
            if (below(8) == 0) *size = unbounded_extent;
        }
        for (int* margin : {&item.margin_left, &item.margin_top, &item.margin_right, &item.margin_bottom}) {
            if (below(4) == 0) *margin = below(2) ? below(20) : font_percent(below(150));
        }
    }
    int next_length() {
        switch (below(3)) {
            case 0:
                return use_preferred;
            case 1:
                return font_percent(below(700));
            default:
                return below(100);
        }
    }
    item_alignment next_alignment() { return static_cast<item_alignment>(below(4) - 1); }

    void begin(com::ptr<IMaterializableElement> next) {
        if (layout) dematerialize();
        made.clear();
        layout = std::move(next);
    }

    /// What holds for sizes that come of an extent without the gaps, however they were reached.
    static void expect_fair(const std::vector<model_axis>& items, const std::vector<wide_int>& sizes,
                            wide_int extent, model_share share) {
        wide_int minimum = 0;
        wide_int used = 0;
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (items[i].min > items[i].max) return;  // shrinks to its maximum as soon as there is room
            EXPECT_GE(sizes[i], items[i].min);
            EXPECT_LE(sizes[i], items[i].max);
            minimum += items[i].min;
            used += sizes[i];
        }
        if (minimum >= extent) {
            EXPECT_EQ(used, minimum);  // it overflows by that, and by no more
            return;
        }
        // Shares of a total that is cut off add up to more than all: kept, see the tests of stacks.
        if (model_total_preferred(items) >= model_endless) return;
        EXPECT_LE(used, extent);  // nothing is handed out twice
        const wide_int left = extent - used;
        for (std::size_t i = 0; i < items.size() && left > 0; ++i) {
            const bool is_full = sizes[i] == items[i].max;
            EXPECT_TRUE(is_full || share(items[i].preferred, model_total_preferred(items), left) == 0);
        }
    }

    std::mt19937 random;
};

std::vector<wide_int> numbers_of(const model_axis& h, const model_axis& v) {
    return {h.leading, v.leading, h.trailing, v.trailing,  h.min,
            v.min,     h.max,     v.max,      h.preferred, v.preferred};
}
std::vector<wide_int> numbers_of(const element_metrics& m) {
    const auto fields = fields_of(m);
    return {fields.begin(), fields.end()};
}

model_span across_of(const RECT& rect) {
    return {rect.left, rect.right};
}
model_span down_of(const RECT& rect) {
    return {rect.top, rect.bottom};
}

std::vector<wide_int> sizes_of(const std::vector<model_span>& spans) {
    std::vector<wide_int> sizes;
    for (const auto& [start, end] : spans) sizes.push_back(end - start);
    return sizes;
}

void expect_gaps(const std::vector<model_axis>& items, const std::vector<model_span>& spans) {
    for (std::size_t i = 1; i < items.size(); ++i) {
        EXPECT_EQ(spans[i].start - spans[i - 1].end, std::max(items[i - 1].trailing, items[i].leading));
    }
}

TEST_F(random_layouts, of_stacks_are_as_the_rules_say) {
    for (int round = 0; round < 90'000 && !HasFailure(); ++round) {
        const bool vertical = below(2) == 0;
        const auto stack = create_stack_layout(vertical ? orientation::vertical : orientation::horizontal);
        begin(com::ptr<IMaterializableElement>(stack.get()));
        std::vector<model_axis> along;
        std::vector<model_axis> across;
        std::vector<int> alignments;
        const int count = 1 + below(6);
        for (int i = 0; i < count; ++i) {
            stack_item_details details(next_alignment());
            choose_sizes(details);
            const auto said = next_metrics();
            stack->add_item(details, com::ptr<IElement>(static_cast<IElement*>(&make_stub(said))));
            along.push_back(vertical ? model_vertical(said, details) : model_horizontal(said, details));
            across.push_back(vertical ? model_horizontal(said, details) : model_vertical(said, details));
            // Whatever is neither near nor centred is far in a stack.
            const int alignment = static_cast<int>(details.alignment);
            alignments.push_back(alignment == -1 || alignment == 0 ? alignment : 1);
        }
        const model_axis length = model_stack_along(along);
        const model_axis width = model_stack_across(across);
        EXPECT_EQ(numbers_of(measure()), vertical ? numbers_of(width, length) : numbers_of(length, width));

        const int start = below(50) - 25;
        const int end = start + below(500);
        const int beside_start = below(50) - 25;
        const int beside_end = beside_start + below(150);
        if (vertical) {
            live->arrange(beside_start, start, beside_end, end);
        } else {
            live->arrange(start, beside_start, end, beside_end);
        }
        std::vector<model_span> spans;
        for (std::size_t i = 0; i < made.size(); ++i) {
            const RECT& at = made[i]->placed.back();
            spans.push_back(vertical ? down_of(at) : across_of(at));
            EXPECT_EQ(vertical ? across_of(at) : down_of(at),
                      model_aligned({beside_start, beside_end}, across[i].max, alignments[i]));
        }
        const wide_int extent = end - start - model_stack_gaps(along);
        const auto sizes = model_sizes(along, extent, model_stack_share);
        EXPECT_EQ(spans, model_places(along, sizes, start));
        expect_gaps(along, spans);
        expect_fair(along, sizes_of(spans), extent, model_stack_share);
    }
}

struct placed_item {
    int row, column;
    int vertical_alignment, horizontal_alignment;
    model_axis vertical, horizontal;
};

/// What comes of the tracks of a grid on one axis.
struct arranged_tracks {
    arranged_tracks(const model_tracks& tracks, model_span room)
        : list(model_list(tracks)),
          extent(room.end - room.start - model_grid_gaps(list)),
          spans(model_places(list, model_sizes(list, extent, model_grid_share), room.start)) {
        for (std::size_t i = 0; const auto& [index, track] : tracks) by_index[index] = spans[i++];
    }

    std::vector<model_axis> list;
    wide_int extent;
    std::vector<model_span> spans;
    std::map<int, model_span> by_index;
};

TEST_F(random_layouts, of_grids_are_as_the_rules_say) {
    for (int round = 0; round < 60'000 && !HasFailure(); ++round) {
        const auto grid = create_grid_layout();
        begin(com::ptr<IMaterializableElement>(grid.get()));
        std::vector<placed_item> items;
        model_tracks rows;
        model_tracks columns;
        const int count = 1 + below(9);
        for (int i = 0; i < count; ++i) {
            grid_item_details details(next_alignment(), next_alignment());
            choose_sizes(details);
            details.row = below(4) - 1;
            details.column = below(4) * 3;
            // A span does not make a track: only where there is one already.
            if (below(4) == 0 && rows.contains(details.row)) details.row_span = below(3) ? 2 : 0;
            if (below(4) == 0 && columns.contains(details.column)) details.column_span = below(3) ? 3 : -1;
            const auto said = next_metrics();
            grid->add_item(details, com::ptr<IElement>(static_cast<IElement*>(&make_stub(said))));
            items.push_back({details.row, details.column, static_cast<int>(details.vertical_alignment),
                             static_cast<int>(details.horizontal_alignment), model_vertical(said, details),
                             model_horizontal(said, details)});
            if (details.row_span == 1) model_widen(rows, details.row, items.back().vertical);
            if (details.column_span == 1) model_widen(columns, details.column, items.back().horizontal);
        }
        EXPECT_EQ(numbers_of(measure()),
                  numbers_of(model_grid_axis(model_list(columns)), model_grid_axis(model_list(rows))));

        const model_span down{below(50) - 25, 100 + below(400)};
        const model_span beside{below(50) - 25, 100 + below(400)};
        const arranged_tracks in_rows(rows, down);
        const arranged_tracks in_columns(columns, beside);
        live->arrange(static_cast<int>(beside.start), static_cast<int>(down.start),
                      static_cast<int>(beside.end), static_cast<int>(down.end));
        for (std::size_t i = 0; i < made.size(); ++i) {
            const auto& item = items[i];
            ASSERT_EQ(made[i]->placed.size(), 2u);
            for (const RECT& at : made[i]->placed) {
                EXPECT_EQ(across_of(at), model_aligned(in_columns.by_index.at(item.column),
                                                       item.horizontal.max, item.horizontal_alignment));
                EXPECT_EQ(down_of(at), model_aligned(in_rows.by_index.at(item.row), item.vertical.max,
                                                     item.vertical_alignment));
            }
        }
        for (const auto* axis : {&in_rows, &in_columns}) {
            expect_gaps(axis->list, axis->spans);
            expect_fair(axis->list, sizes_of(axis->spans), axis->extent, model_grid_share);
        }
    }
}

TEST_F(random_layouts, of_any_numbers_do_no_harm) {
    const auto any = [this] { return static_cast<int>(random()); };
    for (int round = 0; round < 50'000; ++round) {
        const auto stack = create_stack_layout(below(2) ? orientation::vertical : orientation::horizontal);
        const auto grid = create_grid_layout();
        begin(com::ptr<IMaterializableElement>(stack.get()));
        stack->add_item({}, com::ptr<IElement>(grid.get()));
        for (int i = 0; i < 4; ++i) {
            auto& element = make_stub({any(), any(), any(), any(), any(), any(), any(), any(), any(), any()});
            grid_item_details details;
            details.row = below(2);
            details.max_width = below(2) ? any() : use_control_value;
            details.margin_left = below(2) ? any() : 0;
            grid->add_item(details, com::ptr<IElement>(static_cast<IElement*>(&element)));
        }
        arrange(any(), any(), any(), any());
        EXPECT_EQ(made.back()->placed.size(), 2u);
    }
}

}  // namespace
