#pragma once

#include "d2d/factory.h"
#include "portable/testing/stub_element.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <optional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ui::mossHarbour::stubs {

/// A fixture: a panel on the scene that gets a window of its own, where the mouse is not.
class panel_window : public test_support::leak_checked_test {
protected:
    // Kept throughout, with what the platform makes once.
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }

    void SetUp() override {
        leak_checked_test::SetUp();
        panel = create_d2d_hwnd_panel(nullptr);
    }
    void TearDown() override {
        if (panel) {
            panel->set_content(nullptr);
            panel->destroy_window();
        }
        panel.reset();
        made.clear();
        leak_checked_test::TearDown();
    }

    void open(DWORD style = WS_POPUP, DWORD ex_style = 0) {
        panel->create_window(ex_style, L"panel", style, nullptr);
    }
    [[nodiscard]] HWND handle() const { return panel->get_window_handle(); }

    /// Measures the content and gives the window the size that it prefers.
    void fit() const {
        static_cast<void>(panel->measure());
        const SIZE size = panel->get_window_sizes().preferred;
        SetWindowPos(handle(), nullptr, 60, 60, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void resize(int width, int height) const {
        SetWindowPos(handle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    stub_element& make_stub(const element_metrics& said) {
        made.push_back(com::create_object<stub_element>(said));
        return *made.back();
    }
    [[nodiscard]] static com::ptr<ILayout> stacked(const com::ptr<IElement>& element) {
        const auto stack = create_stack_layout(orientation::vertical);
        stack->add_item({}, element);
        return stack;
    }
    [[nodiscard]] static com::ptr<ILayout> stacked(stub_element& element) {
        return stacked(com::ptr<IElement>(static_cast<IElement*>(&element)));
    }

    static inline std::optional<d2d::factory> token;
    com::ptr<IHwndPanel> panel;
    std::vector<com::ptr<stub_element>> made;
};

}  // namespace ui::mossHarbour::stubs
