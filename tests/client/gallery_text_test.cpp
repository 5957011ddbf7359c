// The gallery's page of text: line edits, and options that pop up.

#include "gallery_fixture.h"

namespace {

using test_support::click;
using test_support::drag;
using test_support::move_mouse;
using test_support::strike_key;
using test_support::type_text;

class gallery_text : public client_test::gallery_fixture {
protected:
    static constexpr RECT mirror_card{208, 167, 560, 307};
    static constexpr RECT looks_card{576, 167, 928, 307};
    static constexpr RECT scripts_card{208, 323, 560, 473};
    static constexpr RECT program_card{576, 323, 928, 473};
    // With what pops up below it.
    static constexpr RECT options_card{208, 489, 928, 668};

    static constexpr POINT name_end{420, 246};
    static constexpr POINT from{280, 573};
    static constexpr POINT to{436, 573};

    void SetUp() override {
        gallery_fixture::SetUp();
        open_page("text", text_button);
    }
};

TEST_F(gallery_text, repeats_what_is_typed_and_replaces_what_is_selected) {
    press("name_focused", mirror_card, name_end, navigation);
    change("name_typed", mirror_card, [] { type_text(L" & Sons"); });
    change("name_selected", mirror_card, [] {
        strike_key(VK_HOME);
        for (int i = 0; i < 4; ++i) strike_key(VK_RIGHT, {VK_SHIFT});
    });
    change("name_replaced", mirror_card, [] { type_text(L"North"); });
    change("name_all_selected", mirror_card, [] { strike_key(VK_END, {VK_SHIFT}); });
    change("name_deleted", mirror_card, [] { strike_key(VK_DELETE); });
    change("name_erased", mirror_card, [] {
        for (int i = 0; i < 5; ++i) strike_key(VK_BACK);
    });
}

TEST_F(gallery_text, puts_the_cursor_where_the_mouse_clicks_and_selects_up_to_it_with_shift) {
    change("looks_selected", looks_card, navigation, [&] {
        click(window, {620, 284});
        click(window, {680, 284}, test_support::mouse_button::left, {VK_SHIFT});
    });
    press("looks_other_focused", looks_card, {640, 248});
    change("looks_typed", looks_card, [] { type_text(L"***"); });
    press("scripts_focused", scripts_card, {400, 437}, looks_card);
    change("scripts_typed", scripts_card, [] { type_text(L", прилив"); });
}

TEST_F(gallery_text, sets_the_text_of_an_edit_from_a_button_and_counts_what_is_typed) {
    press("words_set", program_card, {743, 443}, navigation);
    press("words_focused", program_card, {740, 402});
    change("words_typed", program_card, [] { type_text(L"!!!"); });
    press("words_none", program_card, {843, 443});
}

TEST_F(gallery_text, chooses_from_options_that_pop_up) {
    press("options_open", options_card, from, navigation);
    hover("options_hovered", options_card, {330, 625}, navigation);
    move_mouse(window, {330, 599});
    test_support::press_mouse();
    move_mouse(window, {330, 625});
    change("options_in_a_drag", options_card, [&] { move_mouse(window, {330, 651}); });
    change("options_chosen", options_card, [] { test_support::release_mouse(); });

    press("options_other_open", options_card, to);
    change("options_kept", options_card, [&] { drag(window, {480, 599}, {600, 520}); });
    press("options_same_open", options_card, to);
    change("options_left", options_card, mirror_card, [&] { click(window, name_end); });
}

}  // namespace
