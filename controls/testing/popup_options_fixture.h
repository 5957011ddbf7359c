#pragma once

#include "controls/testing/fake_floating_service.h"
#include "controls/testing/fake_label.h"
#include "controls/testing/recording_popup_style.h"
#include "d2d/ui/IPopupOptions.h"
#include "scene/testing/input_test.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace d2d::fakes {

/// A fixture: popup options with the ids 1, 2 and 3 in a scene that can float nodes, with a style that writes
/// down what it is asked. Labels are small: 10 by 6 around their origins.
class popup_options_fixture : public scene::fakes::input_test {
protected:
    static constexpr D2D_RECT_F rect{10, 20, 70, 40};
    static constexpr D2D_POINT_2F beside_label{20, 30};
    static constexpr D2D_POINT_2F on_label{40, 30};
    static constexpr D2D_POINT_2F outside{90, 90};

    void SetUp() override {
        input_test::SetUp();
        site.offer(com::guid_of<scene::IFloatingNode::IService>(), &service);
        style = com::create_object<recording_popup_style>(host_log());
        for (int i = 0; i < 3; ++i) {
            labels.push_back(com::create_object<fake_label>());
            record(labels.back()->node, {-5, -3, 5, 3});
        }
        popup = ui::create_popup_options(rect, {{1, labels[0]}, {2, labels[1]}, {3, labels[2]}}, style.get());
        root->add_child(popup->get_node());
        show();
        edge->on_focus_gained();
    }
    void TearDown() override {
        popup.reset();
        labels.clear();
        style.reset();
        input_test::TearDown();
        EXPECT_FALSE(service.floated) << "something floats still";
    }

    [[nodiscard]] com::ptr<scene::INode> node() const { return popup->get_node(); }
    [[nodiscard]] bool is_open() const { return static_cast<bool>(service.floated); }

    void press_at(D2D_POINT_2F point, input::mouse::button button = input::mouse::button::left) {
        edge->on_mouse_event({input::mouse::event_type::button_down, button, 0, point, 0});
    }
    void open() {
        press_at(beside_label);
        ASSERT_TRUE(is_open());
        service.floated->on_focus_gained();
        forget();
    }
    /// In the list: the middle of a row, beside its label. Row 3 is below the last.
    [[nodiscard]] static D2D_POINT_2F on_row(int row) { return {20, 30 + 18 * static_cast<float>(row)}; }
    void list_mouse(std::int32_t type, D2D_POINT_2F point) const {
        service.floated->on_mouse_event({type, std::nullopt, 0, point, 0});
    }
    /// Presses in the list, and runs `drag` in the loop that this starts.
    void press_in_list(D2D_POINT_2F point,
                       const std::function<void(const scene::INode::drag_function&)>& drag,
                       input::mouse::button button = input::mouse::button::left) {
        const com::ptr<scene::view> kept = service.floated;
        service.site.drag = [&](const auto& moved) {
            if (drag) drag(moved);
            return true;
        };
        kept->on_mouse_event({input::mouse::event_type::button_down, button, 0, point, 0});
        service.site.drag = nullptr;
    }
    /// A press on a row that ends there.
    void choose(int row) { press_in_list(on_row(row), nullptr); }

    /// Says "change 2" or "change none".
    [[nodiscard]] std::function<void(std::optional<int>)> change_log() {
        return [this](std::optional<int> id) {
            static_cast<void>(say("change " + (id ? std::to_string(*id) : "none")));
        };
    }
    /// What was drawn and told since the last time; what the host and brushes are asked is left out.
    [[nodiscard]] std::string drawn() {
        std::string text;
        for (const auto& line : calls()) {
            if (line.starts_with("frame ") || line.starts_with("option ") || line.starts_with("change "))
                text += (text.empty() ? "" : ", ") + line;
        }
        return text;
    }
    /// Whether a label is the control's, at a place.
    [[nodiscard]] testing::AssertionResult shows(std::size_t label, D2D_POINT_2F centre) const {
        const auto& of_label = labels[label]->node;
        if (of_label->get_parent() != node()) return testing::AssertionFailure() << "not in the control";
        return scene::fakes::same(scene::translation_matrix(centre.x, centre.y), of_label->get_transform());
    }
    [[nodiscard]] bool shows_nothing() const {
        for (const auto& label : labels) {
            if (label->node->get_parent()) return false;
        }
        return true;
    }

    fake_floating_service service;
    com::ptr<recording_popup_style> style;
    std::vector<com::ptr<fake_label>> labels;
    com::ptr<ui::IPopupOptions> popup;
};

}  // namespace d2d::fakes
