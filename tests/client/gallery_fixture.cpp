#include "gallery_fixture.h"

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <string>

namespace client_test {

using test_support::picture;

namespace {

std::string file_of(std::string_view golden) {
    return "gallery/" + std::string(golden);
}

bool in_one_of(std::initializer_list<RECT> rects, POINT point) {
    return std::any_of(rects.begin(), rects.end(), [&](const RECT& rect) { return PtInRect(&rect, point); });
}

unsigned differences_outside(const picture& a, const picture& b, std::initializer_list<RECT> rects) {
    unsigned count = 0;
    for (unsigned y = 0; y < a.height; ++y)
        for (unsigned x = 0; x < a.width; ++x)
            if (a.at(x, y) != b.at(x, y) && !in_one_of(rects, {static_cast<LONG>(x), static_cast<LONG>(y)}))
                ++count;
    return count;
}

}  // namespace

void gallery_fixture::SetUp() {
    SetForegroundWindow(window);
    ASSERT_TRUE(test_support::pump_until([&] { return GetForegroundWindow() == window; }));
    test_support::move_mouse(window, away);
    expect_shown("buttons");
}

void gallery_fixture::expect_shown(std::string_view golden) {
    const awaited_golden expected(file_of(golden), fonts_of_a_page);
    const auto seen = [&] {
        const auto width = static_cast<LONG>(eye.shown().width);
        const auto height = static_cast<LONG>(eye.shown().height);
        return part(eye.shown(), {page.left, 0, width, height});
    };
    eye.look_until_like([&] { return expected.likeness_of(seen()); });
    EXPECT_TRUE(expected.matches(seen()));
}

void gallery_fixture::open_page(std::string_view golden, POINT button) {
    change(golden, page, navigation, [&] { test_support::click(window, button); });
}

bool gallery_fixture::comes_to_show(const awaited_golden& expected, const picture& before, RECT card,
                                    std::chrono::seconds patience) {
    const auto like = [&] {
        return eye.shown() == before ? likeness::none : expected.likeness_of(part(eye.shown(), card));
    };
    return eye.look_until_like(like, patience);
}

void gallery_fixture::expect_changed(const awaited_golden& expected, const picture& before, RECT card,
                                     RECT last) const {
    const picture& shown = eye.shown();
    ASSERT_EQ(before.width, shown.width);
    ASSERT_EQ(before.height, shown.height);
    const picture now = part(shown, card);
    EXPECT_TRUE(part(before, card) != now) << "nothing changes";
    EXPECT_TRUE(expected.matches(now));
    EXPECT_EQ(0u, differences_outside(before, shown, {card, last}));
}

void gallery_fixture::change(std::string_view golden, RECT card, RECT last,
                             const std::function<void()>& action) {
    SCOPED_TRACE(golden);
    const awaited_golden expected(file_of(golden), fonts_of_a_card);
    const picture before = eye.shown();
    action();
    static_cast<void>(comes_to_show(expected, before, card, std::chrono::seconds(10)));
    expect_changed(expected, before, card, last);
}

// A window that has just come up may report where the pointer was: that puts the mouse back under Wine.
void gallery_fixture::hover(std::string_view golden, RECT card, POINT there, RECT last) {
    SCOPED_TRACE(golden);
    const awaited_golden expected(file_of(golden), fonts_of_a_card);
    const picture before = eye.shown();
    for (int attempts = 3; attempts > 0; --attempts) {
        test_support::move_mouse(window, there);
        if (comes_to_show(expected, before, card, std::chrono::seconds(4))) break;
    }
    expect_changed(expected, before, card, last);
}

void gallery_fixture::press(std::string_view golden, RECT card, POINT button, RECT last) {
    change(golden, card, last, [&] { test_support::click(window, button); });
}

void gallery_fixture::press_again(std::string_view golden, RECT card, POINT button) {
    press(golden, card, {button.x + 6, button.y});
}

void gallery_fixture::press_in_vain(std::string_view hovered, RECT card, POINT button, POINT back,
                                    test_support::mouse_button with) {
    const picture before = eye.shown();
    hover(hovered, card, button);
    test_support::click(window, button, with);
    test_support::move_mouse(window, back);
    expect_back(before);
}

}  // namespace client_test
