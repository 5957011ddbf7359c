// Popup options in random use, compared with a plain model: presses, movements, keys and changes of all
// kinds, also while the list is dragged in and while a change is told.

#include "controls/popup_options/control.h"
#include "controls/testing/popup_model.h"
#include "controls/testing/popup_options_fixture.h"
#include "support/random_seed.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::fake_label;
using fakes::popup_model;
using scene::fakes::same;
using mouse_button = input::mouse::button;
namespace event_type = input::mouse::event_type;

class random_popup : public fakes::popup_options_fixture {
protected:
    using moved_function = scene::INode::drag_function;

    struct handler_failure {};

    static constexpr D2D_RECT_F rects[] = {{10, 20, 70, 40}, {0, 0, 60, 33}, {20.5f, 10, 90, 28}};
    static constexpr D2D_POINT_2F far_off{97, 97};

    void SetUp() override {
        popup_options_fixture::SetUp();
        elsewhere = filled({91, 60, 95, 70}, root);
        service.site.drag = [this](const moved_function& moved) {
            while_dragged(moved);
            return one_in(2);
        };
    }
    void TearDown() override {
        service.site.drag = nullptr;
        elsewhere.reset();
        popup_options_fixture::TearDown();
    }

    [[nodiscard]] unsigned below(std::size_t limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }

    /// A control with other options, in the place of the former one.
    void make() {
        root->remove_child(node());
        popup.reset();
        labels.clear();
        edge->on_focus_lost();
        mouse(event_type::leave, 0, 0);
        std::vector<int> ids;
        std::vector<ui::IPopupOptions::option> options;
        for (unsigned left = below(6); left > 0; --left) {
            ids.push_back(static_cast<int>(10 * ids.size() + below(10)));
            labels.push_back(com::create_object<fake_label>());
            record(labels.back()->node, {-5, -3, 5, 3});
            options.push_back({ids.back(), labels.back()});
        }
        forget();
        expected.emplace(ids, rects[0]);
        popup = com::create_object<popup_options::control>(rects[0], std::span(std::as_const(options)),
                                                           style.get());
        compare();
        root->add_child(node());
    }

    // The control

    [[nodiscard]] D2D_POINT_2F any_point() {
        const D2D_RECT_F& placed = expected->rect;
        const D2D_POINT_2F centre = popup_model::centre_of(placed);
        const D2D_POINT_2F points[] = {{placed.left + 6, centre.y}, centre, far_off};
        return points[below(std::size(points))];
    }
    void any_movement() {
        if (one_in(10)) {
            expected->leave();
            return mouse(event_type::leave, 0, 0);
        }
        const D2D_POINT_2F point = any_point();
        expected->move_to(point);
        move(point.x, point.y);
    }
    void any_press() {
        const D2D_POINT_2F point = any_point();
        const mouse_button pressed = any_button();
        expected->press(point, pressed == mouse_button::left);
        press_at(point, pressed);
    }
    [[nodiscard]] mouse_button any_button() { return one_in(4) ? mouse_button::right : mouse_button::left; }

    // The list

    /// A row, or none.
    [[nodiscard]] std::optional<std::size_t> any_row() {
        const std::size_t row = below(expected->ids.size() + 1);
        return row < expected->rows.size() ? std::optional(row) : std::nullopt;
    }
    [[nodiscard]] D2D_POINT_2F point_in(std::optional<std::size_t> row, bool on_its_label) const {
        if (!row) return far_off;
        const D2D_POINT_2F corner = expected->row_corner(*row);
        const D2D_SIZE_F size = expected->row_size();
        return {corner.x + (on_its_label ? size.width * 0.5f : 6.0f), corner.y + size.height * 0.5f};
    }
    void any_movement_over_list() {
        if (!service.floated) return;
        if (one_in(10)) {
            expected->move_over_list({});
            return list_mouse(event_type::leave, {});
        }
        const auto row = any_row();
        const bool on_its_label = one_in(2);
        expected->move_over_list({row, row ? (on_its_label ? 2 : 1) : 0});
        list_mouse(event_type::move, point_in(row, on_its_label));
    }
    void any_press_in_list() {
        if (!service.floated) return;
        const auto row = any_row();
        const com::ptr<scene::view> kept = service.floated;
        const mouse_button pressed = any_button();
        if (row && pressed == mouse_button::left) {
            expected->press_in_list(row);
            ++drags;
        }
        const D2D_POINT_2F point = point_in(row, one_in(2));
        try {
            kept->on_mouse_event({event_type::button_down, pressed, 0, point, 0});
        } catch (const handler_failure&) {
            ++failures;
        }
    }
    void while_dragged(const moved_function& moved) {
        const int list = expected->lists;
        const auto is_there = [&] {
            return expected->open && !expected->taken_apart && expected->lists == list;
        };
        compare();
        for (unsigned left = below(6); left > 0 && !HasFatalFailure(); --left) {
            if (one_in(3)) {
                do_something_nested();
            } else if (is_there()) {
                const auto row = any_row();
                expected->drag_to(row);
                EXPECT_FALSE(moved(point_in(row, one_in(2))));
            } else {
                EXPECT_FALSE(moved({30, 30}));
            }
            compare();
        }
        if (is_there()) static_cast<void>(expected->release());
    }
    void do_something_nested() {
        if (nested >= 3) return;
        ++nested;
        do_something();
        --nested;
    }
    void change_list_focus() {
        if (!service.floated) return;
        const com::ptr<scene::view> kept = service.floated;
        const bool gains = !one_in(3);
        expected->change_list_focus(gains);
        if (gains) {
            kept->on_focus_gained();
        } else {
            kept->on_focus_lost();
        }
    }

    // All else

    void heard_change(std::optional<int> id) {
        ++changes;
        static_cast<void>(say("change " + (id ? std::to_string(*id) : "none")));
        compare();
        for (unsigned left = below(3); left > 0 && !HasFatalFailure(); --left) {
            do_something_nested();
            compare();
        }
        expected->close();
        if (one_in(5)) throw handler_failure();
    }
    void set_handler() {
        expected->has_handler = !one_in(4);
        if (expected->has_handler) {
            popup->set_on_change([this](std::optional<int> id) { heard_change(id); });
        } else {
            popup->set_on_change(nullptr);
        }
    }
    void set_selected() {
        std::optional<int> id;
        if (one_in(5)) {
            id = 77;  // of no option
        } else if (!expected->ids.empty() && !one_in(4)) {
            id = expected->ids[below(expected->ids.size())];
        }
        expected->select(id);
        popup->set_selected(id);
    }
    void change_focus() {
        switch (below(4)) {
            case 0:
                expected->change_window_focus(true);
                return edge->on_focus_gained();
            case 1:
                expected->change_window_focus(false);
                return edge->on_focus_lost();
            case 2:
                expected->move_focus(popup_model::focus::elsewhere);
                return elsewhere->set_focus();
            default:
                expected->move_focus(popup_model::focus::control);
                return node()->set_focus();
        }
    }
    void press_keys() {
        for (const std::uint32_t code : {13u, 27u, 32u, 40u}) {
            EXPECT_FALSE(key(code));
            if (!service.floated) continue;
            EXPECT_FALSE(service.floated->on_key_event({true, false, code, 0}));
        }
    }
    void arrange() {
        const D2D_RECT_F& wanted = rects[below(std::size(rects))];
        expected->arrange(wanted);
        popup->arrange(wanted);
    }
    void do_something() {
        switch (below(16)) {
            case 0:
            case 1:
            case 2:
                return any_movement();
            case 3:
            case 4:
            case 5:
                return any_press();
            case 6:
            case 7:
            case 8:
                return any_movement_over_list();
            case 9:
            case 10:
                return any_press_in_list();
            case 11:
                return change_list_focus();
            case 12:
                return set_selected();
            case 13:
                return one_in(2) ? set_handler() : press_keys();
            case 14:
                return one_in(3) ? arrange() : press_keys();
            default:
                return change_focus();
        }
    }

    void compare() {
        lines seen;
        for (auto& line : calls()) {
            if (line.starts_with("frame ") || line.starts_with("option ") || line.starts_with("change "))
                seen.push_back(std::move(line));
        }
        ASSERT_EQ(std::exchange(expected->said, {}), seen);
        ASSERT_EQ(expected->selected, popup->get_selected());
        ASSERT_EQ(expected->open, is_open());
        ASSERT_EQ(expected->is_focused(), node()->has_focus(false));
        for (std::size_t i = 0; i < labels.size(); ++i) compare_label(i);
    }
    void compare_label(std::size_t index) {
        SCOPED_TRACE("label " + std::to_string(index));
        const auto& label = labels[index];
        const auto parent = label->node->get_parent();
        const bool in_row = index < expected->rows.size();
        ASSERT_EQ(in_row && expected->rows[index].hovered ? style->hot_brush : style->brush, label->brush);
        if (in_row) {
            const D2D_POINT_2F corner = expected->row_corner(index);
            const D2D_SIZE_F size = expected->row_size();
            ASSERT_TRUE(parent);
            ASSERT_NE(node(), parent);
            ASSERT_TRUE(same(scene::translation_matrix(corner.x, corner.y), parent->get_transform()));
            ASSERT_TRUE(same(scene::translation_matrix(size.width * 0.5f, std::floor(size.height * 0.5f)),
                             label->node->get_transform()));
        } else if (expected->shown == index) {
            ASSERT_TRUE(shows(index, expected->shown_at));
        } else {
            ASSERT_FALSE(parent);
        }
    }

    const unsigned seed = test_support::random_seed();
    std::mt19937 random{seed};
    std::optional<popup_model> expected;
    com::ptr<scene::INode> elsewhere;
    int nested = 0;
    int drags = 0;
    int changes = 0;
    int failures = 0;
};

TEST_F(random_popup, use_is_as_in_the_model) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RecordProperty("seed", std::to_string(seed));
    for (int round = 0; round < 40; ++round) {
        make();
        for (int step = 0; step < 600; ++step) {
            do_something();
            compare();
            ASSERT_FALSE(HasFailure()) << "round " << round << ", step " << step;
        }
    }
    std::cout << "seed " << seed << ": " << drags << " drags, " << changes << " changes, " << failures
              << " failures of handlers\n";
    EXPECT_GT(drags, 300);
    EXPECT_GT(changes, 100);
    EXPECT_GT(failures, 10);
}

}  // namespace
}  // namespace d2d
