#include "com/error.h"
#include "controls/testing/refused_layout_operation.h"
#include "scene/testing/fake_geometry.h"
#include "scene/testing/scene_test.h"

#include <functional>
#include <ostream>
#include <stdexcept>

namespace d2d::scene {
namespace {

using fakes::fake_geometry;
using fakes::test_bitmap;
using fakes::test_brush;

/// Null is no pointer to an interface where a test wants "what this throws".
HRESULT failure_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const com::error& failure) {
        return failure.hresult;
    }
    return S_OK;
}

std::string text_of(const D2D_RECT_F& rect) {
    return fakes::call_text(rect);
}

/// A brush that no recording knows what to do with.
class foreign_brush : public com::base_object<com::object_base, IBrush> {
protected:
    ~foreign_brush() = default;
};

class foreign_bitmap : public com::base_object<com::object_base, IBitmap> {
public:
    D2D_SIZE_U get_size() override { return {4, 4}; }

protected:
    ~foreign_bitmap() = default;
};

class drawing_context_operations : public fakes::scene_test {
protected:
    void SetUp() override {
        scene_test::SetUp();
        brush = make_brush(red);
        layout = make_layout(L"moss", 80, 30);
    }
    void TearDown() override {
        layout.reset();
        brush.reset();
        scene_test::TearDown();
    }

    [[nodiscard]] static com::ptr<IDWriteTextLayout> make_layout(const wchar_t* text, float width,
                                                                 float height) {
        const auto format = factory::create_text_format(L"Tahoma", 12.0f);
        return factory::create_text_layout(text, format.get(), width, height);
    }

    /// The bounds of a recording.
    [[nodiscard]] std::string recorded_bounds(const std::function<void(IDrawingContext&)>& record) {
        const auto context = root->draw(false);
        record(*context);
        context->commit();
        return text_of(root->get_bounds(false));
    }

    com::ptr<test_brush> brush;
    com::ptr<IDWriteTextLayout> layout;
};

TEST_F(drawing_context_operations, a_fill_has_the_bounds_of_its_geometry) {
    fake_geometry geometry({1.5f, -2, 30, 40.25f});
    geometry.got_matrix = true;
    EXPECT_EQ("1.5 -2 30 40.25",
              recorded_bounds([&](IDrawingContext& at) { at.fill_geometry(&geometry, brush.get()); }));
    EXPECT_FALSE(geometry.got_matrix);
    root->clear();
    EXPECT_EQ(0u, geometry.references());
}

TEST_F(drawing_context_operations, a_stroke_has_the_widened_bounds_at_a_quarter_of_a_pixel) {
    const auto style = factory::create_stroke_style(D2D1_DASH_STYLE_DASH, D2D1_CAP_STYLE_ROUND,
                                                    D2D1_LINE_JOIN_BEVEL, 1.0f, 0.0f);
    fake_geometry geometry;
    geometry.widened_bounds = {-1.5f, -1.5f, 11.5f, 11.5f};
    geometry.got_matrix = true;
    EXPECT_EQ("-1.5 -1.5 11.5 11.5", recorded_bounds([&](IDrawingContext& at) {
                  at.draw_geometry(&geometry, brush.get(), 3.0f, style.get());
              }));
    EXPECT_FALSE(geometry.got_matrix);
    EXPECT_EQ(3.0f, geometry.got_width);
    EXPECT_EQ(style.get(), geometry.got_style);
    EXPECT_EQ(0.25f, geometry.got_tolerance);
    root->clear();
}

TEST_F(drawing_context_operations, a_stroke_of_a_rectangle_covers_half_its_width_around) {
    const auto rectangle = factory::create_rectangle_geometry({10, 20, 50, 60});
    EXPECT_EQ("8 18 52 62", recorded_bounds([&](IDrawingContext& at) {
                  at.draw_geometry(rectangle.get(), brush.get(), 4.0f, nullptr);
              }));
}

TEST_F(drawing_context_operations, text_has_the_bounds_of_its_box_and_not_of_its_ink) {
    EXPECT_EQ("5 7.5 85 37.5", recorded_bounds([&](IDrawingContext& at) {
                  at.draw_text_layout(5, 7.5f, layout.get(), brush.get(), D2D1_DRAW_TEXT_OPTIONS_NONE);
              }));
    const auto overflowing = make_layout(L"far wider than its box and on one line", 10, 4);
    EXPECT_EQ("-3 0 7 4", recorded_bounds([&](IDrawingContext& at) {
                  at.draw_text_layout(-3, 0, overflowing.get(), brush.get(), D2D1_DRAW_TEXT_OPTIONS_CLIP);
              }));
}

TEST_F(drawing_context_operations, a_bitmap_is_drawn_at_its_natural_size) {
    const auto bitmap = com::create_object<test_bitmap>(D2D_SIZE_U{16, 8}, 0xFF00FF00u);
    EXPECT_EQ("10 20 26 28",
              recorded_bounds([&](IDrawingContext& at) { at.draw_bitmap(10, 20, bitmap.get()); }));
    const auto& drawn = std::get<bitmap_command>(inside(root).background.at(0));
    EXPECT_EQ("10 20 26 28", text_of(drawn.destination));
    EXPECT_EQ("0 0 16 8", text_of(drawn.source));
    EXPECT_EQ(1.0f, drawn.opacity);
    EXPECT_EQ(D2D1_BITMAP_INTERPOLATION_MODE_LINEAR, drawn.mode);
}

TEST_F(drawing_context_operations, a_visual_has_the_bounds_that_it_tells) {
    const auto visual = make_visual("a", {3, 4, 5, 6});
    EXPECT_EQ("3 4 5 6", recorded_bounds([&](IDrawingContext& at) { at.draw_visual(visual.get()); }));
}

TEST_F(drawing_context_operations, bounds_are_the_union_of_all_commands_of_both_lists) {
    fake_geometry first({10, 10, 20, 20});
    fake_geometry second({-5, 12, 0, 30});
    fake_geometry third({15, -1, 16, 0});
    EXPECT_EQ("-5 -1 20 30", recorded_bounds([&](IDrawingContext& at) {
                  at.fill_geometry(&first, brush.get());
                  at.foreground();
                  at.fill_geometry(&second, brush.get());
                  at.background();
                  at.fill_geometry(&third, brush.get());
              }));
    root->clear();
}

TEST_F(drawing_context_operations, the_first_command_sets_the_bounds_whichever_list_it_goes_to) {
    fake_geometry geometry({10, 10, 20, 20});
    EXPECT_EQ("10 10 20 20", recorded_bounds([&](IDrawingContext& at) {
                  at.foreground();
                  at.fill_geometry(&geometry, brush.get());
              }));
    root->clear();
}

TEST_F(drawing_context_operations, each_list_keeps_the_order_of_the_calls) {
    const auto named = [&](const char* name) { return make_visual(name, {0, 0, 1, 1}); };
    const auto a = named("a");
    const auto b = named("b");
    const auto c = named("c");
    const auto d = named("d");
    const auto e = named("e");
    const auto context = root->draw(false);
    context->draw_visual(a.get());
    context->foreground();
    context->draw_visual(b.get());
    context->foreground();
    context->draw_visual(c.get());
    context->background();
    context->draw_visual(d.get());
    context->foreground();
    context->draw_visual(e.get());
    context->commit();
    const auto visuals = [](const command_list& commands) {
        std::vector<IVisual*> result;
        for (const command& recorded : commands) result.push_back(visual_of(recorded));
        return result;
    };
    EXPECT_EQ((std::vector<IVisual*>{a.get(), d.get()}), visuals(inside(root).background));
    EXPECT_EQ((std::vector<IVisual*>{b.get(), c.get(), e.get()}), visuals(inside(root).foreground));
}

TEST_F(drawing_context_operations, a_command_owns_what_it_refers_to) {
    fake_geometry geometry({0, 0, 1, 1});
    const auto context = root->draw(false);
    context->fill_geometry(&geometry, brush.get());
    context->draw_geometry(&geometry, brush.get(), 1, nullptr);
    EXPECT_EQ(2u, geometry.references());
    context->commit();
    EXPECT_EQ(2u, geometry.references());
    root->draw(false)->commit();
    EXPECT_EQ(0u, geometry.references());
}

TEST_F(drawing_context_operations, the_stroke_of_an_empty_path_throws_and_its_fill_does_not) {
    const auto path = factory::create_path_geometry();
    com::ptr<ID2D1GeometrySink> sink;
    com::check(path->Open(sink.put()));
    com::check(sink->Close());
    const auto context = root->draw(false);
    try {
        context->draw_geometry(path.get(), brush.get(), 2.0f, nullptr);
        FAIL() << "nothing was thrown";
    } catch (const std::logic_error& failure) {
        EXPECT_STREQ("cannot calculate bounds for geometry", failure.what());
    }
    EXPECT_NO_THROW(context->fill_geometry(path.get(), brush.get()));
    context->commit();
    EXPECT_EQ(1u, inside(root).background.size());
}

struct widened_case {
    const char* what;
    D2D_RECT_F bounds;
    bool throws;
};
void PrintTo(const widened_case& tried, std::ostream* out) {
    *out << tried.what;
}

class stroke_bounds : public fakes::scene_test, public testing::WithParamInterface<widened_case> {};

TEST_P(stroke_bounds, only_inverted_ones_throw) {
    fake_geometry geometry;
    geometry.widened_bounds = GetParam().bounds;
    geometry.bounds = GetParam().bounds;
    const auto brush = make_brush(red);
    const auto context = root->draw(false);
    if (GetParam().throws) {
        EXPECT_THROW(context->draw_geometry(&geometry, brush.get(), 1, nullptr), std::logic_error);
        EXPECT_EQ(0u, geometry.references());
    } else {
        context->draw_geometry(&geometry, brush.get(), 1, nullptr);
        EXPECT_EQ(1u, geometry.references());
    }
    EXPECT_NO_THROW(context->fill_geometry(&geometry, brush.get()));
}

INSTANTIATE_TEST_SUITE_P(
    table, stroke_bounds,
    testing::Values(widened_case{"inverted across", {1, 0, 0, 1}, true},
                    widened_case{"inverted down", {0, 1, 1, 0}, true},
                    widened_case{"inverted both ways", {FLT_MAX, FLT_MAX, -FLT_MAX, -FLT_MAX}, true},
                    widened_case{"a point", {3, 4, 3, 4}, false},
                    widened_case{"a line across", {0, 5, 10, 5}, false},
                    widened_case{"a line down", {5, 0, 5, 10}, false}));

struct refusal {
    const char* what;
    HRESULT expected;
    std::function<void(IDrawingContext&)> draw;
};

/// Each of these adds nothing: what was recorded ahead of it, and its bounds, stay.
TEST_F(drawing_context_operations, a_refused_command_leaves_the_recording_as_it_was) {
    fake_geometry kept({0, 0, 10, 10});
    fake_geometry good({50, 50, 60, 60});
    fake_geometry failing({70, 70, 80, 80});
    failing.result = E_OUTOFMEMORY;
    const auto other_brush = com::create_object<foreign_brush>();
    const auto other_bitmap = com::create_object<foreign_bitmap>();
    const auto options = D2D1_DRAW_TEXT_OPTIONS_NONE;
    const auto animated = com::create_object<test_brush>(red, "animated", true);
    const std::vector<refusal> refusals{
        {"fill of a failing geometry", E_OUTOFMEMORY,
         [&](auto& at) { at.fill_geometry(&failing, animated.get()); }},
        {"fill of nothing", E_POINTER, [&](auto& at) { at.fill_geometry(nullptr, animated.get()); }},
        {"fill with nothing", E_POINTER, [&](auto& at) { at.fill_geometry(&good, nullptr); }},
        {"fill with a foreign brush", E_NOINTERFACE,
         [&](auto& at) { at.fill_geometry(&good, other_brush.get()); }},
        {"stroke of a failing geometry", E_OUTOFMEMORY,
         [&](auto& at) { at.draw_geometry(&failing, animated.get(), 1, nullptr); }},
        {"stroke of nothing", E_POINTER,
         [&](auto& at) { at.draw_geometry(nullptr, animated.get(), 1, nullptr); }},
        {"stroke with nothing", E_POINTER, [&](auto& at) { at.draw_geometry(&good, nullptr, 1, nullptr); }},
        {"stroke with a foreign brush", E_NOINTERFACE,
         [&](auto& at) { at.draw_geometry(&good, other_brush.get(), 1, nullptr); }},
        {"no text", E_POINTER,
         [&](auto& at) { at.draw_text_layout(50, 50, nullptr, animated.get(), options); }},
        {"text with nothing", E_POINTER,
         [&](auto& at) { at.draw_text_layout(50, 50, layout.get(), nullptr, options); }},
        {"text with a foreign brush", E_NOINTERFACE,
         [&](auto& at) { at.draw_text_layout(50, 50, layout.get(), other_brush.get(), options); }},
        {"no bitmap", E_POINTER, [&](auto& at) { at.draw_bitmap(50, 50, nullptr); }},
        {"a foreign bitmap", E_NOINTERFACE, [&](auto& at) { at.draw_bitmap(50, 50, other_bitmap.get()); }},
        {"no visual", E_POINTER, [&](auto& at) { at.draw_visual(nullptr); }},
    };
    for (const refusal& refused : refusals) {
        SCOPED_TRACE(refused.what);
        const auto context = root->draw(false);
        context->fill_geometry(&kept, brush.get());
        context->foreground();
        EXPECT_EQ(refused.expected, failure_of([&] { refused.draw(*context); }));
        context->commit();
        EXPECT_EQ("0 0 10 10", text_of(root->get_bounds(false)));
        EXPECT_EQ(1u, inside(root).background.size());
        EXPECT_EQ(0u, inside(root).foreground.size());
        EXPECT_EQ(0, inside(root).content_flags & node::content_animated);
        EXPECT_EQ(0u, good.references() + failing.references());
    }
    root->clear();
}

TEST_F(drawing_context_operations, a_device_object_that_cannot_be_made_adds_nothing) {
    show();
    const auto bitmap = com::create_object<test_bitmap>(D2D_SIZE_U{4, 4}, 0u);
    fake_geometry geometry({0, 0, 10, 10});
    const auto context = root->draw(false);
    target.fail_creations_after(0, E_OUTOFMEMORY);
    EXPECT_EQ(E_OUTOFMEMORY, failure_of([&] { context->fill_geometry(&geometry, brush.get()); }));
    EXPECT_EQ(E_OUTOFMEMORY, failure_of([&] { context->draw_bitmap(0, 0, bitmap.get()); }));
    target.fail_creations_after(0, S_OK);
    EXPECT_EQ(0u, geometry.references());
    context->commit();
    EXPECT_EQ(0, inside(root).content_flags & node::has_content);
}

TEST_F(drawing_context_operations, text_that_cannot_be_measured_adds_nothing) {
    using refusal_to_measure = d2d::fakes::refused_layout_operation<d2d::fakes::get_metrics>;
    const auto context = root->draw(false);
    {
        const refusal_to_measure refused(layout.get());
        EXPECT_EQ(refusal_to_measure::failure, failure_of([&] {
                      context->draw_text_layout(5, 5, layout.get(), brush.get(), D2D1_DRAW_TEXT_OPTIONS_NONE);
                  }));
    }
    context->commit();
    EXPECT_EQ(0, inside(root).content_flags & node::has_content);
}

TEST_F(drawing_context_operations, each_kind_of_command_can_make_the_recording_animated) {
    fake_geometry geometry({0, 0, 10, 10});
    for (const bool animated : {false, true}) {
        const auto used = com::create_object<test_brush>(red, "used", animated);
        const auto visual = make_visual("a", {0, 0, 1, 1});
        visual->animated = animated;
        const std::pair<const char*, std::function<void(IDrawingContext&)>> kinds[] = {
            {"fill", [&](auto& at) { at.fill_geometry(&geometry, used.get()); }},
            {"stroke", [&](auto& at) { at.draw_geometry(&geometry, used.get(), 1, nullptr); }},
            {"text",
             [&](auto& at) {
                 at.draw_text_layout(0, 0, layout.get(), used.get(), D2D1_DRAW_TEXT_OPTIONS_NONE);
             }},
            {"visual", [&](auto& at) { at.draw_visual(visual.get()); }},
        };
        for (const auto& [kind, draw] : kinds) {
            SCOPED_TRACE(kind);
            const auto context = root->draw(false);
            draw(*context);
            fill(*context, {0, 0, 10, 10});  // which is still
            context->commit();
            EXPECT_EQ(animated, (inside(root).content_flags & node::content_animated) != 0);
        }
    }
    root->clear();
}

TEST_F(drawing_context_operations, what_is_recorded_while_it_is_shown_is_bound_by_its_commit) {
    show();
    const auto rectangle = factory::create_rectangle_geometry({0, 0, 1, 1});
    const auto bitmap = com::create_object<test_bitmap>(D2D_SIZE_U{4, 4}, 0u);
    target.name(layout.get(), "moss");
    const auto context = root->draw(false);
    context->fill_geometry(rectangle.get(), make_brush(red).get());
    context->draw_text_layout(4, 8, layout.get(), make_brush(blue).get(), D2D1_DRAW_TEXT_OPTIONS_NONE);
    context->foreground();
    context->draw_bitmap(10, 20, bitmap.get());
    context->draw_geometry(rectangle.get(), make_brush(green).get(), 1, nullptr);
    context->commit();
    EXPECT_EQ(
        (lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 1 1) brush(1 0 0 1)",
               "DrawTextLayout 4 8 moss brush(0 0 1 1) 0", "DrawBitmap bitmap(4 4) 10 20 14 24 1 1 0 0 4 4",
               "DrawGeometry rectangle(0 0 1 1) brush(0 1 0 1) 1 null"}),
        painted());
}

TEST_F(drawing_context_operations, device_objects_are_made_while_recording_only_where_there_is_a_target) {
    fill(root, {0, 0, 10, 10});
    EXPECT_EQ(0, target.created_brushes());
    view->set_root(root);
    fill(root, {0, 0, 10, 10});
    EXPECT_EQ(0, target.created_brushes());
    edge->attach_render_target(&target);
    EXPECT_EQ(1, target.created_brushes());
    const auto context = root->draw(false);
    context->fill_geometry(factory::create_rectangle_geometry({0, 0, 1, 1}).get(), brush.get());
    EXPECT_EQ(2, target.created_brushes());
    context->draw_geometry(factory::create_rectangle_geometry({0, 0, 1, 1}).get(), brush.get(), 1, nullptr);
    EXPECT_EQ(2, target.created_brushes()) << "one device object per resource and view";
}

}  // namespace
}  // namespace d2d::scene
