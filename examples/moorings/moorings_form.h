#pragma once

#include "mooring.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IListViewControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <map>

namespace harbour {

/// The list with its buttons, and a line that tells what it holds.
class moorings_form {
public:
    moorings_form();
    moorings_form(const moorings_form&) = delete;
    moorings_form& operator=(const moorings_form&) = delete;

    [[nodiscard]] com::ptr<ui::mossHarbour::ILayout> layout() const { return outer; }

    /// While it is shown: what stands on the screen is filled anew each time.
    void show();

private:
    void show_row(LPARAM key) const;
    [[nodiscard]] int row_of(LPARAM key) const;
    void remove_selected();
    void sort(mooring_field by) const;
    void tell_sum() const;
    [[nodiscard]] com::ptr<ui::mossHarbour::IListViewControl::ICellEditor> edit(int row, int column);

    com::ptr<ui::mossHarbour::IListViewControl> list = ui::mossHarbour::create_list_view_control();
    com::ptr<ui::mossHarbour::IPushButtonControl> add_button = ui::mossHarbour::create_push_button_control();
    com::ptr<ui::mossHarbour::IPushButtonControl> remove_button =
        ui::mossHarbour::create_push_button_control();
    com::ptr<ui::mossHarbour::ILabelControl> line = ui::mossHarbour::create_label_control();
    com::ptr<ui::mossHarbour::IStackLayout> outer;

    // Rows change their numbers as they are sorted. Their data does not: it is the key here.
    std::map<LPARAM, mooring> moorings{{1, {L"Pier 2", L"Seute Deern", 3}},
                                       {2, {L"Fish quay", L"Hai", 1}},
                                       {3, {L"Pier 1", L"Undine", 12}},
                                       {4, {L"Old crane", L"Ariadne", 5}}};
    LPARAM next_key = 5;
};

}  // namespace harbour
