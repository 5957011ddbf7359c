#include "d2d/win32_scene_window.h"

#include "com/diagnostics.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "host/graphics.h"
#include "host/testing/patched_end_draw.h"
#include "scene/testing/call_text.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/resource_counts.h"
#include "support/shown.h"
#include "support/wine.h"
#include "win32/error.h"

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <psapi.h>

namespace {

using namespace d2d;

class scene_window : public test_support::leak_checked_test {
protected:
    static constexpr DWORD popup = WS_POPUP;

    static void open(win32_scene_window& opened, int width = 200, int height = 100) {
        opened.create_window(0, L"scene", popup, 40, 40, width, height, nullptr, nullptr);
    }

    static com::ptr<scene::INode> square(D2D_RECT_F rect, _D3DCOLORVALUE color) {
        auto made = scene::create_node();
        const auto context = made->draw(false);
        context->fill_geometry(factory::create_rectangle_geometry(rect).get(),
                               scene::create_solid_color_brush(color).get());
        context->commit();
        return made;
    }

    const factory token;
};

TEST_F(scene_window, shows_its_nodes_on_white) {
    win32_scene_window shown;
    open(shown);
    shown.addContent(square({10, 20, 50, 60}, {1, 0, 0, 1}).get());
    test_support::bring_to_front(shown.get_window_handle());
    test_support::pump_until_idle();
    const auto picture = test_support::grab_when(shown.get_window_handle(), 0xFFFF0000, 10, 20);
    EXPECT_EQ(0xFFFF0000u, picture.at(10, 20));
    EXPECT_EQ(0xFFFF0000u, picture.at(49, 59));
    EXPECT_EQ(0xFFFFFFFFu, picture.at(9, 20));
    EXPECT_EQ(0xFFFFFFFFu, picture.at(50, 59));
    EXPECT_EQ(0xFFFFFFFFu, picture.at(199, 99));
    shown.destroy_window();
}

bool quit_is_posted() {
    MSG message{};
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE;
}

bool nothing(MSG&) {
    return false;
}

TEST_F(scene_window, a_lost_target_comes_back_with_the_whole_tree) {
    win32_scene_window shown;
    open(shown);
    const auto node = square({10, 20, 50, 60}, {1, 0, 0, 1});
    shown.addContent(node.get());
    test_support::bring_to_front(shown.get_window_handle());
    test_support::pump_until_idle();
    {
        fakes::patched_end_draw lossy(graphics::d2d_context);
        lossy.next_result = static_cast<HRESULT>(D2DERR_RECREATE_TARGET);
        InvalidateRect(shown.get_window_handle(), nullptr, FALSE);
        test_support::pump_until_idle();
        EXPECT_EQ(2, lossy.calls);  // the lost frame, and the next one
    }
    auto picture = test_support::grab_when(shown.get_window_handle(), 0xFFFF0000, 10, 20);
    EXPECT_EQ(0xFFFF0000u, picture.at(10, 20));
    EXPECT_EQ(0xFFFFFFFFu, picture.at(9, 20));
    // The tree still reaches the screen.
    node->set_transform({{{1, 0, 0, 1, 100, 0}}});
    test_support::pump_until_idle();
    picture = test_support::grab_when(shown.get_window_handle(), 0xFFFF0000, 110, 20);
    EXPECT_EQ(0xFFFF0000u, picture.at(110, 20));
    EXPECT_EQ(0xFFFFFFFFu, picture.at(10, 20));
    shown.destroy_window();
}

TEST_F(scene_window, the_picture_follows_the_size) {
    win32_scene_window shown;
    open(shown);
    shown.addContent(square({0, 0, 1000, 1000}, {0, 0, 1, 1}).get());
    test_support::bring_to_front(shown.get_window_handle());
    SetWindowPos(shown.get_window_handle(), nullptr, 0, 0, 320, 180, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(test_support::shows(shown.get_window_handle(), 0xFF0000FF, 319, 179));
    shown.destroy_window();
}

TEST_F(scene_window, tells_its_size_with_creation_and_change) {
    win32_scene_window opened;
    std::vector<std::string> sizes;
    opened.on_size = [&](D2D_SIZE_U size) { sizes.push_back(scene::fakes::call_text(size)); };
    EXPECT_EQ(0u, opened.client_size().width);
    open(opened);
    EXPECT_EQ("200 100", sizes.front());
    EXPECT_EQ(200u, opened.client_size().width);
    SetWindowPos(opened.get_window_handle(), nullptr, 0, 0, 150, 120,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ("150 120", sizes.back());
    EXPECT_EQ(120u, opened.client_size().height);
    opened.destroy_window();
}

TEST_F(scene_window, content_goes_below_the_root) {
    win32_scene_window opened;
    const auto node = scene::create_node();
    opened.addContent(node.get());
    EXPECT_EQ(opened.root_node(), node->get_parent());
    opened.remContent(node.get());
    EXPECT_EQ(nullptr, node->get_parent());
    opened.remContent(node.get());
    EXPECT_NE(nullptr, opened.scene_view());
}

TEST_F(scene_window, closing_ends_the_loop_and_leaves_the_window) {
    win32_scene_window opened;
    open(opened);
    PostMessageW(opened.get_window_handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0, win32_scene_window::run_message_loop(nothing));
    EXPECT_TRUE(IsWindow(opened.get_window_handle()));
    opened.destroy_window();
}

TEST_F(scene_window, a_refused_close_does_nothing) {
    win32_scene_window opened;
    open(opened);
    int asked = 0;
    opened.on_close = [&] { return ++asked > 1; };
    EXPECT_EQ(0, SendMessageW(opened.get_window_handle(), WM_CLOSE, 0, 0));
    EXPECT_EQ(1, asked);
    EXPECT_FALSE(quit_is_posted());
    EXPECT_EQ(0, SendMessageW(opened.get_window_handle(), WM_CLOSE, 0, 0));
    EXPECT_TRUE(quit_is_posted());
    opened.destroy_window();
}

TEST_F(scene_window, one_loop_serves_all_windows_and_any_of_them_ends_it) {
    win32_scene_window first;
    win32_scene_window second;
    open(first);
    open(second);
    for (const auto* each : {&second, &first}) {
        PostMessageW(each->get_window_handle(), WM_CLOSE, 0, 0);
        EXPECT_EQ(0, win32_scene_window::run_message_loop(nothing));
    }
    first.destroy_window();
    second.destroy_window();
}

TEST_F(scene_window, a_filter_that_takes_everything_still_lets_the_loop_end) {
    win32_scene_window opened;
    open(opened);
    opened.on_close = [] {
        ADD_FAILURE() << "dispatched";
        return true;
    };
    PostMessageW(opened.get_window_handle(), WM_CLOSE, 0, 0);
    PostMessageW(opened.get_window_handle(), WM_APP, 0, 0);
    std::vector<UINT> seen;
    const auto take = [&](MSG& message) {
        seen.push_back(message.message);
        if (message.message == WM_APP) PostQuitMessage(42);
        return true;
    };
    EXPECT_EQ(42, win32_scene_window::run_message_loop(take));
    EXPECT_THAT(seen, testing::Not(testing::Contains(WM_QUIT)));
    EXPECT_THAT(seen, testing::IsSupersetOf({UINT{WM_CLOSE}, UINT{WM_APP}}));
    opened.destroy_window();
}

TEST_F(scene_window, an_empty_filter_throws_at_the_first_message) {
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    EXPECT_THROW(win32_scene_window::run_message_loop(nullptr), std::bad_function_call);
    PostQuitMessage(5);
    EXPECT_EQ(5, win32_scene_window::run_message_loop(nullptr));
}

TEST_F(scene_window, the_sleeping_loop_runs_asynchronous_calls) {
    int called = 0;
    const auto call = [](ULONG_PTR data) {
        ++*reinterpret_cast<int*>(data);
        PostQuitMessage(7);
    };
    ASSERT_NE(0u, QueueUserAPC(call, GetCurrentThread(), reinterpret_cast<ULONG_PTR>(&called)));
    EXPECT_EQ(7, win32_scene_window::run_message_loop(nothing));
    EXPECT_EQ(1, called);
}

TEST_F(scene_window, the_scene_may_outlive_it) {
    com::ptr<scene::IView> view;
    com::ptr<scene::INode> root;
    {
        win32_scene_window opened;
        open(opened);
        opened.addContent(square({0, 0, 10, 10}, {1, 0, 0, 1}).get());
        ShowWindow(opened.get_window_handle(), SW_SHOWNA);
        UpdateWindow(opened.get_window_handle());
        view = opened.scene_view();
        root = opened.root_node();
    }
    root->set_transform({{{1, 0, 0, 1, 5, 5}}});
    view->set_root(root);
    root->set_transform({{{1, 0, 0, 1, 6, 6}}});
    view->set_root(nullptr);
}

/// Wine does not tell of private bytes; there the working set stands in, which nobody trims.
std::size_t private_bytes() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                            sizeof counters);
    return test_support::running_under_wine() ? counters.WorkingSetSize : counters.PrivateUsage;
}

TEST_F(scene_window, a_thousand_closed_windows_leave_nothing_behind) {
    const auto round = [](bool painted) {
        win32_scene_window opened;
        open(opened);
        opened.addContent(square({0, 0, 10, 10}, {1, 0, 0, 1}).get());
        if (painted) {
            ShowWindow(opened.get_window_handle(), SW_SHOWNA);
            UpdateWindow(opened.get_window_handle());
        }
        opened.destroy_window();
    };
    for (int i = 0; i < 20; ++i) round(i % 2 == 0);
    const long objects = com::live_object_count();
    const auto before = test_support::current_resources();
    const std::size_t bytes = private_bytes();
    for (int i = 0; i < 1000; ++i) round(i % 20 == 0);
    const auto after = test_support::current_resources();
    EXPECT_EQ(objects, com::live_object_count());
    EXPECT_LE(after.windows, before.windows);
    EXPECT_LT(after.handles, before.handles + 50) << before << " became " << after;
    EXPECT_LT(after.gdi_objects, before.gdi_objects + 100) << before << " became " << after;
    const std::size_t growth = private_bytes() > bytes ? private_bytes() - bytes : 0;
    EXPECT_LT(growth, std::size_t{8} << 20);
    RecordProperty("bytes_before", std::to_string(bytes));
    RecordProperty("bytes_grown", std::to_string(growth));
}

}  // namespace
