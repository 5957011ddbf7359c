#pragma once

#include "scene/testing/tree_model.h"
#include "scene/testing/tree_test.h"
#include "support/random_seed.h"

#include <cmath>
#include <cstddef>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace d2d::scene::fakes {

/// A fixture for trees that change at random: nodes, each with its model, that change alike, and the calls
/// that each change is expected to make.
class random_tree : public tree_test {
protected:
    using area = tree_model::area;

    static constexpr std::size_t node_count = 20;

    struct pair {
        com::ptr<INode> real;
        tree_model model;
        std::vector<std::pair<INode::bounds_token, int>> handlers;
    };

    void SetUp() override {
        tree_test::SetUp();
        pairs.resize(node_count);
        for (auto& each : pairs) each.real = create_node();
    }
    void TearDown() override {
        view->set_root(nullptr);
        pairs.clear();
        tree_test::TearDown();
    }

    [[nodiscard]] unsigned below(unsigned limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }
    pair& any() { return pairs[below(node_count)]; }
    /// Of the nodes that the view shows, most of the time.
    pair& any_shown() {
        for (int attempt = 0; attempt < 4; ++attempt) {
            pair& chosen = any();
            if (&chosen.model.top() == shown_root) return chosen;
        }
        return any();
    }
    pair& pair_of(const tree_model& model) {
        for (auto& each : pairs) {
            if (&each.model == &model) return each;
        }
        throw std::out_of_range("not a model of this tree");
    }

    [[nodiscard]] float coordinate() { return static_cast<float>(static_cast<int>(below(21)) - 10); }
    D2D_RECT_F any_rect() {
        D2D_RECT_F rect{coordinate(), coordinate(), coordinate(), coordinate()};
        if (one_in(10)) return rect;  // of any order
        if (rect.left > rect.right) std::swap(rect.left, rect.right);
        if (rect.top > rect.bottom) std::swap(rect.top, rect.bottom);
        if (one_in(10)) rect.right = rect.left;
        return rect;
    }
    D2D_MATRIX_3X2_F any_matrix(const tree_model& of) {
        const float x = coordinate();
        const float y = coordinate();
        constexpr float scales[] = {0.5f, 2, -1, 3};
        const float angle = coordinate();
        switch (below(9)) {
            case 0:
                return identity_matrix;
            case 1:
                return of.transform;
            case 2:
                return of.inverse;
            case 3:
                return {{{scales[below(4)], 0, 0, scales[below(4)], x, y}}};
            case 4:
                return {{{0, 1, -1, 0, x, y}}};
            case 5:
                return {{{std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), x, y}}};
            default:
                return translation_matrix(x, y);
        }
    }

    [[nodiscard]] bool in_view(const tree_model& model) const { return &model.top() == shown_root; }
    [[nodiscard]] bool shown(const tree_model& model) const { return has_target && in_view(model); }

    // What is expected to be written down.

    void expect_invalid(const tree_model& of, const area& rect) {
        if (shown(of)) expected.push_back(call_text("invalidate_rect", of.in_view(rect)));
    }
    void expect_handlers(const tree_model& of) {
        const area now = of.bounds();
        for (const auto& [token, id] : pair_of(of).handlers) {
            expected.push_back(call_text("bounds", id, now.has_value(), now.value_or(D2D_RECT_F{})));
        }
    }

    /// The bounds of a node and of those above it, as they are now.
    struct bounds_above {
        explicit bounds_above(const tree_model* from) {
            for (; from; from = from->parent) before.emplace_back(from, from->bounds());
        }
        std::vector<std::pair<const tree_model*, area>> before;
    };
    void expect_handlers_of_changed(const bounds_above& above) {
        for (const auto& [model, before] : above.before) {
            if (tree_model::text(before) != tree_model::text(model->bounds())) expect_handlers(*model);
        }
    }

    // The changes.

    void add_handler(pair& to) {
        const int id = next_handler++;
        to.handlers.emplace_back(to.real->add_bounds_handler([this, id, &to](bool valid, D2D_RECT_F rect) {
            site.calls.push_back(call_text("bounds", id, valid, rect));
            if (on_bounds) on_bounds(to);
        }),
                                 id);
    }
    void remove_handler(pair& from) {
        if (from.handlers.empty()) return;
        const auto chosen =
            from.handlers.begin() + static_cast<std::ptrdiff_t>(below(2) % from.handlers.size());
        from.real->remove_bounds_handler(chosen->first);
        from.handlers.erase(chosen);
    }

    void add_child(pair& parent, pair& child) {
        const bool allowed =
            !child.model.parent && !in_view(child.model) && !child.model.is_above(parent.model);
        if (!allowed) {
            EXPECT_THROW(parent.real->add_child(child.real), std::logic_error);
            return;
        }
        const bounds_above above(&parent.model);
        child.model.parent = &parent.model;
        parent.model.children.push_back(&child.model);
        expect_handlers_of_changed(above);
        expect_invalid(child.model, child.model.bounds());
        parent.real->add_child(child.real);
    }

    void remove_child(pair& parent, pair& child) {
        if (child.model.parent != &parent.model) {
            EXPECT_FALSE(parent.real->remove_child(child.real));
            return;
        }
        const bounds_above above(&parent.model);
        expect_invalid(child.model, child.model.bounds());
        child.model.parent = nullptr;
        std::erase(parent.model.children, &child.model);
        expect_handlers_of_changed(above);
        EXPECT_TRUE(parent.real->remove_child(child.real));
    }

    void record_any(pair& at) {
        const bool animated = one_in(6);
        const area content = one_in(4) ? area() : area(any_rect());
        const bounds_above above(at.model.parent);
        const area own_before = at.model.bounds();
        if (at.model.content) expect_invalid(at.model, at.model.content);
        at.model.content = content;
        at.model.content_animated = content && animated;
        at.model.update_own_hit();
        expect_handlers_of_changed(above);
        if (content) expect_invalid(at.model, content);
        if (tree_model::text(own_before) != tree_model::text(at.model.bounds())) expect_handlers(at.model);
        if (content) {
            record(at.real, *content, animated);
        } else {
            erase(at.real);
        }
    }

    void move_to(pair& at, const D2D_MATRIX_3X2_F& matrix) {
        if (std::memcmp(&matrix, &at.model.inverse, sizeof(matrix)) == 0) {
            EXPECT_FALSE(at.real->set_transform(matrix));
            return;
        }
        const bounds_above above(at.model.parent);
        expect_invalid(at.model, at.model.bounds());
        at.model.transform = at.model.inverse = matrix;
        EXPECT_TRUE(D2D1InvertMatrix(&at.model.inverse));
        expect_handlers_of_changed(above);
        expect_invalid(at.model, at.model.bounds());
        EXPECT_TRUE(at.real->set_transform(matrix));
        at.model.inverse = static_cast<node&>(*at.real).inverse;  // to the last bit of the platform's
    }

    void move_badly(pair& at) {
        const D2D_MATRIX_3X2_F before = at.real->get_transform();
        D2D_MATRIX_3X2_F bad = identity_matrix;
        bad._11 = one_in(2) ? 0 : std::numeric_limits<float>::infinity();
        expect_invalid(at.model, at.model.bounds());
        EXPECT_THROW(at.real->set_transform(bad), std::logic_error);
        EXPECT_TRUE(same(before, at.real->get_transform()));
    }

    void set_hit_mode(pair& at) {
        const int mode = static_cast<int>(below(3));
        if (in_view(at.model)) {
            EXPECT_THROW(at.real->set_hit_mode(mode), std::logic_error);
            return;
        }
        const int previous = std::exchange(at.model.hit_mode, mode);
        if (previous != mode) at.model.update_own_hit();
        EXPECT_EQ(previous, at.real->set_hit_mode(mode));
    }

    void set_clip_geometry(pair& at) {
        at.model.clip_geometry = one_in(2) ? area() : area(any_rect());
        // The same one again changes nothing; a node without one keeps what it is hit on.
        const bool changes = at.model.clip_geometry || at.real->get_clip_geometry();
        if (changes) at.model.update_own_hit();
        at.real->set_clip_geometry(at.model.clip_geometry ? geometry(*at.model.clip_geometry) : nullptr);
    }

    void clear(pair& at) {
        const bounds_above above(at.model.parent);
        if (at.model.bounds()) expect_invalid(at.model, at.model.bounds());
        reset(at.model);
        expect_handlers_of_changed(above);
        at.real->clear();
    }
    void reset(tree_model& model) {
        pair_of(model).handlers.clear();
        for (tree_model* child : model.children) {
            reset(*child);
            child->parent = nullptr;
        }
        tree_model* const parent = model.parent;
        model = {};
        model.parent = parent;
    }

    void set_animation(pair& at) {
        at.model.moves = !at.model.moves;
        at.real->set_transform_animation(at.model.moves ? still().get() : nullptr);
    }

    void set_root(pair* next) {
        if (next && &next->model == shown_root) {
            view->set_root(next->real);
            return;
        }
        if (next && (next->model.parent || in_view(next->model))) {
            EXPECT_THROW(view->set_root(next->real), std::logic_error);
            return;
        }
        if (shown_root) expect_invalid(*shown_root, shown_root->bounds());
        shown_root = next ? &next->model : nullptr;
        if (shown_root) expect_invalid(*shown_root, shown_root->bounds());
        view->set_root(next ? next->real : nullptr);
    }

    void change_target() {
        has_target = !has_target;
        if (has_target) {
            edge->attach_render_target(&target);
        } else {
            edge->detach_render_target(&target);
        }
        static_cast<void>(target.take_calls());
    }

    void change_anything() {
        change = below(24);
        switch (change) {
            case 0:
            case 1:
            case 2:
                return add_child(any_shown(), any());
            case 3: {
                pair& child = any_shown();
                return remove_child(child.model.parent ? pair_of(*child.model.parent) : any(), child);
            }
            case 4:
                return remove_child(any(), any());
            case 5:
                return set_hit_mode(any());
            case 6:
                return set_clip_geometry(any_shown());
            case 7:
                return one_in(6) ? clear(any_shown()) : add_handler(any());
            case 8:
                return remove_handler(any());
            case 9:
                return set_animation(any_shown());
            case 10:
                return one_in(5) ? set_root(one_in(4) ? nullptr : &any()) : record_any(any());
            case 11:
                return one_in(5) ? change_target() : move_badly(any());
            case 12:
            case 13:
            case 14:
            case 15:
            case 16:
                return record_any(any_shown());
            default: {
                pair& moved = any_shown();
                return move_to(moved, any_matrix(moved.model));
            }
        }
    }

    // The comparison.

    void compare(const pair& each) const {
        const node& real = static_cast<const node&>(*each.real);
        const tree_model& model = each.model;
        const auto text_of = [](const extent& e) {
            return tree_model::text(e.valid ? area(e.rect) : area());
        };
        EXPECT_EQ(tree_model::text(model.content), text_of(real.content_extent()));
        EXPECT_EQ(tree_model::text(model.bounds()), text_of(real.subtree_extent()));
        EXPECT_EQ(tree_model::text(model.own_hit), text_of(real.hit_extent()));
        EXPECT_EQ(tree_model::text(model.hits()), text_of(real.subtree_hit_extent()));
        EXPECT_EQ(model.flags(), real.content_flags);
        EXPECT_EQ(model.moving_children(), real.animated_nodes);
        EXPECT_EQ(model.moves, static_cast<bool>(real.transform_animation));
        EXPECT_EQ(in_view(model), real.view != nullptr);
        EXPECT_TRUE(same(model.transform, real.transform));
        EXPECT_EQ(model.parent ? &static_cast<node&>(*parent_of(model).real) : nullptr, real.parent);
        EXPECT_EQ(model.children.size(), real.children.size());
        const D2D_RECT_F none{};
        const area bounds = model.bounds();
        EXPECT_TRUE(same_or_odd(bounds.value_or(none), each.real->get_bounds(true)));
        EXPECT_TRUE(same_or_odd(bounds ? model.content.value_or(none) : none, each.real->get_bounds(false)));
    }
    static testing::AssertionResult same_or_odd(const D2D_RECT_F& a, const D2D_RECT_F& b) {
        return call_text(a) == call_text(b) ? testing::AssertionSuccess() : same(a, b);
    }
    [[nodiscard]] const pair& parent_of(const tree_model& model) const {
        for (const auto& each : pairs) {
            if (&each.model == model.parent) return each;
        }
        throw std::out_of_range("not a model of this tree");
    }
    void compare_all() const {
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            SCOPED_TRACE(testing::Message() << "node " << i);
            compare(pairs[i]);
        }
    }

    /// The calls of this step without those about the clock, of which `clock_calls` tells the number.
    std::vector<std::string> step_calls(int& clock_calls) {
        auto result = calls();
        clock_calls = static_cast<int>(
            std::erase_if(result, [](const std::string& line) { return line.starts_with("set_anim"); }));
        return result;
    }
    [[nodiscard]] bool needs_clock() const {
        return shown_root && (shown_root->paints_animated() || shown_root->has_moving_nodes());
    }

    unsigned seed = test_support::random_seed();
    std::mt19937 random{seed};
    std::vector<pair> pairs;
    tree_model* shown_root = nullptr;
    bool has_target = false;
    unsigned change = 0;  // the number of the last kind of change
    int next_handler = 1;
    std::vector<std::string> expected;
    std::function<void(pair& told)> on_bounds;
};

}  // namespace d2d::scene::fakes
