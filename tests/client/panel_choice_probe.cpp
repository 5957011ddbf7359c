// Tells which panels are on the scene in a process that has just started, for each way to show one.

#include "d2d/factory.h"
#include "d2d/scene/IFloatingUiService.h"
#include "portable_forms.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"

#include <cstdio>
#include <cwchar>

namespace {

using namespace ui::mossHarbour;

struct seen_enough {};

bool is_native(HWND window) {
    wchar_t name[32]{};
    GetClassNameW(window, name, 32);
    return std::wcscmp(name, L"mossHarbour_panel") == 0;
}

/// Whether a panel's window is on the scene.
bool is_on_scene(const com::ptr<IHwndPanel>& panel) {
    const bool result = !is_native(panel->create_window(0, L"probe", WS_POPUP, nullptr));
    panel->destroy_window();
    return result;
}

/// Whether what `show(details)` shows is on the scene.
template <class Details, class Show>
bool shows_on_scene(Details details, Show show) {
    bool result = false;
    details.on_created = [&] {
        const auto look = [](HWND window, LPARAM found) -> BOOL {
            if (!GetWindow(window, GW_OWNER)) return TRUE;
            *reinterpret_cast<bool*>(found) = !is_native(window);
            return FALSE;
        };
        EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&result));
        throw seen_enough();
    };
    try {
        show(details);
    } catch (const seen_enough&) {
    }
    return result;
}

void tell(const char* what, bool on_scene) {
    std::printf("%s %s, ", what, on_scene ? "scene" : "native");
}

using dialog_details = IModalService::dialog_details;
using popup_details = IModalService::popup_details;

dialog_details dialog() {
    return {client_test::blank(10, 10), {}, {}, L"probe", dialog_buttons::ok};
}

popup_details popup() {
    return {client_test::blank(10, 10), {}, {}, {}, popup_side::below, popup_alignment::centres};
}

void tell_of_functions(HWND owner) {
    tell("dialog", shows_on_scene(dialog(), [=](auto& shown) { showDialogHwnd(owner, shown); }));
    tell("popup", shows_on_scene(popup(), [=](auto& shown) { showPopupHwnd(owner, shown); }));
    for (const bool forced : {false, true}) {
        tell(forced ? "forced dialog" : "unforced dialog",
             shows_on_scene(dialog(), [=](auto& shown) { showDialogHwnd(owner, forced, shown); }));
        tell(forced ? "forced popup" : "unforced popup",
             shows_on_scene(popup(), [=](auto& shown) { showPopupHwnd(owner, forced, shown); }));
    }
    const auto floating_ui = d2d::scene::create_floating_ui_service(owner);
    const auto node = d2d::scene::create_node();
    tell("floating popup",
         shows_on_scene(popup(), [&](auto& shown) { floating_ui->show_popup(node.get(), shown); }));
}

void tell_of_services(const com::ptr<IHwndPanel>& panel) {
    panel->create_window(0, L"probe", WS_POPUP, nullptr);
    const com::ptr<IModalService> service(panel.get());
    tell("dialog", shows_on_scene(dialog(), [&](auto& shown) { service->showDialog(shown); }));
    tell("popup", shows_on_scene(popup(), [&](auto& shown) { service->showPopup(shown); }));
    panel->destroy_window();
}

}  // namespace

int main() {
    const d2d::factory graphics;  // made once
    tell("panel", is_on_scene(create_hwnd_panel(nullptr)));
    const HWND owner =
        CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    tell_of_functions(owner);
    DestroyWindow(owner);
    std::printf("of a native panel: ");
    tell_of_services(create_win32_hwnd_panel(nullptr));
    std::printf("of a scene panel: ");
    tell_of_services(create_d2d_hwnd_panel(nullptr));
    return 0;
}
