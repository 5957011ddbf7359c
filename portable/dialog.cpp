#include "portable/modal_panel.h"
#include "ui/mossHarbour/IModalService.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IStackLayout.h"
#include "win32/scope_exit.h"

#include <utility>

namespace ui::mossHarbour {
namespace {

/// What the dialog has come to: set by buttons and the frame, read by the loop.
struct outcome {
    bool done = false;
    bool result = false;
};

struct button_texts {
    const wchar_t* first;   // null for none
    const wchar_t* second;  // null for none
};

button_texts texts_of(dialog_buttons buttons) noexcept {
    switch (buttons) {
        case dialog_buttons::ok_cancel:
            return {L"OK", L"Cancel"};
        case dialog_buttons::close:
            return {nullptr, L"Close"};
        case dialog_buttons::yes_no:
            return {L"Yes", L"No"};
        default:
            return {L"OK", nullptr};
    }
}

/// The buttons of a dialog. They get their texts when they are on the screen.
class button_row {
public:
    button_row(dialog_buttons buttons, outcome& told) : texts(texts_of(buttons)) {
        if (texts.first) first = add(told, true);
        if (texts.second) second = add(told, false);
    }

    void set_texts() const {
        if (first) first->set_text(texts.first);
        if (second) second->set_text(texts.second);
    }

    [[nodiscard]] const com::ptr<IStackLayout>& layout() const noexcept { return row; }

private:
    com::ptr<IPushButtonControl> add(outcome& told, bool result) {
        const int distance = font_percent(50);
        stack_item_details details(item_alignment::centre);
        details.min_width = details.min_height = details.max_height = use_preferred;
        details.max_width = font_percent(600);
        details.margin_left = details.margin_top = details.margin_right = details.margin_bottom = distance;
        auto button = create_push_button_control();
        button->set_on_click([&told, result](IPanel*) { told = {true, result}; });
        row->add_item(details, button);
        return button;
    }

    button_texts texts;
    com::ptr<IStackLayout> row = create_stack_layout(orientation::horizontal);
    com::ptr<IPushButtonControl> first;
    com::ptr<IPushButtonControl> second;
};

com::ptr<IStackLayout> stacked(const com::ptr<IElement>& content, const com::ptr<IStackLayout>& buttons) {
    auto outer = create_stack_layout(orientation::vertical);
    outer->add_item(stack_item_details(item_alignment::centre), content);
    outer->add_item(stack_item_details(item_alignment::far_side), buttons);
    return outer;
}

void show_centred(IHwndPanel& panel, HWND root) {
    RECT around{};
    GetWindowRect(root, &around);
    const SIZE size = preferred_window_size(panel);
    const HWND window = panel.get_window_handle();
    MoveWindow(window, ((around.right - around.left) - size.cx) / 2 + around.left,
               ((around.bottom - around.top) - size.cy) / 2 + around.top, size.cx, size.cy, FALSE);
    ShowWindow(window, SW_SHOW);
}

/// Until the dialog is done, and whoever is asked agrees; or until the program is to end.
void run_loop(IHwndPanel& panel, outcome& reached, const std::function<bool(bool)>& on_result) {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        dispatch(panel, message);
        if (!reached.done) continue;
        if (!on_result || on_result(reached.result)) return;
        reached = {};
    }
}

}  // namespace

bool showDialogHwnd(HWND owner, IModalService::dialog_details details) {
    return showDialogHwnd(owner, false, std::move(details));
}

bool showDialogHwnd(HWND owner, bool force_scene, IModalService::dialog_details details) {
    outcome reached;
    const auto panel = create_modal_panel(force_scene);
    const button_row buttons(details.buttons, reached);
    panel->set_on_close([&reached] { reached = {true, false}; });
    panel->set_content(stacked(details.content, buttons.layout()));
    const win32::scope_exit taken_out([&] {
        panel->set_content(nullptr);
        panel->set_on_close({});  // somebody may keep the panel
    });
    panel->create_window(0, details.title, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, owner);
    const win32::scope_exit destroyed([&] { panel->destroy_window(); });
    if (details.on_created) details.on_created();
    buttons.set_texts();
    const int around = font_percent(100);
    panel->set_padding(around, around, around, around);
    panel->measure();
    const HWND root = GetAncestor(owner, GA_ROOT);
    show_centred(*panel, root);
    const win32::scope_exit closed([&] {
        EnableWindow(root, TRUE);
        ShowWindow(panel->get_window_handle(), SW_HIDE);
    });
    EnableWindow(root, FALSE);
    run_loop(*panel, reached, details.on_result);
    return reached.result;
}

}  // namespace ui::mossHarbour
