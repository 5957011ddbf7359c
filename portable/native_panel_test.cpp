// The window that native controls stand in.

#include "portable/panel_class.h"
#include "portable/testing/native_panel_fixture.h"
#include "portable/toolkit_font.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "win32/module.h"

namespace ui::mossHarbour {
namespace {

class native_panel : public native_panel_fixture {};

TEST_F(native_panel, has_a_window_class_of_its_own_from_the_start) {
    WNDCLASSEXW found{};
    found.cbSize = sizeof found;
    ASSERT_TRUE(GetClassInfoExW(win32::library_module(), L"mossHarbour_panel", &found));
    EXPECT_EQ(found.style, UINT{CS_VREDRAW | CS_HREDRAW});
    EXPECT_EQ(found.cbWndExtra, DLGWINDOWEXTRA);
    EXPECT_EQ(found.cbClsExtra, 0);
    EXPECT_EQ(found.hbrBackground, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    EXPECT_EQ(found.hCursor, nullptr);
    EXPECT_EQ(found.hIcon, nullptr);
    EXPECT_EQ(GetClassLongPtrW(create_window(), GCW_ATOM), panel_class.atom());
}

TEST_F(native_panel, presses_reach_the_handler_with_the_panel) {
    const auto button = create_push_button_control();
    const auto windows = show({create_label_control(), button});
    ASSERT_EQ(windows.size(), 2u);
    std::vector<IPanel*> clicked;
    button->set_on_click([&](IPanel* in) { clicked.push_back(in); });
    SendMessageW(panel->get_window_handle(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                 reinterpret_cast<LPARAM>(windows[1]));
    EXPECT_THAT(clicked, testing::ElementsAre(panel.get()));
}

}  // namespace
}  // namespace ui::mossHarbour
