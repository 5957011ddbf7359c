#include "questions.h"

#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IModalService.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <array>

namespace harbour {

using namespace ui::mossHarbour;

namespace {

constexpr std::array<const wchar_t*, 4> ports{L"Hamburg", L"L\u00fcbeck", L"Svendborg", L"\u00c5lborg"};

bool show(IPanel& panel, const std::wstring& text, dialog_buttons buttons) {
    const auto label = create_label_control();
    IModalService::dialog_details details{};
    details.content = label;
    details.on_created = [&] { label->set_text(text.c_str()); };
    details.title = L"Settings";
    details.buttons = buttons;
    return service_of<IModalService>(panel)->showDialog(details);
}

RECT at_the_mouse() {
    POINT mouse{};
    GetCursorPos(&mouse);
    return {mouse.x, mouse.y, mouse.x, mouse.y};
}

}  // namespace

bool is_agreed_to(IPanel& panel, const std::wstring& question) {
    return show(panel, question, dialog_buttons::yes_no);
}

void tell(IPanel& panel, const std::wstring& text) {
    show(panel, text, dialog_buttons::ok);
}

void offer_ports(IPanel& panel, const std::function<void(const wchar_t*)>& chosen) {
    const HWND window = com::ptr<IBasicHwndPanel>(&panel)->get_window_handle();
    const auto stack = create_stack_layout(orientation::vertical);
    std::array<com::ptr<IPushButtonControl>, ports.size()> buttons;
    for (std::size_t i = 0; i < ports.size(); ++i) {
        buttons[i] = create_push_button_control();
        buttons[i]->set_on_click([&chosen, i, window](IPanel*) {
            chosen(ports[i]);
            SetFocus(window);  // which ends the popup
        });
        stack_item_details details;
        details.min_width = details.max_width = details.preferred_width = font_percent(800);
        stack->add_item(details, buttons[i]);
    }
    IModalService::popup_details details{};
    details.content = stack;
    details.on_created = [&] {
        for (std::size_t i = 0; i < ports.size(); ++i) buttons[i]->set_text(ports[i]);
    };
    details.anchor = at_the_mouse();
    details.side = popup_side::above;
    details.align = popup_alignment::near_edges;
    service_of<IModalService>(panel)->showPopup(details);
}

}  // namespace harbour
