#pragma once

#include "controls/testing/press_test.h"
#include "portable/testing/stub_element.h"
#include "ui/mossHarbour/ICheckBoxControl.h"
#include "ui/mossHarbour/ID2DScenePanel.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/IGroupBoxControl.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IOptionControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IRadioButtonControl.h"
#include "ui/mossHarbour/IStackLayout.h"
#include "ui/mossHarbour/d2d_measure_context.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ui::mossHarbour::stubs {

/// A fixture: a panel whose node is shown by a view.
class scene_form : public d2d::fakes::press_test {
protected:
    static constexpr const char* not_materialized =
        "An operation was attempted on a control that has not been materialized";

    void SetUp() override {
        press_test::SetUp();
        panel = create_d2d_scene_node_panel(nullptr);
        root->add_child(panel->get_node());
    }
    void TearDown() override {
        panel->set_content(nullptr);
        EXPECT_TRUE(nodes_below(panel->get_node()).empty());
        root->remove_child(panel->get_node());
        panel.reset();
        made.clear();
        press_test::TearDown();
    }

    stub_element& make_stub(const element_metrics& said) {
        made.push_back(com::create_object<stub_element>(said));
        return *made.back();
    }
    [[nodiscard]] static com::ptr<IElement> element_of(stub_element& stub) {
        return com::ptr<IElement>(static_cast<IElement*>(&stub));
    }
    [[nodiscard]] static com::ptr<IStackLayout> stacked(const std::vector<com::ptr<IElement>>& elements,
                                                        const stack_item_details& details = {}) {
        auto stack = create_stack_layout(orientation::vertical);
        for (const auto& element : elements) stack->add_item(details, element);
        return stack;
    }
    /// An item of this size, whatever its element says.
    [[nodiscard]] static stack_item_details fixed(int width, int height) {
        stack_item_details details;
        details.min_width = details.max_width = details.preferred_width = width;
        details.min_height = details.max_height = details.preferred_height = height;
        return details;
    }
    /// Shows rows of 100 by 20 pixels from (0, 0) on.
    void show_rows(const std::vector<com::ptr<IElement>>& elements) {
        panel->set_content(stacked(elements, fixed(100, 20)));
        arrange();
    }
    /// Gives the content the size that it prefers.
    element_metrics arrange() {
        const auto measured = panel->measure();
        panel->arrange(0, 0, measured.preferred_width, measured.preferred_height);
        return measured;
    }
    void press_row(int row) { press_at({8, static_cast<float>(row * 20 + 10)}); }

    [[nodiscard]] static const std::vector<com::ptr<d2d::scene::node>>& nodes_below(
        const com::ptr<d2d::scene::INode>& node) {
        return inside(node).children;
    }

    com::ptr<ID2DScenePanel> panel;
    std::vector<com::ptr<stub_element>> made;
};

}  // namespace ui::mossHarbour::stubs
