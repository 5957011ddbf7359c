// The window that native controls stand in.

#include "com/error.h"
#include "com/object.h"
#include "portable/panel_class.h"
#include "portable/testing/native_panel_fixture.h"
#include "portable/testing/stub_element.h"
#include "portable/testing/window_creations.h"
#include "portable/toolkit_font.h"
#include "support/sent_messages.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "win32/module.h"
#include "win32/scope_exit.h"

#include <algorithm>
#include <functional>

namespace ui::mossHarbour {
namespace {

using stubs::edges_of;
using stubs::fields_of;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

constexpr element_metrics some_metrics{1, 2, 3, 4, 50, 60, 500, 600, 100, 120};

class native_panel : public native_panel_fixture {
protected:
    [[nodiscard]] static com::ptr<stubs::stub_element> stub(const element_metrics& says = some_metrics) {
        return com::create_object<stubs::stub_element>(says);
    }
    [[nodiscard]] HWND window() const { return panel->get_window_handle(); }
    [[nodiscard]] RECT client() const {
        RECT area{};
        GetClientRect(window(), &area);
        return area;
    }
    /// The size of a window of the fixture's style around a content with its margins.
    [[nodiscard]] static SIZE around(LONG width, LONG height) {
        RECT frame{0, 0, width, height};
        AdjustWindowRectEx(&frame, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, FALSE, 0);
        return {frame.right - frame.left, frame.bottom - frame.top};
    }
    static void expect_size(SIZE actual, SIZE expected) {
        EXPECT_EQ(actual.cx, expected.cx);
        EXPECT_EQ(actual.cy, expected.cy);
    }
};

TEST_F(native_panel, has_a_window_class_of_its_own_from_the_start) {
    WNDCLASSEXW found{};
    found.cbSize = sizeof found;
    ASSERT_TRUE(GetClassInfoExW(win32::library_module(), L"mossHarbour_panel", &found));
    EXPECT_EQ(found.style, UINT{CS_VREDRAW | CS_HREDRAW});
    EXPECT_EQ(found.cbWndExtra, DLGWINDOWEXTRA);
    EXPECT_EQ(found.cbClsExtra, 0);
    EXPECT_EQ(found.hbrBackground, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    EXPECT_EQ(found.hCursor, nullptr);
    EXPECT_EQ(found.hIcon, nullptr);
    EXPECT_EQ(GetClassLongPtrW(create_window(), GCW_ATOM), panel_class.atom());
}

TEST_F(native_panel, creates_its_window_as_asked_and_clips_its_children) {
    const HWND owner = create_window();
    const auto other = create_win32_hwnd_panel(nullptr);
    EXPECT_EQ(other->get_window_handle(), nullptr);
    const window_creations created;
    const HWND made = other->create_window(WS_EX_TOOLWINDOW, L"title", WS_POPUP | WS_CAPTION, owner);
    EXPECT_EQ(other->get_window_handle(), made);
    ASSERT_EQ(created.all.size(), 1u);
    const window_creation& asked = created.all.front();
    EXPECT_EQ(asked.class_atom, panel_class.atom());
    EXPECT_EQ(asked.style, DWORD{WS_POPUP | WS_CAPTION | WS_CLIPCHILDREN});
    EXPECT_EQ(asked.ex_style, DWORD{WS_EX_TOOLWINDOW | WS_EX_WINDOWEDGE});  // the edge goes with a caption
    EXPECT_EQ(asked.module, win32::library_module());
    EXPECT_EQ(GetWindow(made, GW_OWNER), owner);
    EXPECT_EQ(text_of_window(made), L"title");
    EXPECT_NE(GetWindowLongPtrW(made, GWLP_USERDATA), 0);
    EXPECT_FALSE(IsWindowVisible(made));
}

TEST_F(native_panel, says_when_its_window_cannot_be_created) {
    const auto content = stub();
    panel->set_content(stack_of({content}));
    {
        const window_creations refused([](const window_creation&) { return true; });
        EXPECT_THAT([&] { create_window(); }, ThrowsMessage<std::runtime_error>("failed to create window!"));
    }
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(content->materialized, 0);
    EXPECT_THROW(panel->create_window(0, nullptr, WS_CHILD, nullptr), std::runtime_error);
}

TEST_F(native_panel, has_no_window_where_its_content_fails) {
    const auto label = create_label_control();
    const auto content = stub();
    content->is_refusing = true;
    panel->set_content(stack_of({label, content}));
    EXPECT_THAT([&] { create_window(); }, ThrowsMessage<std::runtime_error>("refused"));
    EXPECT_EQ(window(), nullptr);
    EXPECT_THROW(label->set_text(L"x"), std::logic_error);
    content->is_refusing = false;
    create_window();
    label->set_text(L"x");
}

// -- content
// --------------------------------------------------------------------------------------------------

TEST_F(native_panel, shows_its_content_while_there_is_a_window) {
    const auto first = stub();
    const auto second = stub();
    const auto first_stack = stack_of({first});
    const auto second_stack = stack_of({second});
    EXPECT_FALSE(panel->set_content(first_stack));
    EXPECT_EQ(first->materialized, 0);
    create_window();
    EXPECT_EQ(first->materialized, 1);
    EXPECT_TRUE(panel->set_content(second_stack) == first_stack);
    EXPECT_EQ(first->materialized, 0);
    EXPECT_EQ(second->materialized, 1);
    panel->destroy_window();
    EXPECT_EQ(second->materialized, 0);
    EXPECT_EQ(window(), nullptr);
    create_window();
    EXPECT_EQ(second->materialized, 1);
    EXPECT_TRUE(panel->set_content(nullptr) == second_stack);
    EXPECT_EQ(second->materialized, 0);
    EXPECT_FALSE(panel->set_content(nullptr));
}

TEST_F(native_panel, takes_its_content_away_ahead_of_its_window_and_of_another_content) {
    const auto first = stub();
    const auto second = stub();
    panel->set_content(stack_of({first}));
    const HWND made = create_window();
    int going = 0;
    first->when_going = [&] {
        ++going;
        EXPECT_EQ(second->materialized, 0);
    };
    panel->set_content(stack_of({second}));
    EXPECT_EQ(second->materialized, 1);
    second->when_going = [&] {
        ++going;
        EXPECT_TRUE(IsWindow(made));
        EXPECT_EQ(window(), made);
    };
    panel->destroy_window();
    EXPECT_FALSE(IsWindow(made));
    EXPECT_EQ(going, 2);
}

TEST_F(native_panel, keeps_a_content_that_failed_and_shows_nothing_of_it) {
    const auto content = stub();
    const auto stack = stack_of({content});
    create_window();
    content->is_refusing = true;
    EXPECT_THAT([&] { panel->set_content(stack); }, ThrowsMessage<std::runtime_error>("refused"));
    EXPECT_TRUE(panel->set_content(nullptr) == stack);
    EXPECT_EQ(content->materialized, 0);
}

TEST_F(native_panel, leaves_a_content_that_failed_alone_where_it_stands_now) {
    const auto label = create_label_control();
    const auto content = stub();
    const auto stack = stack_of({label, content});
    create_window();
    content->is_refusing = true;
    EXPECT_THAT([&] { panel->set_content(stack); }, ThrowsMessage<std::runtime_error>("refused"));
    content->is_refusing = false;
    const auto other = create_win32_hwnd_panel(nullptr);
    other->set_content(stack);
    const HWND theirs = other->create_window(0, L"other", WS_POPUP, nullptr);
    EXPECT_TRUE(panel->set_content(nullptr) == stack);
    EXPECT_EQ(content->materialized, 1);
    label->set_text(L"still there");
    EXPECT_EQ(children_of(theirs).size(), 1u);
}

/// Cannot be materialized.
class plain_layout : public com::base_object<com::object_base, ILayout> {
protected:
    ~plain_layout() = default;
};

TEST_F(native_panel, gives_up_a_content_that_has_no_form_at_all) {
    const com::ptr<ILayout> plain(com::create_object<plain_layout>().get());
    const auto expect_refused = [](const std::function<void()>& show) {
        try {
            show();
            ADD_FAILURE() << "nothing thrown";
        } catch (const com::error& failure) {
            EXPECT_EQ(failure.hresult, E_NOINTERFACE);
        }
    };
    create_window();
    expect_refused([&] { panel->set_content(plain); });
    EXPECT_TRUE(panel->set_content(nullptr) == plain);
    expect_refused([&] { panel->set_content(plain); });
    panel->destroy_window();
    expect_refused([&] { create_window(); });
    EXPECT_EQ(window(), nullptr);
    panel.reset();
    panel = create_win32_hwnd_panel(nullptr);
}

TEST_F(native_panel, measures_and_places_a_new_content_where_it_is_visible) {
    const auto hidden = stub();
    create_window();
    panel->set_content(stack_of({hidden}));
    EXPECT_EQ(panel->get_window_sizes().preferred.cx, 0);
    EXPECT_THAT(hidden->placed, IsEmpty());
    panel->set_content(nullptr);
    ShowWindow(window(), SW_SHOWNOACTIVATE);
    const auto shown = stub();
    panel->set_padding(10, 1, 1, 10);
    panel->set_content(stack_of({shown}));
    expect_size(panel->get_window_sizes().preferred, around(100 + 10 + 3, 120 + 2 + 10));
    ASSERT_EQ(shown->placed.size(), 1u);
    const RECT area = client();
    EXPECT_THAT(edges_of(shown->placed[0]), ElementsAre(10, 2, std::min(area.right - 3, LONG{10 + 500}),
                                                        std::min(area.bottom - 10, LONG{2 + 600})));
}

TEST_F(native_panel, releases_content_and_window_with_its_last_reference) {
    const auto content = stub();
    panel->set_content(stack_of({content}));
    const HWND made = create_window();
    panel.reset();
    EXPECT_FALSE(IsWindow(made));
    EXPECT_EQ(content->materialized, 0);
    panel = create_win32_hwnd_panel(nullptr);
}

TEST_F(native_panel, replaces_its_window_by_another_one) {
    const auto content = stub();
    panel->set_content(stack_of({content}));
    const HWND first = create_window();
    const HWND second = create_window();
    EXPECT_NE(first, second);
    EXPECT_FALSE(IsWindow(first));
    EXPECT_EQ(content->materialized, 1);
    panel->destroy_window();
    panel->destroy_window();
}

// -- sizes
// ----------------------------------------------------------------------------------------------------

TEST_F(native_panel, measures_its_content_within_margins_and_frame) {
    create_window();
    panel->set_content(stack_of({stub()}));
    panel->set_padding(font_percent(200), 1, 2, font_percent(100));
    const int line = font_height;
    EXPECT_THAT(fields_of(panel->measure()), ElementsAre(2 * line, 2, 3, line, 50, 60, 500, 600, 100, 120));
    const int across = 2 * line + 3;
    const int down = 2 + line;
    const auto sizes = panel->get_window_sizes();
    expect_size(sizes.minimum, around(50 + across, 60 + down));
    expect_size(sizes.maximum, around(500 + across, 600 + down));
    expect_size(sizes.preferred, around(100 + across, 120 + down));
}

TEST_F(native_panel, takes_a_padding_at_the_next_measure) {
    create_window();
    panel->set_content(stack_of({stub()}));
    panel->measure();
    const SIZE before = panel->get_window_sizes().preferred;
    panel->set_padding(50, 50, 50, 50);
    expect_size(panel->get_window_sizes().preferred, before);
    EXPECT_EQ(panel->measure().margin_left, 50);
    expect_size(panel->get_window_sizes().preferred, around(200, 220));
}

TEST_F(native_panel, keeps_what_has_no_limit_without_one_on_each_axis) {
    create_window();
    panel->set_content(stack_of({stub({0, 0, 0, 0, 10, 10, unbounded_extent, 30, 20, 20})}));
    panel->measure();
    const auto sizes = panel->get_window_sizes();
    EXPECT_EQ(sizes.maximum.cx, 0xffffff);
    EXPECT_EQ(sizes.maximum.cy, around(0, 30).cy);
    MINMAXINFO limits{};
    EXPECT_EQ(SendMessageW(window(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits)), 0);
    EXPECT_EQ(limits.ptMaxTrackSize.x, 0xffffff);
    EXPECT_EQ(limits.ptMaxTrackSize.y, sizes.maximum.cy);
    EXPECT_EQ(limits.ptMinTrackSize.x, sizes.minimum.cx);
    EXPECT_EQ(limits.ptMinTrackSize.y, sizes.minimum.cy);
}

TEST_F(native_panel, measures_its_frame_as_it_is_now) {
    create_window();
    panel->set_content(stack_of({stub()}));
    SetWindowLongW(window(), GWL_STYLE, static_cast<LONG>(WS_POPUP));
    panel->measure();
    expect_size(panel->get_window_sizes().preferred, {100 + 1 + 3, 120 + 2 + 4});
    SetWindowLongW(window(), GWL_EXSTYLE, WS_EX_CLIENTEDGE);
    panel->measure();
    const LONG edges_across = 2 * GetSystemMetrics(SM_CXEDGE);
    const LONG edges_down = 2 * GetSystemMetrics(SM_CYEDGE);
    expect_size(panel->get_window_sizes().preferred, {104 + edges_across, 126 + edges_down});
}

TEST_F(native_panel, has_a_frame_around_what_is_beyond_no_limit) {
    create_window();
    const auto grid = create_grid_layout();
    grid->add_item({}, stub({0, 0, 0, 0, 10, 10, unbounded_extent + 5, unbounded_extent, 20, 20}));
    panel->set_content(grid);
    EXPECT_EQ(panel->measure().max_width, unbounded_extent + 5);
    EXPECT_EQ(panel->get_window_sizes().maximum.cx, around(unbounded_extent + 5, 0).cx);
    EXPECT_EQ(panel->get_window_sizes().maximum.cy, unbounded_extent);
}

TEST_F(native_panel, cannot_measure_a_stack_without_items) {
    create_window();
    panel->set_content(create_stack_layout(orientation::vertical));
    EXPECT_THAT([&] { panel->measure(); }, ThrowsMessage<std::logic_error>("empty layouts not supported!"));
}

TEST_F(native_panel, places_its_content_when_it_shows_or_changes_size) {
    const auto content = stub();
    create_window();
    panel->set_content(stack_of({content}));
    panel->measure();
    const auto resize = [&](int width, int height) {
        SetWindowPos(window(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    resize(300, 320);
    EXPECT_THAT(content->placed, IsEmpty()) << "it is hidden";
    ShowWindow(window(), SW_SHOWNOACTIVATE);
    ASSERT_EQ(content->placed.size(), 1u);
    const auto expect_place = [&] {
        const RECT area = client();
        EXPECT_THAT(edges_of(content->placed.back()), ElementsAre(1, 2, area.right - 3, area.bottom - 4));
    };
    expect_place();
    resize(350, 330);
    EXPECT_EQ(content->placed.size(), 2u);
    expect_place();
    SetWindowPos(window(), nullptr, 70, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(window(), SW_HIDE);
    EXPECT_EQ(content->placed.size(), 2u);
    WINDOWPOS moved{};
    moved.flags = SWP_NOSIZE;
    EXPECT_EQ(SendMessageW(window(), WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&moved)), 0);
    EXPECT_EQ(content->placed.size(), 2u);
}

TEST_F(native_panel, keeps_the_user_to_the_limits_of_its_content) {
    create_window();
    panel->set_content(stack_of({stub()}));
    panel->measure();
    const auto sizes = panel->get_window_sizes();
    const auto resized = [&](int width, int height) {
        SetWindowPos(window(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        RECT place{};
        GetWindowRect(window(), &place);
        return SIZE{place.right - place.left, place.bottom - place.top};
    };
    expect_size(resized(10000, 10000), sizes.maximum);
    expect_size(resized(1, 1), sizes.minimum);
}

// -- closing
// --------------------------------------------------------------------------------------------------

TEST_F(native_panel, asks_its_handler_to_close_and_does_nothing_without) {
    create_window();
    EXPECT_EQ(SendMessageW(window(), WM_CLOSE, 0, 0), 0);
    EXPECT_TRUE(IsWindow(window()));
    int asked = 0;
    panel->set_on_close([&] { ++asked; });
    EXPECT_EQ(SendMessageW(window(), WM_CLOSE, 0, 0), 0);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(IsWindow(window()));
    panel->set_on_close(nullptr);
    SendMessageW(window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(asked, 1);
    MSG posted{};
    EXPECT_FALSE(PeekMessageW(&posted, window(), WM_COMMAND, WM_COMMAND, PM_REMOVE)) << "as dialogs do it";
}

TEST_F(native_panel, may_be_released_by_its_close_handler) {
    panel->set_content(stack_of({create_edit_control()}));
    const HWND made = create_window();
    panel->set_on_close([&, text = std::string("kept")] {
        panel.reset();
        EXPECT_EQ(text, "kept");
    });
    SendMessageW(made, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(made));
    panel = create_win32_hwnd_panel(nullptr);
}

TEST_F(native_panel, windows_of_its_class_live_without_a_panel_too) {
    const HWND bare = CreateWindowExW(0, L"mossHarbour_panel", nullptr, WS_OVERLAPPEDWINDOW, 0, 0, 200, 100,
                                      nullptr, nullptr, win32::library_module(), nullptr);
    ASSERT_NE(bare, nullptr);
    const win32::scope_exit destroyed([bare] { DestroyWindow(bare); });
    EXPECT_EQ(SendMessageW(bare, WM_CLOSE, 0, 0), 0);
    EXPECT_EQ(SendMessageW(bare, WM_COMMAND, IDCANCEL, 0), 0);
    ShowWindow(bare, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsWindow(bare));
    RECT place{};
    GetWindowRect(bare, &place);
    EXPECT_EQ(place.right, 200);
}

TEST_F(native_panel, is_a_dialog_to_the_system) {
    create_window();
    EXPECT_TRUE(SendMessageW(window(), DM_SETDEFID, 7, 0));
    EXPECT_EQ(SendMessageW(window(), DM_GETDEFID, 0, 0), MAKELRESULT(7, DC_HASDEFID));
}

TEST_F(native_panel, keeps_changes_of_its_place_to_itself) {
    create_window();
    ShowWindow(window(), SW_SHOWNOACTIVATE);
    panel->set_content(stack_of({stub()}));
    std::vector<UINT> told;
    const test_support::sent_messages messages([&](const CWPSTRUCT& sent) {
        if (sent.hwnd == window()) told.push_back(sent.message);
    });
    SetWindowPos(window(), nullptr, 50, 60, 400, 300, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_THAT(told, testing::Contains(UINT{WM_WINDOWPOSCHANGED}));
    EXPECT_THAT(told, testing::Not(testing::Contains(testing::AnyOf(UINT{WM_SIZE}, UINT{WM_MOVE}))));
}

TEST_F(native_panel, translates_no_message_without_a_window) {
    MSG message{};
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    EXPECT_FALSE(panel->translate_message(message));
    create_window();
    EXPECT_FALSE(panel->translate_message(message));
    message.hwnd = window();
    EXPECT_TRUE(panel->translate_message(message));
}

}  // namespace
}  // namespace ui::mossHarbour
