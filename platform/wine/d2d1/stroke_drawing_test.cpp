#include "geometry_test.h"
#include "surface_test.h"

namespace completion::test {

namespace {

/// Where something is drawn on a WIC bitmap.
class stroke_drawing : public geometry_test {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
        surface_ = make_wic_surface(factory_.get());
        constexpr D2D1_COLOR_F white{1, 1, 1, 1};
        brush_ = make<ID2D1SolidColorBrush>([&](ID2D1SolidColorBrush** result) {
            return surface_->target()->CreateSolidColorBrush(&white, nullptr, result);
        });
        ASSERT_TRUE(brush_);
    }

    void TearDown() override {
        brush_.reset();
        surface_.reset();
        CoUninitialize();
    }

    template <typename Drawing>
    [[nodiscard]] picture drawn(Drawing drawing) const {
        surface_->target()->BeginDraw();
        surface_->target()->Clear(nullptr);
        drawing(surface_->target());
        EXPECT_EQ(surface_->target()->EndDraw(), S_OK);
        return surface_->read();
    }

    std::unique_ptr<surface> surface_;
    owned<ID2D1SolidColorBrush> brush_;
};

TEST_F(stroke_drawing, leaves_the_gaps_of_dashes) {
    const auto dashed = style(D2D1_CAP_STYLE_FLAT, D2D1_LINE_JOIN_MITER, 10, D2D1_DASH_STYLE_DASH);
    const picture result = drawn([&](ID2D1RenderTarget* target) {
        target->DrawLine({10, 20}, {90, 20}, brush_.get(), 4, dashed.get());
    });
    for (int x = 0; x < 100; ++x) {
        const bool covered = x >= 10 && x < 90 && (x - 10) % 16 < 8;
        EXPECT_EQ(result.at(x, 19).alpha, covered ? 255 : 0) << x;
    }
}

TEST_F(stroke_drawing, adds_caps_to_lines) {
    const auto square = style(D2D1_CAP_STYLE_SQUARE, D2D1_LINE_JOIN_MITER);
    const picture result = drawn([&](ID2D1RenderTarget* target) {
        target->DrawLine({20, 20}, {60, 20}, brush_.get(), 8, square.get());
    });
    EXPECT_EQ(result.at(16, 20).alpha, 255);
    EXPECT_EQ(result.at(15, 20).alpha, 0);
    EXPECT_EQ(result.at(63, 20).alpha, 255);
    EXPECT_EQ(result.at(64, 20).alpha, 0);
}

TEST_F(stroke_drawing, cuts_or_rounds_the_corners_of_a_rectangle) {
    constexpr D2D1_RECT_F box{20, 20, 80, 60};
    const auto corner = [&](D2D1_LINE_JOIN join) {
        const auto pen = style(D2D1_CAP_STYLE_FLAT, join);
        return drawn(
            [&](ID2D1RenderTarget* target) { target->DrawRectangle(box, brush_.get(), 16, pen.get()); });
    };
    EXPECT_EQ(corner(D2D1_LINE_JOIN_MITER).at(12, 12).alpha, 255);
    EXPECT_EQ(corner(D2D1_LINE_JOIN_BEVEL).at(14, 14).alpha, 0);
    EXPECT_EQ(corner(D2D1_LINE_JOIN_BEVEL).at(17, 17).alpha, 255);
    EXPECT_EQ(corner(D2D1_LINE_JOIN_ROUND).at(13, 13).alpha, 0);
    EXPECT_EQ(corner(D2D1_LINE_JOIN_ROUND).at(15, 15).alpha, 255);
    EXPECT_EQ(corner(D2D1_LINE_JOIN_ROUND).at(50, 40).alpha, 0);
}

TEST_F(stroke_drawing, of_all_shapes_goes_through_the_transform) {
    const auto dashed = style(D2D1_CAP_STYLE_ROUND, D2D1_LINE_JOIN_ROUND, 10, D2D1_DASH_STYLE_DASH);
    const auto circle = ellipse(20, 20, 10, 10);
    const auto covered = [&](auto drawing) {
        return drawn([&](ID2D1RenderTarget* target) {
                   target->SetTransform(D2D1::Matrix3x2F::Scale(2, 2));
                   drawing(target);
                   target->SetTransform(D2D1::Matrix3x2F::Identity());
               })
            .alpha_sum();
    };
    // Half of the circle and three quarters with the caps: what is drawn lies between.
    const double whole = 255 * std::numbers::pi * (22 * 22 - 18 * 18);
    const auto once =
        covered([&](auto target) { target->DrawGeometry(circle.get(), brush_.get(), 2, dashed.get()); });
    EXPECT_GT(static_cast<double>(once), whole * 0.5);
    EXPECT_LT(static_cast<double>(once), whole * 0.95);
    const D2D1_ELLIPSE same{{20, 20}, 10, 10};
    EXPECT_EQ(covered([&](auto target) { target->DrawEllipse(same, brush_.get(), 2, dashed.get()); }), once);
    const D2D1_ROUNDED_RECT rounded_same{{10, 10, 30, 30}, 10, 10};
    EXPECT_NEAR(static_cast<double>(covered([&](auto target) {
                    target->DrawRoundedRectangle(rounded_same, brush_.get(), 2, dashed.get());
                })),
                static_cast<double>(once), whole * 0.01);
}

}  // namespace

}  // namespace completion::test
