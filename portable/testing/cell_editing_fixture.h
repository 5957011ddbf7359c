#pragma once

#include "com/object.h"
#include "portable/IHwndCellEditor.h"
#include "portable/testing/list_fixture.h"
#include "ui/mossHarbour/IPushButtonControl.h"

#include <functional>
#include <optional>
#include <set>

namespace ui::mossHarbour {

/// A list of two columns and three rows whose cells can be edited, above a button.
class cell_editing_fixture : public list_fixture {
protected:
    void SetUp() override {
        list_fixture::SetUp();
        button = create_push_button_control();
        show_list_and_button();
        add_columns({L"a", L"b"});
        for (const auto& texts : {std::vector{L"a0", L"b0"}, {L"a1", L"b1"}, {L"a2", L"b2"}}) add_row(texts);
        list->set_cell_editor_source([this](int row, int column) { return editor_of(row, column); });
        list->set_on_edit_finished([this](IPanel* in, int row, int second, bool committed) {
            EXPECT_EQ(in, panel.get());
            EXPECT_EQ(second, row);
            events.push_back((committed ? "kept " : "left ") + std::to_string(row));
            if (on_finished) on_finished(row);
        });
    }
    void TearDown() override {
        if (panel) {
            panel->destroy_window();
            panel->set_content(nullptr);
        }
        button.reset();
        list_fixture::TearDown();
    }

    void show_list_and_button() {
        stack_item_details details;
        details.min_width = details.preferred_width = 300;
        details.min_height = details.preferred_height = details.max_height = 150;
        const auto content = create_stack_layout(orientation::vertical);
        content->add_item(details, list);
        content->add_item({}, button);
        panel->set_content(content);
        if (!panel->get_window_handle()) create_window();
        const auto windows = children_of(panel->get_window_handle());
        window = windows[0];
        button_window = windows[1];
        button->set_text(L"Button");
    }

    [[nodiscard]] static std::string name_of(int row, int column) {
        return std::to_string(row) + "." + std::to_string(column);
    }

    com::ptr<IListViewControl::ICellEditor> editor_of(int row, int column) {
        events.push_back("asked " + name_of(row, column));
        if (on_asked) on_asked();
        if (fixed_cells.contains(name_of(row, column))) return nullptr;
        return list->create_text_editor(
            [this, row, column](wchar_t* buffer, std::size_t capacity) {
                if (on_read) on_read();
                cell_text(row, column).copy(buffer, capacity - 1);
            },
            [this, row, column](const wchar_t* text) { return take(row, column, text); });
    }

    bool take(int row, int column, const wchar_t* text) {
        const bool refused = refused_texts.contains(text);
        std::string narrow;
        for (const wchar_t* unit = text; *unit; ++unit) narrow += static_cast<char>(*unit);
        events.push_back((refused ? "refused " : "took ") + narrow);
        if (on_taken) on_taken();
        if (!refused && IsWindow(window)) list->set_cell_text(row, column, text);
        return !refused;
    }

    /// Presses the left button on a cell, and returns when its editing is over. Post what ends it ahead.
    void press_cell(int row, int column) {
        const POINT point = point_in(row, column);
        ask(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }
    void post_key(int key) const { PostMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 0); }
    /// Runs `action` when the message that is posted here is dispatched.
    void post_action(std::function<void()> action) {
        button->set_on_click([action = std::move(action)](IPanel*) { action(); });
        PostMessageW(panel->get_window_handle(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                     reinterpret_cast<LPARAM>(button_window));
    }

    com::ptr<IPushButtonControl> button;
    HWND button_window = nullptr;
    std::vector<std::string> events;
    std::set<std::string> fixed_cells;     // that cannot be edited
    std::set<std::wstring> refused_texts;  // by the sink
    std::function<void()> on_asked;
    std::function<void()> on_read;
    std::function<void()> on_taken;
    std::function<void(int row)> on_finished;
};

}  // namespace ui::mossHarbour
