// Stacks of random items, compared with a model that works everything out in another way.

#include "scene/layout_stack.h"
#include "scene/rectangle.h"
#include "scene/testing/fake_element.h"
#include "scene/testing/metrics_text.h"
#include "scene/testing/stack_model.h"
#include "support/debug_heap.h"
#include "support/leak_checked_test.h"
#include "support/random_seed.h"

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace d2d::scene::layout;
using d2d::scene::same_edges;
using d2d::scene::fakes::fake_element;
using d2d::scene::fakes::stack_model;
using d2d::scene::fakes::text_of;
using test_support::debug_heap;

/// Item sets at random, in quarters of a pixel, whose sums a float holds exactly.
class random_item_sets {
public:
    explicit random_item_sets(std::uint32_t seed) : random_(seed) {}

    [[nodiscard]] unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    [[nodiscard]] float length(unsigned limit) {
        return static_cast<float>(below(4) == 0 ? below(limit * 4) : below(limit) * 4) / 4;
    }
    [[nodiscard]] metrics next_metrics() {
        metrics m{};
        for (float* margin : {&m.margin.left, &m.margin.top, &m.margin.right, &m.margin.bottom}) {
            *margin = below(3) == 0 ? length(12) : 0;
            if (below(50) == 0) *margin = -*margin;
        }
        set_sizes(m.min_size.width, m.max_size.width, m.preferred_size.width);
        set_sizes(m.min_size.height, m.max_size.height, m.preferred_size.height);
        return m;
    }
    [[nodiscard]] size_choice next_choice() {
        if (below(4) != 0) return {};
        return {static_cast<size_source>(below(4)), length(80)};
    }
    [[nodiscard]] D2D_RECT_F next_rect(const metrics& measured) {
        const float left = length(100) - 50;
        const float top = length(100) - 50;
        return {left, top, left + room(measured.min_size.width, measured.preferred_size.width),
                top + room(measured.min_size.height, measured.preferred_size.height)};
    }

private:
    void set_sizes(float& min, float& max, float& preferred) {
        min = length(40);
        preferred = below(10) == 0 ? 0 : min + length(40);
        max = below(3) == 0 ? unlimited : min + length(80);
        if (below(30) == 0) max = length(40);
    }
    float room(float min, float preferred) {
        switch (below(4)) {
            case 0:
                return preferred;
            case 1:
                return min - length(30);
            default:
                return min + length(300);
        }
    }

    std::mt19937 random_;
};

void expect_near(float expected, float actual) {
    if (expected == unlimited || actual == unlimited) {
        EXPECT_EQ(expected, actual);
    } else {
        EXPECT_NEAR(expected, actual, 0.002f);  // what is left may be divided by three
    }
}

void expect_near(const D2D_RECT_F& expected, const D2D_RECT_F& actual) {
    expect_near(expected.left, actual.left);
    expect_near(expected.top, actual.top);
    expect_near(expected.right, actual.right);
    expect_near(expected.bottom, actual.bottom);
}

float model_size(const size_choice& choice, float own, float preferred) {
    if (choice.source == size_source::element) return own;
    return choice.source == size_source::element_preferred ? preferred : choice.value;
}

metrics model_metrics(const stack_item_details& d, const metrics& m) {
    const auto [pw, ph] = m.preferred_size;
    return {m.margin,
            {model_size(d.min_width, m.min_size.width, pw), model_size(d.min_height, m.min_size.height, ph)},
            {model_size(d.max_width, m.max_size.width, pw), model_size(d.max_height, m.max_size.height, ph)},
            {model_size(d.preferred_width, pw, pw), model_size(d.preferred_height, ph, ph)}};
}

using random_stack = test_support::leak_checked_test;

TEST_F(random_stack, does_what_a_plain_model_does) {
    const std::uint32_t seed = test_support::random_seed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::printf("seed %lu\n", static_cast<unsigned long>(seed));
    random_item_sets random(seed);
    for (int round = 0; round < debug_heap::steps(100'000) && !HasFailure(); ++round) {
        std::vector<com::ptr<fake_element>> elements;
        stack_model model{random.below(2) == 1, {}};
        const auto made = create_stack(model.across);
        for (unsigned count = random.below(8); count > 0; --count) {
            const metrics m = random.next_metrics();
            const stack_item_details details{random.next_choice(),
                                             random.next_choice(),
                                             random.next_choice(),
                                             random.next_choice(),
                                             random.next_choice(),
                                             random.next_choice(),
                                             static_cast<int>(random.below(3))};
            const bool own = random.below(2) == 0;
            elements.push_back(com::create_object<fake_element>(m));
            made->add_item(elements.back(), own, details);
            model.items.push_back({model_metrics(details, m), own, details.alignment});
        }
        const metrics measured = made->measure();
        ASSERT_EQ(text_of(model.measure()), text_of(measured)) << round;
        const D2D_RECT_F rect = random.next_rect(measured);
        made->arrange(rect);
        const auto expected = model.arrange(rect);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            expect_near(expected[i], elements[i]->rect);
            if (HasFailure()) {
                ADD_FAILURE() << "round " << round << ", item " << i << ": " << text_of(expected[i]) << " is "
                              << text_of(elements[i]->rect);
                break;
            }
        }
    }
}

/// A stack whose items come, change and are announced at random, beside what a pass over all gives.
class changing_stack {
public:
    explicit changing_stack(random_item_sets& chance, bool grows) : random(chance), flexible(grows) {}

    void change() {
        const unsigned kind = elements.empty() ? 0 : random.below(4);
        if (kind == 0) return insert();
        row& changed = elements[random.below(static_cast<unsigned>(elements.size()))];
        if (kind == 1) changed.element->own = next_metrics();
        if (kind == 2) changed.element->rect = {-1, -1, -1, -1};
        if (changed.announces) made->announce(changed.token);
    }

    void measure() { EXPECT_EQ(text_of(full()->measure()), text_of(made->measure())); }

    void lay_out() {
        const auto expected = full();
        const metrics measured = expected->measure();
        ASSERT_EQ(text_of(measured), text_of(made->measure()));
        const D2D_RECT_F rect = random.below(4) == 0 ? random.next_rect(measured)
                                                     : D2D_RECT_F{0, 0, measured.preferred_size.width,
                                                                  measured.preferred_size.height};
        expected->arrange(rect);
        made->arrange(rect);
        for (std::size_t i = 0; i < elements.size(); ++i) {
            EXPECT_TRUE(same_edges(plain[i]->rect, elements[i].element->rect))
                << "item " << i << " of " << elements.size() << ": " << text_of(plain[i]->rect) << " is "
                << text_of(elements[i].element->rect);
        }
    }

private:
    struct row {
        com::ptr<fake_element> element;
        bool announces;
        bool own_margins;
        int alignment;
        stack::item* token;
    };

    [[nodiscard]] metrics next_metrics() {
        metrics m = random.next_metrics();
        if (!flexible) m.max_size.height = m.min_size.height;
        if (random.below(2) == 0) m.max_size.width = m.min_size.width;
        return m;
    }
    [[nodiscard]] static stack_item_details details_of(const row& of) {
        stack_item_details details;
        details.alignment = of.alignment;
        return details;
    }

    void insert() {
        const std::size_t count = elements.size();
        const std::size_t index =
            random.below(2) == 0 ? count : random.below(static_cast<unsigned>(count + 1));
        row added{com::create_object<fake_element>(next_metrics()), random.below(4) != 0,
                  random.below(3) != 0, random.below(6) == 0 ? 1 : 0, nullptr};
        const auto changes = added.announces ? element_changes::announced : element_changes::unknown;
        added.token = made->insert_item(index, added.element, added.own_margins, details_of(added), changes);
        elements.insert(elements.begin() + static_cast<std::ptrdiff_t>(index), added);
    }

    /// A new stack of the same items.
    [[nodiscard]] com::ptr<stack> full() {
        const auto all = create_stack(0);
        plain.clear();
        for (const row& each : elements) {
            plain.push_back(com::create_object<fake_element>(each.element->own));
            all->add_item(plain.back(), each.own_margins, details_of(each));
        }
        return all;
    }

    random_item_sets& random;
    bool flexible;
    std::vector<row> elements;
    std::vector<com::ptr<fake_element>> plain;
    com::ptr<stack> made = create_stack(0);
};

TEST_F(random_stack, announced_changes_give_what_a_pass_over_all_gives) {
    const std::uint32_t seed = test_support::random_seed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::printf("seed %lu\n", static_cast<unsigned long>(seed));
    random_item_sets random(seed);
    for (int round = 0; round < debug_heap::steps(500) && !HasFailure(); ++round) {
        changing_stack changing(random, round % 4 == 0);
        for (int step = 0; step < 60 && !HasFailure(); ++step) {
            for (unsigned changes = random.below(4); changes > 0; --changes) {
                changing.change();
                if (random.below(4) == 0) changing.measure();
            }
            changing.lay_out();
        }
    }
}

}  // namespace
