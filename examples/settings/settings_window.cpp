#include "settings_window.h"

#include "questions.h"
#include "ui/mossHarbour/IFileSelectionService.h"

#include <stdexcept>
#include <utility>

namespace harbour {

using namespace ui::mossHarbour;

namespace {

constexpr wchar_t files[] = L"Settings\0*.txt\0All files\0*.*\0";

}  // namespace

settings_window::settings_window(com::ptr<IHwndPanel> shown_in, std::filesystem::path saved_in)
    : panel(std::move(shown_in)), file(std::move(saved_in)) {
    form.on_open = [this] { open(); };
    form.on_save_as = [this] { save_as(); };
    form.on_ports = [this] {
        offer_ports(*panel, [this](const wchar_t* port) { form.show_next_port(port); });
    };
    form.on_save = [this] {
        save(form.read(), file);
        PostQuitMessage(0);
    };
    form.on_cancel = [this] { close(); };
    panel->set_on_close(form.on_cancel);
    panel->set_content(form.layout());
}

settings_window::~settings_window() {
    panel->set_content(nullptr);
    panel->destroy_window();
    panel->set_on_close({});
}

void settings_window::run() {
    panel->create_window(0, L"Settings", WS_OVERLAPPEDWINDOW, nullptr);
    form.show(unchanged);  // texts belong to the controls on the screen, and those to what is measured
    show_window();
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (panel->translate_message(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void settings_window::show_window() {
    const int around = font_percent(50);
    panel->set_padding(around, around, around, around);
    panel->measure();
    const SIZE size = panel->get_window_sizes().preferred;
    SetWindowPos(panel->get_window_handle(), nullptr, 120, 120, size.cx, size.cy, SWP_NOZORDER);
    ShowWindow(panel->get_window_handle(), SW_SHOW);
}

void settings_window::open() {
    const auto chosen = service_of<IFileSelectionService>(*panel)->selectInputFile({L"", files, L"txt"});
    if (chosen.empty()) return;
    try {
        unchanged = load(chosen);
        form.show(unchanged);
    } catch (const std::runtime_error&) {
        tell(*panel, L"The settings could not be read.");
    }
}

void settings_window::save_as() {
    const auto chosen =
        service_of<IFileSelectionService>(*panel)->selectOutputFile({file.c_str(), files, L"txt"});
    if (chosen.empty()) return;
    try {
        unchanged = form.read();
        save(unchanged, chosen);
    } catch (const std::runtime_error&) {
        tell(*panel, L"The settings could not be saved.");
    }
}

void settings_window::close() {
    if (form.read() == unchanged || is_agreed_to(*panel, L"Leave without what has been changed?")) {
        PostQuitMessage(0);
    }
}

}  // namespace harbour
