#pragma once

#include "choice.h"
#include "ui/mossHarbour/ICheckBoxControl.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/IGroupBoxControl.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IStackLayout.h"
#include "values.h"

#include <functional>
#include <string>
#include <vector>

namespace harbour {

/// The form, described once. It does not know what shows it.
class settings_form {
public:
    settings_form();

    [[nodiscard]] com::ptr<ui::mossHarbour::ILayout> layout() const { return outer; }

    // While it is shown.
    void show(const values& shown);
    [[nodiscard]] values read() const;

    /// The text of the next port's field alone.
    void show_next_port(const wchar_t* name);

    std::function<void()> on_open;
    std::function<void()> on_save_as;
    std::function<void()> on_ports;
    std::function<void()> on_save;
    std::function<void()> on_cancel;

private:
    /// A field with a caption on its left.
    struct field {
        std::wstring values::*value;
        const wchar_t* caption;
        com::ptr<ui::mossHarbour::ILabelControl> label = ui::mossHarbour::create_label_control();
        com::ptr<ui::mossHarbour::IEditControl> edit = ui::mossHarbour::create_edit_control();
    };
    struct option {
        bool values::*value;
        const wchar_t* caption;
        com::ptr<ui::mossHarbour::ICheckBoxControl> box = ui::mossHarbour::create_check_box_control();
    };
    struct command {
        std::function<void()> settings_form::*handler;
        const wchar_t* caption;
        com::ptr<ui::mossHarbour::IPushButtonControl> button = ui::mossHarbour::create_push_button_control();
    };

    [[nodiscard]] com::ptr<ui::mossHarbour::ILayout> make_fields() const;
    [[nodiscard]] com::ptr<ui::mossHarbour::ILayout> make_options() const;
    [[nodiscard]] com::ptr<ui::mossHarbour::ILayout> make_groups() const;
    [[nodiscard]] com::ptr<ui::mossHarbour::ILayout> make_buttons();

    com::ptr<ui::mossHarbour::ILabelControl> heading = ui::mossHarbour::create_label_control();
    std::vector<field> fields;
    std::vector<option> options;
    choice units{{L"Metres and kilometres", L"Feet and miles"}};
    choice watch{{L"Four hours", L"Six hours", L"Dog watches"}};
    std::vector<command> commands;
    com::ptr<ui::mossHarbour::IStackLayout> outer;
};

}  // namespace harbour
