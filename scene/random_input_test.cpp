// Events at random on a tree that changes at random, compared with a model that works everything out anew.

#include "scene/testing/input_model.h"
#include "scene/testing/modelled_tree_test.h"
#include "scene/view.h"
#include "support/debug_heap.h"

#include <cstdint>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::call_text;
using fakes::tree_model;
using input::mouse::button;
using test_support::debug_heap;

class random_input : public fakes::modelled_tree_test<fakes::listener_model> {
protected:
    static constexpr int node_count = 56;
    static constexpr int size = 24;
    static constexpr int reach = 20;

    void SetUp() override {
        modelled_tree_test::SetUp();
        for (int i = 0; i < node_count; ++i) {
            pair& made = make_pair();
            made.model.number = i;
            made.real->set_user_value(i);
            hear(made);
        }
        root = pairs[0]->real;
    }
    static int number_of(INode* of) { return of ? of->get_user_value() : -1; }
    bool answer(std::string line) {
        site.calls.push_back(std::move(line));
        return --stop_at == 0;
    }
    void hear(pair& at) {
        const int own = at.number;
        at.real->add_mouse_handler([this, own](INode* source, int depth, input::mouse::event event) {
            return answer(call_text("mouse", own, event.type, depth, number_of(source), event.position,
                                    event.flags, event.button ? static_cast<int>(*event.button) : -1,
                                    event.wheel_delta));
        });
        at.real->add_cursor_handler([this, own](INode* source, int depth, D2D_POINT_2F) {
            const bool answered = answer(call_text("cursor", own, depth, number_of(source)));
            return answered ? reinterpret_cast<HICON>(static_cast<std::intptr_t>(own) + 1) : nullptr;
        });
    }
    void change_listening(pair& at) {
        const int own = at.number;
        if (one_in(2)) {
            at.model.hears_keys = !at.model.hears_keys;
            if (!at.model.hears_keys) {
                at.real->set_key_handler(nullptr);
                return at.real->set_char_handler(nullptr);
            }
            at.real->set_key_handler([this, own](INode* source, int depth, input::key::event) {
                return answer(call_text("key", own, depth, number_of(source)));
            });
            return at.real->set_char_handler([this, own](INode* source, int depth, wchar_t) {
                return answer(call_text("char", own, depth, number_of(source)));
            });
        }
        at.model.hears_focus = !one_in(4);
        at.model.hears_descendants = one_in(2);
        if (!at.model.hears_focus) return at.real->set_focus_handler(at.model.hears_descendants, nullptr);
        at.real->set_focus_handler(at.model.hears_descendants, [this, own](INode* from, INode* to) {
            static_cast<void>(answer(call_text("focus", own, number_of(from), number_of(to))));
        });
    }

    [[nodiscard]] bool in_view(const pair& at) const {
        return expected.root && &at.model.top() == expected.root;
    }
    pair& any_shown() {
        for (int attempt = 0; attempt < 6; ++attempt) {
            if (pair& chosen = any(); in_view(chosen)) return chosen;
        }
        return any();
    }

    pair& any_free() {
        for (int attempt = 0; attempt < 12; ++attempt) {
            if (pair& chosen = any(); !chosen.model.parent) return chosen;
        }
        return any();
    }

    // What happens

    void send_mouse() {
        constexpr int types[] = {0, 1, 1, 1, 1, 1, 1, 2, 3, 4, 5, 6, 7, 8, 8, 9};
        input::mouse::event event{types[below(16)], {}, below(64), {}, 0};
        if (one_in(3)) event.button = one_in(2) ? button::left : button::extended;
        if (one_in(4)) event.wheel_delta = static_cast<int>(below(5)) * 60 - 120;
        event.position = one_in(3) ? last_point : D2D_POINT_2F{between(-35, 35), between(-35, 35) + 0.25f};
        last_point = event.position;
        expected.mouse_event(event);
        edge->on_mouse_event(event);
    }
    void ask_cursor() {
        const D2D_POINT_2F point{between(-35, 35), between(-35, 35)};
        const HCURSOR given = edge->get_cursor(point);
        EXPECT_EQ(expected.cursor(point) + 1, static_cast<int>(reinterpret_cast<std::intptr_t>(given)));
    }
    void type_something() {
        if (one_in(2)) {
            edge->on_char(L'a');
            return expected.character();
        }
        EXPECT_EQ(expected.key(), edge->on_key_event({one_in(2), false, 65, 0}));
    }
    void change_focus() {
        if (one_in(5)) {
            edge->on_focus_gained();
            return expected.gain_focus();
        }
        if (one_in(6)) {
            edge->on_focus_lost();
            return expected.lose_focus();
        }
        pair& at = any_shown();
        if (!in_view(at)) {
            EXPECT_THROW(at.real->set_focus(), std::runtime_error);
        } else if (one_in(4)) {
            at.real->release_focus();
            expected.release_focus(at.model);
        } else {
            at.real->set_focus();
            expected.set_focus(at.model);
        }
    }
    void add_somewhere() {
        pair& parent = one_in(2) ? *pairs[0] : any_shown();
        pair& child = any_free();
        if (&child == pairs[0].get()) return;  // stays the root
        const bool allowed = !child.model.parent && !child.model.is_above(parent.model);
        if (allowed) return add(parent, child);
        EXPECT_THROW(parent.real->add_child(child.real), std::logic_error);
    }
    void remove_somewhere() {
        pair& child = any_shown();
        auto* const above = static_cast<fakes::listener_model*>(child.model.parent);
        if (!above) return;
        if (!in_view(child)) return remove(*pairs[static_cast<std::size_t>(above->number)], child);
        pair& parent = *pairs[static_cast<std::size_t>(above->number)];
        expected.take_out(child.model, [&] {
            child.model.parent = nullptr;
            std::erase(parent.model.children, &child.model);
        });
        EXPECT_TRUE(parent.real->remove_child(child.real));
    }
    void change_root() {
        if (!expected.root) {
            view->set_root(pairs[0]->real);
            expected.root = &pairs[0]->model;
            return;
        }
        if (!one_in(40)) return;
        expected.take_out(*expected.root, [&] { expected.root = nullptr; });
        view->set_root(nullptr);
    }
    void change_place_or_shape() {
        // The root stays where the mouse is, and enterable.
        if (pair& at = any_shown(); &at != pairs[0].get()) return change_any_of(at, size, reach);
        const tree_model::area front = one_in(9) ? tree_model::area(any_rect(8)) : std::nullopt;
        record_shapes(*pairs[0], one_in(2) ? tree_model::area(any_rect(4 * reach)) : std::nullopt, front);
    }
    void change_mode() {
        pair& at = *pairs[1 + below(node_count - 1)];
        if (in_view(at)) {
            EXPECT_THROW(at.real->set_hit_mode(1), std::logic_error);
        } else {
            set_mode(at, one_in(3) ? static_cast<int>(below(3)) : 1);
        }
    }

    void do_something() {
        const unsigned kind = below(40);
        if (kind < 19) return send_mouse();
        if (kind < 21) return ask_cursor();
        if (kind < 24) return type_something();
        if (kind < 27) return change_focus();
        if (kind < 33) return add_somewhere();
        if (kind < 34) return remove_somewhere();
        if (kind < 35) return change_root();
        if (kind < 36) return change_mode();
        if (kind < 37) return change_listening(any());
        change_place_or_shape();
    }

    void compare(const pair& each) const {
        const auto text = [](const extent& e) {
            return tree_model::text(e.valid ? tree_model::area(e.rect) : std::nullopt);
        };
        const node& real = inside(each.real);
        EXPECT_EQ(tree_model::text(each.model.bounds()), text(real.subtree_extent()));
        EXPECT_EQ(tree_model::text(each.model.hits()), text(real.subtree_hit_extent()));
        EXPECT_EQ(in_view(each), real.view != nullptr);
        EXPECT_EQ(in_view(each) && expected.is_focus(each.model, false), each.real->has_focus(false));
        EXPECT_EQ(in_view(each) && expected.is_focus(each.model, true), each.real->has_focus(true));
    }

    fakes::input_model expected;
    int stop_at = 0;
    D2D_POINT_2F last_point{};
};

TEST_F(random_input, events_reach_whom_the_model_says) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    for (const auto& each : pairs) record_shapes(*each, any_rect(size), std::nullopt);
    for (int i = 1; i < 30; ++i) add(*pairs[0], *pairs[static_cast<std::size_t>(i)]);
    std::size_t longest = 0;
    std::size_t said = 0;
    int indexed = 0;
    const int steps = debug_heap::steps(200'000);
    for (int step = 0; step < steps; ++step) {
        stop_at = expected.stop_at = one_in(3) ? static_cast<int>(1 + below(12)) : 0;
        do_something();
        if (expected.lines != site.calls) {
            EXPECT_EQ(expected.lines, site.calls) << "step " << step;
            return;
        }
        compare(any());
        if (HasFailure()) {
            ADD_FAILURE() << "step " << step;
            return;
        }
        longest = std::max(longest, expected.lines.size());
        said += expected.lines.size();
        indexed += inside(root).lookup && inside(root).lookup->index;
        expected.lines.clear();
        site.calls.clear();
    }
    // It was not silence that agreed.
    EXPECT_GT(said, static_cast<std::size_t>(steps));
    EXPECT_GT(longest, 12u);
    EXPECT_GT(indexed, steps / 200);
}

}  // namespace
}  // namespace d2d::scene
