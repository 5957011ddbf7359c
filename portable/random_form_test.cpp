// Forms in random use: panels that exchange their layouts, some of which cannot be shown, and operations on
// whatever control, against a model that knows which controls are alive and what they hold.

#include "portable/testing/scene_form.h"
#include "support/random_seed.h"

#include <algorithm>
#include <iostream>
#include <random>
#include <stdexcept>

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;
using testing::ThrowsMessage;

/// What the model knows of a layout: its controls, and whether it can be shown.
struct known_layout {
    com::ptr<ILayout> layout;
    com::ptr<ICheckBoxControl> box = create_check_box_control();
    com::ptr<IEditControl> edit = create_edit_control();
    com::ptr<IRadioButtonControl> radio = create_radio_button_control(true);
    com::ptr<IGroupBoxControl> group = create_group_box_control();
    com::ptr<ILayout> inner;  // of the group box
    bool is_failing = false;

    int shown_in = -1;  // the panel, or none
    bool box_checked = false;
    bool radio_checked = false;
    std::wstring text;

    [[nodiscard]] bool is_alive() const noexcept { return shown_in >= 0; }
};

class random_forms : public scene_form {
protected:
    static constexpr const char* already_materialized =
        "An operation was attempted on a control that has already been materialized";

    void SetUp() override {
        scene_form::SetUp();
        const auto seed = test_support::random_seed();
        std::cout << "seed " << seed << std::endl;
        random.seed(seed);
        for (auto& place : places) {
            place.panel = create_d2d_scene_node_panel(nullptr);
            root->add_child(place.panel->get_node());
        }
        for (int i = 0; i < 6; ++i) layouts.push_back(make_layout(i >= 4));
    }
    void TearDown() override {
        for (auto& place : places) {
            place.panel->set_content(nullptr);
            root->remove_child(place.panel->get_node());
            place.panel.reset();
        }
        layouts.clear();
        scene_form::TearDown();
    }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    /// A stack or a grid of a check box, an edit and a group box around a radio button, in any order.
    known_layout make_layout(bool is_failing) {
        known_layout made_layout;
        made_layout.is_failing = is_failing;
        made_layout.inner = stacked({made_layout.radio});
        made_layout.group->set_content(made_layout.inner);
        std::vector<com::ptr<IElement>> elements{made_layout.box, made_layout.edit, made_layout.group};
        if (is_failing) elements.push_back(create_option_control());
        std::shuffle(elements.begin(), elements.end(), random);
        if (below(2)) {
            made_layout.layout = stacked(elements);
        } else {
            const auto grid = create_grid_layout();
            grid_item_details details;
            for (const auto& element : elements) {
                details.row = below(3);
                details.column = below(3);
                grid->add_item(details, element);
            }
            made_layout.layout = grid;
        }
        return made_layout;
    }

    known_layout& any_layout() {
        return layouts[static_cast<std::size_t>(below(static_cast<int>(layouts.size())))];
    }

    /// A layout that no panel has, or nothing, for one of the panels.
    void exchange_content() {
        const int index = below(2);
        auto& place = places[static_cast<std::size_t>(index)];
        known_layout* next = &any_layout();
        if (below(4) == 0 || next == places[static_cast<std::size_t>(1 - index)].content) next = nullptr;
        known_layout* const former = place.content;
        const auto exchange = [&] {
            const auto given_back = place.panel->set_content(next ? next->layout : nullptr);
            EXPECT_TRUE(given_back == (former ? former->layout : nullptr));
        };
        if (former) former->shown_in = -1;
        place.content = next;
        if (next && next->is_failing) {
            EXPECT_THROW(exchange(), std::runtime_error);
        } else {
            exchange();
        }
        if (next && !next->is_failing) {
            next->shown_in = index;
            next->box_checked = next->radio_checked = false;
            next->text.clear();
        }
    }

    /// Throws without a form, does its work with one.
    template <class Operation>
    void use(const known_layout& used, const char* refusal, bool is_allowed, Operation&& operation) {
        if (is_allowed) {
            operation();
        } else {
            EXPECT_THAT(operation, ThrowsMessage<std::logic_error>(refusal)) << used.shown_in;
        }
    }

    void use_controls(known_layout& used) {
        const bool on = below(2) == 0;
        const std::wstring text(static_cast<std::size_t>(below(12)), static_cast<wchar_t>(L'a' + below(26)));
        const auto live = [&](auto&& operation) { use(used, not_materialized, used.is_alive(), operation); };
        const auto description = [&](auto&& operation) {
            use(used, already_materialized, !used.is_alive(), operation);
        };
        switch (below(6)) {
            case 0:
                live([&] {
                    used.box->set_checked(on);
                    used.box_checked = on;
                });
                break;
            case 1:
                live([&] {
                    used.radio->set_checked(on);
                    used.radio_checked = on;
                });
                break;
            case 2:
                live([&] {
                    used.edit->set_text(text.c_str());
                    used.text = text;
                });
                break;
            case 3:
                live([&] { used.group->set_text(text.c_str()); });
                break;
            case 4:
                description([&] { used.group->set_padding(below(9), below(9), below(9), below(9)); });
                break;
            default:
                description([&] { EXPECT_TRUE(used.group->set_content(used.inner) == used.inner); });
                break;
        }
    }

    void lay_out(known_layout& used) {
        if (!used.is_alive()) return;
        auto& panel_of = *places[static_cast<std::size_t>(used.shown_in)].panel;
        const auto measured = panel_of.measure();
        EXPECT_GT(measured.min_width, 0);
        EXPECT_GE(measured.preferred_height, measured.min_height);
        panel_of.arrange(below(50), below(50), 50 + below(300), 50 + below(300));
    }

    void expect_state(const known_layout& expected) {
        if (!expected.is_alive()) {
            EXPECT_THROW(static_cast<void>(expected.box->is_checked()), std::logic_error);
            EXPECT_THROW(static_cast<void>(expected.radio->is_checked()), std::logic_error);
            return;
        }
        EXPECT_EQ(expected.box->is_checked(), expected.box_checked);
        EXPECT_EQ(expected.radio->is_checked(), expected.radio_checked);
        wchar_t text[16];
        expected.edit->get_text(text, 16);
        EXPECT_EQ(text, expected.text);
    }

    struct place_of_content {
        com::ptr<ID2DScenePanel> panel;
        known_layout* content = nullptr;
    };
    place_of_content places[2];
    std::vector<known_layout> layouts;
    std::mt19937 random;
};

TEST_F(random_forms, are_as_a_plain_model_has_them) {
    for (int step = 0; step < 1'500 && !HasFailure(); ++step) {
        switch (below(5)) {
            case 0:
                exchange_content();
                break;
            case 1:
                lay_out(any_layout());
                break;
            default:
                use_controls(any_layout());
                break;
        }
        for (const auto& each : layouts) expect_state(each);
        for (const auto& place : places) {
            const bool shows = place.content && place.content->is_alive();
            EXPECT_EQ(nodes_below(place.panel->get_node()).size(), shows ? 3u : 0u);
        }
        if (HasFailure()) std::cout << "in step " << step << std::endl;
    }
}

}  // namespace
