// Scroll areas through random operations, compared with a model that works everything out anew.

#include "controls/testing/scroll_area_fixture.h"
#include "controls/testing/scroll_area_model.h"
#include "scene/testing/fake_element.h"
#include "support/debug_heap.h"
#include "support/random_seed.h"

#include <cmath>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::placed_node;
using fakes::scroll_area_model;
using fakes::scroll_bar_model;
using input::mouse::button;
using scene::fakes::call_text;
using scene::fakes::fake_element;

class random_scroll_area_test : public fakes::scroll_area_fixture {
protected:
    using numbers = std::vector<float>;
    using picture = std::map<std::string, numbers>;

    void TearDown() override {
        for (auto& each : elements) each.reset();
        scroll_area_fixture::TearDown();
    }

    [[nodiscard]] unsigned below(unsigned limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }
    /// In quarters, whose sums a float holds exactly.
    [[nodiscard]] float between(int from, int to) {
        const unsigned quarters = static_cast<unsigned>(to - from) * 4 + 1;
        return static_cast<float>(from) +
               static_cast<float>(below(one_in(2) ? quarters : (quarters / 4) + 1) % quarters) / 4;
    }

    D2D_RECT_F any_rect() {
        const float x = between(-30, 60);
        const float y = between(-30, 60);
        return {x, y, x + between(120, 300), y + between(120, 300)};
    }
    /// Often about as large as the view, so that one bar decides on the other.
    D2D_RECT_F any_bounds() {
        const D2D_RECT_F& around = expected->rect;
        const auto length = [this](float room) {
            switch (below(5)) {
                case 0:
                    return between(0, 60);
                case 1:
                    return room - 14 + between(0, 16);
                case 2:
                    return expected->view.width + between(0, 14);
                default:
                    return between(50, 2000);
            }
        };
        const float x = one_in(2) ? 0 : between(-100, 100);
        const float y = one_in(2) ? 0 : between(-100, 100);
        return {x, y, x + length(around.right - around.left), y + length(around.bottom - around.top)};
    }
    D2D_POINT_2F any_place() {
        const D2D_RECT_F& b = expected->bounds;
        return {b.left - 30 + (b.right - b.left + 60) * between(0, 1),
                b.top - 30 + (b.bottom - b.top + 60) * between(0, 1)};
    }

    // What both look like

    static void draw(picture& into, const std::string& name, const placed_node& at) {
        into[name] = {at.at.x, at.at.y};
        if (at.clip) into[name + " clip"] = {at.clip->left, at.clip->top, at.clip->right, at.clip->bottom};
    }
    static void draw(picture& into, const std::string& name, const node& at) {
        into[name] = {at.transform._31, at.transform._32};
        const D2D_RECT_F& c = at.clip_rect;
        if (at.clip_flags & node::has_clip) into[name + " clip"] = {c.left, c.top, c.right, c.bottom};
    }
    static void draw(picture& into, const std::string& name, const scroll_bar_model& bar) {
        into[name] = {bar.rect.left, bar.rect.top, bar.rect.right, bar.rect.bottom};
        into[name + " thumb"] = {bar.thumb_place.x, bar.thumb_place.y, bar.thumb_rect().right,
                                 bar.thumb_rect().bottom};
    }
    static void draw_bar(picture& into, const std::string& name, const node& track) {
        const D2D_RECT_F& rect = track.clip_rect;
        into[name] = {rect.left, rect.top, rect.right, rect.bottom};
        const node& thumb = *track.children.at(0);
        into[name + " thumb"] = {thumb.transform._31, thumb.transform._32, thumb.content_bounds.right,
                                 thumb.content_bounds.bottom};
    }
    [[nodiscard]] picture wanted() const {
        picture made;
        draw(made, "viewport", expected->viewport);
        draw(made, "content", expected->content);
        for (int side = 0; side < 4; ++side) {
            const auto& m = expected->margins.at(static_cast<std::size_t>(side));
            const std::string name = std::to_string(side);
            draw(made, name + " fixed", m.fixed_part);
            draw(made, name + " holder", m.clip_part);
            draw(made, name + " scrolled", m.scrolled_part);
            if (m.fixed != 0) made[name + " fixed is there"];
            if (m.scrolled != 0) made[name + " scrolled is there"];
            if (m.element_rect) {
                const D2D_RECT_F& r = *m.element_rect;
                made[name + " element"] = {r.left, r.top, r.right, r.bottom};
            }
        }
        if (expected->shows_vertical) draw(made, "vertical bar", expected->vertical);
        if (expected->shows_horizontal) draw(made, "horizontal bar", expected->horizontal);
        return made;
    }
    [[nodiscard]] picture seen() const {
        picture made;
        draw(made, "viewport", viewport_node());
        draw(made, "content", content_node());
        for (int side = 0; side < 4; ++side) {
            const std::string name = std::to_string(side);
            draw(made, name + " fixed", fixed_node(side));
            draw(made, name + " holder", clip_node(side));
            draw(made, name + " scrolled", scrolled_node(side));
            if (holds(fixed_node(side))) made[name + " fixed is there"];
            if (holds(clip_node(side))) made[name + " scrolled is there"];
            const auto& element = *elements.at(static_cast<std::size_t>(side));
            if (element.arranges > 0) {
                made[name + " element"] = {element.rect.left, element.rect.top, element.rect.right,
                                           element.rect.bottom};
            }
        }
        if (const node* const found = find_bar(true)) draw_bar(made, "vertical bar", *found);
        if (const node* const found = find_bar(false)) draw_bar(made, "horizontal bar", *found);
        return made;
    }
    static bool close(float a, float b) { return std::abs(a - b) <= 2e-3f + 2e-6f * std::abs(a); }
    static std::string text_of(const numbers& list) {
        std::string text;
        for (const float each : list) text += call_text(each, "");
        return text;
    }
    static void expect_same(const std::string& name, const numbers& wanted, const numbers& is) {
        bool same = wanted.size() == is.size();
        for (std::size_t i = 0; same && i < is.size(); ++i) same = close(wanted[i], is[i]);
        if (!same) ADD_FAILURE() << name << ": wanted " << text_of(wanted) << "is " << text_of(is);
    }
    void compare() {
        const D2D_POINT_2F at = area->get_scroll_position();
        expect_same("position", {expected->position.x, expected->position.y}, {at.x, at.y});
        // What was close stays close, and is rounded to the same pixel.
        expected->take_position(at);
        const picture a = wanted();
        const picture b = seen();
        for (const auto& [name, list] : a) {
            if (b.count(name))
                expect_same(name, list, b.at(name));
            else
                ADD_FAILURE() << name << " is not there";
        }
        for (const auto& [name, list] : b)
            EXPECT_TRUE(a.count(name)) << name << " is there: " << text_of(list);
        ASSERT_EQ(expected->reports.size(), reports.size()) << "reports";
        for (std::size_t i = 0; i < reports.size(); ++i) {
            const auto list = [](const D2D_RECT_F& r) { return numbers{r.left, r.top, r.right, r.bottom}; };
            expect_same("report", list(expected->reports[i]), list(reports[i]));
        }
        expected->reports.clear();
        reports.clear();
    }

    // Steps

    void press_bar(bool vertical) {
        if (!shows(vertical)) return;
        // A page to the end, or back: presses on the track are compared with the start of the space.
        const auto& model = vertical ? expected->vertical : expected->horizontal;
        const D2D_RECT_F& rect = model.rect;
        // Beside the thumb, across the bar.
        const float way = between(1, 99) / 100;
        const D2D_POINT_2F point =
            vertical ? D2D_POINT_2F{rect.left + 0.5f, rect.top + (rect.bottom - rect.top) * way}
                     : D2D_POINT_2F{rect.left + (rect.right - rect.left) * way, rect.top + 0.5f};
        scroll_bar_model moved = model;
        moved.told.clear();
        const bool jumps = one_in(3);
        if (jumps)
            moved.jump(point);
        else
            moved.press_left(point);
        what += call_text(jumps ? " jump" : " page", vertical, point) + ";";
        site.drag = nullptr;
        press(point, jumps ? button::right : button::left);
        if (!moved.told.empty()) expected->bar_moved(vertical, moved.told.back());
    }
    void drag_bar(bool vertical) {
        if (!shows(vertical)) return;
        scroll_bar_model moved = vertical ? expected->vertical : expected->horizontal;
        moved.told.clear();
        const D2D_POINT_2F origin = moved.thumb_place;
        const D2D_POINT_2F grip{origin.x + 5, origin.y + 5};
        const D2D_POINT_2F to{between(-50, 400), between(-50, 400)};
        what += call_text(" drag", vertical, grip, to) + ";";
        drag_through({to});
        press(grip);
        moved.drag(grip, origin, to);
        expected->bar_moved(vertical, moved.told.back());
        (vertical ? expected->vertical : expected->horizontal).thumb_place = moved.thumb_place;
    }
    void turn_wheel() {
        const D2D_POINT_2F corner = expected->viewport.at;
        if (expected->view.width < 2 || expected->view.height < 2) return;
        const D2D_POINT_2F point{corner.x + expected->view.width / 2, corner.y + expected->view.height / 2};
        const bool is_horizontal = one_in(4);
        const bool shift = one_in(3);
        const int delta = static_cast<int>(below(3)) * 120 - 120;
        what += call_text(" wheel", is_horizontal, shift, delta) + ";";
        expected->wheel(is_horizontal, shift, delta);
        if (is_horizontal)
            horizontal_wheel(point, delta, shift ? MK_SHIFT : 0);
        else
            wheel(point, delta, shift ? MK_SHIFT : 0);
        ++wheels;
    }
    void change_margin() {
        const int side = static_cast<int>(below(4));
        const float size = one_in(3) ? 0 : between(0, 25);
        if (one_in(2)) {
            what += call_text(" fixed", side, size) + ";";
            area->set_margin_fixed_size(side, size);
            return expected->set_fixed_size(side, size);
        }
        what += call_text(" scrolled", side, size) + ";";
        area->set_margin_scrolled_size(side, size);
        expected->set_scrolled_size(side, size);
    }
    void change_element() {
        const int side = static_cast<int>(below(4));
        const bool present = !one_in(3);
        const D2D_RECT_F inset = one_in(3) ? D2D_RECT_F{} : D2D_RECT_F{between(0, 5), 1, between(0, 5), 2};
        what += call_text(" element", side, present, inset) + ";";
        com::ptr<fake_element> element;
        if (present) element = elements.at(static_cast<std::size_t>(side));
        area->set_margin_element(side, element, inset);
        expected->set_element(side, present, inset);
    }
    void arrange() {
        D2D_RECT_F rect = any_rect();
        if (one_in(2)) {
            rect.right = rect.left + (expected->rect.right - expected->rect.left);
            rect.bottom = rect.top + (expected->rect.bottom - expected->rect.top);
        }
        what += call_text(" arrange", rect) + ";";
        area->arrange(rect);
        expected->arrange(rect);
    }
    void step() {
        switch (below(10)) {
            case 0: {
                const D2D_RECT_F bounds = any_bounds();
                what += call_text(" bounds", bounds) + ";";
                area->set_content_bounds(bounds);
                return expected->set_content_bounds(bounds);
            }
            case 1: {
                const D2D_POINT_2F to = any_place();
                what += call_text(" position", to) + ";";
                area->set_scroll_position(to.x, to.y);
                return expected->set_scroll_position(to.x, to.y);
            }
            case 2:
            case 3:
                return change_margin();
            case 4:
                return change_element();
            case 5:
                return arrange();
            case 6:
                expected->align_x = static_cast<int>(below(3)) - 1;
                expected->align_y = static_cast<int>(below(3)) - 1;
                what += call_text(" align", expected->align_x, expected->align_y) + ";";
                return area->set_alignment(expected->align_x, expected->align_y);
            case 7:
                expected->wheel_mode = static_cast<int>(below(4));
                what += call_text(" mode", expected->wheel_mode) + ";";
                area->set_wheel_mode(expected->wheel_mode);
                return turn_wheel();
            case 8:
                return one_in(2) ? press_bar(one_in(2)) : drag_bar(one_in(2));
            default:
                return turn_wheel();
        }
    }

    void run(int steps) {
        style->gap = one_in(3) ? between(0, 4) : 1;
        // Ahead of the model, which is what `any_rect` does not need.
        const D2D_RECT_F rect = any_rect();
        expected.emplace(rect, style->gap);
        const D2D_RECT_F bounds = any_bounds();
        expected->set_content_bounds(bounds);
        expected->reports.clear();
        what = call_text("in", rect, "of", bounds, "gap", style->gap) + ":";
        make(rect, bounds);
        reports.clear();
        area->set_view_changed_handler([this](D2D_RECT_F shown) { reports.push_back(shown); });
        for (auto& each : elements) each = com::create_object<fake_element>(scene::layout::metrics{});
        compare();
        for (int i = 0; i < steps && !HasFailure(); ++i) {
            step();
            SCOPED_TRACE(what);
            compare();
        }
        site.calls.clear();
    }

    std::mt19937 random;
    std::optional<scroll_area_model> expected;
    std::array<com::ptr<fake_element>, 4> elements;
    std::vector<D2D_RECT_F> reports;
    std::string what;
    int wheels = 0;
};

TEST_F(random_scroll_area_test, agrees_with_the_model_after_each_operation) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    random.seed(seed);
    const int runs = test_support::debug_heap::steps(300);
    for (int i = 0; i < runs && !HasFailure(); ++i) run(25);
    EXPECT_GT(wheels, runs * 5 / 3) << "too few wheels came to pass";
}

}  // namespace
}  // namespace d2d
