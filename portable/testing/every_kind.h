#pragma once

#include "ui/mossHarbour/ICheckBoxControl.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IGroupBoxControl.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IListViewControl.h"
#include "ui/mossHarbour/IOptionControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IRadioButtonControl.h"

#include <string>
#include <vector>

#include <windows.h>

namespace ui::mossHarbour {

/// A control that is not shown yet, and the window that it becomes among native ones.
struct kind_case {
    com::ptr<IElement> element;
    std::wstring class_name;
    DWORD style;
    DWORD ex_style;
};

[[nodiscard]] inline std::vector<kind_case> every_kind() {
    return {{create_label_control(), L"STATIC", 0x50000000, 0},
            {create_edit_control(), L"EDIT", 0x50010080, 0x200},
            {create_option_control(), L"COMBOBOX", 0x50010003, 0x200},
            {create_check_box_control(), L"BUTTON", 0x50010003, 0},
            {create_push_button_control(), L"BUTTON", 0x50010000, 0},
            {create_radio_button_control(true), L"BUTTON", 0x50020009, 0},
            {create_radio_button_control(false), L"BUTTON", 0x50000009, 0},
            {create_group_box_control(), L"Button", 0x52000007, 0x10000},
            {create_list_view_control(), L"SysListView32", 0x52010009, 0x200}};
}

}  // namespace ui::mossHarbour
