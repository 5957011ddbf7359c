// A node that reaches beyond its window, on the screen.

#include "d2d/layered_window.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "d2d/scene/IMovableFloatingNode.h"
#include "d2d/win32_scene_window.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/shown.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

namespace scene = d2d::scene;

com::ptr<scene::INode> box(const D2D_RECT_F& rect, const _D3DCOLORVALUE& color) {
    auto node = scene::create_node();
    const auto context = node->draw(false);
    context->fill_geometry(d2d::factory::create_rectangle_geometry(rect).get(),
                           scene::create_solid_color_brush(color).get());
    context->commit();
    return node;
}

/// A window of 100 by 80 pixels whose corner is at (50, 40) of a white one.
class floating_node : public test_support::leak_checked_test {
protected:
    static constexpr std::uint32_t white = 0xFFFFFFFF;
    static constexpr std::uint32_t green = 0xFF00FF00;
    static constexpr std::uint32_t blue = 0xFF0000FF;
    static constexpr POINT corner{250, 190};  // on the screen

    // Kept throughout, with the window that the platform makes once for all bitmaps.
    static void SetUpTestSuite() {
        token.emplace();
        d2d::layered_window first;
        first.create(nullptr, L"first", {0, 0, 10, 10}, false, false);
        first.destroy_window();
    }
    static void TearDownTestSuite() { token.reset(); }

    void SetUp() override {
        leak_checked_test::SetUp();
        behind.emplace();
        behind->create_window(0, L"behind", WS_POPUP, 200, 150, 400, 300, nullptr, nullptr);
        test_support::bring_to_front(behind->get_window_handle());
        window.emplace();
        window->create_window(0, L"window", WS_POPUP, corner.x, corner.y, 100, 80, nullptr, nullptr);
        content = box({0, 0, 60, 30}, {0, 1, 0, 1});
        context = scene::create_node();
        context->set_transform({{{1, 0, 0, 1, 80, 20}}});
        window->addContent(context.get());
        test_support::bring_to_front(window->get_window_handle());
    }
    void TearDown() override {
        floating.reset();
        window->destroy_window();
        window.reset();
        behind->destroy_window();
        behind.reset();
        context.reset();
        content.reset();
        leak_checked_test::TearDown();
    }

    /// What the screen shows at a point of the window or beyond its edge.
    [[nodiscard]] std::uint32_t seen_at(unsigned x, unsigned y) const {
        return test_support::grab_client_area(behind->get_window_handle()).at(50 + x, 40 + y);
    }
    /// Waits until the screen shows a colour there.
    [[nodiscard]] testing::AssertionResult shows(std::uint32_t color, unsigned x, unsigned y) const {
        return test_support::shows(behind->get_window_handle(), color, 50 + x, 40 + y);
    }

    static inline std::optional<d2d::factory> token;
    std::optional<d2d::win32_scene_window> behind;
    std::optional<d2d::win32_scene_window> window;
    com::ptr<scene::INode> context;
    com::ptr<scene::INode> content;
    com::ptr<scene::IFloatingNode> floating;
};

TEST_F(floating_node, is_seen_beyond_the_edge_of_its_window_while_it_floats) {
    EXPECT_TRUE(shows(white, 120, 30));
    floating = scene::IFloatingNode::float_node(context.get(), content.get());
    EXPECT_TRUE(shows(green, 80, 20));
    EXPECT_TRUE(shows(green, 139, 49));
    EXPECT_TRUE(shows(white, 140, 49));
    EXPECT_TRUE(shows(white, 139, 50));
    EXPECT_TRUE(shows(white, 79, 20));
    floating.reset();
    EXPECT_TRUE(shows(white, 139, 49));
    EXPECT_TRUE(shows(white, 80, 20));
    EXPECT_EQ(nullptr, content->get_parent());
}

TEST_F(floating_node, is_followed_as_it_moves_and_grows) {
    floating = scene::IFloatingNode::float_node(context.get(), content.get());
    EXPECT_TRUE(shows(green, 139, 49));
    content->set_transform({{{1, 0, 0, 1, 100, 50}}});
    EXPECT_TRUE(shows(white, 139, 49));
    EXPECT_TRUE(shows(green, 180, 70));
    EXPECT_TRUE(shows(green, 239, 99));
    content->add_child(box({60, 30, 90, 60}, {0, 0, 1, 1}));
    EXPECT_TRUE(shows(blue, 240, 100));
    EXPECT_TRUE(shows(blue, 269, 129));
    EXPECT_TRUE(shows(green, 180, 70));
    EXPECT_TRUE(shows(white, 240, 99));
    content->add_child(box({-40, -20, 0, 0}, {0, 0, 1, 1}));
    EXPECT_TRUE(shows(blue, 140, 50));
    EXPECT_TRUE(shows(green, 239, 99));
}

TEST_F(floating_node, goes_where_it_is_sent_with_the_next_commit) {
    floating = scene::IFloatingNode::float_node(context.get(), content.get());
    const com::ptr<scene::IMovableFloatingNode> movable(floating);
    movable->set_position({static_cast<float>(corner.x) + 200, static_cast<float>(corner.y) + 100});
    movable->set_content(box({0, 0, 20, 20}, {0, 0, 1, 1}).get());
    EXPECT_TRUE(shows(green, 139, 49));
    movable->commit();
    EXPECT_TRUE(shows(blue, 200, 100));
    EXPECT_TRUE(shows(blue, 219, 119));
    EXPECT_TRUE(shows(white, 220, 119));
    EXPECT_TRUE(shows(white, 139, 49));
    EXPECT_EQ(nullptr, content->get_parent());
}

TEST_F(floating_node, is_seen_through_where_its_colour_is) {
    content = box({0, 0, 60, 30}, {0, 0, 0, 0.5f});
    floating = scene::IFloatingNode::float_node(context.get(), content.get());
    const auto is_grey = [&] { return seen_at(110, 30) >= 0xFF7E7E7E && seen_at(110, 30) <= 0xFF828282; };
    EXPECT_TRUE(test_support::pump_until(is_grey, std::chrono::seconds(5))) << std::hex << seen_at(110, 30);
}

TEST_F(floating_node, gets_the_clicks_on_it_and_may_end_behind_one_as_a_list_does) {
    std::vector<D2D_POINT_2F> presses;
    bool released = false;
    content->add_mouse_handler([&](scene::INode* node, int depth, d2d::input::mouse::event event) {
        if (depth != 0 || event.type != d2d::input::mouse::event_type::button_down) return false;
        presses.push_back(event.position);
        released = node->drag_loop(*event.button, [](D2D_POINT_2F) { return true; });
        floating.reset();
        return true;
    });
    floating = scene::IFloatingNode::float_node(context.get(), content.get());
    EXPECT_TRUE(shows(green, 139, 49));
    test_support::click(window->get_window_handle(), {130, 45});
    EXPECT_TRUE(test_support::pump_until([&] { return !presses.empty(); }));
    ASSERT_EQ(1u, presses.size());
    EXPECT_TRUE(released);
    EXPECT_EQ(50.5f, presses[0].x);
    EXPECT_EQ(25.5f, presses[0].y);
    EXPECT_TRUE(shows(white, 139, 49));
}

TEST_F(floating_node, that_is_transparent_to_hits_leaves_clicks_to_what_is_beneath) {
    int presses = 0;
    window->root_node()->add_child(box({0, 0, 100, 80}, {1, 1, 1, 1}));
    window->root_node()->add_mouse_handler([&](scene::INode*, int, d2d::input::mouse::event event) {
        presses += event.type == d2d::input::mouse::event_type::button_down;
        return false;
    });
    content->set_hit_transparent(true);
    floating = scene::IFloatingNode::float_node(context.get(), content.get());
    EXPECT_TRUE(shows(green, 90, 30));
    test_support::click(window->get_window_handle(), {90, 30});
    EXPECT_TRUE(test_support::pump_until([&] { return presses > 0; }, std::chrono::seconds(3)));
}

}  // namespace
