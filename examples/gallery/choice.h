#pragma once

#include "d2d/ui/IButton.h"

#include <functional>
#include <vector>

namespace gallery {

/// Buttons of which one is checked: a click checks it and unchecks the one before. The buttons have to be of
/// a kind that can be checked, and are not to be clicked any more once this is gone.
class choice {
public:
    /// `chosen` is told the number of the button, at each change.
    explicit choice(std::function<void(std::size_t)> chosen) : on_choice(std::move(chosen)) {}
    choice(const choice&) = delete;
    choice& operator=(const choice&) = delete;

    /// The first one is the one that is checked at the start.
    void add(com::ptr<d2d::ui::IButton> button);
    void choose(std::size_t which);
    [[nodiscard]] std::size_t size() const noexcept { return buttons.size(); }
    [[nodiscard]] std::size_t chosen() const noexcept { return checked; }

private:
    std::function<void(std::size_t)> on_choice;
    std::vector<com::ptr<d2d::ui::IButton>> buttons;
    std::size_t checked = 0;
};

}  // namespace gallery
