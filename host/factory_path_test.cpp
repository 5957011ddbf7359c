#include "d2d/factory.h"

#include "com/object.h"
#include "host/svg_geometry_sink.h"
#include "support/leak_checked_test.h"

#include <cstdio>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace {

using d2d::factory;

constexpr D2D_MATRIX_3X2_F identity{{{1, 0, 0, 1, 0, 0}}};

/// Writes down what is drawn into it.
class fake_geometry_sink : public com::base_object<com::object_base, ID2D1GeometrySink> {
public:
    // clang-format off
    STDMETHOD_(void, SetFillMode)(D2D1_FILL_MODE) override { calls += "fill_mode "; }
    STDMETHOD_(void, SetSegmentFlags)(D2D1_PATH_SEGMENT) override { calls += "segment_flags "; }
    STDMETHOD_(void, BeginFigure)(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN begin) override {
        calls += begin == D2D1_FIGURE_BEGIN_FILLED ? "filled " : "hollow ";
        add(start);
    }
    STDMETHOD_(void, AddLines)(const D2D1_POINT_2F*, UINT) override { calls += "lines "; }
    STDMETHOD_(void, AddBeziers)(const D2D1_BEZIER_SEGMENT*, UINT) override { calls += "beziers "; }
    STDMETHOD_(void, EndFigure)(D2D1_FIGURE_END end) override {
        calls += end == D2D1_FIGURE_END_OPEN ? "open " : "closed ";
    }
    STDMETHOD(Close)() override { calls += "close "; return E_FAIL; }
    STDMETHOD_(void, AddLine)(D2D1_POINT_2F end) override { calls += "line "; add(end); }
    STDMETHOD_(void, AddBezier)(const D2D1_BEZIER_SEGMENT* segment) override {
        calls += "bezier ";
        for (const auto& point : {segment->point1, segment->point2, segment->point3}) add(point);
    }
    STDMETHOD_(void, AddQuadraticBezier)(const D2D1_QUADRATIC_BEZIER_SEGMENT*) override { calls += "quadratic "; }
    STDMETHOD_(void, AddQuadraticBeziers)(const D2D1_QUADRATIC_BEZIER_SEGMENT*, UINT) override { calls += "quadratics "; }
    STDMETHOD_(void, AddArc)(const D2D1_ARC_SEGMENT*) override { calls += "arc "; }
    // clang-format on

    std::string calls;

protected:
    ~fake_geometry_sink() = default;

private:
    void add(D2D1_POINT_2F point) {
        char text[48];
        std::snprintf(text, sizeof text, "%g,%g ", static_cast<double>(point.x),
                      static_cast<double>(point.y));
        calls += text;
    }
};

TEST(svg_geometry_sink, calls_one_operation_of_direct2d_for_each_of_its_own) {
    const auto target = com::create_object<fake_geometry_sink>();
    d2d::svg_geometry_sink sink(*target);
    d2d::svg_path_parser("M1 2L3 4Q5 6 7 8C1 2 3 4 5 6zM0 0H1", d2d::svg_transform{}, sink).parse();
    EXPECT_EQ(
        "filled 1,2 line 3,4 bezier 5,6 5,6 7,8 bezier 1,2 3,4 5,6 closed filled 0,0 line 1,0 open close ",
        target->calls);
}

class svg_geometry : public test_support::leak_checked_test {
protected:
    static D2D_RECT_F bounds_of(std::string_view path, const D2D_MATRIX_3X2_F& transform = identity) {
        D2D_RECT_F bounds{};
        EXPECT_EQ(S_OK, factory::parse_svg_path(path, transform)->GetBounds(nullptr, &bounds)) << path;
        return bounds;
    }

    static bool contains(ID2D1PathGeometry* geometry, float x, float y) {
        BOOL inside = FALSE;
        EXPECT_EQ(S_OK, geometry->FillContainsPoint({x, y}, nullptr, 0.25f, &inside));
        return inside != FALSE;
    }

private:
    factory token_;
};

TEST_F(svg_geometry, has_the_figures_and_segments_of_the_text) {
    const auto geometry = factory::parse_svg_path("M0 0h10v10h-10zM20 20l5 5 5-5", identity);
    UINT32 count = 0;
    EXPECT_EQ(S_OK, geometry->GetFigureCount(&count));
    EXPECT_EQ(2u, count);
    EXPECT_EQ(S_OK, geometry->GetSegmentCount(&count));
    EXPECT_LE(5u, count);
    EXPECT_TRUE(contains(geometry.get(), 5, 5));
    EXPECT_FALSE(contains(geometry.get(), 15, 5));
    EXPECT_TRUE(contains(geometry.get(), 25, 21));
}

TEST_F(svg_geometry, has_holes_where_figures_overlap) {
    const auto geometry = factory::parse_svg_path("M0 0h30v30h-30zM10 10h10v10h-10z", identity);
    EXPECT_TRUE(contains(geometry.get(), 5, 15));
    EXPECT_FALSE(contains(geometry.get(), 15, 15));
}

TEST_F(svg_geometry, lies_where_the_transform_puts_it) {
    const D2D_RECT_F plain = bounds_of("M1 2h10v20z");
    EXPECT_EQ(1.0f, plain.left);
    EXPECT_EQ(2.0f, plain.top);
    EXPECT_EQ(11.0f, plain.right);
    EXPECT_EQ(22.0f, plain.bottom);
    const D2D_RECT_F turned = bounds_of("M1 2h10v20z", {{{0, 2, 3, 0, 100, 200}}});
    EXPECT_EQ(106.0f, turned.left);
    EXPECT_EQ(202.0f, turned.top);
    EXPECT_EQ(166.0f, turned.right);
    EXPECT_EQ(222.0f, turned.bottom);
}

TEST_F(svg_geometry, of_an_empty_text_or_of_moves_is_empty) {
    for (const std::string_view text : {"", "M1 2", "Z", "m1 1m2 2z"}) {
        UINT32 count = 1;
        EXPECT_EQ(S_OK, factory::parse_svg_path(text, identity)->GetFigureCount(&count)) << text;
        EXPECT_EQ(0u, count) << text;
    }
}

TEST_F(svg_geometry, is_not_made_of_malformed_text) {
    for (const std::string_view text :
         {"x", ",", "M1", "M0 0L1 1T2 2", "M0 0a1 1 0 0 0 5 5", "M0 0S1 1 2 2"}) {
        try {
            static_cast<void>(factory::parse_svg_path(text, identity));
            ADD_FAILURE() << text;
        } catch (const std::runtime_error& thrown) {
            EXPECT_STREQ("bad svg", thrown.what()) << text;
            EXPECT_EQ(typeid(std::runtime_error), typeid(thrown)) << text;
        }
    }
}

/// Kept: such text is never to be passed, and nothing looks out for it.
TEST(svg_path, a_closing_command_followed_by_no_letter_is_repeated_for_ever) {
    const HANDLE thread = CreateThread(
        nullptr, 0,
        [](void*) -> DWORD {
            const auto target = com::create_object<fake_geometry_sink>();
            d2d::svg_geometry_sink sink(*target);
            d2d::svg_path_parser("M0 0 L1 1 z 5", d2d::svg_transform{}, sink).parse();
            return 0;
        },
        nullptr, 0, nullptr);
    ASSERT_NE(nullptr, thread);
    EXPECT_EQ(DWORD{WAIT_TIMEOUT}, WaitForSingleObject(thread, 200));
    TerminateThread(thread, 1);
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, WaitForSingleObject(thread, 5000));
    CloseHandle(thread);
}

}  // namespace
