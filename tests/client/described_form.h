#pragma once

#include "ui/mossHarbour/ICheckBoxControl.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IGroupBoxControl.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IRadioButtonControl.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <functional>
#include <string>
#include <vector>

#include <windows.h>

namespace client_test {

/// A form as a program describes it, once for all forms of its controls: rows of a fixed size, one control in
/// each, which stand at the same places everywhere. Nothing in it knows where it is shown.
class described_form {
public:
    using panel_check = std::function<void(ui::mossHarbour::IPanel*)>;

    /// `told` is called with the panel of each event.
    explicit described_form(panel_check told);
    described_form(const described_form&) = delete;
    described_form& operator=(const described_form&) = delete;

    [[nodiscard]] com::ptr<ui::mossHarbour::ILayout> layout() const;
    /// What a program does once the controls are there.
    void set_texts() const;

    [[nodiscard]] std::wstring edited() const;
    /// The marks of the boxes and of the radio buttons, "x" or "-" for each, in their order.
    [[nodiscard]] std::string marks() const;

    const com::ptr<ui::mossHarbour::ILabelControl> label;
    const com::ptr<ui::mossHarbour::IEditControl> edit;
    const com::ptr<ui::mossHarbour::ICheckBoxControl> box;
    const com::ptr<ui::mossHarbour::IRadioButtonControl> first;
    const com::ptr<ui::mossHarbour::IRadioButtonControl> second;
    const com::ptr<ui::mossHarbour::IPushButtonControl> button;
    const com::ptr<ui::mossHarbour::IGroupBoxControl> group;
    const com::ptr<ui::mossHarbour::ICheckBoxControl> inner;  // in the group box

    /// What has happened so far.
    std::vector<std::string> events;

    static constexpr int padding = 10;
    static constexpr SIZE row{120, 24};
    static constexpr SIZE group_row{130, 40};
    /// The whole content with the padding.
    static constexpr SIZE size{group_row.cx + 2 * padding, 6 * row.cy + group_row.cy + 2 * padding};

    // Places for the mouse, two of each far enough from each other to make no double click.
    static constexpr POINT in_edit{70, 46};
    static constexpr POINT in_box{16, 66};
    static constexpr POINT beside_in_box{20, 74};
    static constexpr POINT in_first{18, 94};
    static constexpr POINT in_second{18, 118};
    static constexpr POINT in_button{70, 142};
    static constexpr POINT beside_in_button{90, 138};
    static constexpr POINT in_inner{23, 174};
    static constexpr POINT on_label{70, 22};

private:
    void note(ui::mossHarbour::IPanel* in, std::string event);

    panel_check check;
};

}  // namespace client_test
