#include "scene/testing/pixel_target.h"
#include "scene/testing/scene_test.h"

#include <memory>
#include <stdexcept>

namespace d2d::scene {
namespace {

using fakes::test_visual;

/// The first node of the process that commits a recording, which visuals are given as their site. Keeps the
/// graphics objects for all tests as well; the first frame makes hidden windows that stay.
class first_recording : public testing::Environment {
public:
    void SetUp() override {
        first = create_node();
        first->draw(false)->commit();
        const fakes::pixel_target warm(1, 1);
        warm->BeginDraw();
        com::check(warm->EndDraw(nullptr, nullptr));
    }
    void TearDown() override { first.reset(); }

    static inline com::ptr<INode> first;
};

const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(std::make_unique<first_recording>().release());

class node_visual : public fakes::scene_test {
protected:
    void SetUp() override {
        scene_test::SetUp();
        for (const char* name : {"a", "b", "c", "d"}) visuals.push_back(make_visual(name, {0, 0, 10, 10}));
    }
    void TearDown() override {
        visuals.clear();
        scene_test::TearDown();
    }

    /// Records visuals by name: "ab|cd" has a and b in the background and c and d in the foreground.
    void record(const com::ptr<INode>& at, const char* named) {
        const auto context = at->draw(false);
        for (const char* name = named; *name; ++name) {
            if (*name == '|') {
                context->foreground();
            } else {
                context->draw_visual(visuals.at(static_cast<std::size_t>(*name - 'a')).get());
            }
        }
        context->commit();
    }

    std::vector<com::ptr<test_visual>> visuals;
};

struct exchange {
    const char* before;
    const char* after;
    std::vector<std::string> expected;
};

TEST_F(node_visual, only_what_differs_is_detached_and_attached_the_foreground_first) {
    const std::vector<exchange> exchanges{
        {"", "a", {"attach a"}},
        {"a", "a", {}},
        {"a", "", {"detach a"}},
        {"ab|cd", "", {"detach c", "detach d", "detach a", "detach b"}},
        {"", "ab|cd", {"attach c", "attach d", "attach a", "attach b"}},
        {"ab|cd", "ab|cd", {}},
        {"ab|cd", "dc|ba", {}},
        {"a|", "|a", {}},
        {"a|b", "c|d", {"detach b", "detach a", "attach d", "attach c"}},
        {"ab|c", "bd|", {"detach c", "detach a", "attach d"}},
    };
    for (const exchange& tried : exchanges) {
        SCOPED_TRACE(std::string(tried.before) + " to " + tried.after);
        record(root, tried.before);
        site.calls.clear();
        record(root, tried.after);
        EXPECT_EQ(tried.expected, site.take_calls());
        record(root, "");
    }
}

TEST_F(node_visual, visuals_are_bound_when_their_tree_is_shown_on_a_target_and_not_at_commit) {
    record(root, "ab|cd");
    site.calls.clear();
    view->set_root(root);
    EXPECT_EQ(lines{}, site.take_calls());
    edge->attach_render_target(&target);
    EXPECT_EQ((lines{"bind a", "bind b", "bind c", "bind d"}), site.take_calls());
    edge->detach_render_target(&target);
    EXPECT_EQ((lines{"unbind c", "unbind d", "unbind a", "unbind b"}), site.take_calls());
    view->set_root(nullptr);
    EXPECT_EQ(lines{}, site.take_calls());
    edge->attach_render_target(&target);
    EXPECT_EQ(lines{}, site.take_calls());
    view->set_root(root);
    EXPECT_EQ((lines{"bind a", "bind b", "bind c", "bind d", "invalidate_rect 0 0 10 10"}),
              site.take_calls());
    view->set_root(nullptr);
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "unbind c", "unbind d", "unbind a", "unbind b"}),
              site.take_calls());
    view->set_root(root);
    record(root, "");
    site.calls.clear();
    record(root, "a|b");
    EXPECT_EQ((lines{"attach b", "attach a", "invalidate_rect 0 0 10 10"}), site.take_calls());
}

TEST_F(node_visual, binding_gives_the_view_as_the_context) {
    record(root, "a");
    show();
    const com::ptr<IResourceBindingContext> expected(view);
    EXPECT_EQ(expected.get(), visuals[0]->context);
    EXPECT_EQ(&target, visuals[0]->context->get_render_target());
    visuals[0]->context = nullptr;
    edge->detach_render_target(&target);
    EXPECT_EQ(expected.get(), visuals[0]->context);
}

TEST_F(node_visual, a_child_with_visuals_binds_them_as_it_comes_and_goes) {
    show();
    const auto child = create_node();
    record(child, "a|b");
    forget();
    root->add_child(child);
    EXPECT_EQ((lines{"bind a", "bind b", "invalidate_rect 0 0 10 10"}), site.take_calls());
    root->remove_child(child);
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "unbind b", "unbind a"}), site.take_calls());
}

TEST_F(node_visual, a_node_that_is_cleared_or_dies_lets_its_visuals_go_without_a_word) {
    for (const bool clears : {true, false}) {
        auto short_lived = create_node();
        record(short_lived, "a|b");
        forget();
        if (clears) short_lived->clear();
        short_lived.reset();
        EXPECT_EQ(lines{}, site.take_calls());
    }
}

/// Kept: visuals of clients compare it, and ignore it otherwise.
TEST_F(node_visual, the_site_is_the_first_node_that_ever_committed) {
    const auto other = create_node();
    record(root, "a");
    record(other, "|b");
    record(root, "");
    record(other, "");
    IVisual::ISite* const first = static_cast<node*>(first_recording::first.get());
    EXPECT_EQ((std::vector<IVisual::ISite*>{first, first}), visuals[0]->sites);
    EXPECT_EQ((std::vector<IVisual::ISite*>{first, first}), visuals[1]->sites);
}

TEST_F(node_visual, animation_is_asked_ahead_of_each_paint_and_on_the_clock_of_the_host) {
    visuals[0]->animated = true;
    visuals[2]->animated = true;
    record(root, "ab|c");
    show();
    EXPECT_EQ(static_cast<double>(0.05f), site.clock_interval);
    site.time = 2.5;
    edge->render({0, 0, 10, 10}, {{{1, 0, 0, 1, 0, 0}}});
    EXPECT_EQ((lines{"animate c 2.5", "animate a 2.5", "render a", "render b", "render c"}),
              site.take_calls());
    visuals[0]->animated = false;
    visuals[2]->animated = false;
    record(root, "ab|c");
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "set_animation_clock 0 0", "invalidate_rect 0 0 10 10"}),
              site.take_calls());
    edge->render({0, 0, 10, 10}, {{{1, 0, 0, 1, 0, 0}}});
    EXPECT_EQ((lines{"render a", "render b", "render c"}), site.take_calls());
}

TEST_F(node_visual, renders_with_the_transform_of_its_node) {
    const auto child = create_node();
    child->set_transform({{{2, 0, 0, 2, 10, 20}}});
    root->add_child(child);
    record(child, "a");
    show();
    D2D_MATRIX_3X2_F seen{};
    const ID2D1RenderTarget* seen_target = nullptr;
    visuals[0]->on_render = [&](ID2D1RenderTarget* on) {
        on->GetTransform(&seen);
        seen_target = on;
    };
    edge->render({0, 0, 10, 10}, {{{1, 0, 0, 1, 100, 0}}});
    EXPECT_EQ("2 0 0 2 110 20", fakes::call_text(seen));
    EXPECT_EQ(&target, seen_target);
}

TEST_F(node_visual, the_site_refuses_its_reserved_operations_and_tells_the_time_in_a_view) {
    const com::ptr<IVisual::ISite> of_root(root);
    const auto message = [](const auto& action) -> std::string {
        try {
            action();
        } catch (const std::logic_error& failure) {
            return failure.what();
        }
        return "nothing thrown";
    };
    const auto time = [&] { static_cast<void>(of_root->get_current_time()); };
    EXPECT_EQ("not implemented", message([&] { of_root->reserved1(); }));
    EXPECT_EQ("not implemented", message([&] { of_root->reserved2(); }));
    EXPECT_EQ("cannot call get_current_time until hosted in a view", message(time));
    site.time = 7.25;
    view->set_root(root);
    EXPECT_EQ(7.25, of_root->get_current_time());
}

}  // namespace
}  // namespace d2d::scene
