#include "d2d/window.h"

#include "com/error.h"
#include "host/graphics.h"
#include "host/testing/patched_end_draw.h"
#include "host/testing/patched_swap_chains.h"
#include "scene/testing/call_text.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/shown.h"

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

namespace {

using namespace d2d;
using scene::fakes::call_text;
using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down what is asked of it.
class recording_d2d_window : public d2d::window {
public:
    std::vector<std::string> calls;
    std::function<void(ID2D1RenderTarget*)> on_render;
    [[nodiscard]] std::vector<std::string> take_calls() { return std::exchange(calls, {}); }

    void render(ID2D1RenderTarget* target, D2D_RECT_F invalid) override {
        write(target, "render", invalid);
        if (on_render) {
            on_render(target);
        } else {
            window::render(target, invalid);
        }
    }
    void acquire_independant_resources() override {
        calls.push_back(call_text("acquire independent", render_target_size()));
    }
    void release_independant_resources() override { calls.emplace_back("release independent"); }
    void acquire_render_target_dependant_resources(ID2D1RenderTarget* target) override {
        write(target, "acquire");
    }
    void release_render_target_dependant_resources(ID2D1RenderTarget* target) override {
        write(target, "release");
    }
    void acquire_render_target_size_dependant_resources(ID2D1RenderTarget* target, bool resized) override {
        write(target, "acquire size", resized, render_target_size());
    }
    void release_render_target_size_dependant_resources(ID2D1RenderTarget* target, bool resized) override {
        write(target, "release size", resized, render_target_size());
    }

private:
    template <class... Words>
    void write(ID2D1RenderTarget* target, const Words&... words) {
        calls.push_back(call_text(words...));
        if (target != render_target()) calls.emplace_back("on another target");
    }
};

bool shared_context_has_target() {
    com::ptr<ID2D1Image> target;
    graphics::d2d_context->GetTarget(target.put());
    return target.get() != nullptr;
}

class d2d_window : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }

    static void open(d2d::window& opened, int x = 40) {
        opened.create_window(0, L"d2d", WS_POPUP, x, 40, 200, 100, nullptr, nullptr);
    }
    /// Shows it and lets it paint; nothing is written down yet.
    static void show(recording_d2d_window& shown) {
        test_support::bring_to_front(shown.get_window_handle());
        test_support::pump_until_idle();
        shown.calls.clear();
    }
    /// Exactly one paint, which what it throws comes out of.
    static void paint(const d2d::window& painted) {
        SendMessageW(painted.get_window_handle(), WM_PAINT, 0, 0);
    }
    static bool needs_paint(const d2d::window& asked) {
        return GetUpdateRect(asked.get_window_handle(), nullptr, FALSE) != FALSE;
    }

    static inline std::optional<factory> token;
};

TEST_F(d2d_window, takes_its_target_with_the_first_paint) {
    recording_d2d_window shown;
    open(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("acquire independent 0 0"));
    EXPECT_EQ(200u, shown.render_target_size().width);
    EXPECT_EQ(100u, shown.render_target_size().height);
    ShowWindow(shown.get_window_handle(), SW_SHOWNA);
    paint(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("acquire", "acquire size 0 200 100", "render 0 0 200 100"));
    EXPECT_FALSE(needs_paint(shown));
    EXPECT_FALSE(shared_context_has_target());
    EXPECT_EQ(graphics::d2d_context, shown.render_target());
    shown.destroy_window();
    EXPECT_THAT(shown.take_calls(), ElementsAre("release size 0 200 100", "release", "release independent"));
}

TEST_F(d2d_window, without_a_paint_has_no_target_to_release) {
    recording_d2d_window hidden;
    open(hidden);
    hidden.calls.clear();
    hidden.destroy_window();
    EXPECT_THAT(hidden.calls, ElementsAre("release independent"));
}

TEST_F(d2d_window, paints_what_is_invalid_clipped_and_with_its_target) {
    recording_d2d_window shown;
    open(shown);
    show(shown);
    shown.on_render = [](ID2D1RenderTarget* target) {
        EXPECT_TRUE(shared_context_has_target());
        D2D1_MATRIX_3X2_F matrix{};
        target->GetTransform(&matrix);
        EXPECT_EQ("1 0 0 1 0 0", call_text(matrix));
        const D2D1_COLOR_F red{1, 0, 0, 1};
        target->Clear(&red);
    };
    const RECT part{10, 20, 30, 40};
    InvalidateRect(shown.get_window_handle(), &part, FALSE);
    paint(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("render 10 20 30 40"));
    EXPECT_FALSE(shared_context_has_target());
    shown.destroy_window();
}

TEST_F(d2d_window, has_a_swap_chain_of_two_buffers_and_presents_what_it_painted) {
    const fakes::patched_swap_chains chains(graphics::dxgi_factory);
    recording_d2d_window shown;
    open(shown);
    show(shown);
    auto calls = chains.take_calls();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ("make 0 0 format 87 stereo 0 samples 1 0 usage 32 buffers 2 scaling 1 effect 3 alpha 0 flags 0",
              calls.front());
    const RECT part{10, 20, 30, 40};
    InvalidateRect(shown.get_window_handle(), &part, FALSE);
    paint(shown);
    EXPECT_THAT(chains.take_calls(), ElementsAre("present 0 0 dirty 10 20 30 40"));
    shown.on_render = [](ID2D1RenderTarget*) { throw std::runtime_error("no paint today"); };
    InvalidateRect(shown.get_window_handle(), &part, FALSE);
    EXPECT_THROW(paint(shown), std::runtime_error);
    EXPECT_THAT(chains.take_calls(), ElementsAre("present 0 0 dirty 10 20 30 40"));
    shown.destroy_window();
}

TEST_F(d2d_window, that_is_refused_a_swap_chain_throws_and_asks_for_it_again_with_the_next_paint) {
    fakes::patched_swap_chains chains(graphics::dxgi_factory);
    recording_d2d_window shown;
    open(shown);
    ShowWindow(shown.get_window_handle(), SW_SHOWNA);
    shown.calls.clear();
    chains.next_result = DXGI_ERROR_NOT_CURRENTLY_AVAILABLE;
    try {
        paint(shown);
        ADD_FAILURE() << "painted on nothing";
    } catch (const com::error& refused) {
        EXPECT_EQ(DXGI_ERROR_NOT_CURRENTLY_AVAILABLE, refused.hresult);
    }
    EXPECT_THAT(shown.take_calls(), IsEmpty());
    EXPECT_FALSE(shared_context_has_target());
    paint(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("acquire", "acquire size 0 200 100", "render 0 0 200 100"));
    shown.destroy_window();
}

TEST_F(d2d_window, draws_on_a_bitmap_whose_units_are_pixels) {
    recording_d2d_window shown;
    open(shown);
    show(shown);
    shown.on_render = [](ID2D1RenderTarget*) {
        com::ptr<ID2D1Image> image;
        graphics::d2d_context->GetTarget(image.put());
        com::ptr<ID2D1Bitmap1> bitmap;
        ASSERT_EQ(S_OK, image->QueryInterface(com::guid_of<ID2D1Bitmap1>(), bitmap.put_void()));
        const D2D1_PIXEL_FORMAT format = bitmap->GetPixelFormat();
        EXPECT_EQ(DXGI_FORMAT_B8G8R8A8_UNORM, format.format);
        EXPECT_EQ(D2D1_ALPHA_MODE_IGNORE, format.alphaMode);
        float dpi_x = 0, dpi_y = 0;
        bitmap->GetDpi(&dpi_x, &dpi_y);
        EXPECT_EQ(96.0f, dpi_x);
        EXPECT_EQ(96.0f, dpi_y);
        EXPECT_EQ("200 100", call_text(bitmap->GetPixelSize()));
        EXPECT_EQ(D2D1_BITMAP_OPTIONS_TARGET | D2D1_BITMAP_OPTIONS_CANNOT_DRAW, bitmap->GetOptions());
    };
    InvalidateRect(shown.get_window_handle(), nullptr, FALSE);
    paint(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("render 0 0 200 100"));
    shown.destroy_window();
}

TEST_F(d2d_window, another_size_renews_what_depends_on_it_and_paints) {
    recording_d2d_window shown;
    open(shown);
    show(shown);
    SetWindowPos(shown.get_window_handle(), nullptr, 0, 0, 150, 120,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(needs_paint(shown));
    paint(shown);
    EXPECT_THAT(shown.take_calls(),
                ElementsAre("release size 1 200 100", "acquire size 1 150 120", "render 0 0 150 120"));
    EXPECT_EQ(150u, shown.render_target_size().width);
    shown.destroy_window();
}

TEST_F(d2d_window, the_present_size_changes_nothing) {
    recording_d2d_window shown;
    open(shown);
    show(shown);
    SendMessageW(shown.get_window_handle(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(200, 100));
    EXPECT_THAT(shown.take_calls(), IsEmpty());
    EXPECT_FALSE(needs_paint(shown));
    shown.destroy_window();
}

TEST_F(d2d_window, a_size_ahead_of_the_first_paint_is_only_stored) {
    recording_d2d_window hidden;
    open(hidden);
    hidden.calls.clear();
    SendMessageW(hidden.get_window_handle(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(77, 66));
    EXPECT_THAT(hidden.calls, IsEmpty());
    EXPECT_EQ(77u, hidden.render_target_size().width);
    EXPECT_EQ(66u, hidden.render_target_size().height);
    hidden.destroy_window();
}

TEST_F(d2d_window, what_render_throws_leaves_no_open_draw_and_no_target) {
    recording_d2d_window shown;
    open(shown);
    show(shown);
    fakes::patched_end_draw ended(graphics::d2d_context);
    shown.on_render = [](ID2D1RenderTarget*) { throw std::runtime_error("no paint today"); };
    InvalidateRect(shown.get_window_handle(), nullptr, FALSE);
    EXPECT_THROW(paint(shown), std::runtime_error);
    EXPECT_EQ(1, ended.calls);
    EXPECT_FALSE(shared_context_has_target());
    EXPECT_TRUE(needs_paint(shown));

    shown.on_render = nullptr;
    shown.calls.clear();
    paint(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("render 0 0 200 100"));
    EXPECT_TRUE(test_support::shows(shown.get_window_handle(), 0xFF32CD32, 100, 50));
    shown.destroy_window();
}

TEST_F(d2d_window, a_failed_resource_leaves_the_shared_context_without_a_target) {
    class failing : public recording_d2d_window {
        void acquire_render_target_dependant_resources(ID2D1RenderTarget*) override {
            throw std::runtime_error("no resource");
        }
    };
    failing shown;
    open(shown);
    ShowWindow(shown.get_window_handle(), SW_SHOWNA);
    EXPECT_THROW(paint(shown), std::runtime_error);
    EXPECT_FALSE(shared_context_has_target());
    shown.destroy_window();
}

TEST_F(d2d_window, a_lost_target_is_given_up_and_made_anew_with_the_paint_that_follows) {
    recording_d2d_window shown;
    open(shown);
    show(shown);
    fakes::patched_end_draw lossy(graphics::d2d_context);
    lossy.next_result = static_cast<HRESULT>(D2DERR_RECREATE_TARGET);
    const RECT part{10, 20, 30, 40};
    InvalidateRect(shown.get_window_handle(), &part, FALSE);
    paint(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("render 10 20 30 40", "release size 0 200 100", "release"));
    EXPECT_FALSE(shared_context_has_target());
    EXPECT_TRUE(needs_paint(shown));
    paint(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("acquire", "acquire size 0 200 100", "render 0 0 200 100"));
    EXPECT_FALSE(needs_paint(shown));
    EXPECT_TRUE(test_support::shows(shown.get_window_handle(), 0xFF32CD32, 100, 50));
    shown.destroy_window();
}

TEST_F(d2d_window, another_failure_of_the_drawing_is_passed_over) {
    recording_d2d_window shown;
    open(shown);
    show(shown);
    fakes::patched_end_draw failing(graphics::d2d_context);
    failing.next_result = E_FAIL;
    InvalidateRect(shown.get_window_handle(), nullptr, FALSE);
    paint(shown);
    EXPECT_THAT(shown.take_calls(), ElementsAre("render 0 0 200 100"));
    EXPECT_FALSE(needs_paint(shown));
    shown.destroy_window();
}

TEST_F(d2d_window, windows_share_the_context_and_keep_their_pictures) {
    recording_d2d_window left;
    recording_d2d_window right;
    open(left);
    open(right, 300);
    show(left);
    show(right);
    const auto fill = [](D2D1_COLOR_F color) {
        return [color](ID2D1RenderTarget* target) { target->Clear(&color); };
    };
    left.on_render = fill({1, 0, 0, 1});
    right.on_render = fill({0, 0, 1, 1});
    for (const auto* each : {&left, &right}) InvalidateRect(each->get_window_handle(), nullptr, FALSE);
    test_support::pump_until_idle();
    EXPECT_TRUE(test_support::shows(left.get_window_handle(), 0xFFFF0000, 100, 50));
    EXPECT_TRUE(test_support::shows(right.get_window_handle(), 0xFF0000FF, 100, 50));
    left.destroy_window();
    right.destroy_window();
}

TEST_F(d2d_window, shows_green_when_nobody_draws) {
    class d2d::window plain;
    open(plain);
    test_support::bring_to_front(plain.get_window_handle());
    test_support::pump_until_idle();
    EXPECT_TRUE(test_support::shows(plain.get_window_handle(), 0xFF32CD32, 100, 50));
    plain.destroy_window();
}

TEST_F(d2d_window, the_destructor_ends_the_window_without_calls) {
    HWND handle = nullptr;
    {
        recording_d2d_window shown;
        open(shown);
        show(shown);
        handle = shown.get_window_handle();
        EXPECT_TRUE(IsWindow(handle));
    }
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_FALSE(shared_context_has_target());
}

}  // namespace
