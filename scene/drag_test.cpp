// What a node hands the host for a drag.

#include "scene/testing/input_test.h"

#include <sstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::thrown_by;
using input::mouse::button;
namespace event_type = input::mouse::event_type;

class drag_test : public fakes::input_test {
protected:
    void SetUp() override {
        input_test::SetUp();
        view->set_root(root);
    }
};

TEST_F(drag_test, host_is_given_the_last_point_and_the_button) {
    press(12, 34);
    EXPECT_FALSE(root->drag_detect(button::left));
    site.drag_detected = true;
    EXPECT_TRUE(root->drag_detect(button::right));
    EXPECT_FALSE(root->drag_loop(button::middle, {}));
    EXPECT_FALSE(root->drag_loop(button::extended, {}));
    EXPECT_EQ(
        "drag_detect 12 34 0, drag_detect 12 34 1, drag_loop 12 34 4 1 0 0 1 0 0, "
        "drag_loop 12 34 5 1 0 0 1 0 0",
        heard());
}

TEST_F(drag_test, every_event_but_leaving_and_the_end_of_a_rest_has_a_point) {
    for (int type = 0; type <= 9; ++type) {
        mouse(event_type::move, 1, 1);
        mouse(type, 5, 6);
        root->drag_detect(button::left);
        const bool none = type == event_type::leave || type == event_type::hover_end;
        EXPECT_EQ(none ? "drag_detect 1 1 0" : "drag_detect 5 6 0", heard()) << "type " << type;
    }
}

TEST_F(drag_test, matrix_maps_the_root_space_to_that_of_the_node) {
    const auto outer = named("outer", {0, 0, 10, 10}, root);
    const auto plain = named("plain", {0, 0, 10, 10}, outer);
    const auto inner = named("inner", {0, 0, 10, 10}, plain);
    root->set_transform(translation_matrix(100, 50));
    outer->set_transform({{{2, 0, 0, 4, 0, 0}}});
    inner->set_transform({{{0, 1, -1, 0, 10, 0}}});  // (x, y) becomes (10 - y, x)
    D2D_MATRIX_3X2_F given{};
    inner->drag_loop(button::left, {});
    // (120, 90) in root's parent is (20, 40) in root, (10, 10) in outer, and (10, 0) in inner.
    const std::string line = heard();
    std::string head;
    std::istringstream reader(line);
    float x = 0, y = 0;
    int number = 0;
    reader >> head >> x >> y >> number >> given._11 >> given._12 >> given._21 >> given._22 >> given._31 >>
        given._32;
    ASSERT_TRUE(reader) << line;
    const D2D_POINT_2F mapped = map_point({120, 90}, given);
    EXPECT_FLOAT_EQ(10, mapped.x) << line;
    EXPECT_FLOAT_EQ(0, mapped.y) << line;
    const D2D_POINT_2F again = map_point({104, 74}, given);  // (2, 6) in outer
    EXPECT_FLOAT_EQ(6, again.x) << line;
    EXPECT_FLOAT_EQ(8, again.y) << line;
}

TEST_F(drag_test, function_reaches_the_host_and_its_answer_comes_back) {
    std::string seen;
    site.drag = [](const auto& moved) { return moved({1, 2}) || moved({3, 4}) || moved({5, 6}); };
    EXPECT_TRUE(root->drag_loop(button::left, [&](D2D_POINT_2F point) {
        seen += fakes::call_text(point) + ";";
        return point.x > 2;
    }));
    EXPECT_EQ("1 2;3 4;", seen);
    EXPECT_FALSE(root->drag_loop(button::left, [](D2D_POINT_2F) { return false; }));
}

TEST_F(drag_test, node_may_leave_and_go_while_it_is_dragged) {
    auto dragged = named("dragged", {0, 0, 10, 10}, root);
    site.drag = [&](const auto& moved) { return moved({1, 1}); };
    EXPECT_TRUE(dragged->drag_loop(button::left, [&](D2D_POINT_2F) {
        root->remove_child(std::exchange(dragged, nullptr));
        return true;
    }));
    EXPECT_TRUE(inside(root).children.empty());
}

TEST_F(drag_test, throw_out_of_the_loop_passes) {
    site.drag = [](const auto& moved) { return moved({1, 1}); };
    const auto drag = [&] {
        root->drag_loop(button::left, [](D2D_POINT_2F) -> bool { throw std::runtime_error("dropped"); });
    };
    EXPECT_EQ("dropped", thrown_by<std::runtime_error>(drag));
}

TEST_F(drag_test, press_that_drags_from_within_its_handler_sends_moves_in_between) {
    const auto leaf = named("leaf", {0, 0, 10, 10}, root);
    hear_mouse(root, words::type);
    hear_mouse(leaf, words::type);
    site.drag = [&](const auto& moved) {
        move(500, 500);
        return moved({500, 500});
    };
    pass_after("leaf 3 0",
               [&] { EXPECT_TRUE(leaf->drag_loop(button::left, [&](D2D_POINT_2F) { return true; })); });
    move(5, 5);
    static_cast<void>(heard());
    press(5, 5);
    EXPECT_EQ("root 3 -1, leaf 3 0, drag_loop 5 5 0 1 0 0 1 0 0, leaf 2 0, root 2 -1, root 2 0, root 3 1",
              heard());
}

TEST_F(drag_test, drag_outside_a_view_is_refused) {
    const auto loose = create_node();
    EXPECT_EQ("not expected", thrown_by([&] { loose->drag_detect(button::left); }));
    EXPECT_EQ("not expected", thrown_by([&] { loose->drag_loop(button::left, {}); }));
    view->set_root(nullptr);
    EXPECT_EQ("not expected", thrown_by([&] { root->drag_detect(button::left); }));
    EXPECT_EQ("", heard());
}

}  // namespace
}  // namespace d2d::scene
