#pragma once

#include "onlooker.h"
#include "running_program.h"
#include "support/input.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string_view>

namespace client_test {

/// The gallery, run anew for each test, with its first page shown and nothing under the mouse.
class gallery_fixture : public testing::Test {
protected:
    // Text may be smoothed a little differently from one version of the fonts to the next.
    static constexpr test_support::tolerance fonts_of_a_card{.channel = 24, .pixels = 60};
    static constexpr test_support::tolerance fonts_of_a_page{.channel = 24, .pixels = 300};

    static constexpr POINT away{500, 30};  // a place without a control
    static constexpr POINT buttons_button{92, 122};
    static constexpr POINT labels_button{92, 166};
    static constexpr POINT scrolling_button{92, 210};
    static constexpr POINT lists_button{92, 254};
    static constexpr POINT tree_button{92, 298};
    static constexpr POINT text_button{92, 342};
    // The column of the pages' buttons is compared by itself: it is longer with each page that comes.
    static constexpr RECT navigation{0, 80, 184, 673};
    static constexpr RECT page{184, 80, 952, 673};

    void SetUp() override;

    /// Compares all that is right of the pages' buttons.
    void expect_shown(std::string_view golden);
    void expect_back(const test_support::picture& earlier) { EXPECT_TRUE(eye.shows_again(earlier)); }

    /// Turns to a page, and compares all of it.
    void open_page(std::string_view golden, POINT button);

    /// Does something that changes `card`, and compares that. Nothing else changes, except in `last`, where
    /// the focus has been.
    void change(std::string_view golden, RECT card, RECT last, const std::function<void()>& action);
    void change(std::string_view golden, RECT card, const std::function<void()>& action) {
        change(golden, card, {}, action);
    }

    /// The same of the mouse that goes somewhere.
    void hover(std::string_view golden, RECT card, POINT there, RECT last = {});
    /// The same of a click.
    void press(std::string_view golden, RECT card, POINT button, RECT last = {});
    /// A press beside the last one: buttons do not count the second press of a double click.
    void press_again(std::string_view golden, RECT card, POINT button);
    /// Clicks what takes no click, and leaves it again: everything is as it was ahead of it.
    void press_in_vain(std::string_view hovered, RECT card, POINT button, POINT back,
                       test_support::mouse_button with = test_support::mouse_button::left);

    running_program program{L"gallery.exe", L"Gallery"};
    HWND window = program.window();
    onlooker eye{window};

private:
    bool comes_to_show(const awaited_golden& expected, const test_support::picture& before, RECT card,
                       std::chrono::seconds patience);
    void expect_changed(const awaited_golden& expected, const test_support::picture& before, RECT card,
                        RECT last) const;
};

}  // namespace client_test
