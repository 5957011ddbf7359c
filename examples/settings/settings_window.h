#pragma once

#include "settings_form.h"
#include "ui/mossHarbour/IHwndPanel.h"

#include <filesystem>

namespace harbour {

/// The form in a window, and what its commands do.
class settings_window {
public:
    /// `saved_in`: the file for "Save".
    settings_window(com::ptr<ui::mossHarbour::IHwndPanel> shown_in, std::filesystem::path saved_in);
    settings_window(const settings_window&) = delete;
    settings_window& operator=(const settings_window&) = delete;
    ~settings_window();

    /// Until the window is closed.
    void run();

private:
    void show_window();
    void open();
    void save_as();
    void close();

    const com::ptr<ui::mossHarbour::IHwndPanel> panel;
    const std::filesystem::path file;
    settings_form form;
    values unchanged;
};

}  // namespace harbour
