#include "geometry_test.h"
#include "surface_test.h"

namespace completion::test {

namespace {

using make_surface = std::unique_ptr<surface> (*)(ID2D1Factory*);

/// What is drawn inside clips, on a surface of each kind.
class clipping : public geometry_test, public testing::WithParamInterface<make_surface> {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
        surface_ = GetParam()(factory_.get());
        constexpr D2D1_COLOR_F white{1, 1, 1, 1};
        brush_ = make<ID2D1SolidColorBrush>([&](ID2D1SolidColorBrush** result) {
            return target().CreateSolidColorBrush(&white, nullptr, result);
        });
        ASSERT_TRUE(brush_);
        target().BeginDraw();
        target().Clear(nullptr);
    }

    void TearDown() override {
        brush_.reset();
        surface_.reset();
        CoUninitialize();
    }

    [[nodiscard]] ID2D1RenderTarget& target() const { return *surface_->target(); }

    void push(const D2D1_RECT_F& clip) const {
        target().PushAxisAlignedClip(clip, D2D1_ANTIALIAS_MODE_PER_PRIMITIVE);
    }
    void pop() const { target().PopAxisAlignedClip(); }
    void fill_all() const { target().FillRectangle(D2D1_RECT_F{-1000, -1000, 1000, 1000}, brush_.get()); }

    /// How many pixels are covered in the end.
    [[nodiscard]] long covered() const {
        EXPECT_EQ(target().EndDraw(), S_OK);
        return surface_->read().alpha_sum() / 255;
    }

    std::unique_ptr<surface> surface_;
    owned<ID2D1SolidColorBrush> brush_;
};

TEST_P(clipping, that_leaves_nothing_lets_nothing_through) {
    push({10, 10, 40, 40});
    target().FillRectangle(D2D1_RECT_F{10, 10, 12, 11}, brush_.get());
    push({60, 20, 90, 30});
    fill_all();
    push({0, 0, 120, 100});
    fill_all();
    pop();
    push({50, 50, 55, 55});
    fill_all();
    pop();
    pop();
    target().FillRectangle(D2D1_RECT_F{20, 20, 23, 21}, brush_.get());
    pop();
    target().FillRectangle(D2D1_RECT_F{100, 90, 104, 91}, brush_.get());
    EXPECT_EQ(covered(), 2 + 3 + 4);
}

TEST_P(clipping, that_leaves_something_lets_that_through) {
    push({10, 10, 40, 40});
    push({30, 20, 90, 30});
    fill_all();
    pop();
    pop();
    EXPECT_EQ(covered(), 10 * 10);
}

TEST_P(clipping, counts_behind_the_transform) {
    push({10, 10, 40, 40});
    target().SetTransform(D2D1::Matrix3x2F::Translation(30, 0));
    push({10, 10, 20, 20});  // from 40 on
    fill_all();
    pop();
    push({9, 10, 20, 20});
    fill_all();
    pop();
    target().SetTransform(D2D1::Matrix3x2F::Identity());
    pop();
    EXPECT_EQ(covered(), 1 * 10);
}

INSTANTIATE_TEST_SUITE_P(everywhere, clipping, testing::Values(&make_wic_surface, &make_device_surface));

}  // namespace

}  // namespace completion::test
