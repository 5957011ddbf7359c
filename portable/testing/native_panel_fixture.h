#pragma once

#include "portable/control_window.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <initializer_list>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ui::mossHarbour {

/// Elements beneath each other, as they are.
[[nodiscard]] inline com::ptr<IStackLayout> stack_of(std::initializer_list<com::ptr<IElement>> elements) {
    auto stack = create_stack_layout(orientation::vertical);
    for (const auto& element : elements) stack->add_item(stack_item_details(), element);
    return stack;
}

/// The child windows of a window, in the order in which they were created.
[[nodiscard]] inline std::vector<HWND> children_of(HWND parent) {
    std::vector<HWND> result;
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        result.push_back(child);
    }
    return result;
}

/// A native panel, with a window that is not shown.
class native_panel_fixture : public test_support::leak_checked_test {
protected:
    void SetUp() override {
        leak_checked_test::SetUp();
        panel = create_win32_hwnd_panel(nullptr);
    }
    void TearDown() override {
        if (panel) panel->destroy_window();
        if (panel) panel->set_content(nullptr);
        panel.reset();
        leak_checked_test::TearDown();
    }

    HWND create_window() { return panel->create_window(0, L"native", WS_OVERLAPPEDWINDOW, nullptr); }

    /// Shows the elements; the handles of their windows.
    std::vector<HWND> show(std::initializer_list<com::ptr<IElement>> elements) {
        panel->set_content(stack_of(elements));
        if (!panel->get_window_handle()) create_window();
        return children_of(panel->get_window_handle());
    }

    /// Puts the window on the screen as large as it wants to be, in front of all others.
    void present() {
        panel->measure();
        const SIZE size = panel->get_window_sizes().preferred;
        MoveWindow(panel->get_window_handle(), 100, 100, size.cx, size.cy, FALSE);
        test_support::bring_to_front(panel->get_window_handle());
    }

    com::ptr<IHwndPanel> panel;
};

}  // namespace ui::mossHarbour
