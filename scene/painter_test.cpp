#include "com/error.h"
#include "scene/testing/allocation_count.h"
#include "scene/testing/pixel_target.h"
#include "scene/testing/scene_test.h"

namespace d2d::scene {
namespace {

using fakes::call_text;
using fakes::test_bitmap;
using fakes::test_brush;

constexpr D2D_MATRIX_3X2_F translation(float x, float y) {
    return {{{1, 0, 0, 1, x, y}}};
}

class painter_calls : public fakes::scene_test {
protected:
    /// A new child with a visual of its name in the background and one of its name in upper case in front.
    com::ptr<INode> add(const com::ptr<INode>& parent, std::string name) {
        auto child = create_node();
        record(child, std::move(name));
        parent->add_child(child);
        return child;
    }

    void record(const com::ptr<INode>& at, const std::string& name) {
        std::string in_front = name;
        for (char& letter : in_front) letter = static_cast<char>(letter - 'a' + 'A');
        const auto context = at->draw(false);
        const D2D_RECT_F bounds{0, 0, 10, 10};
        context->draw_visual(com::create_object<fakes::test_visual>(name, bounds, target_log()).get());
        context->foreground();
        context->draw_visual(com::create_object<fakes::test_visual>(in_front, bounds, target_log()).get());
        context->commit();
    }
};

TEST_F(painter_calls, an_empty_view_sets_the_transform_of_the_paint) {
    edge->attach_render_target(&target);
    EXPECT_EQ(lines{"SetTransform 2 0 0 2 5 6"}, painted({{{2, 0, 0, 2, 5, 6}}}));
}

TEST_F(painter_calls, each_kind_of_command_is_one_call_with_what_was_recorded) {
    const auto rectangle = factory::create_rectangle_geometry({0, 0, 10, 20});
    const auto ellipse = factory::create_ellipse_geometry({{5, 6}, 2, 3});
    const auto style = factory::create_stroke_style(D2D1_DASH_STYLE_DASH, D2D1_CAP_STYLE_FLAT,
                                                    D2D1_LINE_JOIN_MITER, 10.0f, 0.0f);
    const auto format = factory::create_text_format(L"Tahoma", 12.0f);
    const auto layout = factory::create_text_layout(L"moss", format.get(), 80, 30);
    const auto bitmap = com::create_object<test_bitmap>(D2D_SIZE_U{16, 8}, 0u);
    target.name(layout.get(), "moss");
    target.name(style.get(), "dashes");
    const auto context = root->draw(false);
    context->fill_geometry(rectangle.get(), make_brush(red).get());
    context->draw_geometry(ellipse.get(), make_brush(green).get(), 2.5f, style.get());
    context->draw_geometry(rectangle.get(), make_brush(green).get(), 1, nullptr);
    context->draw_text_layout(4, 8, layout.get(), make_brush(blue).get(), D2D1_DRAW_TEXT_OPTIONS_CLIP);
    context->draw_bitmap(10, 20, bitmap.get());
    context->draw_visual(com::create_object<fakes::test_visual>("a", D2D_RECT_F{}, target_log()).get());
    context->commit();
    show();
    const lines expected{
        "SetTransform 1 0 0 1 0 0",
        "FillGeometry rectangle(0 0 10 20) brush(1 0 0 1)",
        "DrawGeometry ellipse(5 6 2 3) brush(0 1 0 1) 2.5 dashes",
        "DrawGeometry rectangle(0 0 10 20) brush(0 1 0 1) 1 null",
        "DrawTextLayout 4 8 moss brush(0 0 1 1) 2",
        "DrawBitmap bitmap(16 8) 10 20 26 28 1 1 0 0 16 8",
        "render a",
    };
    EXPECT_EQ(expected, painted());
    EXPECT_EQ(expected, painted());
}

TEST_F(painter_calls, children_are_between_the_background_and_the_foreground_in_order) {
    record(root, "a");
    const auto b = add(root, "b");
    add(b, "c");
    add(b, "d");
    add(root, "e");
    show();
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "render a", "render b", "render c", "render C", "render d",
                     "render D", "render B", "render e", "render E", "render A"}),
              painted());
}

TEST_F(painter_calls, transforms_nest_and_come_back) {
    record(root, "a");
    const auto b = add(root, "b");
    const auto c = add(b, "c");
    add(root, "d");
    b->set_transform({{{2, 0, 0, 3, 10, 20}}});
    c->set_transform({{{0, 1, -1, 0, 5, 7}}});
    show();
    EXPECT_EQ((lines{
                  "SetTransform 1 0 0 1 100 200",
                  "render a",
                  "SetTransform 2 0 0 3 110 220",
                  "render b",
                  "SetTransform 0 3 -2 0 120 241",
                  "render c",
                  "render C",
                  "SetTransform 2 0 0 3 110 220",
                  "render B",
                  "SetTransform 1 0 0 1 100 200",
                  "render d",
                  "render D",
                  "render A",
              }),
              painted(translation(100, 200)));
}

TEST_F(painter_calls, a_transform_of_the_root_follows_that_of_the_paint) {
    record(root, "a");
    root->set_transform(translation(1, 2));
    show();
    EXPECT_EQ((lines{"SetTransform 2 0 0 2 10 20", "SetTransform 2 0 0 2 12 24", "render a", "render A",
                     "SetTransform 2 0 0 2 10 20"}),
              painted({{{2, 0, 0, 2, 10, 20}}}));
}

TEST_F(painter_calls, a_node_back_at_the_identity_leaves_the_target_alone) {
    const auto b = add(root, "b");
    b->set_transform(translation(5, 5));
    b->set_transform(translation(0, 0));
    show();
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "render b", "render B"}), painted());
}

TEST_F(painter_calls, a_clip_is_around_all_of_its_subtree_in_its_own_space) {
    record(root, "a");
    const auto b = add(root, "b");
    add(b, "c");
    b->set_transform(translation(10, 20));
    b->set_clip_rect({1, 2, 3, 4});
    root->set_clip_rect({0, 0, 50.5f, 60});
    show();
    const lines clipped{
        "SetTransform 1 0 0 1 0 0",
        "PushAxisAlignedClip 0 0 50.5 60 0",
        "render a",
        "SetTransform 1 0 0 1 10 20",
        "PushAxisAlignedClip 1 2 3 4 0",
        "render b",
        "render c",
        "render C",
        "render B",
        "PopAxisAlignedClip",
        "SetTransform 1 0 0 1 0 0",
        "render A",
        "PopAxisAlignedClip",
    };
    EXPECT_EQ(clipped, painted());
    b->clear_clip_rect();
    root->clear_clip_rect();
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "render a", "SetTransform 1 0 0 1 10 20", "render b",
                     "render c", "render C", "render B", "SetTransform 1 0 0 1 0 0", "render A"}),
              painted());
}

TEST_F(painter_calls, the_shape_for_hits_has_no_part_in_it) {
    const auto b = add(root, "b");
    b->set_clip_geometry(factory::create_rectangle_geometry({0, 0, 1, 1}).get());
    const auto c = create_node();
    record(c, "c");
    c->set_hit_transparent(true);
    root->add_child(c);
    show();
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "render b", "render B", "render c", "render C"}), painted());
}

TEST_F(painter_calls, a_subtree_without_content_is_not_visited_but_its_top_is_left_in_order) {
    const auto empty = create_node();
    empty->set_transform(translation(10, 20));
    empty->set_clip_rect({0, 0, 5, 5});
    const auto below = create_node();
    below->set_transform(translation(1, 1));
    empty->add_child(below);
    root->add_child(empty);
    add(root, "b");
    show();
    EXPECT_EQ(
        (lines{"SetTransform 1 0 0 1 0 0", "SetTransform 1 0 0 1 10 20", "PushAxisAlignedClip 0 0 5 5 0",
               "PopAxisAlignedClip", "SetTransform 1 0 0 1 0 0", "render b", "render B"}),
        painted());
}

TEST_F(painter_calls, what_lies_outside_the_invalid_area_is_painted_as_well) {
    add(root, "b")->set_transform(translation(500, 500));
    show();
    static_cast<void>(target.take_calls());
    edge->render({0, 0, 1, 1}, translation(0, 0));
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "SetTransform 1 0 0 1 500 500", "render b", "render B",
                     "SetTransform 1 0 0 1 0 0"}),
              target.take_calls());
}

TEST_F(painter_calls, thirty_two_levels_of_transforms_nest) {
    com::ptr<INode> at = root;
    for (int level = 0; level < 31; ++level) {
        const auto child = create_node();
        child->set_transform(translation(1, 2));
        at->add_child(child);
        at = child;
    }
    root->set_transform(translation(1, 2));
    record(at, "z");
    at.reset();
    show();
    const lines calls = painted();
    ASSERT_EQ(1u + 32 + 2 + 32, calls.size());
    EXPECT_EQ("SetTransform 1 0 0 1 32 64", calls[32]);
    EXPECT_EQ("render z", calls[33]);
    EXPECT_EQ("SetTransform 1 0 0 1 31 62", calls[35]);
    EXPECT_EQ("SetTransform 1 0 0 1 0 0", calls.back());
}

/// A clock that moves on whenever somebody looks at it.
class painter_updates : public painter_calls {
protected:
    [[nodiscard]] com::ptr<test_brush> make_logged(const char* name, bool animated) {
        return com::create_object<test_brush>(red, name, animated, target_log());
    }
};

TEST_F(painter_updates, an_animated_recording_is_told_the_time_ahead_of_its_replay) {
    const auto rectangle = factory::create_rectangle_geometry({0, 0, 1, 1});
    const auto format = factory::create_text_format(L"Tahoma", 12.0f);
    const auto layout = factory::create_text_layout(L"moss", format.get(), 80, 30);
    const auto bitmap = com::create_object<test_bitmap>(D2D_SIZE_U{4, 4}, 0u, true, target_log());
    const auto visual = com::create_object<fakes::test_visual>("v", D2D_RECT_F{}, target_log());
    const auto still = com::create_object<fakes::test_visual>("s", D2D_RECT_F{}, target_log());
    visual->animated = true;
    root->set_transform(translation(1, 1));
    root->set_clip_rect({0, 0, 9, 9});
    const auto context = root->draw(false);
    context->fill_geometry(rectangle.get(), make_logged("fill", true).get());
    context->draw_text_layout(0, 0, layout.get(), make_logged("text", false).get(),
                              D2D1_DRAW_TEXT_OPTIONS_NONE);
    context->draw_bitmap(0, 0, bitmap.get());
    context->foreground();
    context->draw_geometry(rectangle.get(), make_logged("stroke", true).get(), 1, nullptr);
    context->draw_visual(visual.get());
    context->draw_visual(still.get());
    context->commit();
    show();
    site.time = 1.5;
    EXPECT_EQ((lines{
                  "SetTransform 1 0 0 1 0 0",
                  "SetTransform 1 0 0 1 1 1",
                  "update stroke 1.5",
                  "animate v 1.5",
                  "update fill 1.5",
                  "update text 1.5",
                  "PushAxisAlignedClip 0 0 9 9 0",
                  "FillGeometry rectangle(0 0 1 1) brush(1 0 0 1)",
                  "DrawTextLayout 0 0 layout brush(1 0 0 1) 0",
                  "DrawBitmap bitmap(4 4) 0 0 4 4 1 1 0 0 4 4",
                  "DrawGeometry rectangle(0 0 1 1) brush(1 0 0 1) 1 null",
                  "render v",
                  "render s",
                  "PopAxisAlignedClip",
                  "SetTransform 1 0 0 1 0 0",
              }),
              painted());
}

TEST_F(painter_updates, a_recording_without_animation_is_told_nothing) {
    const auto context = root->draw(false);
    context->fill_geometry(factory::create_rectangle_geometry({0, 0, 1, 1}).get(),
                           make_logged("fill", false).get());
    context->commit();
    show();
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 1 1) brush(1 0 0 1)"}),
              painted());
}

TEST_F(painter_updates, all_of_a_paint_shows_one_moment) {
    const auto moving = [&](const char* name) {
        auto visual = com::create_object<fakes::test_visual>(name, D2D_RECT_F{0, 0, 1, 1}, target_log());
        visual->animated = true;
        visual->on_render = [this](ID2D1RenderTarget*) { site.time += 1; };
        return visual;
    };
    const auto child = create_node();
    for (const auto& [node, name] : {std::pair{root, "a"}, std::pair{child, "b"}}) {
        const auto context = node->draw(false);
        context->draw_visual(moving(name).get());
        context->commit();
    }
    root->add_child(child);
    show();
    site.time = 10;
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "animate a 10", "render a", "animate b 10", "render b"}),
              painted());
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "animate a 12", "render a", "animate b 12", "render b"}),
              painted());
}

TEST_F(painter_calls, a_paint_allocates_nothing) {
    const auto bitmap = com::create_object<test_bitmap>(D2D_SIZE_U{4, 4}, 0u);
    const auto moving = com::create_object<test_brush>(red, "moving", true);
    const auto visual = com::create_object<fakes::test_visual>("v", D2D_RECT_F{});
    com::ptr<INode> at = root;
    for (int level = 0; level < 20; ++level) {
        const auto context = at->draw(false);
        fill(*context, {0, 0, 10, 10});
        context->draw_bitmap(0, 0, bitmap.get());
        context->foreground();
        context->draw_visual(visual.get());
        context->fill_geometry(factory::create_rectangle_geometry({0, 0, 1, 1}).get(), moving.get());
        context->commit();
        at->set_clip_rect({0, 0, 50, 50});
        const auto child = create_node();
        child->set_transform(translation(1, 1));
        at->add_child(child);
        at = child;
    }
    at.reset();
    // A real target: the fake one allocates what it writes down.
    const fakes::pixel_target real(100, 100);
    edge->attach_render_target(real.get());
    view->set_root(root);
    real->BeginDraw();
    const std::size_t before = fakes::allocation_count();
    edge->render({0, 0, 100, 100}, translation(3, 4));
    const std::size_t after = fakes::allocation_count();
    com::check(real->EndDraw(nullptr, nullptr));
    EXPECT_EQ(0u, after - before);
    edge->detach_render_target(real.get());
    edge->attach_render_target(&target);
    EXPECT_EQ(1u + 20 * 5 + 20 * 2, painted().size()) << "the same paint, written down";
    EXPECT_LT(after, fakes::allocation_count()) << "the counter counts";
}

}  // namespace
}  // namespace d2d::scene
