// How rows look.

#include "controls/testing/sheet.h"
#include "controls/testing/tree_fixture.h"
#include "scene/matrix.h"
#include "scene/testing/pixel_target.h"
#include "support/golden.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace d2d::ui::tree {
namespace {

using scene::fakes::call_text;

class tree_drawing_test : public fakes::tree_fixture {
protected:
    [[nodiscard]] static std::string brush(const _D3DCOLORVALUE& color) {
        return "brush(" + call_text(color) + ")";
    }
    [[nodiscard]] static std::string system(int index) {
        const COLORREF color = GetSysColor(index);
        const auto channel = [](BYTE value) { return static_cast<float>(value) / 255; };
        return brush({channel(GetRValue(color)), channel(GetGValue(color)), channel(GetBValue(color)), 1});
    }
    /// What is painted of one entry: its shape and its text.
    [[nodiscard]] lines painted_row() {
        lines found = painted();
        std::erase_if(found, [](const std::string& line) {
            return !line.starts_with("FillGeometry") && !line.starts_with("DrawGeometry") &&
                   !line.starts_with("DrawTextLayout");
        });
        return found;
    }
    static com::ptr<scene::IBitmap> square(D2D_SIZE_U size, unsigned color) {
        auto pixels = std::make_unique<unsigned[]>(std::size_t{size.width} * size.height);
        std::fill_n(pixels.get(), std::size_t{size.width} * size.height, color);
        return scene::IBitmap::create(size, std::move(pixels));
    }
};

TEST_F(tree_drawing_test, background_and_ink_show_the_state) {
    const auto layout =
        shown->get_view().look().text_format->create_layout(std::wstring_view(L"single"), 0, 0);
    DWRITE_TEXT_METRICS metrics{};
    ASSERT_EQ(S_OK, layout->GetMetrics(&metrics));
    const D2D_RECT_F outline{0.5f, 0.5f, std::ceil(metrics.width) + 3.5f, std::ceil(metrics.height) + 1.5f};
    const std::string shape = "rounded_rectangle(" + call_text(outline, 2.0f, 2.0f) + ")";
    const auto on = [&](const std::string& fill, const std::string& line) {
        return lines{"FillGeometry " + shape + " " + fill, "DrawGeometry " + shape + " " + line + " 1 null"};
    };
    const std::string inactive = system(COLOR_INACTIVECAPTION);
    const lines on_focused = on(system(COLOR_HIGHLIGHT), system(COLOR_HOTLIGHT));
    const lines on_hot = on(brush({0.9f, 0.9f, 1, 0.7f}), brush({0.5f, 0.5f, 1, 0.7f}));
    const lines on_inactive = on(inactive, inactive);
    for (unsigned bits = 0; bits < 16; ++bits) {
        const bool selected = (bits & 1) != 0;
        const bool focused = (bits & 2) != 0;
        const bool highlighted = (bits & 4) != 0;
        const bool hovered = (bits & 8) != 0;
        SCOPED_TRACE(testing::Message() << (selected ? "selected " : "") << (focused ? "focused " : "")
                                        << (highlighted ? "highlighted " : "") << (hovered ? "hot" : ""));
        content()->release_focus();
        move_to(beside);
        r = entry("single");
        shown->set_root(r.get());
        if (selected) shown->select(r.get());
        r->set_highlighted(highlighted);
        if (hovered) move_to(on_r);
        if (focused) content()->set_focus();

        const bool active = selected && focused;
        lines wanted;
        if (active) {
            wanted = on_focused;
        } else if (highlighted || hovered) {
            wanted = on_hot;
        } else if (selected) {
            wanted = on_inactive;
        }
        const int ink = active     ? COLOR_HIGHLIGHTTEXT
                        : selected ? COLOR_INACTIVECAPTIONTEXT
                                   : COLOR_WINDOWTEXT;
        wanted.push_back("DrawTextLayout 1 1 layout " + system(ink) + " 0");
        EXPECT_EQ(wanted, painted_row());
    }
}

TEST_F(tree_drawing_test, text_has_the_font_of_the_titles_of_icons) {
    LOGFONTW font{};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof font, &font, 0));
    EXPECT_EQ(scene::ITextFormat::get(font), shown->get_view().look().text_format);
}

TEST_F(tree_drawing_test, a_row_is_hot_while_its_menu_is_open) {
    const auto hot_rows = [&] {
        const lines all = painted_row();
        return std::count_if(all.begin(), all.end(), [](const std::string& line) {
            return line.starts_with("FillGeometry") && line.ends_with(brush({0.9f, 0.9f, 1, 0.7f}));
        });
    };
    std::ptrdiff_t meanwhile = 0;
    pass_after("tree: context_menu a", [&] { meanwhile = hot_rows(); });
    press_at(on_a, mouse_button::right);
    EXPECT_EQ(1, meanwhile);
    EXPECT_EQ(0, hot_rows()) << "the mouse has not been there";
}

TEST_F(tree_drawing_test, focus_of_a_node_in_the_content_is_the_trees) {
    const auto fills = [&] {
        lines all = painted_row();
        std::erase_if(all, [](const std::string& line) { return !line.starts_with("FillGeometry"); });
        for (auto& line : all) line = line.substr(line.find("brush("));
        return all;
    };
    shown->select(a.get());
    root->set_focus();
    EXPECT_EQ(lines{system(COLOR_INACTIVECAPTION)}, fills());
    const auto below = empty_below(content());
    below->set_focus();
    EXPECT_EQ(lines{system(COLOR_HIGHLIGHT)}, fills());
    root->set_focus();
    EXPECT_EQ(lines{system(COLOR_INACTIVECAPTION)}, fills());
    content()->remove_child(below);
}

TEST_F(tree_drawing_test, the_mark_is_drawn_around_its_origin_and_icons_side_by_side) {
    const auto bitmaps = [&] {
        lines all = painted();
        std::erase_if(all, [](const std::string& line) { return !line.starts_with("DrawBitmap"); });
        return all;
    };
    // Behind the place: opacity, interpolation, and the part that is shown.
    const std::string mark = "DrawBitmap bitmap(16 16) -6 -6 10 10 1 1 0 0 16 16";
    EXPECT_EQ(lines{mark}, bitmaps()) << "in the middle of a box of 12 by 12";
    r->set_icon(square({16, 16}, 0xFF0000FF).get());
    r->set_state_icon(square({10, 16}, 0xFF00FF00).get());
    EXPECT_EQ((lines{mark, "DrawBitmap bitmap(10 16) 0 0 10 16 1 1 0 0 10 16",
                     "DrawBitmap bitmap(16 16) 10 0 26 16 1 1 0 0 16 16"}),
              bitmaps());
}

TEST_F(tree_drawing_test, the_drag_image_holds_icon_and_text_side_by_side) {
    const std::string ink = " layout " + system(COLOR_WINDOWTEXT) + " 0";
    const struct {
        bool has_state_icon, large_icons, in_view;
        lines expected;
    } cases[] = {
        {false, false, true, {"DrawBitmap bitmap(16 16) 0 1", "DrawTextLayout 20 0" + ink}},
        {true, false, true, {"DrawBitmap bitmap(16 16) 10 1", "DrawTextLayout 30 0" + ink}},
        {true, true, true, {"DrawBitmap bitmap(16 16) 10 1", "DrawTextLayout 46 0" + ink}},
        {false, false, false, {"DrawBitmap bitmap(16 16) 0 1"}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(call_text(each.has_state_icon, each.large_icons, each.in_view));
        shown->get_view().large_icons = each.large_icons;
        a = entry("a", each.in_view ? r : nullptr);
        a->set_icon(square({16, 16}, 0xFF0000FF).get());
        if (each.has_state_icon) a->set_state_icon(square({10, 16}, 0xFF00FF00).get());
        const auto image = a->create_drag_image();
        image->set_effect(nullptr);  // which the recording target cannot have
        root->remove_child(own);
        root->add_child(image);
        lines found;
        for (const auto& line : painted()) {
            if (line.starts_with("DrawTextLayout")) found.push_back(line);
            // The rectangle goes on with its far corner.
            if (line.starts_with("DrawBitmap")) found.push_back(line.substr(0, each.expected[0].size()));
        }
        EXPECT_EQ(each.expected, found);
        root->remove_child(image);
        root->add_child(own);
    }
}

class tree_picture_test : public tree_drawing_test {
protected:
    // Small differences of the machine that paints count as equal.
    static constexpr test_support::tolerance allowed{.channel = 8, .pixels = 40};

    void SetUp() override {
        tree_drawing_test::SetUp();
        fill(root, {0, 0, 1000, 1000}, {1, 1, 1, 1});
        edge->detach_render_target(nullptr);
    }
    [[nodiscard]] test_support::picture picture_on(const scene::fakes::pixel_target& page) {
        edge->attach_render_target(page.get());
        page.paint(*edge.get());
        edge->detach_render_target(page.get());
        return page.picture();
    }
    [[nodiscard]] test_support::picture picture() { return picture_on(whole); }

    const scene::fakes::pixel_target whole{150, 160};
};

TEST_F(tree_picture_test, the_expander_of_an_entry_without_children_shows_that_it_is_closed) {
    r->set_expandable(true);
    const auto open = picture();
    r->set_expanded(false);
    const auto closed = picture();
    EXPECT_FALSE(open == closed);
    r->set_expanded(true);
    EXPECT_TRUE(open == picture());
    r->remove_child(a.get());
    r->remove_child(b.get());
    EXPECT_TRUE(closed == picture());
}

TEST_F(tree_picture_test, of_a_tree) {
    shown->arrange({0, 0, 150, 150});
    const auto icon = square({16, 16}, 0xFF4080C0);
    const auto state = square({12, 16}, 0xFFE0A030);
    const auto focused = entry("focused", b);
    const auto hot = entry("highlighted", b);
    const auto closed = entry("closed", b);
    const auto two_lines = entry("two lines\nof text", r);
    closed->set_expandable(true);
    b->set_expanded(true);
    for (const auto& each : {r, a, hot, two_lines}) each->set_icon(icon.get());
    for (const auto& each : {a, hot, two_lines}) each->set_state_icon(state.get());
    shown->select(focused.get());
    content()->set_focus();
    hot->set_highlighted(true);
    EXPECT_TRUE(test_support::matches_golden(picture(), "tree/states", allowed));
}

/// Columns: as it is, under the mouse, highlighted. Rows: not selected, selected, selected with the focus.
TEST_F(tree_picture_test, of_a_row_in_each_state) {
    const scene::fakes::pixel_target cell{80, 22};
    fakes::sheet states{3, 3, 80, 22};
    shown->arrange({2, 2, 80, 22});
    for (unsigned row = 0; row < 3; ++row) {
        for (unsigned column = 0; column < 3; ++column) {
            r = entry("Quay");
            r->set_icon(square({16, 16}, 0xFF4080C0).get());
            shown->set_root(r.get());
            move_to({79, 21});
            if (column == 1) move_to({40, 10});
            if (column == 2) r->set_highlighted(true);
            if (row > 0) shown->select(r.get());
            if (row == 2) content()->set_focus();
            states.put(column, row, picture_on(cell));
            content()->release_focus();
        }
    }
    EXPECT_TRUE(test_support::matches_golden(states.image(), "tree/row_states", allowed));
}

/// Columns: plain, with an icon, with a state icon too. Rows: no expander, closed, open; these three again
/// with large icons.
TEST_F(tree_picture_test, of_what_stands_in_a_row) {
    const scene::fakes::pixel_target cell{112, 38};
    fakes::sheet parts{3, 6, 112, 38};
    for (unsigned row = 0; row < 6; ++row) {
        const bool is_large = row >= 3;
        drop_view();
        make_view();
        shown->arrange({2, 2, 112, 38});
        shown->get_view().large_icons = is_large;
        for (unsigned column = 0; column < 3; ++column) {
            const unsigned size = is_large ? 32 : 16;
            r = entry("Quay");
            if (column > 0) r->set_icon(square({size, size}, 0xFF4080C0).get());
            if (column > 1) r->set_state_icon(square({12, size}, 0xFFE0A030).get());
            r->set_expandable(row % 3 > 0);
            r->set_expanded(row % 3 > 1);
            shown->set_root(r.get());
            shown->select(r.get());
            parts.put(column, row, picture_on(cell));
        }
    }
    EXPECT_TRUE(test_support::matches_golden(parts.image(), "tree/row_parts", allowed));
}

/// On light and on dark ground, where the shadow shows.
TEST_F(tree_picture_test, of_drag_images) {
    const scene::fakes::pixel_target cell{100, 24};
    fakes::sheet images{2, 2, 100, 24};
    for (unsigned row = 0; row < 2; ++row) {
        r = entry("Quay");
        r->set_icon(square({16, 16}, 0xFF4080C0).get());
        if (row == 1) r->set_state_icon(square({12, 16}, 0xFFE0A030).get());
        shown->set_root(r.get());
        r->set_expanded(false);
        const auto image = r->create_drag_image();
        image->set_transform(scene::translation_matrix(8, 3));
        for (unsigned column = 0; column < 2; ++column) {
            const auto ground = scene::create_node();
            fill(ground, {0, 0, 100, 24},
                 column == 0 ? _D3DCOLORVALUE{0.95f, 0.95f, 0.9f, 1} : _D3DCOLORVALUE{0.1f, 0.15f, 0.3f, 1});
            root->add_child(ground);
            root->add_child(image);
            images.put(column, row, picture_on(cell));
            root->remove_child(image);
            root->remove_child(ground);
        }
    }
    EXPECT_TRUE(test_support::matches_golden(images.image(), "tree/drag_images", allowed));
}

}  // namespace
}  // namespace d2d::ui::tree
