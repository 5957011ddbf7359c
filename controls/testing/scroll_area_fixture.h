#pragma once

#include "controls/testing/recording_scroll_style.h"
#include "d2d/ui/IScrollArea.h"
#include "scene/matrix.h"
#include "scene/testing/tree_test.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace d2d::fakes {

/// A fixture: a scroll area below the root of a shown tree, with a style that writes down what it draws. Its
/// inner nodes are found as the parents of what was added to it.
class scroll_area_fixture : public scene::fakes::tree_test {
protected:
    using node = scene::node;
    using view_function = ui::IScrollArea::view_function;

    static constexpr int left = 0, top = 1, right = 2, bottom = 3;

    void SetUp() override {
        tree_test::SetUp();
        style = com::create_object<recording_scroll_style>(host_log());
    }
    void TearDown() override {
        site.drag = nullptr;
        style->on_separators = nullptr;
        drop_area();
        style.reset();
        tree_test::TearDown();
    }

    /// Makes the area, adds a node to each part of it, shows it, and forgets what that took.
    void make(const D2D_RECT_F& rect, const D2D_RECT_F& content) {
        drop_area();
        area = ui::create_scroll_area(rect, style->get_IUnknown());
        in_content = filled({0, 0, 10, 10});
        area->add_content(in_content);
        for (int side = 0; side < 4; ++side) {
            auto& fixed = in_fixed.at(static_cast<std::size_t>(side)) = filled({0, 0, 2, 2});
            area->add_margin_fixed_node(side, fixed);
            auto& scrolled = in_scrolled.at(static_cast<std::size_t>(side)) = filled({0, 0, 3, 3});
            area->add_margin_scrolled_node(side, scrolled);
        }
        own = area->get_node();
        root->add_child(own);
        if (target.references() == 0) show();
        area->set_content_bounds(content);
        forget();
    }
    void drop_area() {
        area.reset();
        if (own && own->get_parent()) root->remove_child(own);
        own.reset();
        in_content.reset();
        for (auto& each : in_fixed) each.reset();
        for (auto& each : in_scrolled) each.reset();
    }

    // The inner nodes.
    [[nodiscard]] node& area_node() const { return inside(own); }
    [[nodiscard]] node& content_node() const { return *inside(in_content).parent; }
    [[nodiscard]] node& viewport_node() const { return *content_node().parent; }
    [[nodiscard]] node& fixed_node(int side) const {
        return *inside(in_fixed.at(static_cast<std::size_t>(side))).parent;
    }
    [[nodiscard]] node& scrolled_node(int side) const {
        return *inside(in_scrolled.at(static_cast<std::size_t>(side))).parent;
    }
    [[nodiscard]] node& clip_node(int side) const { return *scrolled_node(side).parent; }
    [[nodiscard]] bool holds(const node& child) const { return child.parent == &area_node(); }

    /// The tracks of the bars that show: whatever the area's node holds besides.
    [[nodiscard]] std::vector<node*> bars() const {
        std::vector<node*> found;
        for (const auto& child : area_node().children) {
            bool is_part = child.get() == &viewport_node();
            for (int side = 0; side < 4; ++side) {
                is_part = is_part || child.get() == &fixed_node(side) || child.get() == &clip_node(side);
            }
            if (!is_part) found.push_back(child.get());
        }
        return found;
    }
    [[nodiscard]] node* find_bar(bool vertical) const {
        for (node* const each : bars()) {
            const D2D_RECT_F& at = each->clip_rect;
            const D2D_RECT_F whole = area->get_rect();
            if (vertical ? at.left == whole.right - 12 : at.top == whole.bottom - 12) return each;
        }
        return nullptr;
    }
    [[nodiscard]] bool shows(bool vertical) const { return find_bar(vertical) != nullptr; }
    [[nodiscard]] node& bar(bool vertical) const {
        if (node* const found = find_bar(vertical)) return *found;
        throw std::logic_error("the bar does not show");
    }

    /// "at 10 20 clip 0 0 5 5"; without the clip where there is none.
    [[nodiscard]] static std::string place_of(const node& of) {
        const auto& m = of.transform;
        EXPECT_TRUE(scene::is_translation(m));
        std::string text = scene::fakes::call_text("at", m._31 + 0, m._32 + 0);
        if (of.clip_flags & node::has_clip) text += scene::fakes::call_text(" clip", of.clip_rect);
        return text;
    }
    /// "-10 -20": where the content has been moved.
    [[nodiscard]] std::string content_place() const {
        return scene::fakes::call_text(content_node().transform._31 + 0, content_node().transform._32 + 0);
    }
    [[nodiscard]] std::string position() const {
        const D2D_POINT_2F at = area->get_scroll_position();
        return scene::fakes::call_text(at.x, at.y);
    }

    /// What was drawn since the last time, without the areas that were invalidated.
    [[nodiscard]] lines drawn() {
        lines found = calls();
        std::erase_if(found, [](const std::string& line) { return line.starts_with("invalidate_rect"); });
        return found;
    }

    void hear_view() {
        area->set_view_changed_handler(
            [this](D2D_RECT_F shown) { views.push_back(scene::fakes::call_text(shown)); });
    }
    [[nodiscard]] lines take_views() { return std::exchange(views, {}); }

    void mouse(std::int32_t type, D2D_POINT_2F point, std::optional<input::mouse::button> button = {},
               std::uint32_t flags = 0, std::int32_t wheel_delta = 0) {
        edge->on_mouse_event({type, button, flags, point, wheel_delta});
    }
    void wheel(D2D_POINT_2F point, int delta, std::uint32_t flags = 0) {
        mouse(input::mouse::event_type::wheel, point, {}, flags, delta);
    }
    void horizontal_wheel(D2D_POINT_2F point, int delta, std::uint32_t flags = 0) {
        mouse(input::mouse::event_type::horizontal_wheel, point, {}, flags, delta);
    }
    void press(D2D_POINT_2F point, input::mouse::button button = input::mouse::button::left) {
        mouse(input::mouse::event_type::button_down, point, button);
    }
    void drag_through(std::vector<D2D_POINT_2F> points) {
        site.drag = [points = std::move(points)](const auto& moved) {
            for (const auto& point : points) moved(point);
            return true;
        };
    }

    com::ptr<recording_scroll_style> style;
    com::ptr<ui::IScrollArea> area;
    com::ptr<scene::INode> own;  // the area's
    com::ptr<scene::INode> in_content;
    std::array<com::ptr<scene::INode>, 4> in_fixed;
    std::array<com::ptr<scene::INode>, 4> in_scrolled;
    lines views;
};

}  // namespace d2d::fakes
