#pragma once

#include "controls/testing/fake_label.h"
#include "controls/testing/label_test.h"
#include "controls/testing/press_test.h"
#include "d2d/ui/IButton.h"
#include "d2d/ui/ICommandStrip.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace d2d::fakes {

/// A fixture: a strip of up to four cells with a style that writes down what it is asked.
class command_strip_test : public press_test {
protected:
    void SetUp() override {
        press_test::SetUp();
        style = com::create_object<recording_strip_style>(host_log());
    }
    void TearDown() override {
        strip.reset();
        labels.clear();
        style.reset();
        press_test::TearDown();
    }

    void make_strip(bool vertical, D2D_SIZE_F cell, std::size_t count) {
        if (strip) root->remove_child(strip->get_node());
        strip.reset();
        labels.clear();
        while (labels.size() < count) labels.push_back(com::create_object<fake_label>());
        const auto button = [this](std::size_t i) {
            return ui::ICommandStrip::button{this, labels[i].get()};  // what the first field says is nothing
        };
        IUnknown* const with = in_default_style ? nullptr : style.get();
        switch (count) {
            case 0:
                strip = ui::create_command_strip(vertical, cell, {}, with);
                break;
            case 1:
                strip = ui::create_command_strip(vertical, cell, {button(0)}, with);
                break;
            case 2:
                strip = ui::create_command_strip(vertical, cell, {button(0), button(1)}, with);
                break;
            case 3:
                strip = ui::create_command_strip(vertical, cell, {button(0), button(1), button(2)}, with);
                break;
            default:
                strip = ui::create_command_strip(vertical, cell, {button(0), button(1), button(2), button(3)},
                                                 with);
        }
    }
    void show_strip(bool vertical, D2D_SIZE_F cell, std::size_t count) {
        make_strip(vertical, cell, count);
        root->add_child(strip->get_node());
        forget();
    }

    /// What was drawn anew since the last time, in order; all else that was written down is forgotten.
    [[nodiscard]] std::string drawn() {
        std::string text;
        for (const auto& line : calls()) {
            if (line.starts_with("cell ") || line.starts_with("outline: "))
                text += (text.empty() ? "" : ", ") + line;
        }
        return text;
    }
    template <class T>
    [[nodiscard]] static unsigned long holders(const com::ptr<T>& object) {
        return object ? scene::fakes::references(object.get()) : 0;
    }

    com::ptr<recording_strip_style> style;
    bool in_default_style = false;  ///< makes strips with the style of the library
    std::vector<com::ptr<fake_label>> labels;
    com::ptr<ui::ICommandStrip> strip;
};

}  // namespace d2d::fakes
