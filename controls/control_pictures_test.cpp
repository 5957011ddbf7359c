// The pixels of each control in each of its states, one sheet for a control.

#include "controls/testing/button_look_test.h"
#include "controls/testing/sheet.h"
#include "d2d/ui/ICommandStrip.h"
#include "d2d/ui/IGroupBox.h"
#include "d2d/ui/IIconLabel.h"
#include "scene/testing/pixel_target.h"
#include "support/golden.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::sheet;
using scene::translation_matrix;
using test_support::matches_golden;

/// Controls in the default style, painted on a bitmap of one cell.
class control_pictures : public fakes::button_look_test {
protected:
    static constexpr unsigned width = 88;
    static constexpr unsigned height = 30;

    void SetUp() override {
        button_look_test::SetUp();
        edge->detach_render_target(&target);
        edge->attach_render_target(real.get());
    }
    void TearDown() override {
        edge->detach_render_target(real.get());
        button_look_test::TearDown();
    }

    [[nodiscard]] test_support::picture paint() const {
        real.paint(*edge.get());
        return real.picture();
    }
    void show_in_cell(const fakes::button_kind& wanted, const wchar_t* caption) {
        if (button) root->remove_child(node());
        text = ui::create_text_label(caption, nullptr, nullptr);
        button = wanted.make(text.get(), {}, nullptr);
        const auto size = button->measure().preferred_size;
        const float top = (static_cast<float>(height) - size.height) / 2;
        button->arrange({4, std::floor(top), 4 + size.width, std::floor(top) + size.height});
        root->add_child(node());
    }
    /// Rows: enabled, with the focus, disabled; each once more when checked. Columns: idle, hot, down.
    [[nodiscard]] sheet states_of(const fakes::button_kind& wanted, const wchar_t* caption) {
        sheet states(3, wanted.latches ? 6 : 3, width, height);
        unsigned row = 0;
        for (const bool checked : {false, true}) {
            if (checked && !wanted.latches) break;
            for (unsigned kind_of_row = 0; kind_of_row < 3; ++kind_of_row, ++row) {
                for (unsigned column = 0; column < 3; ++column) {
                    const bool enabled = kind_of_row < 2;
                    if (!enabled && column == 2) continue;  // cannot be pressed
                    show_in_cell(wanted, caption);
                    const look shown{enabled, column > 0, column == 2, checked, kind_of_row == 1, true};
                    bring_into_cell(shown, [&] { states.put(column, row, paint()); });
                }
            }
        }
        return states;
    }
    void bring_into_cell(const look& wanted, const std::function<void()>& action) {
        const D2D_RECT_F place = button->get_rect();
        const float half = (place.bottom - place.top) / 2;
        bring_into(wanted, {place.left + half, place.top + half}, {width - 1, height - 1}, action);
    }

    scene::fakes::pixel_target real{width, height};
};

TEST_F(control_pictures, of_a_push_button) {
    EXPECT_TRUE(matches_golden(states_of(fakes::push_kind, L"Harbour").image(), "controls/push_button"));
}
TEST_F(control_pictures, of_a_latching_push_button) {
    EXPECT_TRUE(
        matches_golden(states_of(fakes::latching_kind, L"Harbour").image(), "controls/latching_push_button"));
}
TEST_F(control_pictures, of_a_check_box) {
    EXPECT_TRUE(matches_golden(states_of(fakes::check_box_kind, L"Anchor").image(), "controls/check_box"));
}
TEST_F(control_pictures, of_a_radio_button) {
    EXPECT_TRUE(
        matches_golden(states_of(fakes::radio_button_kind, L"Anchor").image(), "controls/radio_button"));
}

com::ptr<ID2D1Geometry> sail() {
    return factory::parse_svg_path("M-8 7L0-9L8 7z", scene::identity_matrix);
}

TEST_F(control_pictures, of_labels) {
    sheet labels(3, 3, width, height);
    unsigned count = 0;
    const auto show_label = [&](ui::ILabel& shown, D2D_POINT_2F place) {
        shown.get_node()->set_transform(translation_matrix(place.x, place.y));
        root->add_child(shown.get_node());
        labels.put(count % 3, count / 3, paint());
        ++count;
        root->remove_child(shown.get_node());
    };
    constexpr D2D_POINT_2F middle{width / 2.0f, height / 2.0f};
    const auto large =
        scene::ITextFormat::get(L"Sans Serif", DWRITE_FONT_WEIGHT_BOLD, DWRITE_FONT_STYLE_ITALIC, 18);
    const auto plain = ui::create_text_label(L"Harbour", nullptr, nullptr);
    const auto lines_of_text = ui::create_text_label(L"two\nlines", nullptr, nullptr);
    const auto formatted = ui::create_text_label(L"Harbour", large.get(), nullptr);
    const auto umlauts = ui::create_text_label("\xC3\x84gypten \xCE\xA9", nullptr, nullptr);
    const auto arranged = ui::create_text_label(L"Harbour", nullptr, nullptr);
    const auto icon = ui::create_icon_label(sail().get(), nullptr);
    show_label(*plain, middle);
    show_label(*lines_of_text, middle);
    show_label(*formatted, middle);
    show_label(*umlauts, middle);
    arranged->arrange({2, 3, 60, 20});
    show_label(*arranged, {0, 0});
    plain->set_brush(scene::create_solid_color_brush({0.2f, 0.5f, 0.2f, 1}));
    show_label(*plain, middle);
    show_label(*icon, middle);
    icon->set_brush(scene::create_solid_color_brush({0.7f, 0.2f, 0.1f, 0.5f}));
    show_label(*icon, middle);
    EXPECT_TRUE(matches_golden(labels.image(), "controls/labels"));
}

TEST_F(control_pictures, of_a_group_box) {
    sheet boxes(2, 2, width, height);
    const auto caption = ui::create_text_label(L"hidden", nullptr, nullptr);
    const auto box = ui::create_group_box(caption.get(), {2, 2, 86, 28}, nullptr);
    root->add_child(box->get_node());
    boxes.put(0, 0, paint());
    const auto content = scene::create_node();
    fill(content, {0, 0, 20, 10}, {0.2f, 0.5f, 0.2f, 1});
    box->set_content(content);
    boxes.put(1, 0, paint());
    const D2D_SIZE_F size = box->measure().preferred_size;
    box->arrange({10, 4, 10 + size.width, 4 + size.height});
    boxes.put(0, 1, paint());
    box->arrange({60, 1, 62, 3});
    boxes.put(1, 1, paint());
    root->remove_child(box->get_node());
    EXPECT_TRUE(matches_golden(boxes.image(), "controls/group_box"));
}

TEST_F(control_pictures, of_a_command_strip) {
    sheet strips(3, 4, width, height);
    unsigned row = 0;
    for (const bool vertical : {false, true}) {
        const D2D_SIZE_F cell = vertical ? D2D_SIZE_F{80, 9} : D2D_SIZE_F{26, 26};
        std::vector<com::ptr<ui::IIconLabel>> icons;
        for (int i = 0; i < 3; ++i) icons.push_back(ui::create_icon_label(sail().get(), nullptr));
        const auto strip = ui::create_command_strip(
            vertical, cell, {{nullptr, icons[0].get()}, {nullptr, icons[1].get()}, {nullptr, icons[2].get()}},
            nullptr);
        if (vertical) {
            for (const auto& icon : icons)
                icon->set_geometry(factory::create_rectangle_geometry({-3, -2, 3, 2}).get());
        }
        strip->get_node()->set_transform(translation_matrix(2, 2));
        root->add_child(strip->get_node());
        const auto middle_of = [&](unsigned i) {
            const auto index = static_cast<float>(i);
            return D2D_POINT_2F{2 + (vertical ? 10 : 26 * index + 5), 2 + (vertical ? 9 * index + 4.5f : 20)};
        };
        move(87, 29);
        strips.put(0, row, paint());
        for (unsigned i = 0; i < 2; ++i) {  // hot
            move_to(middle_of(i));
            strips.put(i + 1, row, paint());
        }
        ++row;
        for (unsigned i = 0; i < 3; ++i) {  // down
            move_to(middle_of(i));
            while_pressed([&](const auto&) { strips.put(i, row, paint()); });
            press_at(middle_of(i));
        }
        ++row;
        root->remove_child(strip->get_node());
    }
    EXPECT_TRUE(matches_golden(strips.image(), "controls/command_strip"));
}

}  // namespace
}  // namespace d2d
