#include "host/floater.h"

#include "com/error.h"
#include "com/weak_ptr.h"
#include "host/testing/hidden_window.h"
#include "host/testing/recording_floater.h"
#include "scene/testing/tree_test.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/random_seed.h"
#include "win32/window_class_table.h"

#include <functional>
#include <optional>
#include <random>
#include <stdexcept>

#include <gmock/gmock.h>

namespace {

using namespace d2d;
using scene::fakes::call_text;
using scene::fakes::recording_floater;
using scene::fakes::thrown_by;
using testing::ElementsAre;
using testing::IsEmpty;

class floaters : public test_support::leak_checked_test {
protected:
    static constexpr D2D_RECT_F box{0, 0, 20, 10};

    static void SetUpTestSuite() {
        token.emplace();
        // With the first bitmap the platform makes a device for all of them, which has a window.
        layered_window first;
        first.create(nullptr, L"first", {0, 0, 10, 10}, false, false);
        first.destroy_window();
    }
    static void TearDownTestSuite() { token.reset(); }

    void TearDown() override {
        floating.reset();
        content.reset();
        parent.reset();
        EXPECT_EQ(nullptr, win32::window_class_table::instance().find(typeid(scene::floater)));
        leak_checked_test::TearDown();
    }

    /// Floats a box, or other content.
    void float_at(D2D_POINT_2F point, const D2D_RECT_F& bounds = box, bool transparent = true) {
        content = recording_floater::visible_content(bounds);
        floating = com::create_object<recording_floater>(parent->get(), transparent, point, content.get());
    }

    [[nodiscard]] static com::ptr<scene::INode> child_of(const com::ptr<scene::INode>& node,
                                                         const D2D_RECT_F& bounds) {
        auto child = recording_floater::visible_content(bounds);
        node->add_child(child);
        return child;
    }

    static inline std::optional<factory> token;
    std::optional<fakes::hidden_window> parent{std::in_place};
    com::ptr<scene::INode> content;
    com::ptr<recording_floater> floating;
};

D2D_MATRIX_3X2_F moved_by(float x, float y) {
    return {{{1, 0, 0, 1, x, y}}};
}

TEST_F(floaters, show_their_content_in_a_window_of_its_size_above_the_parent) {
    for (const bool transparent : {false, true}) {
        float_at({100, 50}, {-5, 3, 20, 10}, transparent);
        const HWND window = floating->get_window_handle();
        EXPECT_EQ("95 53 120 60", floating->place_text());
        EXPECT_TRUE(IsWindowVisible(window));
        EXPECT_EQ(parent->get(), GetWindow(window, GW_OWNER));
        const LONG_PTR ex_style = GetWindowLongPtrW(window, GWL_EXSTYLE);
        EXPECT_NE(0, ex_style & WS_EX_LAYERED);
        EXPECT_EQ(transparent, (ex_style & WS_EX_TRANSPARENT) != 0);
        EXPECT_EQ(0, ex_style & WS_EX_TOPMOST);
        EXPECT_NE(0, GetWindowLongPtrW(window, GWL_STYLE) & static_cast<LONG_PTR>(WS_POPUP));
        EXPECT_EQ(!transparent, GetActiveWindow() == window);
        floating.reset();
        EXPECT_FALSE(IsWindow(window));
    }
}

TEST_F(floaters, paint_the_fraction_of_their_position) {
    float_at({100.25f, 50.75f}, {0.5f, 0.5f, 10.5f, 10.5f});
    EXPECT_EQ("100 51 111 62", floating->place_text());
    recording_floater::record(content, {0.5f, 0.5f, 10.5f, 10.5f});
    EXPECT_EQ("render 11 11 at 0.25 -0.25", floating->take_calls().back());
}

TEST_F(floaters, move_with_the_commit_of_a_position) {
    float_at({100, 50});
    floating->set_position({300, 200});
    EXPECT_EQ("100 50 120 60", floating->place_text());
    EXPECT_THAT(floating->take_calls(), IsEmpty());
    floating->commit();
    EXPECT_EQ("300 200 320 210", floating->place_text());
    EXPECT_THAT(floating->take_calls(), ElementsAre("render 20 10 at 0 0"));
    const auto child = child_of(content, {5, 5, 10, 8});  // stands there to be painted
    EXPECT_THAT(floating->take_calls(), ElementsAre("render 20 10 at 0 0"));
    floating->set_position({100, 50});
    floating->commit();
    EXPECT_EQ("100 50 120 60", floating->place_text());
}

TEST_F(floaters, exchange_the_bitmap_when_a_fraction_of_the_position_needs_another_pixel) {
    float_at({100, 50});
    floating->set_position({100.5f, 50});
    floating->commit();
    EXPECT_EQ("100 50 121 60", floating->place_text());
    EXPECT_THAT(floating->take_calls(), ElementsAre("release", "acquire 21 10", "render 21 10 at 0.5 0"));
    floating->set_position({100.75f, 50});  // the same window
    floating->commit();
    EXPECT_EQ("100 50 121 60", floating->place_text());
    EXPECT_THAT(floating->take_calls(), ElementsAre("render 21 10 at 0.75 0"));
}

TEST_F(floaters, do_nothing_at_a_commit_without_a_change) {
    float_at({100, 50});
    floating->commit();
    floating->set_position({100, 50});
    floating->set_content(content.get());
    floating->commit();
    floating->set_position({300, 200});
    floating->set_position({100, 50});
    floating->commit();
    EXPECT_THAT(floating->take_calls(), IsEmpty());
    EXPECT_EQ("100 50 120 60", floating->place_text());
}

TEST_F(floaters, grow_with_a_child_of_the_content) {
    float_at({100, 50});
    const auto child = child_of(content, {10, 5, 40, 30});
    EXPECT_EQ("100 50 140 80", floating->place_text());
    EXPECT_THAT(floating->take_calls(), ElementsAre("release", "acquire 40 30", "render 40 30 at 0 0"));
    content->remove_child(child);
    // The child's area is invalid ahead of the change of bounds; the next invalidation shrinks the window.
    EXPECT_EQ("100 50 140 80", floating->place_text());
    EXPECT_THAT(floating->take_calls(), ElementsAre("render 40 30 at 0 0"));
    recording_floater::record(content, box);
    EXPECT_EQ("100 50 120 60", floating->place_text());
}

TEST_F(floaters, grow_to_the_left_with_the_content_in_its_place) {
    float_at({100, 50});
    const auto child = child_of(content, {-30, -20, 0, 0});
    EXPECT_EQ("70 30 120 60", floating->place_text());
    EXPECT_EQ("render 50 30 at 30 20", floating->take_calls().back());
}

TEST_F(floaters, follow_a_moved_content_without_painting_it) {
    float_at({100, 50});
    const ID2D1RenderTarget* const target = floating->render_target();
    content->set_transform(moved_by(7, -3));
    EXPECT_EQ("107 47 127 57", floating->place_text());
    EXPECT_THAT(floating->take_calls(),
                ElementsAre("render 20 10 at 0 0"));  // the old area, ahead of the move
    EXPECT_EQ(target, floating->render_target());
    recording_floater::record(content, box);
    EXPECT_THAT(floating->take_calls(), testing::Each("render 20 10 at 0 0"));
}

TEST_F(floaters, paint_a_change_within_their_bounds_at_once) {
    float_at({100, 50});
    const auto child = child_of(content, {5, 5, 10, 8});
    EXPECT_THAT(floating->take_calls(), ElementsAre("render 20 10 at 0 0"));
}

TEST_F(floaters, take_a_position_that_was_set_with_the_next_change_of_bounds) {
    float_at({100, 50});
    floating->set_position({300, 200});
    const auto child = child_of(content, {0, 0, 30, 30});
    EXPECT_EQ("300 200 330 230", floating->place_text());
    static_cast<void>(floating->take_calls());
    floating->commit();
    EXPECT_THAT(floating->take_calls(), IsEmpty());
}

TEST_F(floaters, exchange_their_content_with_a_commit) {
    float_at({100, 50});
    const auto next = recording_floater::visible_content({2, 4, 32, 44});
    floating->set_content(next.get());
    EXPECT_EQ("100 50 120 60", floating->place_text());
    EXPECT_THAT(floating->take_calls(), IsEmpty());
    EXPECT_EQ(nullptr, next->get_parent());

    floating->set_position({200, 150});
    floating->commit();
    EXPECT_EQ("202 154 232 194", floating->place_text());
    const auto calls = floating->take_calls();
    EXPECT_EQ(1, std::count(calls.begin(), calls.end(), "acquire 30 40"));
    EXPECT_EQ("render 30 40 at -2 -4", calls.back());
    EXPECT_EQ(nullptr, content->get_parent());
    EXPECT_NE(nullptr, next->get_parent());

    floating->commit();
    recording_floater::record(content, {0, 0, 99, 99});  // floats no more
    EXPECT_THAT(floating->take_calls(), IsEmpty());
}

TEST_F(floaters, refuse_content_that_is_elsewhere_and_take_the_next) {
    float_at({100, 50});
    const auto elsewhere = scene::create_node();
    const auto taken = child_of(elsewhere, box);
    for (scene::INode* const refused : {taken.get(), static_cast<scene::INode*>(nullptr)}) {
        floating->set_content(refused);
        EXPECT_EQ("unexpected", thrown_by([&] { floating->commit(); }));
        EXPECT_EQ(nullptr, content->get_parent());
    }
    EXPECT_EQ(elsewhere, taken->get_parent());
    static_cast<void>(floating->take_calls());

    floating->set_content(content.get());
    floating->commit();
    EXPECT_NE(nullptr, content->get_parent());
    EXPECT_EQ("100 50 120 60", floating->place_text());
    EXPECT_EQ("render 20 10 at 0 0", floating->take_calls().back());
}

TEST_F(floaters, are_not_made_of_content_that_is_elsewhere) {
    const auto elsewhere = scene::create_node();
    const auto taken = child_of(elsewhere, box);
    for (scene::INode* const refused : {taken.get(), static_cast<scene::INode*>(nullptr)}) {
        EXPECT_EQ("unexpected", thrown_by([&] {
                      static_cast<void>(scene::create_floating_node(parent->get(), {100, 50}, refused));
                  }));
    }
    EXPECT_EQ(elsewhere, taken->get_parent());
}

TEST_F(floaters, that_get_no_window_leave_their_content_free) {
    HWND gone = nullptr;
    {
        const fakes::hidden_window other;
        gone = other.get();
    }
    content = recording_floater::visible_content(box);
    EXPECT_ANY_THROW(static_cast<void>(scene::create_floating_node(gone, {100, 50}, content.get())));
    EXPECT_EQ(nullptr, content->get_parent());
    EXPECT_EQ("nothing", thrown_by([&] { content->set_hit_mode(scene::INode::hit_by_content); }));  // no view
    float_at({100, 50});  // takes over the window class, which stays when a window fails
}

TEST_F(floaters, that_get_no_bitmap_leave_their_content_free) {
    content = recording_floater::visible_content({0, 0, 1e8f, 1e8f});
    // What it is, is lost on the way through the window system.
    EXPECT_ANY_THROW(static_cast<void>(scene::create_floating_node(parent->get(), {100, 50}, content.get())));
    EXPECT_EQ(nullptr, content->get_parent());
    recording_floater::record(content, box);
    floating =
        com::create_object<recording_floater>(parent->get(), true, D2D_POINT_2F{100, 50}, content.get());
    EXPECT_EQ("100 50 120 60", floating->place_text());
}

TEST_F(floaters, recover_with_a_commit_from_content_that_no_bitmap_holds) {
    float_at({100, 50});
    const auto child = recording_floater::visible_content({0, 0, 1e8f, 1e8f});
    EXPECT_THROW(content->add_child(child), com::error);
    content->remove_child(child);
    floating->set_position({300, 200});
    floating->commit();
    EXPECT_EQ("300 200 320 210", floating->place_text());
    EXPECT_EQ("render 20 10 at 0 0", floating->take_calls().back());
    EXPECT_THROW(content->add_child(child), com::error);
}

TEST_F(floaters, keep_a_pixel_for_content_that_is_empty_for_a_time) {
    content = scene::create_node();
    floating =
        com::create_object<recording_floater>(parent->get(), true, D2D_POINT_2F{100, 50}, content.get());
    EXPECT_EQ("100 50 101 51", floating->place_text());
    recording_floater::record(content, box);
    EXPECT_EQ("100 50 120 60", floating->place_text());
    content->draw(false)->commit();
    // The old area is invalid ahead of the change of bounds; the next invalidation shrinks the window.
    EXPECT_EQ("100 50 120 60", floating->place_text());
    content->set_transform(moved_by(1, 1));
    EXPECT_EQ("100 50 101 51", floating->place_text());
    content->set_transform(moved_by(0, 0));
    recording_floater::record(content, {0, 0, 5, 5});
    EXPECT_EQ("100 50 105 55", floating->place_text());
    EXPECT_EQ("render 5 5 at 0 0", floating->take_calls().back());
}

TEST_F(floaters, give_their_content_back_with_the_last_release) {
    float_at({100, 50});
    const auto child = child_of(content, {10, 5, 40, 30});
    const auto root = content->get_parent();
    floating.reset();
    EXPECT_EQ(nullptr, content->get_parent());
    // In no view any more, for those who still have it.
    EXPECT_EQ("nothing", thrown_by([&] { root->set_hit_mode(scene::INode::hit_solid); }));
    child->set_transform(moved_by(3, 3));  // nobody listens any more
    float_at({10, 10});
    EXPECT_EQ("10 10 30 20", floating->place_text());
}

TEST_F(floaters, outlive_a_window_that_dies_with_its_parent) {
    float_at({100, 50});
    const HWND window = floating->get_window_handle();
    parent.reset();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(nullptr, floating->render_target());
    static_cast<void>(floating->take_calls());
    const auto child = child_of(content, {10, 5, 40, 30});
    floating->set_position({300, 200});
    floating->commit();
    const auto next = recording_floater::visible_content(box);
    floating->set_content(next.get());
    floating->commit();
    EXPECT_THAT(floating->take_calls(), IsEmpty());
    EXPECT_EQ(nullptr, content->get_parent());
    floating.reset();
    EXPECT_EQ(nullptr, next->get_parent());
}

TEST_F(floaters, may_be_released_by_a_mouse_handler_of_their_content) {
    float_at({100, 50});
    const HWND window = floating->get_window_handle();
    int calls = 0;
    content->set_clip_geometry(factory::create_rectangle_geometry(box).get());
    content->add_mouse_handler([&](scene::INode*, int, input::mouse::event event) {
        if (event.type != input::mouse::event_type::button_down) return false;
        ++calls;
        floating.reset();
        return true;
    });
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(1, calls);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(nullptr, content->get_parent());
}

TEST_F(floaters, may_be_released_by_a_focus_handler_of_their_content) {
    float_at({100, 50}, box, false);
    const HWND window = floating->get_window_handle();
    content->set_focus();
    EXPECT_EQ(window, GetFocus());
    EXPECT_TRUE(content->has_focus(false));
    int lost = 0;
    content->set_focus_handler(true, [&](scene::INode* old_focus, scene::INode*) {
        if (old_focus != content.get() || lost++ > 0) return;
        floating.reset();
    });
    SetFocus(nullptr);
    EXPECT_EQ(2, lost);  // by the window, and by the view that it leaves
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(floaters, are_one_object_for_all_interfaces) {
    float_at({100, 50});
    const com::ptr<IUnknown> identity(static_cast<IUnknown*>(floating->get_IUnknown()));
    const com::ptr<scene::IMovableFloatingNode> movable(identity.get());
    const com::ptr<scene::IFloatingNode> handle(identity.get());
    EXPECT_EQ(static_cast<scene::IMovableFloatingNode*>(floating.get()), movable);
    EXPECT_EQ(static_cast<scene::IMovableFloatingNode*>(floating.get()), handle);
    EXPECT_EQ(nullptr, handle.try_as<IServiceProvider>());
}

TEST_F(floaters, leave_safe_weak_references_behind) {
    float_at({100, 50});
    const com::weak_ptr<recording_floater> weak(floating.get());
    EXPECT_EQ(floating, weak.lock());
    const HWND window = floating->get_window_handle();
    floating.reset();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(nullptr, weak.lock());
}

/// Random changes, each followed by what takes the window to its place.
TEST_F(floaters, stand_where_their_content_wants_them_whatever_happens) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto quarter = [&](int least, int most) {
        return static_cast<float>(std::uniform_int_distribution<int>(least * 4, most * 4)(random)) / 4;
    };
    float_at({100, 50});
    D2D_POINT_2F position{100, 50};
    D2D_POINT_2F offset{};
    D2D_RECT_F bounds = box;
    for (int step = 0; step < 300; ++step) {
        SCOPED_TRACE(step);
        switch (std::uniform_int_distribution<int>(0, 4)(random)) {
            case 0:
                position = {quarter(-50, 400), quarter(-50, 400)};
                floating->set_position(position);
                break;
            case 1:
                offset = {quarter(-20, 20), quarter(-20, 20)};
                content->set_transform(moved_by(offset.x, offset.y));
                // Asked for the opposite of where it is, a node stays.
                offset = {content->get_transform()._31, content->get_transform()._32};
                break;
            case 2:
                bounds = {quarter(-20, 0), quarter(-20, 0), quarter(1, 30), quarter(1, 30)};
                recording_floater::record(content, bounds);
                break;
            case 3:
                content = recording_floater::visible_content(bounds);
                content->set_transform(moved_by(offset.x, offset.y));
                floating->set_content(content.get());
                break;
            default:
                break;
        }
        floating->commit();
        const RECT expected = scene::place_floating({bounds.left + offset.x, bounds.top + offset.y,
                                                     bounds.right + offset.x, bounds.bottom + offset.y},
                                                    position)
                                  .rect;
        ASSERT_EQ(call_text(expected.left, expected.top, expected.right, expected.bottom),
                  floating->place_text());
        ASSERT_EQ(expected.right - expected.left, floating->size().cx);
        // The content stands at its place, up to less than a pixel that a move alone does not repaint.
        recording_floater::record(content, bounds);
        const auto calls = floating->take_calls();
        ASSERT_FALSE(calls.empty());
        const auto left = static_cast<float>(expected.left), top = static_cast<float>(expected.top);
        ASSERT_EQ(call_text("render", static_cast<float>(expected.right) - left,
                            static_cast<float>(expected.bottom) - top, "at", position.x + offset.x - left,
                            position.y + offset.y - top),
                  calls.back());
    }
}

}  // namespace
