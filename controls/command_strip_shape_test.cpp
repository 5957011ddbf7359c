// The shapes of a strip's cells: their parts of its rounded outline.

#include "controls/testing/command_strip_test.h"
#include "host/testing/table_entry.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::same;

/// A rounded rectangle with radii of 5.
bool in_outline(const D2D_RECT_F& strip, float x, float y) {
    const D2D_RECT_F core{strip.left + 5.5f, strip.top + 5.5f, strip.right - 5.5f, strip.bottom - 5.5f};
    const float dx = std::max({core.left - x, 0.0f, x - core.right});
    const float dy = std::max({core.top - y, 0.0f, y - core.bottom});
    return std::hypot(dx, dy) <= 5;
}

struct strip_form {
    bool vertical;
    std::size_t count;
};

class command_strip_shape : public fakes::command_strip_test, public testing::WithParamInterface<strip_form> {
protected:
    static constexpr D2D_SIZE_F cell{24, 18};

    void SetUp() override {
        command_strip_test::SetUp();
        make_strip(GetParam().vertical, cell, GetParam().count);
    }
    [[nodiscard]] D2D_RECT_F cell_rect(std::size_t i) const {
        const auto index = static_cast<float>(i);
        const float x = GetParam().vertical ? 0 : index * cell.width;
        const float y = GetParam().vertical ? index * cell.height : 0;
        return {x, y, x + cell.width, y + cell.height};
    }
};
INSTANTIATE_TEST_SUITE_P(of, command_strip_shape,
                         testing::Values(strip_form{false, 1}, strip_form{false, 2}, strip_form{false, 4},
                                         strip_form{true, 1}, strip_form{true, 2}, strip_form{true, 4}),
                         [](const auto& tested) {
                             return std::string(tested.param.vertical ? "column_of_" : "row_of_") +
                                    std::to_string(tested.param.count);
                         });

TEST_P(command_strip_shape, of_the_outline_is_the_rounded_strip) {
    const com::ptr<ID2D1RoundedRectangleGeometry> outline(style->outline);
    D2D1_ROUNDED_RECT rounded{};
    outline->GetRoundedRect(&rounded);
    const D2D_RECT_F rect = strip->get_rect();
    EXPECT_TRUE(same(D2D_RECT_F{0.5f, 0.5f, rect.right - 0.5f, rect.bottom - 0.5f}, rounded.rect));
    EXPECT_EQ(5, rounded.radiusX);
    EXPECT_EQ(5, rounded.radiusY);
}

TEST_P(command_strip_shape, of_each_cell_is_its_part_of_the_outline) {
    const D2D_RECT_F strip_rect = strip->get_rect();
    ASSERT_EQ(GetParam().count, style->cells.size());
    for (std::size_t i = 0; i < GetParam().count; ++i) {
        const D2D_RECT_F own = cell_rect(i);
        const auto expected = [&](float x, float y) {
            // Between cells the border is the edge; outside it is the outline alone that cuts.
            return own.left < x && x < own.right && own.top < y && y < own.bottom &&
                   in_outline(strip_rect, x, y);
        };
        int wrong = 0;
        for (float y = own.top - 12.125f; y < own.bottom + 12; y += 0.5f) {
            for (float x = own.left - 12.125f; x < own.right + 12; x += 0.5f) {
                const bool wanted = expected(x, y);
                // Near its edge a flattened curve may differ by the tolerance.
                constexpr float off = 0.3f;
                if (expected(x - off, y - off) != wanted || expected(x + off, y - off) != wanted ||
                    expected(x - off, y + off) != wanted || expected(x + off, y + off) != wanted)
                    continue;
                BOOL contains = FALSE;
                ASSERT_EQ(S_OK, style->cells[i]->FillContainsPoint({x, y}, nullptr, 0.01f, &contains));
                if ((contains != FALSE) != wanted && wrong++ < 5)
                    ADD_FAILURE() << "cell " << i << (wanted ? " lacks " : " has ") << x << ", " << y;
            }
        }
        EXPECT_EQ(0, wrong) << "cell " << i;
    }
}

TEST_P(command_strip_shape, of_each_cell_reaches_from_border_to_border) {
    const D2D_RECT_F strip_rect = strip->get_rect();
    for (std::size_t i = 0; i < GetParam().count; ++i) {
        const D2D_RECT_F own = cell_rect(i);
        D2D_RECT_F bounds{};
        ASSERT_EQ(S_OK, style->cells[i]->GetBounds(nullptr, &bounds));
        EXPECT_NEAR(std::max(own.left, 0.5f), bounds.left, 0.01f);
        EXPECT_NEAR(std::max(own.top, 0.5f), bounds.top, 0.01f);
        EXPECT_NEAR(std::min(own.right, strip_rect.right - 0.5f), bounds.right, 0.01f);
        EXPECT_NEAR(std::min(own.bottom, strip_rect.bottom - 0.5f), bounds.bottom, 0.01f);
    }
}

/// Writes down which rectangles are combined with what and how, while this lives.
class recorded_combinations {
public:
    explicit recorded_combinations(std::vector<std::string>& writes_to)
        : entry(rectangle.get(), combine_slot), original(entry.exchange(record)) {
        lines_of_now = &writes_to;
        original_of_now = original;
    }
    recorded_combinations(const recorded_combinations&) = delete;
    recorded_combinations& operator=(const recorded_combinations&) = delete;
    ~recorded_combinations() {
        entry.exchange(original);
        lines_of_now = nullptr;
    }

private:
    using operation = HRESULT(STDMETHODCALLTYPE*)(ID2D1RectangleGeometry*, ID2D1Geometry*, D2D1_COMBINE_MODE,
                                                  const D2D1_MATRIX_3X2_F*, FLOAT,
                                                  ID2D1SimplifiedGeometrySink*);
    static constexpr int combine_slot = 11;  // fixed by the interface

    static HRESULT STDMETHODCALLTYPE record(ID2D1RectangleGeometry* self, ID2D1Geometry* with,
                                            D2D1_COMBINE_MODE mode, const D2D1_MATRIX_3X2_F* matrix,
                                            FLOAT tolerance, ID2D1SimplifiedGeometrySink* sink) {
        D2D_RECT_F rect{};
        self->GetRect(&rect);
        D2D1_ROUNDED_RECT rounded{};
        com::ptr<ID2D1RoundedRectangleGeometry>(with)->GetRoundedRect(&rounded);
        lines_of_now->push_back(scene::fakes::call_text(rect, "with", rounded.rect, static_cast<int>(mode),
                                                        matrix ? "moved" : "as it lies", tolerance));
        return original_of_now(self, with, mode, matrix, tolerance, sink);
    }

    static inline std::vector<std::string>* lines_of_now = nullptr;
    static inline operation original_of_now = nullptr;

    com::ptr<ID2D1RectangleGeometry> rectangle = factory::create_rectangle_geometry({0, 0, 1, 1});
    fakes::table_entry<operation> entry;
    operation original;
};

using command_strip_cells = fakes::command_strip_test;

TEST_F(command_strip_cells, reach_ten_pixels_beyond_the_strip_where_the_outline_cuts_them) {
    const struct {
        bool vertical;
        std::size_t count;
        D2D_RECT_F outline;
        std::vector<D2D_RECT_F> cells;
    } cases[] = {
        {false, 1, {0.5f, 0.5f, 23.5f, 17.5f}, {{-10, -10, 34, 28}}},
        {true, 1, {0.5f, 0.5f, 23.5f, 17.5f}, {{-10, -10, 34, 28}}},
        {false, 2, {0.5f, 0.5f, 47.5f, 17.5f}, {{-10, -10, 24, 28}, {24, -10, 58, 28}}},
        {true, 2, {0.5f, 0.5f, 23.5f, 35.5f}, {{-10, -10, 34, 18}, {-10, 18, 34, 46}}},
        {false, 3, {0.5f, 0.5f, 71.5f, 17.5f}, {{-10, -10, 24, 28}, {24, -10, 48, 28}, {48, -10, 82, 28}}},
        {true, 3, {0.5f, 0.5f, 23.5f, 53.5f}, {{-10, -10, 34, 18}, {-10, 18, 34, 36}, {-10, 36, 34, 64}}},
    };
    for (const auto& [vertical, count, outline, cells] : cases) {
        lines combined;
        {
            const recorded_combinations recording(combined);
            make_strip(vertical, {24, 18}, count);
        }
        lines expected;
        for (const auto& cell : cells) {
            expected.push_back(scene::fakes::call_text(
                cell, "with", outline, static_cast<int>(D2D1_COMBINE_MODE_INTERSECT), "as it lies", 0.25f));
        }
        EXPECT_EQ(expected, combined);
    }
}

}  // namespace
}  // namespace d2d
