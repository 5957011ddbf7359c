// What keys and characters do to a line edit.

#include "controls/testing/line_edit_fixture.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

class line_edit_key_test : public fakes::line_edit_fixture {};

struct key_case {
    const wchar_t* before;
    std::uint32_t key;
    std::uint8_t modifiers;
    const wchar_t* after;
    bool handled = true;
    int changes = 0;
};

constexpr std::uint8_t none = 0;
constexpr std::uint8_t with_shift = input::key::modifier::shift;

const std::vector<key_case>& key_cases() {
    static const std::vector<key_case> cases{
        {L"Ha|rbour", VK_END, none, L"Harbour|"},
        {L"Harbour|", VK_END, none, L"Harbour|"},
        {L"H[arb|]our", VK_END, none, L"Harbour|"},
        {L"Ha|rbour", VK_END, with_shift, L"Ha[rbour|]"},
        {L"Harbour|", VK_END, with_shift, L"Harbour|"},
        {L"H[arb|]our", VK_END, with_shift, L"H[arbour|]"},
        {L"H[|arb]our", VK_END, with_shift, L"Harb[our|]"},
        {L"Ha|rbour", VK_HOME, none, L"|Harbour"},
        {L"H[arb|]our", VK_HOME, none, L"|Harbour"},
        {L"Ha|rbour", VK_HOME, with_shift, L"[|Ha]rbour"},
        {L"|Harbour", VK_HOME, with_shift, L"|Harbour"},
        {L"H[arb|]our", VK_HOME, with_shift, L"[|H]arbour"},
        {L"Ha|rbour", VK_LEFT, none, L"H|arbour"},
        {L"|Harbour", VK_LEFT, none, L"|Harbour"},
        {L"H[arb|]our", VK_LEFT, none, L"H|arbour"},
        {L"H[|arb]our", VK_LEFT, none, L"H|arbour"},
        {L"[|Harb]our", VK_LEFT, none, L"|Harbour"},
        {L"Ha|rbour", VK_LEFT, with_shift, L"H[|a]rbour"},
        {L"|Harbour", VK_LEFT, with_shift, L"|Harbour"},
        {L"H[|arb]our", VK_LEFT, with_shift, L"[|Harb]our"},
        {L"[|Harb]our", VK_LEFT, with_shift, L"[|Harb]our"},
        {L"H[arb|]our", VK_LEFT, with_shift, L"H[ar|]bour"},
        {L"H[a|]rbour", VK_LEFT, with_shift, L"H|arbour"},
        {L"Ha|rbour", VK_RIGHT, none, L"Har|bour"},
        {L"Harbour|", VK_RIGHT, none, L"Harbour|"},
        {L"H[arb|]our", VK_RIGHT, none, L"Harb|our"},
        {L"H[|arb]our", VK_RIGHT, none, L"Harb|our"},
        {L"Har[bour|]", VK_RIGHT, none, L"Harbour|"},
        {L"Ha|rbour", VK_RIGHT, with_shift, L"Ha[r|]bour"},
        {L"Harbour|", VK_RIGHT, with_shift, L"Harbour|"},
        {L"H[arb|]our", VK_RIGHT, with_shift, L"H[arbo|]ur"},
        {L"Har[bour|]", VK_RIGHT, with_shift, L"Har[bour|]"},
        {L"H[|arb]our", VK_RIGHT, with_shift, L"Ha[|rb]our"},
        {L"Har[|b]our", VK_RIGHT, with_shift, L"Harb|our"},
        {L"Ha|rbour", VK_UP, none, L"Ha|rbour", false},
        {L"H[arb|]our", VK_UP, none, L"H|arbour", false},
        {L"H[|arb]our", VK_UP, none, L"H|arbour", false},
        {L"H[arb|]our", VK_UP, with_shift, L"H[arb|]our", false},
        {L"Ha|rbour", VK_UP, with_shift, L"Ha|rbour", false},
        {L"Ha|rbour", VK_DOWN, none, L"Ha|rbour", false},
        {L"H[arb|]our", VK_DOWN, none, L"Harb|our", false},
        {L"H[|arb]our", VK_DOWN, none, L"Harb|our", false},
        {L"H[|arb]our", VK_DOWN, with_shift, L"H[|arb]our", false},
        {L"Ha|rbour", VK_BACK, none, L"H|rbour", true, 1},
        {L"Harbour|", VK_BACK, none, L"Harbou|", true, 1},
        {L"|Harbour", VK_BACK, none, L"|Harbour", true, 0},
        {L"|", VK_BACK, none, L"|", true, 0},
        {L"H[arb|]our", VK_BACK, none, L"H|our", true, 1},
        {L"H[|arb]our", VK_BACK, none, L"H|our", true, 1},
        {L"[|Harbour]", VK_BACK, none, L"|", true, 1},
        {L"Ha|rbour", VK_BACK, with_shift, L"Ha|rbour", false},
        {L"H[arb|]our", VK_BACK, with_shift, L"H[arb|]our", false},
        {L"Ha|rbour", VK_DELETE, none, L"Ha|bour", true, 1},
        {L"|Harbour", VK_DELETE, none, L"|arbour", true, 1},
        {L"Harbou|r", VK_DELETE, none, L"Harbou|", true, 1},
        {L"Harbour|", VK_DELETE, none, L"Harbour|", true, 1},  // counts as a change all the same
        {L"|", VK_DELETE, none, L"|", true, 1},
        {L"H[arb|]our", VK_DELETE, none, L"H|our", true, 1},
        {L"H[|arb]our", VK_DELETE, none, L"H|our", true, 1},
        {L"[Harbour|]", VK_DELETE, none, L"|", true, 1},
        {L"Ha|rbour", VK_DELETE, with_shift, L"Ha|rbour", false},
        {L"H[arb|]our", VK_DELETE, with_shift, L"H[arb|]our", false},
        {L"Ha|rbour", VK_TAB, none, L"Ha|rbour", false},
        {L"H[arb|]our", VK_RETURN, none, L"H[arb|]our", false},
        {L"H[arb|]our", VK_ESCAPE, none, L"H[arb|]our", false},
        {L"H[arb|]our", VK_PRIOR, none, L"H[arb|]our", false},
        {L"H[arb|]our", VK_INSERT, none, L"H[arb|]our", false},
        {L"H[arb|]our", 'A', none, L"H[arb|]our", false},
    };
    return cases;
}

TEST_F(line_edit_key_test, each_key_does_its_part_with_and_without_a_frame) {
    for (const bool framed : {true, false}) {
        for (const key_case& each : key_cases()) {
            SCOPED_TRACE(testing::Message()
                         << testing::PrintToString(std::wstring(each.before)) << " key " << each.key
                         << " modifiers " << int{each.modifiers} << (framed ? "" : ", no frame"));
            make_focused(each.before, framed);
            ASSERT_EQ(each.before, look()) << "the test's own preparation";
            EXPECT_EQ(each.handled, press(each.key, each.modifiers));
            EXPECT_EQ(each.after, look());
            EXPECT_EQ(each.changes, changes);
        }
    }
}

TEST_F(line_edit_key_test, other_modifiers_leave_each_key_to_others) {
    const std::uint8_t others[] = {
        alt, control, alt | control, shift | control, shift | alt, alt | shift | control};
    for (const std::uint32_t key :
         codes{VK_END, VK_HOME, VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_BACK, VK_DELETE}) {
        for (const std::uint8_t modifiers : others) {
            for (const wchar_t* const before : {L"Ha|rbour", L"H[arb|]our"}) {
                SCOPED_TRACE(testing::Message() << key << " with " << int{modifiers});
                make_focused(before);
                EXPECT_FALSE(press(key, modifiers));
                EXPECT_EQ(before, look());
                EXPECT_EQ(0, changes);
            }
        }
    }
}

TEST_F(line_edit_key_test, released_keys_do_nothing) {
    make_focused(L"H[arb|]our");
    for (const std::uint32_t key :
         codes{VK_END, VK_HOME, VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_BACK, VK_DELETE}) {
        EXPECT_FALSE(edge->on_key_event({false, false, key, 0}));
    }
    EXPECT_EQ(L"H[arb|]our", look());
    EXPECT_EQ(0, changes);
}

TEST_F(line_edit_key_test, repeated_keys_count_as_often) {
    make_focused(L"Harbour|");
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(edge->on_key_event({true, true, VK_BACK, 0}));
    EXPECT_EQ(L"Harb|", look());
    EXPECT_EQ(3, changes);
}

TEST_F(line_edit_key_test, keys_of_a_node_below_are_not_the_edits) {
    make_focused(L"Ha|rbour");
    const auto below = filled({0, 0, 5, 5}, own);
    below->set_focus();
    EXPECT_FALSE(press(VK_DELETE));
    EXPECT_FALSE(press(VK_HOME));
    EXPECT_EQ(L"Harbour", edit->get_text());
    own->remove_child(below);
}

/// Kept, other than with keys.
TEST_F(line_edit_key_test, characters_of_a_node_below_are_the_edits) {
    make_focused(L"Ha|bour");
    const auto below = filled({0, 0, 5, 5}, own);
    below->set_focus();
    type(L"r");
    EXPECT_EQ(L"Harbour", edit->get_text());
    EXPECT_EQ(1, changes);
    own->remove_child(below);
}

TEST_F(line_edit_key_test, owner_sees_the_arrows_up_and_down_behind_the_edit) {
    std::vector<std::uint32_t> seen;
    root->set_key_handler([&](scene::INode*, int depth, input::key::event event) {
        if (depth > 0) seen.push_back(event.key);
        return depth > 0;
    });
    make_focused(L"H[arb|]our");
    EXPECT_TRUE(press(VK_UP)) << "by the owner";
    EXPECT_EQ(L"H|arbour", look());
    EXPECT_TRUE(press(VK_DOWN));
    EXPECT_TRUE(press(VK_TAB));
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_TRUE(press(VK_LEFT));
    EXPECT_EQ((std::vector<std::uint32_t>{VK_UP, VK_DOWN, VK_TAB, VK_RETURN}), seen);
    root->set_key_handler({});
}

// A selection that comes and goes

TEST_F(line_edit_key_test, selection_vanishes_where_the_cursor_meets_the_anchor) {
    follow(L"Har|bour", {{"shift+left", L"Ha[|r]bour"},
                         {"shift+right", L"Har|bour"},
                         {"left", L"Ha|rbour"}});  // a move: nothing is left to be ended
}

TEST_F(line_edit_key_test, selection_turns_over_at_its_anchor) {
    follow(L"Har|bour", {{"shift+home", L"[|Har]bour"},
                         {"shift+end", L"Har[bour|]"},
                         {"shift+left", L"Har[bou|]r"},
                         {"shift+left", L"Har[bo|]ur"},
                         {"shift+left", L"Har[b|]our"},
                         {"shift+left", L"Har|bour"},
                         {"shift+left", L"Ha[|r]bour"}});
}

TEST_F(line_edit_key_test, second_selection_starts_from_the_cursor) {
    follow(L"Har|bour", {{"shift+right", L"Har[b|]our"},
                         {"right", L"Harb|our"},
                         {"right", L"Harbo|ur"},
                         {"shift+left", L"Harb[|o]ur"}});
}

// The odd state that a deletion leaves

TEST_F(line_edit_key_test, arrow_behind_a_deletion_of_a_backward_selection_does_not_move) {
    for (const char* const erasing : {"back", "delete"}) {
        follow(L"Ha[|rb]our", {{erasing, L"Ha|our"}, {"left", L"Ha|our"}, {"left", L"H|aour"}});
        follow(L"Ha[|rb]our", {{erasing, L"Ha|our"}, {"right", L"Ha|our"}, {"right", L"Hao|ur"}});
        follow(L"Ha[|rb]our", {{erasing, L"Ha|our"}, {"up", L"Ha|our"}, {"left", L"H|aour"}});
        follow(L"Ha[|rb]our", {{erasing, L"Ha|our"}, {"down", L"Ha|our"}, {"right", L"Hao|ur"}});
    }
}

TEST_F(line_edit_key_test, arrow_behind_a_deletion_of_a_forward_selection_moves) {
    for (const char* const erasing : {"back", "delete"}) {
        follow(L"Ha[rb|]our", {{erasing, L"Ha|our"}, {"left", L"H|aour"}});
        follow(L"Ha[rb|]our", {{erasing, L"Ha|our"}, {"right", L"Hao|ur"}});
    }
}

TEST_F(line_edit_key_test, deletion_of_a_backward_selection_keeps_its_anchor) {
    follow(L"Ha[|rb]ours", {{"delete", L"Ha|ours"},
                            {"shift+right", L"Hao[|u]rs"},  // from 4, where the selection was begun
                            {"shift+right", L"Haou|rs"},
                            {"shift+right", L"Haou[r|]s"}});
}

TEST_F(line_edit_key_test, edits_and_moves_end_the_state_behind_a_deletion_of_a_backward_selection) {
    follow(L"Ha[|rb]our", {{"delete", L"Ha|our"}, {"type x", L"Hax|our"}, {"left", L"Ha|xour"}});
    follow(L"Ha[|rb]our", {{"delete", L"Ha|our"}, {"back", L"H|our"}, {"right", L"Ho|ur"}});
    follow(L"Ha[|rb]our", {{"delete", L"Ha|our"}, {"home", L"|Haour"}, {"right", L"H|aour"}});
}

TEST_F(line_edit_key_test, deletions_and_clicks_on_the_spot_keep_the_state_behind_a_deletion) {
    for (const char* const harmless : {"delete", "click 2"}) {
        make_focused(L"Ha[|rb]our");
        act("delete");
        act(harmless);
        const std::wstring before = look();
        act("left");
        EXPECT_EQ(before, look()) << harmless;
        act("left");
        EXPECT_EQ(1u, caret()) << harmless;
    }
}

// Changes

TEST_F(line_edit_key_test, moves_are_no_changes) {
    make_focused(L"H[arb|]our");
    for (const std::uint8_t modifiers : {none, shift}) {
        for (const std::uint32_t key : codes{VK_END, VK_HOME, VK_RIGHT, VK_LEFT, VK_UP, VK_DOWN}) {
            press(key, modifiers);
        }
    }
    EXPECT_EQ(0, changes);
}

TEST_F(line_edit_key_test, change_is_told_when_all_is_drawn) {
    make_focused(L"Har|bour");
    std::wstring seen;
    edit->set_on_change([&] { seen = look(); });
    type(L"d");
    EXPECT_EQ(L"Hard|bour", seen);
    press(VK_BACK);
    EXPECT_EQ(L"Har|bour", seen);
    press(VK_DELETE);
    EXPECT_EQ(L"Har|our", seen);
    press(VK_HOME, shift);
    press(VK_DELETE);
    EXPECT_EQ(L"|our", seen);
}

// Characters

TEST_F(line_edit_key_test, characters_go_in_at_the_cursor) {
    follow(L"Ha|bour", {{"type r", L"Har|bour"}, {"type -b", L"Har-b|bour"}});
    EXPECT_EQ(3, changes);
}

TEST_F(line_edit_key_test, character_takes_the_place_of_the_selection) {
    for (const wchar_t* const before : {L"Ha[rb|]our", L"Ha[|rb]our"}) {
        follow(before, {{"type x", L"Hax|our"}, {"left", L"Ha|xour"}});  // no state is left
        EXPECT_EQ(1, changes);
    }
    follow(L"[Harbour|]", {{"type x", L"x|"}});
}

TEST_F(line_edit_key_test, control_characters_change_nothing_and_pass) {
    std::wstring passed;
    root->set_char_handler([&](scene::INode*, int depth, wchar_t each) {
        if (depth > 0) passed += each;
        return false;
    });
    make_focused(L"H[arb|]our");
    std::wstring all;
    for (wchar_t each = 0; each < 32; ++each) {
        edge->on_char(each);
        all += each;
    }
    EXPECT_EQ(all, passed);
    EXPECT_EQ(L"H[arb|]our", look());
    EXPECT_EQ(0, changes);
    edge->on_char(32);
    EXPECT_EQ(all, passed) << "taken";
    EXPECT_EQ(L"H |our", look());
    root->set_char_handler({});
}

TEST_F(line_edit_key_test, characters_from_32_on_are_text) {
    make_focused(L"|");
    const std::wstring all{32, 126, 127, 0xA0, 0xFC, 0x434, 0x65E5, 0xFFFD, 0xFFFF};
    type(all);
    EXPECT_EQ(all, edit->get_text());
    EXPECT_EQ(static_cast<int>(all.size()), changes);
}

TEST_F(line_edit_key_test, pair_of_surrogates_can_be_divided) {
    make_focused(L"a|b");
    type(L"\xD83D\xDE00");
    EXPECT_EQ(
        L"a\xD83D\xDE00"
        L"b",
        edit->get_text());
    EXPECT_EQ(2, changes);
    press(VK_LEFT);
    type(L"x");
    EXPECT_EQ(
        L"a\xD83Dx\xDE00"
        L"b",
        edit->get_text());
    press(VK_BACK);
    press(VK_BACK);
    EXPECT_EQ(
        L"a\xDE00"
        L"b",
        edit->get_text());
}

// A cursor that has no position yet

TEST_F(line_edit_key_test, cursor_without_a_position_gets_one_from_home_and_end) {
    // It shows at the start until then.
    follow(L"Harbour", {{"right", L"|Harbour"},
                        {"shift+right", L"|Harbour"},
                        {"home", L"|Harbour"},
                        {"right", L"H|arbour"}});
    follow(L"Harbour", {{"end", L"Harbour|"}, {"left", L"Harbou|r"}});
}

TEST_F(line_edit_key_test, edits_without_a_position_are_at_the_end) {
    follow(L"Harbour", {{"type s", L"Harbours|"}});
    follow(L"Harbour", {{"back", L"Harbou|"}});
    follow(L"Harbour", {{"delete", L"|Harbour"}, {"type s", L"Harbours|"}});
    EXPECT_EQ(2, changes);
}

TEST_F(line_edit_key_test, left_without_a_position_is_safe) {
    for (const char* const left : {"left", "shift+left"}) {
        make_focused(L"Harbour");
        act(left);
        act("type s");
        EXPECT_EQ(L"Harbours|", look());
        make_focused(L"Harbour");
        act(left);
        act("delete");
        EXPECT_EQ(L"Harbour", edit->get_text());
    }
}

TEST_F(line_edit_key_test, shift_and_home_without_a_position_select_all) {
    follow(L"Harbour", {{"shift+home", L"[|Harbour]"}, {"type x", L"x|"}});
}

TEST_F(line_edit_key_test, made_without_a_text_is_empty_and_takes_characters) {
    make(nullptr);
    focus();
    EXPECT_EQ(L"", edit->get_text());
    EXPECT_EQ(L"|", look());
    for (const std::uint32_t key : codes{VK_LEFT, VK_RIGHT, VK_BACK, VK_END, VK_LEFT, VK_HOME, VK_RIGHT}) {
        EXPECT_TRUE(press(key));
    }
    EXPECT_EQ(0, changes);
    type(L"ab");
    EXPECT_EQ(L"ab|", look());
}

}  // namespace
}  // namespace d2d
