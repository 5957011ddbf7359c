#include "host/floating_node_service.h"

#include "com/error.h"
#include "d2d/scene/IDesktopPositionService.h"
#include "d2d/scene/IMovableFloatingNode.h"
#include "d2d/win32_scene_window.h"
#include "host/testing/recording_floater.h"
#include "scene/testing/tree_test.h"
#include "support/leak_checked_test.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

#include <servprov.h>

namespace {

using namespace d2d;
using scene::fakes::call_text;
using scene::fakes::recording_floater;
using scene::fakes::thrown_by;

/// The floating windows above a window.
std::vector<HWND> windows_above(HWND owner) {
    struct search {
        HWND owner;
        std::vector<HWND> found;
    } looked_for{owner, {}};
    const auto look = [](HWND window, LPARAM parameter) -> BOOL {
        auto& wanted = *reinterpret_cast<search*>(parameter);
        if (GetWindow(window, GW_OWNER) == wanted.owner) wanted.found.push_back(window);
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&looked_for));
    return looked_for.found;
}

class floating_service : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() {
        token.emplace();
        layered_window first;  // the platform's window for all bitmaps comes with it
        first.create(nullptr, L"first", {0, 0, 10, 10}, false, false);
        first.destroy_window();
    }
    static void TearDownTestSuite() { token.reset(); }

    void SetUp() override {
        leak_checked_test::SetUp();
        window.emplace();
        window->create_window(0, L"scene", WS_POPUP | WS_CAPTION | WS_THICKFRAME, 200, 150, 300, 200, nullptr,
                              nullptr);
    }
    void TearDown() override {
        if (window) window->destroy_window();
        window.reset();
        leak_checked_test::TearDown();
    }

    [[nodiscard]] HWND handle() const { return window->get_window_handle(); }
    /// Where the only floating window has its corner, in the client area.
    [[nodiscard]] std::string floated_at() const {
        const auto above = windows_above(handle());
        if (above.size() != 1) return call_text(static_cast<int>(above.size()), "windows");
        RECT rect{};
        GetWindowRect(above.front(), &rect);
        MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&rect), 2);
        return call_text(rect.left, rect.top);
    }
    [[nodiscard]] com::ptr<scene::INode> context_at(float x, float y) {
        auto node = scene::create_node();
        node->set_transform({{{1, 0, 0, 1, x, y}}});
        window->addContent(node.get());
        return node;
    }

    static inline std::optional<factory> token;
    std::optional<win32_scene_window> window;
};

TEST_F(floating_service, of_a_scene_window_floats_a_node_at_its_context) {
    const auto outer = context_at(30, 20);
    outer->set_transform({{{2, 0, 0, 2, 30, 20}}});
    const auto context = scene::create_node();
    context->set_transform({{{1, 0, 0, 1, 5, 7}}});
    outer->add_child(context);
    const auto content = recording_floater::visible_content({0, 0, 400, 300});
    const auto floating = scene::IFloatingNode::float_node(context.get(), content.get());
    EXPECT_EQ("40 34", floated_at());
    EXPECT_NE(nullptr, floating.try_as<scene::IMovableFloatingNode>());
    context->set_transform({{{1, 0, 0, 1, 90, 90}}});
    EXPECT_EQ("40 34", floated_at());
}

TEST_F(floating_service, floats_many_nodes_that_come_and_go_by_themselves) {
    const auto context = context_at(10, 10);
    const auto first = recording_floater::visible_content({0, 0, 10, 10});
    const auto second = recording_floater::visible_content({0, 0, 10, 10});
    auto first_floating = scene::IFloatingNode::float_node(context.get(), first.get());
    const auto second_floating = scene::IFloatingNode::float_node(context.get(), second.get());
    EXPECT_EQ(2u, windows_above(handle()).size());
    first_floating.reset();
    EXPECT_EQ(1u, windows_above(handle()).size());
    first_floating = scene::IFloatingNode::float_node(context.get(), first.get());
    EXPECT_EQ(2u, windows_above(handle()).size());
}

TEST_F(floating_service, lets_the_mouse_through_content_that_is_transparent_to_hits) {
    const auto context = context_at(10, 10);
    for (const int mode :
         {scene::INode::hit_transparent, scene::INode::hit_by_content, scene::INode::hit_solid}) {
        const auto content = recording_floater::visible_content({0, 0, 10, 10});
        content->set_hit_mode(mode);
        const auto floating = scene::IFloatingNode::float_node(context.get(), content.get());
        const auto above = windows_above(handle());
        ASSERT_EQ(1u, above.size());
        EXPECT_EQ(mode == scene::INode::hit_transparent,
                  (GetWindowLongPtrW(above.front(), GWL_EXSTYLE) & WS_EX_TRANSPARENT) != 0);
    }
}

TEST_F(floating_service, works_for_a_context_that_is_in_no_view) {
    const auto service = scene::create_floating_node_service(handle());
    const auto context = scene::create_node();
    context->set_transform({{{1, 0, 0, 1, -40, -30}}});
    const auto content = recording_floater::visible_content({0, 0, 10, 10});
    const auto floating = service->float_node(context.get(), content.get());
    EXPECT_EQ("-40 -30", floated_at());
}

TEST_F(floating_service, is_not_reached_from_outside_a_view) {
    const auto context = scene::create_node();
    const auto content = recording_floater::visible_content({0, 0, 10, 10});
    for (scene::INode* const asked : {context.get(), static_cast<scene::INode*>(nullptr)}) {
        try {
            static_cast<void>(scene::IFloatingNode::float_node(asked, content.get()));
            ADD_FAILURE() << "floated by nobody";
        } catch (const com::error& caught) {
            EXPECT_EQ(asked ? E_NOINTERFACE : E_POINTER, caught.hresult);
        }
    }
    EXPECT_EQ(nullptr, content->get_parent());
}

TEST_F(floating_service, refuses_content_that_is_in_the_scene_already) {
    const auto context = context_at(10, 10);
    for (scene::INode* const refused : {context.get(), static_cast<scene::INode*>(nullptr)}) {
        EXPECT_EQ("unexpected", thrown_by([&] {
                      static_cast<void>(scene::IFloatingNode::float_node(context.get(), refused));
                  }));
    }
    EXPECT_EQ("0 windows", floated_at());
}

TEST_F(floating_service, is_found_under_its_identifier_once_there_is_a_window) {
    const auto context = context_at(0, 0);
    const com::ptr<IServiceProvider> provider(context);
    constexpr GUID identifier = com::guid("D4A069E1-625A-4020-B6F8-9EE8D6B4246C");
    com::ptr<scene::IFloatingNode::IService> service;
    EXPECT_EQ(S_OK, provider->QueryService(identifier, identifier, service.put_void()));
    EXPECT_NE(nullptr, service);

    win32_scene_window without;
    const com::ptr<IServiceProvider> too_early(without.root_node());
    EXPECT_EQ(E_NOINTERFACE, too_early->QueryService(identifier, identifier, service.put_void()));
}

TEST_F(floating_service, ends_the_windows_of_its_window) {
    const auto context = context_at(10, 10);
    const auto content = recording_floater::visible_content({0, 0, 10, 10});
    const auto floating = scene::IFloatingNode::float_node(context.get(), content.get());
    const HWND floated = windows_above(handle()).front();
    window->destroy_window();
    EXPECT_FALSE(IsWindow(floated));
    window.reset();
    recording_floater::record(content, {0, 0, 50, 50});
}

TEST(desktop_position_service, is_refused_to_all) {
    for (const HWND any : {static_cast<HWND>(nullptr), GetDesktopWindow()}) {
        EXPECT_EQ("not implemented",
                  thrown_by([&] { static_cast<void>(scene::create_desktop_position_service(any)); }));
    }
}

}  // namespace
