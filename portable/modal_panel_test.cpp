#include "portable/modal_panel.h"

#include "com/base_object.h"
#include "com/object.h"
#include "portable/popup.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;
using testing::ThrowsMessage;

/// Has nothing but a size.
class sized_panel : public com::base_object<com::object_base, IHwndPanel> {
public:
    explicit sized_panel(SIZE size) noexcept : preferred(size) {}

    HRESULT STDMETHODCALLTYPE QueryService(const GUID&, const GUID&, void**) override { return E_FAIL; }
    com::ptr<ILayout> set_content(com::ptr<ILayout>) override { return {}; }
    HWND get_window_handle() override { return nullptr; }
    element_metrics measure() override { return {}; }
    HWND create_window(DWORD, const wchar_t*, DWORD, HWND) override { return nullptr; }
    void destroy_window() override {}
    bool translate_message(MSG) override { return false; }
    void set_padding(int, int, int, int) override {}
    window_sizes get_window_sizes() override { return {preferred, {}, {}}; }
    void set_on_close(std::function<void()>) override {}

protected:
    ~sized_panel() = default;

private:
    const SIZE preferred;
};

TEST(preferred_window_size, is_from_one_to_16384_on_both_sides) {
    constexpr struct {
        SIZE size;
        bool proper;
    } cases[] = {{{1, 1}, true},         {{16384, 16384}, true}, {{0, 1}, false},     {{1, 0}, false},
                 {{-1, 100}, false},     {{100, -1}, false},     {{16385, 1}, false}, {{1, 16385}, false},
                 {{0xffffff, 1}, false}, {{1, 0xffffff}, false}};
    for (const auto& [size, proper] : cases) {
        const com::ptr<IHwndPanel> panel = com::create_object<sized_panel>(size);
        if (proper) {
            EXPECT_EQ(preferred_window_size(*panel).cx, size.cx);
            EXPECT_EQ(preferred_window_size(*panel).cy, size.cy);
        } else {
            EXPECT_THAT([&] { static_cast<void>(preferred_window_size(*panel)); },
                        ThrowsMessage<std::logic_error>("Dialog layout resulted in an invalid size!"))
                << size.cx << " x " << size.cy;
        }
    }
}

TEST(popup_position, is_beside_the_anchor_with_edges_or_centres_in_line) {
    constexpr RECT anchor{101, 50, 140, 81};
    constexpr SIZE size{60, 25};
    // On the axis along the anchor's side, by alignment: -1, 0, any other.
    constexpr LONG down[] = {81 - 25, (50 + 81) / 2 - 12, 50};
    constexpr LONG across[] = {140 - 60, (101 + 140) / 2 - 30, 101};
    for (const int align : {-1, 0, 1, 2, -2}) {
        const auto along = static_cast<popup_alignment>(align);
        const int i = align == -1 ? 0 : align == 0 ? 1 : 2;
        const auto expect = [&](int side, POINT place) {
            const POINT got = popup_position(anchor, size, static_cast<popup_side>(side), along);
            EXPECT_EQ(got.x, place.x) << "side " << side << " align " << align;
            EXPECT_EQ(got.y, place.y) << "side " << side << " align " << align;
        };
        expect(1, {101 - 60, down[i]});
        expect(2, {140, down[i]});
        expect(3, {across[i], 81});
        for (const int above : {0, 4, -1, 1000}) expect(above, {across[i], 50 - 25});
    }
}

TEST(popup_position, rounds_centres_toward_zero_left_of_the_screen_as_well) {
    const POINT place =
        popup_position({-11, -7, -4, -2}, {5, 3}, popup_side::below, popup_alignment::centres);
    EXPECT_EQ(place.x, -7 - 2);  // -15 / 2 is -7
    EXPECT_EQ(place.y, -2);
}

}  // namespace
