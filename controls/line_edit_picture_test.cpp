// How line edits look in the default style.

#include "controls/testing/sheet.h"
#include "d2d/ui/ILineEdit.h"
#include "scene/testing/pixel_target.h"
#include "scene/testing/tree_test.h"
#include "support/golden.h"

#include <cstdint>
#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

class line_edit_picture_test : public scene::fakes::tree_test {
protected:
    static constexpr test_support::tolerance allowed{.channel = 8, .pixels = 60};
    static constexpr unsigned width = 140, height = 32;
    static constexpr D2D_RECT_F rect{6, 5, 134, 27};
    static constexpr std::uint8_t shift = input::key::modifier::shift;

    struct stroke {
        std::uint32_t key;
        int times = 1;
        std::uint8_t modifiers = 0;
    };

    /// Paints an edit, with the focus after the keys, into the next cell.
    void add(const wchar_t* text, bool framed, bool focused, std::initializer_list<stroke> strokes = {},
             const D2D_RECT_F& in = rect) {
        const auto edit = ui::create_line_edit(text, in, framed, nullptr, nullptr);
        root->add_child(edit->get_node());
        view->set_root(root);
        edge->attach_render_target(cell.get());
        edge->on_focus_gained();
        edit->get_node()->set_focus();
        for (const stroke& each : strokes) {
            for (int i = 0; i < each.times; ++i) edge->on_key_event({true, false, each.key, each.modifiers});
        }
        if (!focused) edge->on_focus_lost();
        cell.paint(*edge.get());
        states.put(count % columns, count / columns, cell.picture());
        ++count;
        edge->detach_render_target(cell.get());
        root->remove_child(edit->get_node());
    }

    static constexpr unsigned columns = 4, rows = 6;
    const scene::fakes::pixel_target cell{width, height};
    fakes::sheet states{columns, rows, width, height};
    unsigned count = 0;
};

TEST_F(line_edit_picture_test, of_each_state) {
    constexpr const wchar_t* port = L"Harbour lights";
    add(port, true, false);
    add(port, true, true, {{VK_HOME}});
    add(port, true, true, {{VK_HOME}, {VK_RIGHT, 3}});
    add(port, true, true, {{VK_END}});
    // Selections.
    add(port, true, true, {{VK_HOME}, {VK_RIGHT, 3}, {VK_RIGHT, 6, shift}});
    add(port, true, true, {{VK_END}, {VK_LEFT, 4, shift}});
    add(port, true, false, {{VK_HOME}, {VK_END, 1, shift}});
    add(port, true, true, {{VK_END}, {VK_HOME, 1, shift}});
    // Without a frame.
    add(port, false, false);
    add(port, false, true, {{VK_END}});
    add(port, false, true, {{VK_HOME}, {VK_RIGHT, 7, shift}});
    add(L"", false, true);
    // Little and much.
    add(L"", true, false);
    add(L"", true, true);
    add(L"a text that is longer than its edit", true, false);
    add(L"a text that is longer than its edit", true, true, {{VK_HOME}, {VK_END, 1, shift}});
    // Scripts.
    add(L"\u00C4\u00F6\u00FC\u00DF \u00E9\u00E0 \u0141\u00F3d\u017A", true, true,
        {{VK_HOME}, {VK_RIGHT, 4, shift}});
    add(L"\u0413\u0430\u0432\u0430\u043D\u044C \u03BB\u03B9\u03BC", true, true,
        {{VK_HOME}, {VK_RIGHT, 6, shift}});
    add(L"\u65E5\u672C\u306E\u6E2F", true, true, {{VK_HOME}, {VK_RIGHT, 2, shift}});
    add(L"ab \u05D0\u05D1\u05D2 cd", true, true, {{VK_HOME}, {VK_END, 1, shift}});
    // Places between pixels, sizes beside the text's.
    add(port, true, true, {{VK_HOME}, {VK_RIGHT, 3}}, {6.5f, 5.5f, 133.5f, 26.5f});
    add(port, true, true, {{VK_END}}, {6, 5, 60, 15});
    add(port, true, true, {{VK_HOME}, {VK_RIGHT, 3, shift}}, {0, 0, 140, 32});
    add(port, false, true, {{VK_HOME}, {VK_RIGHT, 20, shift}}, {6, 5, 40, 12});
    EXPECT_EQ(columns * rows, count);
    EXPECT_TRUE(test_support::matches_golden(states.image(), "line_edit/states", allowed));
}

TEST_F(line_edit_picture_test, is_the_same_however_it_came_to_be) {
    const auto direct = ui::create_line_edit(L"Harbour", rect, true, nullptr, nullptr);
    const auto winding = ui::create_line_edit(L"Kiel", {0, 0, 50, 12}, true, nullptr, nullptr);
    const auto painted = [&](const com::ptr<ui::ILineEdit>& edit, auto&& steps) {
        root->add_child(edit->get_node());
        view->set_root(root);
        edge->attach_render_target(cell.get());
        edge->on_focus_gained();
        edit->get_node()->set_focus();
        steps();
        cell.paint(*edge.get());
        edge->detach_render_target(cell.get());
        root->remove_child(edit->get_node());
        return cell.picture();
    };
    const auto press = [&](std::uint32_t key, std::uint8_t modifiers = 0) {
        edge->on_key_event({true, false, key, modifiers});
    };
    const auto expected = painted(direct, [&] {
        press(VK_HOME);
        press(VK_RIGHT);
        for (int i = 0; i < 3; ++i) press(VK_RIGHT, shift);
    });
    const auto actual = painted(winding, [&] {
        press(VK_END);
        press(VK_HOME, shift);
        for (const wchar_t each : std::wstring(L"Hxarbour")) edge->on_char(each);
        winding->arrange({3, 4, 70, 30});
        press(VK_HOME);
        press(VK_RIGHT);
        press(VK_DELETE);
        for (int i = 0; i < 5; ++i) press(VK_RIGHT, shift);
        for (int i = 0; i < 2; ++i) press(VK_LEFT, shift);
        edge->on_focus_lost();
        winding->arrange(rect);
        edge->on_focus_gained();
    });
    EXPECT_EQ(L"Harbour", winding->get_text());
    EXPECT_EQ(0u, test_support::compare(expected, actual).pixels);
}

}  // namespace
}  // namespace d2d
