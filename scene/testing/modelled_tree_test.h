#pragma once

#include "scene/hit_path.h"
#include "scene/testing/hit_model.h"
#include "scene/testing/tree_test.h"
#include "support/random_seed.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace d2d::scene::fakes {

/// A fixture for random trees: nodes, each with its model (a `hit_model` or more), that change alike.
template <class Model>
class modelled_tree_test : public tree_test {
protected:
    struct pair {
        com::ptr<INode> real;
        Model model;
        int number = 0;
    };

    void TearDown() override {
        view->set_root(nullptr);
        pairs.clear();
        tree_test::TearDown();
    }

    pair& make_pair() {
        pairs.push_back(std::make_unique<pair>());
        pairs.back()->real = create_node();
        pairs.back()->number = static_cast<int>(pairs.size()) - 1;
        return *pairs.back();
    }
    [[nodiscard]] unsigned below(unsigned limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }
    [[nodiscard]] float between(int from, int to) {
        return static_cast<float>(from + static_cast<int>(below(static_cast<unsigned>(to - from + 1))));
    }
    pair& any() { return *pairs[below(static_cast<unsigned>(pairs.size()))]; }
    [[nodiscard]] const pair* pair_of(const tree_model* model) const {
        for (const auto& each : pairs) {
            if (&each->model == model) return each.get();
        }
        return nullptr;
    }

    /// Of about `size`, near or around the origin; not always with edges in order.
    D2D_RECT_F any_rect(int size) {
        const float x = between(-size / 2, size / 2);
        const float y = between(-size / 2, size / 2);
        D2D_RECT_F rect{x, y, x + between(0, size), y + between(0, size)};
        if (one_in(20)) std::swap(rect.left, rect.right);
        return rect;
    }
    D2D_MATRIX_3X2_F any_matrix(int reach) {
        const float x = between(-reach, reach);
        const float y = between(-reach, reach);
        const float angle = between(0, 628) / 100;
        constexpr float scales[] = {0.25f, 0.5f, 2, -1, 3, 20, 0.01f, -0.75f};
        switch (below(10)) {
            case 0:
                return identity_matrix;
            case 1:
            case 2:
                return {{{scales[below(8)], 0, 0, scales[below(8)], x, y}}};
            case 3:
                return {{{0, 1, -1, 0, x, y}}};
            case 4:
                return {{{std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), x, y}}};
            case 5:
                return {{{1, between(-10, 10) / 4, between(-10, 10) / 16, 1.5f, x, y}}};
            case 6:
                return far_away && one_in(4) ? translation_matrix(x * 1e6f, y * 1e6f)
                                             : translation_matrix(x / 8, y / 8);
            default:
                return translation_matrix(x, y);
        }
    }

    void add(pair& parent, pair& child) {
        child.model.parent = &parent.model;
        parent.model.children.push_back(&child.model);
        parent.real->add_child(child.real);
    }
    void remove(pair& parent, pair& child) {
        child.model.parent = nullptr;
        std::erase(parent.model.children, &child.model);
        EXPECT_TRUE(parent.real->remove_child(child.real));
    }
    void move_to(pair& at, const D2D_MATRIX_3X2_F& matrix) {
        if (at.real->set_transform(matrix)) at.model.transform = matrix;
        at.model.inverse = inside(at.real).inverse;  // to the last bit of the platform's
    }
    /// Records a shape behind the children, one in front of them, or nothing.
    void record_shapes(pair& at, const tree_model::area& back, const tree_model::area& front) {
        at.model.back = back;
        at.model.front = front;
        at.model.recorded();
        const auto context = at.real->draw(false);
        const auto brush = make_brush(red);
        if (back) context->fill_geometry(geometry(*back), brush.get());
        context->foreground();
        if (front) context->fill_geometry(geometry(*front), brush.get());
        context->commit();
    }
    void set_shape(pair& at, const tree_model::area& shape) {
        const bool changes = shape || at.model.clip_geometry;
        at.model.clip_geometry = shape;
        if (changes) at.model.update_own_hit();
        at.real->set_clip_geometry(shape ? geometry(*shape) : nullptr);
    }
    void set_clip(pair& at, const tree_model::area& clip) {
        at.model.clip = clip;
        if (clip) {
            at.real->set_clip_rect(*clip);
        } else {
            at.real->clear_clip_rect();
        }
    }
    void set_mode(pair& at, int mode) {
        if (std::exchange(at.model.hit_mode, mode) != mode) at.model.update_own_hit();
        at.real->set_hit_mode(mode);
    }

    /// Changes what a node is hit on or where, not what it belongs to.
    void change_any_of(pair& at, int size, int reach) {
        switch (below(8)) {
            case 0:
                return set_clip(at, one_in(2) ? tree_model::area() : tree_model::area(any_rect(3 * size)));
            case 1:
                return set_shape(at, one_in(2) ? tree_model::area() : tree_model::area(any_rect(size)));
            case 2:
            case 3:
            case 4:
                return move_to(at, any_matrix(reach));
            default: {
                const tree_model::area front = one_in(5) ? tree_model::area(any_rect(size)) : std::nullopt;
                return record_shapes(at, one_in(4) ? std::nullopt : tree_model::area(any_rect(size)), front);
            }
        }
    }

    [[nodiscard]] std::string text_of(const hit_path& path) const {
        std::string text;
        for (const auto& entry : path) {
            const auto found = std::find_if(pairs.begin(), pairs.end(), [&](const auto& each) {
                return each->real.get() == static_cast<INode*>(entry.at);
            });
            text += call_text((*found)->number, entry.point) + ", ";
        }
        return text;
    }
    [[nodiscard]] std::string text_of(const hit_model::path& path) const {
        std::string text;
        for (const auto& step : path) text += call_text(pair_of(step.at)->number, step.point) + ", ";
        return text;
    }

    bool far_away = false;  // some nodes are moved very far
    unsigned seed = test_support::random_seed();
    std::mt19937 random{seed};
    std::vector<std::unique_ptr<pair>> pairs;
};

}  // namespace d2d::scene::fakes
