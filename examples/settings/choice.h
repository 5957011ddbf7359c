#pragma once

#include "ui/mossHarbour/ILayout.h"
#include "ui/mossHarbour/IRadioButtonControl.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace harbour {

/// One of several, as radio buttons: a click on one takes the mark from the others, whatever shows them.
class choice {
public:
    explicit choice(std::vector<std::wstring> option_texts);

    /// The buttons, one under the other.
    [[nodiscard]] com::ptr<ui::mossHarbour::ILayout> layout() const;

    // While it is shown.
    void show(std::size_t chosen) const;
    [[nodiscard]] std::size_t chosen() const;

private:
    using buttons = std::vector<com::ptr<ui::mossHarbour::IRadioButtonControl>>;

    static void mark(const buttons& all, std::size_t marked);

    std::vector<std::wstring> texts;
    std::shared_ptr<buttons> options = std::make_shared<buttons>();
};

}  // namespace harbour
