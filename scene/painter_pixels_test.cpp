#include "scene/testing/pixel_target.h"
#include "scene/testing/scene_test.h"
#include "support/golden.h"

#include <algorithm>
#include <functional>
#include <ostream>

namespace d2d::scene {
namespace {

using fakes::test_bitmap;
using test_support::picture;

constexpr unsigned side = 120;
constexpr std::uint32_t clear_pixel = 0x00000000;
constexpr std::uint32_t red_pixel = 0xFFFF0000;
constexpr std::uint32_t green_pixel = 0xFF00FF00;
constexpr std::uint32_t blue_pixel = 0xFF0000FF;

constexpr D2D_MATRIX_3X2_F translation(float x, float y) {
    return {{{1, 0, 0, 1, x, y}}};
}
/// A turn by the angle of the triangle with sides 3, 4 and 5, about (x, y).
constexpr D2D_MATRIX_3X2_F turn(float x, float y) {
    return {{{0.6f, 0.8f, -0.8f, 0.6f, x, y}}};
}

/// A square of pixels.
struct area {
    unsigned left;
    unsigned top;
    unsigned right;
    unsigned bottom;
};

class painter_pixels : public fakes::scene_test {
protected:
    void SetUp() override {
        scene_test::SetUp();
        edge->attach_render_target(real.get());
    }

    [[nodiscard]] picture paint() {
        view->set_root(root);
        real.paint(*edge.get());
        return real.picture();
    }

    [[nodiscard]] com::ptr<INode> add(const com::ptr<INode>& parent, const D2D_MATRIX_3X2_F& transform) {
        auto child = create_node();
        child->set_transform(transform);
        parent->add_child(child);
        return child;
    }

    static void fill_area(picture& image, const area& of, std::uint32_t color) {
        for (unsigned y = of.top; y < of.bottom; ++y) {
            for (unsigned x = of.left; x < of.right; ++x) image.at(x, y) = color;
        }
    }
    static void fill_foreground(const com::ptr<INode>& node, const D2D_RECT_F& rect,
                                const _D3DCOLORVALUE& color) {
        const auto context = node->draw(false);
        context->foreground();
        fill(*context, rect, color);
        context->commit();
    }

    static void draw_text(IDrawingContext& context, const wchar_t* text, const D2D_RECT_F& box,
                          const _D3DCOLORVALUE& color, D2D1_DRAW_TEXT_OPTIONS options) {
        const auto format = factory::create_text_format(L"Tahoma", 14.0f);
        const auto layout =
            factory::create_text_layout(text, format.get(), box.right - box.left, box.bottom - box.top);
        context.draw_text_layout(box.left, box.top, layout.get(), make_brush(color).get(), options);
    }

    /// The exact picture of opaque rectangles, painted one over the other.
    void expect(const std::vector<std::pair<area, std::uint32_t>>& painted_areas) {
        picture expected(side, side);
        for (const auto& [of, color] : painted_areas) fill_area(expected, of, color);
        const auto difference = test_support::compare(expected, paint());
        EXPECT_EQ(0u, difference.pixels);
        EXPECT_EQ(0u, difference.greatest_channel);
    }

    fakes::pixel_target real{side, side};
};

TEST_F(painter_pixels, an_empty_tree_is_transparent) {
    expect({});
}

TEST_F(painter_pixels, transforms_nest) {
    const auto outer = add(root, {{{2, 0, 0, 2, 10, 20}}});
    const auto inner = add(outer, translation(5, 6));
    fill(outer, {0, 0, 3, 3}, red);
    fill(inner, {0, 0, 10, 4}, blue);
    expect({{{10, 20, 16, 26}, red_pixel}, {{20, 32, 40, 40}, blue_pixel}});
}

TEST_F(painter_pixels, order_is_background_children_foreground) {
    const auto context = root->draw(false);
    fill(*context, {0, 0, 60, 60}, red);
    context->foreground();
    fill(*context, {20, 20, 30, 30}, green);
    context->commit();
    fill(add(root, translation(0, 0)), {10, 10, 40, 40}, blue);
    fill(add(root, translation(0, 0)), {25, 25, 50, 50}, red);
    expect({{{0, 0, 60, 60}, red_pixel},
            {{10, 10, 40, 40}, blue_pixel},
            {{25, 25, 50, 50}, red_pixel},
            {{20, 20, 30, 30}, green_pixel}});
}

TEST_F(painter_pixels, a_clip_holds_for_the_whole_subtree_and_ends_with_it) {
    const auto clipped = add(root, translation(10, 10));
    clipped->set_clip_rect({0, 0, 30, 20});
    fill(clipped, {-5, -5, 100, 10}, red);
    const auto inside_it = add(clipped, translation(5, 5));
    inside_it->set_clip_rect({0, 0, 100, 100});
    fill(inside_it, {-50, 0, 100, 10}, blue);
    fill(add(root, translation(0, 0)), {0, 60, 100, 70}, green);
    expect({{{10, 10, 40, 20}, red_pixel}, {{15, 15, 40, 25}, blue_pixel}, {{0, 60, 100, 70}, green_pixel}});
}

TEST_F(painter_pixels, under_a_rotation_the_clip_is_the_bounds_of_the_rotated_rectangle) {
    const auto turned = add(root, turn(60, 60));
    turned->set_clip_rect({-20, -20, 20, 20});  // its corners come to a distance of 28 at most on an axis
    fill(turned, {-200, -200, 200, 200}, red);
    expect({{{32, 32, 88, 88}, red_pixel}});
}

TEST_F(painter_pixels, a_bitmap_keeps_its_pixels) {
    const auto context = root->draw(false);
    context->draw_bitmap(10, 20, com::create_object<test_bitmap>(D2D_SIZE_U{16, 8}, green_pixel).get());
    context->draw_bitmap(12, 22, com::create_object<test_bitmap>(D2D_SIZE_U{2, 3}, blue_pixel).get());
    context->commit();
    expect({{{10, 20, 26, 28}, green_pixel}, {{12, 22, 14, 25}, blue_pixel}});
}

TEST_F(painter_pixels, a_stroke_is_around_the_outline) {
    const auto context = root->draw(false);
    context->draw_geometry(factory::create_rectangle_geometry({20, 30, 60, 50}).get(), make_brush(red).get(),
                           4, nullptr);
    context->commit();
    expect({{{18, 28, 62, 52}, red_pixel}, {{22, 32, 58, 48}, clear_pixel}});
}

TEST_F(painter_pixels, text_is_inside_its_box) {
    const area box{20, 30, 100, 50};
    const auto context = root->draw(false);
    draw_text(*context, L"mossy", {20, 30, 100, 50}, red, D2D1_DRAW_TEXT_OPTIONS_NONE);
    context->commit();
    const picture seen = paint();
    unsigned inked = 0;
    unsigned outside = 0;
    unsigned other_colors = 0;
    for (unsigned y = 0; y < side; ++y) {
        for (unsigned x = 0; x < side; ++x) {
            const std::uint32_t pixel = seen.at(x, y);
            if (pixel == clear_pixel) continue;
            ++inked;
            if (x < box.left || x >= box.right || y < box.top || y >= box.bottom) ++outside;
            if ((pixel & 0xFFFF) != 0) ++other_colors;
        }
    }
    EXPECT_GT(inked, 200u);
    EXPECT_EQ(0u, outside);
    EXPECT_EQ(0u, other_colors);
}

/// A tree, to be painted in more than one way.
struct painted_tree {
    const char* name;
    std::function<void(const com::ptr<INode>& root)> build;
};
void PrintTo(const painted_tree& tree, std::ostream* out) {
    *out << tree.name;
}

class painter_replay : public painter_pixels, public testing::WithParamInterface<painted_tree> {
public:
    static void build_clips(const com::ptr<INode>& top) {
        const auto clipped = create_node();
        clipped->set_transform(translation(15, 10));
        clipped->set_clip_rect({0, 0, 40, 30});
        fill(clipped, {-10, -10, 60, 20}, red);
        top->add_child(clipped);
        const auto turned = create_node();
        turned->set_transform(turn(20, 20));
        turned->set_clip_rect({-5, -5, 12, 12});
        fill(turned, {-30, -30, 30, 30}, blue);
        clipped->add_child(turned);
        fill_foreground(top, {20, 45, 90, 50}, green);
    }

    static void build_shapes(const com::ptr<INode>& top) {
        const auto context = top->draw(false);
        context->fill_geometry(factory::create_rounded_rect_geometry({{5, 5, 85, 60}, 10, 10}).get(),
                               make_brush({0.9f, 0.9f, 0.7f, 1}).get());
        context->draw_geometry(factory::create_ellipse_geometry({{45, 30}, 30, 20}).get(),
                               make_brush(blue).get(), 3, nullptr);
        context->draw_bitmap(60, 40, com::create_object<test_bitmap>(D2D_SIZE_U{16, 8}, 0xFF808080).get());
        context->foreground();
        draw_text(*context, L"over all", {10, 62, 80, 80}, {0.2f, 0, 0.4f, 1}, D2D1_DRAW_TEXT_OPTIONS_NONE);
        fill(*context, {40, 10, 50, 50}, {1, 0, 0, 0.5f});
        context->commit();
        const auto scaled = create_node();
        scaled->set_transform({{{1.5f, 0, 0, 0.5f, 20, 15}}});
        fill(scaled, {0, 0, 20, 20}, green);
        top->add_child(scaled);
    }

    static void build_turned(const com::ptr<INode>& top) {
        const auto turned = create_node();
        turned->set_transform(turn(66, 4));
        build_shapes(turned);
        top->add_child(turned);
        fill(top, {0, 0, 30, 90}, {0.7f, 0.8f, 1, 1});
    }

protected:
    /// `whole`, moved by whole pixels; what comes in at the edges is clear.
    [[nodiscard]] static picture moved(const picture& whole, unsigned x, unsigned y) {
        picture result(whole.width, whole.height);
        for (unsigned row = y; row < whole.height; ++row) {
            for (unsigned column = x; column < whole.width; ++column) {
                result.at(column, row) = whole.at(column - x, row - y);
            }
        }
        return result;
    }
    [[nodiscard]] static unsigned different_pixels(const picture& expected, const picture& actual) {
        return test_support::compare(expected, actual, {.channel = 1}).pixels;
    }
    [[nodiscard]] picture paint_built() {
        GetParam().build(root);
        picture built = paint();
        EXPECT_NE(picture(side, side), built);
        return built;
    }
};

TEST_P(painter_replay, moved_it_is_the_same) {
    const picture built = paint_built();
    root->set_transform(translation(7, 11));
    EXPECT_EQ(0u, different_pixels(moved(built, 7, 11), paint()));
}

TEST_P(painter_replay, repeated_it_is_the_same) {
    const picture built = paint_built();
    EXPECT_TRUE(built == paint());
    EXPECT_TRUE(built == paint());
}

TEST_P(painter_replay, clipped_it_is_the_same_inside_and_nothing_outside) {
    const picture built = paint_built();
    root->set_clip_rect({20, 12, 70, 66});
    picture expected(side, side);
    for (unsigned y = 12; y < 66; ++y) {
        for (unsigned x = 20; x < 70; ++x) expected.at(x, y) = built.at(x, y);
    }
    EXPECT_EQ(0u, different_pixels(expected, paint()));
}

TEST_P(painter_replay, after_a_change_of_target_it_is_the_same) {
    const picture built = paint_built();
    edge->detach_render_target(real.get());
    const fakes::pixel_target next(side, side);
    edge->attach_render_target(next.get());
    next.paint(*edge.get());
    EXPECT_TRUE(built == next.picture());
    edge->detach_render_target(next.get());
}

INSTANTIATE_TEST_SUITE_P(trees, painter_replay,
                         testing::Values(painted_tree{"clips", painter_replay::build_clips},
                                         painted_tree{"shapes", painter_replay::build_shapes},
                                         painted_tree{"turned", painter_replay::build_turned}));

/// Pixels of Wine's Direct2D, and of the machine that has made them: small differences count as equal.
class painter_goldens : public painter_pixels {
protected:
    static constexpr test_support::tolerance allowed{.channel = 8, .pixels = 40};
};

TEST_F(painter_goldens, shapes) {
    painter_replay::build_shapes(root);
    EXPECT_TRUE(matches_golden(paint(), "scene/shapes", allowed));
}

TEST_F(painter_goldens, turned) {
    painter_replay::build_turned(root);
    EXPECT_TRUE(matches_golden(paint(), "scene/turned", allowed));
}

}  // namespace
}  // namespace d2d::scene
