// Layouts of random items, compared with a model that follows the rules one after the other.

#include "portable/testing/layout_fixture.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <map>
#include <random>

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;
using wide_int = std::int64_t;

constexpr wide_int endless = unbounded_extent;

/// On one axis.
struct model_item {
    wide_int leading, min, preferred, max, trailing;
    int alignment;
};

wide_int add_up(wide_int a, wide_int b) {
    return a >= endless || b >= endless ? endless : a + b;
}

/// Sizes by the rounds of a stack (float) or of a grid (double).
template <class Share>
std::vector<wide_int> grown(const std::vector<model_item>& items, wide_int extent, Share share) {
    wide_int total = 0;
    for (const auto& item : items) total = add_up(total, item.preferred);
    std::vector<wide_int> sizes;
    for (const auto& item : items) {
        sizes.push_back(item.min);
        extent -= item.min;
    }
    while (extent > 0) {
        wide_int given = 0;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const wide_int part = share(items[i].preferred, total, extent);
            const wide_int more = std::min(items[i].max - sizes[i], part);
            sizes[i] += more;
            given += more;
        }
        if (given == 0) break;
        extent -= given;
    }
    return sizes;
}

wide_int share_of_stack(wide_int preferred, wide_int total, wide_int remaining) {
    if (total == 0) return 0;
    return static_cast<wide_int>((static_cast<float>(preferred) / static_cast<float>(total)) *
                                 static_cast<float>(remaining));
}

wide_int share_of_grid(wide_int preferred, wide_int total, wide_int remaining) {
    if (total == 0) return 0;
    const double weight = static_cast<double>(static_cast<float>(preferred) / static_cast<float>(total));
    return static_cast<wide_int>(weight * static_cast<double>(remaining));
}

struct span {
    wide_int start, end;
};

std::vector<span> follow(const std::vector<model_item>& items, const std::vector<wide_int>& sizes,
                         wide_int start) {
    std::vector<span> result;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) start += std::max(items[i - 1].trailing, items[i].leading);
        result.push_back({start, start + sizes[i]});
        start += sizes[i];
    }
    return result;
}

class random_layouts : public layout_fixture {
protected:
    void SetUp() override {
        layout_fixture::SetUp();
        const auto seed = std::random_device{}();
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

    void begin(com::ptr<IMaterializableElement> next) {
        if (layout) dematerialize();
        made.clear();
        layout = std::move(next);
    }

    std::mt19937 random;
};

model_item axis_of(const element_metrics& m, bool vertical, int alignment) {
    if (vertical) {
        return {m.margin_top, m.min_height, m.preferred_height, m.max_height, m.margin_bottom, alignment};
    }
    return {m.margin_left, m.min_width, m.preferred_width, m.max_width, m.margin_right, alignment};
}

span across_stack(const model_item& item, span room) {
    const wide_int extent = room.end - room.start;
    if (item.max >= extent) return room;
    wide_int start = room.start + extent - item.max;
    if (item.alignment == -1) start = room.start;
    if (item.alignment == 0) start = room.start + (extent - item.max) / 2;
    return {start, start + item.max};
}

span in_cell(const model_item& item, span room) {
    const wide_int extent = room.end - room.start;
    if (item.max >= extent) return room;
    wide_int start = room.start;
    if (item.alignment == 0) start = room.start + (extent - item.max) / 2;
    if (item.alignment == 1) start = room.end - item.max;
    return {start, start + item.max};
}

void expect_span(span expected, LONG start, LONG end) {
    EXPECT_EQ(expected.start, start);
    EXPECT_EQ(expected.end, end);
}

TEST_F(random_layouts, of_stacks_are_as_the_rules_say) {
    for (int round = 0; round < 20'000 && !HasFailure(); ++round) {
        const bool vertical = below(2) == 0;
        const auto stack = create_stack_layout(vertical ? orientation::vertical : orientation::horizontal);
        begin(com::ptr<IMaterializableElement>(stack.get()));
        std::vector<model_item> along;
        std::vector<model_item> across;
        const int count = 1 + below(6);
        for (int i = 0; i < count; ++i) {
            const int alignment = below(4) - 1;
            const auto said = next_metrics();
            stack->add_item(stack_item_details(static_cast<item_alignment>(alignment)),
                            com::ptr<IElement>(static_cast<IElement*>(&make_stub(said))));
            along.push_back(axis_of(said, vertical, alignment));
            across.push_back(axis_of(said, !vertical, alignment));
        }
        const element_metrics measured = measure();
        wide_int gaps = 0;
        wide_int min = 0;
        for (std::size_t i = 0; i < along.size(); ++i) {
            if (i > 0) gaps += std::max(along[i - 1].trailing, along[i].leading);
            min += along[i].min;
        }
        EXPECT_EQ(vertical ? measured.min_height : measured.min_width, min + gaps);

        const span room{below(50) - 25, 100 + below(400)};
        const span beside{below(50) - 25, 100 + below(100)};
        const auto sizes = grown(along, room.end - room.start - gaps, share_of_stack);
        const auto places = follow(along, sizes, room.start);
        const auto edge = [](wide_int value) { return static_cast<int>(value); };
        if (vertical) {
            arrange(edge(beside.start), edge(room.start), edge(beside.end), edge(room.end));
        } else {
            arrange(edge(room.start), edge(beside.start), edge(room.end), edge(beside.end));
        }
        for (std::size_t i = 0; i < made.size(); ++i) {
            const RECT& at = made[i]->placed.back();
            const span wanted_across = across_stack(across[i], beside);
            expect_span(vertical ? wanted_across : places[i], at.left, at.right);
            expect_span(vertical ? places[i] : wanted_across, at.top, at.bottom);
            EXPECT_GE(places[i].end - places[i].start, along[i].min);
        }
    }
}

TEST_F(random_layouts, of_grids_are_as_the_rules_say) {
    for (int round = 0; round < 10'000 && !HasFailure(); ++round) {
        const auto grid = create_grid_layout();
        begin(com::ptr<IMaterializableElement>(grid.get()));
        struct placed_item {
            int row, column;
            model_item vertical, horizontal;
        };
        std::vector<placed_item> items;
        std::map<int, model_item> rows;
        std::map<int, model_item> columns;
        const auto widen = [](std::map<int, model_item>& tracks, int index, const model_item& by) {
            auto& at = tracks.try_emplace(index, model_item{}).first->second;
            at.leading = std::max(at.leading, by.leading);
            at.min = std::max(at.min, by.min);
            at.preferred = std::max(at.preferred, by.preferred);
            at.max = std::max(at.max, by.max);
            at.trailing = std::max(at.trailing, by.trailing);
        };
        const int count = 1 + below(9);
        for (int i = 0; i < count; ++i) {
            grid_item_details details(static_cast<item_alignment>(below(4) - 1),
                                      static_cast<item_alignment>(below(4) - 1));
            details.row = below(4) - 1;
            details.column = below(4) * 3;
            const auto said = next_metrics();
            grid->add_item(details, com::ptr<IElement>(static_cast<IElement*>(&make_stub(said))));
            items.push_back({details.row, details.column,
                             axis_of(said, true, static_cast<int>(details.vertical_alignment)),
                             axis_of(said, false, static_cast<int>(details.horizontal_alignment))});
            widen(rows, details.row, items.back().vertical);
            widen(columns, details.column, items.back().horizontal);
        }
        const element_metrics measured = measure();
        const auto place = [](const std::map<int, model_item>& tracks, span room, wide_int& min) {
            std::vector<model_item> list;
            for (const auto& [index, track] : tracks) list.push_back(track);
            wide_int gaps = 0;
            min = list.front().min;
            for (std::size_t i = 1; i < list.size(); ++i) {
                const wide_int gap = std::max(list.front().trailing, list[i].leading);
                gaps += gap;
                min += list[i].min + gap;
            }
            const auto sizes = grown(list, room.end - gaps - room.start, share_of_grid);
            const auto spans = follow(list, sizes, room.start);
            std::map<int, span> result;
            for (std::size_t i = 0; const auto& [index, track] : tracks) result[index] = spans[i++];
            return result;
        };
        const span down{below(50) - 25, 100 + below(400)};
        const span beside{below(50) - 25, 100 + below(400)};
        wide_int min_height = 0;
        wide_int min_width = 0;
        const auto row_spans = place(rows, down, min_height);
        const auto column_spans = place(columns, beside, min_width);
        EXPECT_EQ(measured.min_height, min_height);
        EXPECT_EQ(measured.min_width, min_width);
        arrange(static_cast<int>(beside.start), static_cast<int>(down.start), static_cast<int>(beside.end),
                static_cast<int>(down.end));
        for (std::size_t i = 0; i < made.size(); ++i) {
            const RECT& at = made[i]->placed.back();
            expect_span(in_cell(items[i].horizontal, column_spans.at(items[i].column)), at.left, at.right);
            expect_span(in_cell(items[i].vertical, row_spans.at(items[i].row)), at.top, at.bottom);
        }
    }
}

TEST_F(random_layouts, of_any_numbers_do_no_harm) {
    const auto any = [this] { return static_cast<int>(random()); };
    for (int round = 0; round < 20'000; ++round) {
        const auto stack = create_stack_layout(below(2) ? orientation::vertical : orientation::horizontal);
        const auto grid = create_grid_layout();
        begin(com::ptr<IMaterializableElement>(stack.get()));
        stack->add_item({}, com::ptr<IElement>(grid.get()));
        for (int i = 0; i < 4; ++i) {
            auto& element = make_stub({any(), any(), any(), any(), any(), any(), any(), any(), any(), any()});
            grid_item_details details;
            details.row = below(2);
            grid->add_item(details, com::ptr<IElement>(static_cast<IElement*>(&element)));
        }
        arrange(any(), any(), any(), any());
        EXPECT_EQ(made.back()->placed.size(), 2u);
    }
}

}  // namespace
