// Line edits through random keys, characters, clicks and texts, compared with the rules written a second
// time.

#include "controls/testing/line_edit_fixture.h"
#include "controls/testing/line_edit_model.h"
#include "support/random_seed.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <iterator>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::line_edit_model;

class random_line_edit_test : public fakes::line_edit_fixture {
protected:
    [[nodiscard]] unsigned below(unsigned limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }

    /// Nothing that is written from right to left: Wine does not keep the order of a word's parts when
    /// effects divide it.
    [[nodiscard]] wchar_t any_unit() {
        static constexpr wchar_t units[] = {L'a',   L'i',  L'W',  L' ',   L'-',   0xE4, 0x436,
                                            0x65E5, 0x3B1, 0x17F, 0xD83D, 0xDE00, L'1', 0x301,
                                            L'\t',  L'\r', 0x1B,  31,     32,     L'z', L'm'};
        return units[below(std::size(units))];
    }
    [[nodiscard]] std::wstring any_text() {
        std::wstring text;
        for (unsigned left = one_in(4) ? 0 : below(10); left > 0; --left) {
            const wchar_t unit = any_unit();
            if (unit >= 32) text += unit;
        }
        return text;
    }

    void any_key() {
        static constexpr std::uint32_t keys[] = {VK_LEFT, VK_RIGHT, VK_LEFT,   VK_RIGHT, VK_HOME, VK_END,
                                                 VK_UP,   VK_DOWN,  VK_DELETE, VK_BACK,  VK_TAB,  'A'};
        const std::uint32_t key = keys[below(std::size(keys))];
        const auto modifiers = static_cast<std::uint8_t>(one_in(12)  ? below(8)
                                                         : one_in(2) ? shift
                                                                     : std::uint8_t{0});
        what += scene::fakes::call_text(" key", key, int{modifiers}) + ";";
        both([&] { taken = press(key, modifiers); }, [&] { expected_taken = expected->key(key, modifiers); });
        EXPECT_EQ(expected_taken, taken);
    }
    void any_character() {
        const wchar_t unit = any_unit();
        what += scene::fakes::call_text(" character", static_cast<int>(unit)) + ";";
        both([&] { edge->on_char(unit); }, [&] { expected->character(unit); });
    }
    void any_click() {
        const float x = static_cast<float>(below(rect_width() * 4)) / 4 + 0.125f;
        const float y = static_cast<float>(below(20)) + 0.5f;
        const D2D_POINT_2F at = text_origin();
        BOOL trailing = FALSE;
        BOOL inside = FALSE;
        DWRITE_HIT_TEST_METRICS metrics{};
        ASSERT_EQ(S_OK, layout->HitTestPoint(rect.left + x - at.x, rect.top + y - at.y, &trailing, &inside,
                                             &metrics));
        const std::uint32_t position = metrics.textPosition + (trailing ? 1 : 0);
        const std::uint32_t flags = one_in(6)   ? MK_LBUTTON | MK_SHIFT | MK_CONTROL
                                    : one_in(2) ? MK_LBUTTON | MK_SHIFT
                                                : MK_LBUTTON;
        what += scene::fakes::call_text(" click", x, "as", position, "flags", flags) + ";";
        click_at({rect.left + x, rect.top + y}, flags);
        expected->click(position, flags == (MK_LBUTTON | MK_SHIFT));
        ++clicks;
    }
    void any_set_text() {
        const std::wstring text = any_text();
        what += " set " + testing::PrintToString(text) + ";";
        edit->set_text(text);
        expected->set_text(text);
    }

    /// What throws in one throws in the other.
    template <class Real, class Modelled>
    void both(Real&& real, Modelled&& modelled) {
        bool threw = false;
        try {
            modelled();
        } catch (const std::out_of_range&) {
            threw = true;
            ++exceptions;
        }
        if (threw) {
            EXPECT_THROW(real(), std::out_of_range);
        } else {
            real();
        }
    }

    void step() {
        const unsigned kind = below(20);
        if (kind < 10) return any_key();
        if (kind < 15) return any_character();
        if (kind < 19) return any_click();
        any_set_text();
    }

    /// A selection's rectangles as the platform has them, "" for none.
    [[nodiscard]] std::string expected_figures() const {
        const std::uint32_t end = std::min(expected->selected_end, expected->length());
        if (!expected->has_selection || expected->selected_start >= end) return {};
        DWRITE_HIT_TEST_METRICS runs[64]{};
        UINT32 count = 0;
        const D2D_POINT_2F at = text_origin();
        EXPECT_EQ(S_OK, layout->HitTestTextRange(expected->selected_start, end - expected->selected_start,
                                                 at.x, at.y, runs, 64, &count));
        std::string figures;
        for (UINT32 i = 0; i < count; ++i) {
            const auto& run = runs[i];
            figures +=
                (i > 0 ? "\n" : "") + figure(run.left, run.top, run.left + run.width, run.top + run.height);
        }
        return figures;
    }
    void compare() {
        const std::wstring text = edit->get_text();
        ASSERT_EQ(expected->text, text);
        ASSERT_EQ(expected->changes, changes);
        if (!layout || text != laid_out) layout = plain_layout();
        laid_out = text;
        // A caret that was never placed is at the start.
        const std::uint32_t position =
            expected->cursor == line_edit_model::nowhere ? 0 : std::min(expected->cursor, expected->length());
        float x = 0;
        float y = 0;
        DWRITE_HIT_TEST_METRICS metrics{};
        ASSERT_EQ(S_OK, layout->HitTestTextPosition(position, FALSE, &x, &y, &metrics));
        ASSERT_EQ(std::floor(text_origin().x + x), caret_node().transform._31) << "caret at " << position;
        const lines shapes = selection_figures();
        ASSERT_EQ(expected_figures(), shapes.empty() ? std::string() : shapes.front());
        if (expected->has_selection) ++selections;
        if (expected->selecting && !expected->has_selection) ++odd_states;
    }

    void run(int steps) {
        const std::wstring first = any_text();
        make(first.c_str(), one_in(2));
        focus();
        expected.emplace(first);
        layout.reset();
        what = testing::PrintToString(first) + ":";
        for (int i = 0; i < steps && !HasFatalFailure() && !HasFailure(); ++i) {
            compare();
            step();
            forget();
            SCOPED_TRACE(what);
            compare();
        }
    }
    [[nodiscard]] static unsigned rect_width() { return static_cast<unsigned>(rect.right - rect.left); }

    std::mt19937 random;
    std::optional<line_edit_model> expected;
    com::ptr<IDWriteTextLayout> layout;
    std::wstring laid_out;
    std::string what;
    bool taken = false;
    bool expected_taken = false;
    int clicks = 0, selections = 0, odd_states = 0, exceptions = 0;
};

TEST_F(random_line_edit_test, agrees_with_the_model_after_each_of_100000_operations) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    random.seed(seed);
    constexpr int operations = 100000;
    constexpr int for_each_edit = 50;
    for (int i = 0; i < operations / for_each_edit && !HasFailure(); ++i) run(for_each_edit);
    layout.reset();
    RecordProperty("seed", static_cast<int>(seed));
    std::cout << "seed " << seed << ": " << clicks << " clicks, " << selections << " with a selection, "
              << odd_states << " selecting nothing, " << exceptions << " exceptions\n";
    if (HasFailure()) return;
    EXPECT_GT(clicks, 10000);
    EXPECT_GT(selections, 10000);
    EXPECT_GT(odd_states, 500);
    EXPECT_GT(exceptions, 50);
}

}  // namespace
}  // namespace d2d
