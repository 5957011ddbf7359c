#include "win32/window.h"

#include "support/leak_checked_test.h"
#include "win32/error.h"
#include "win32/module.h"
#include "win32/window_class_table.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

/// Answers what a test says, and keeps what it is sent.
class scripted_window : public win32::window {
public:
    std::function<std::optional<long>(const MSG&)> answer;
    std::function<void(WNDCLASSEXW&)> change_class;
    std::vector<MSG> messages;
    std::vector<UINT> order;

    std::optional<long> on_window_message(MSG message) override {
        messages.push_back(message);
        order.push_back(message.message);
        return answer ? answer(message) : std::nullopt;
    }
    void on_final_message() override { order.push_back(0xFFFFFFFF); }
    void get_wndclass(WNDCLASSEXW& wc) override {
        if (change_class) change_class(wc);
    }
};

void open(win32::window& opened, HWND parent = nullptr, DWORD style = WS_POPUP) {
    opened.create_window(0, L"title", style, 10, 20, 200, 100, parent, nullptr);
}

ATOM atom_of(const win32::window& asked) {
    return static_cast<ATOM>(GetClassLongPtrW(asked.get_window_handle(), GCW_ATOM));
}

std::wstring class_name(const std::type_info& type) {
    const std::string name = type.name();
    return {name.begin(), name.end()};
}

bool is_registered(const std::type_info& type) {
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    return GetClassInfoExW(win32::library_module(), class_name(type).c_str(), &wc) != FALSE;
}

class native_window : public test_support::leak_checked_test {};

TEST_F(native_window, has_a_class_of_its_own_named_after_the_type) {
    class other_window : public scripted_window {};
    scripted_window first;
    scripted_window second;
    other_window other;
    EXPECT_FALSE(is_registered(typeid(scripted_window)));
    open(first);
    open(second);
    open(other);
    EXPECT_EQ(atom_of(first), atom_of(second));
    EXPECT_NE(atom_of(first), atom_of(other));
    wchar_t name[256]{};
    GetClassNameW(first.get_window_handle(), name, 256);
    EXPECT_EQ(class_name(typeid(scripted_window)), name);

    first.destroy_window();
    EXPECT_TRUE(is_registered(typeid(scripted_window)));
    second.destroy_window();
    EXPECT_FALSE(is_registered(typeid(scripted_window)));
    EXPECT_EQ(nullptr, win32::window_class_table::instance().find(typeid(scripted_window)));
    EXPECT_TRUE(is_registered(typeid(other_window)));
    other.destroy_window();
    EXPECT_FALSE(is_registered(typeid(other_window)));
}

TEST_F(native_window, the_class_can_be_changed_but_for_the_procedure) {
    class wide_window : public scripted_window {};
    wide_window opened;
    opened.change_class = [](WNDCLASSEXW& wc) {
        EXPECT_EQ(sizeof(WNDCLASSEXW), wc.cbSize);
        EXPECT_EQ(static_cast<UINT>(CS_DBLCLKS), wc.style);
        EXPECT_EQ(win32::library_module(), wc.hInstance);
        EXPECT_EQ(LoadCursorW(nullptr, IDC_ARROW), wc.hCursor);
        wc.cbWndExtra = 24;
        wc.lpfnWndProc = DefWindowProcW;
    };
    open(opened);
    EXPECT_EQ(24u, GetClassLongPtrW(opened.get_window_handle(), GCL_CBWNDEXTRA));
    EXPECT_FALSE(opened.messages.empty());
    opened.destroy_window();
}

TEST_F(native_window, gets_its_messages_from_the_first_to_the_final_one) {
    scripted_window opened;
    EXPECT_EQ(nullptr, opened.get_window_handle());
    bool handle_there = false;
    opened.answer = [&](const MSG& message) -> std::optional<long> {
        if (message.message == WM_NCCREATE) handle_there = opened.get_window_handle() == message.hwnd;
        return {};
    };
    open(opened);
    EXPECT_TRUE(handle_there);
    EXPECT_EQ(1, std::count(opened.order.begin(), opened.order.end(), static_cast<UINT>(WM_NCCREATE)));
    EXPECT_EQ(1, std::count(opened.order.begin(), opened.order.end(), static_cast<UINT>(WM_CREATE)));
    opened.order.clear();
    opened.destroy_window();
    EXPECT_EQ(nullptr, opened.get_window_handle());
    ASSERT_GE(opened.order.size(), 3u);
    EXPECT_EQ(static_cast<UINT>(WM_NCDESTROY), opened.order[opened.order.size() - 2]);
    EXPECT_EQ(0xFFFFFFFFu, opened.order.back());
}

TEST_F(native_window, a_message_carries_no_time_and_no_point) {
    scripted_window opened;
    open(opened);
    opened.messages.clear();
    SendMessageW(opened.get_window_handle(), WM_APP, 7, -8);
    ASSERT_EQ(1u, opened.messages.size());
    const MSG& message = opened.messages[0];
    EXPECT_EQ(opened.get_window_handle(), message.hwnd);
    EXPECT_EQ(7u, message.wParam);
    EXPECT_EQ(-8, message.lParam);
    EXPECT_EQ(0u, message.time);
    EXPECT_EQ(0, message.pt.x);
    EXPECT_EQ(0, message.pt.y);
    opened.destroy_window();
}

TEST_F(native_window, a_value_answers_a_message_and_none_leaves_it_to_the_system) {
    scripted_window opened;
    open(opened);
    EXPECT_EQ(5, SendMessageW(opened.get_window_handle(), WM_GETTEXTLENGTH, 0, 0));
    opened.answer = [](const MSG& message) -> std::optional<long> {
        if (message.message == WM_GETTEXTLENGTH) return -77;
        return {};
    };
    EXPECT_EQ(-77, SendMessageW(opened.get_window_handle(), WM_GETTEXTLENGTH, 0, 0));
    opened.destroy_window();
}

TEST_F(native_window, a_window_that_refuses_to_be_throws) {
    scripted_window opened;
    for (const UINT refused : {UINT{WM_NCCREATE}, UINT{WM_CREATE}}) {
        opened.answer = [&](const MSG& message) -> std::optional<long> {
            if (message.message == refused) return refused == WM_CREATE ? -1 : 0;
            return {};
        };
        EXPECT_THROW(open(opened), win32::error);
        EXPECT_EQ(nullptr, opened.get_window_handle());
    }
    const auto* const record = win32::window_class_table::instance().find(typeid(scripted_window));
    ASSERT_NE(nullptr, record);  // stays for the next window
    EXPECT_EQ(0u, record->use_count);
    opened.answer = nullptr;
    open(opened);
    opened.destroy_window();
    EXPECT_FALSE(is_registered(typeid(scripted_window)));
}

TEST_F(native_window, a_bad_class_throws_and_the_next_window_tries_again) {
    scripted_window opened;
    opened.change_class = [](WNDCLASSEXW& wc) { wc.cbSize = 1; };
    EXPECT_THROW(open(opened), win32::error);
    opened.change_class = nullptr;
    open(opened);
    opened.destroy_window();
}

TEST_F(native_window, what_a_message_throws_reaches_the_sender) {
    scripted_window opened;
    open(opened);
    opened.answer = [](const MSG& message) -> std::optional<long> {
        if (message.message == WM_APP) throw std::domain_error("not today");
        return {};
    };
    EXPECT_THROW(SendMessageW(opened.get_window_handle(), WM_APP, 0, 0), std::domain_error);
    opened.destroy_window();
}

TEST_F(native_window, dying_with_the_parent_does_not_give_the_class_back) {
    class child_window : public scripted_window {};
    scripted_window parent;
    open(parent);
    child_window child;
    open(child, parent.get_window_handle(), WS_CHILD);
    parent.destroy_window();
    EXPECT_FALSE(IsWindow(child.get_window_handle()));
    EXPECT_TRUE(is_registered(typeid(child_window)));
    child.destroy_window();
    EXPECT_FALSE(is_registered(typeid(child_window)));
    child.destroy_window();  // there is nothing left to destroy
}

TEST_F(native_window, the_destructor_ends_the_window_and_keeps_the_class) {
    class short_window : public scripted_window {};
    HWND handle = nullptr;
    {
        short_window opened;
        open(opened);
        handle = opened.get_window_handle();
    }
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_TRUE(is_registered(typeid(short_window)));
}

TEST_F(native_window, may_delete_itself_with_its_final_message) {
    class own_window : public win32::window {
    public:
        explicit own_window(bool& told) : deleted(told) {}
        void on_final_message() override {
            deleted = true;
            const std::unique_ptr<own_window> last(this);
        }
        ~own_window() = default;

    private:
        bool& deleted;
    };
    bool deleted = false;
    auto opened = std::make_unique<own_window>(deleted);
    open(*opened);
    const HWND handle = opened.release()->get_window_handle();
    DestroyWindow(handle);
    EXPECT_TRUE(deleted);
    EXPECT_FALSE(IsWindow(handle));
}

TEST_F(native_window, the_system_chooses_the_place_where_none_is_given) {
    scripted_window opened;
    opened.create_window(L"there", WS_OVERLAPPEDWINDOW, nullptr, nullptr);
    RECT place{};
    GetWindowRect(opened.get_window_handle(), &place);
    EXPECT_GT(place.right, place.left);
    EXPECT_FALSE(IsWindowVisible(opened.get_window_handle()));
    opened.show_window(SW_SHOWNA);
    EXPECT_TRUE(IsWindowVisible(opened.get_window_handle()));
    opened.destroy_window();

    opened.create_window(WS_EX_TOOLWINDOW, L"there", WS_OVERLAPPEDWINDOW, nullptr, nullptr);
    EXPECT_NE(0, GetWindowLongPtrW(opened.get_window_handle(), GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
    opened.destroy_window();
}

TEST_F(native_window, painting_with_gdi_validates) {
    scripted_window opened;
    open(opened);
    int painted = 0;
    opened.answer = [&](const MSG& message) -> std::optional<long> {
        if (message.message != WM_PAINT) return {};
        const win32::window::paint_context paint(&opened);
        EXPECT_EQ(opened.get_window_handle(), WindowFromDC(paint));
        ++painted;
        return 0;
    };
    opened.show_window(SW_SHOWNA);
    UpdateWindow(opened.get_window_handle());
    EXPECT_EQ(1, painted);
    EXPECT_FALSE(GetUpdateRect(opened.get_window_handle(), nullptr, FALSE));
    opened.destroy_window();
}

}  // namespace
