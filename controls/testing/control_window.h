#pragma once

#include "controls/testing/button_kind.h"
#include "d2d/layered_window.h"
#include "d2d/ui/ITextLabel.h"
#include "d2d/win32_scene_window.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/picture.h"
#include "support/shown.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace d2d::fakes {

/// A scene window that runs functions in its thread for others, in whatever message loop that thread is.
class serving_window : public win32_scene_window {
public:
    std::optional<long> on_window_message(MSG message) override {
        if (message.message != serve) return win32_scene_window::on_window_message(message);
        (*reinterpret_cast<const std::function<void()>*>(message.lParam))();
        return 0;
    }
    /// From any thread; returns when it has run. `work` throws nothing.
    void run(const std::function<void()>& work) const {
        SendMessageW(get_window_handle(), serve, 0, reinterpret_cast<LPARAM>(&work));
    }

private:
    static constexpr UINT serve = WM_APP + 5;
};

/// A fixture: one control in a green window on the screen, where the mouse is not.
///
/// A press runs a message loop of its own in the window's thread, so what the user does meanwhile goes
/// through `test_support::meanwhile`; there `in_window` looks and changes things.
class control_window : public test_support::leak_checked_test {
protected:
    static constexpr std::uint32_t green = 0xFF00FF00;
    static constexpr std::uint32_t white = 0xFFFFFFFF;
    static constexpr std::uint32_t black = 0xFF000000;
    static constexpr std::uint32_t pale = 0xFFE6E6FF;   // hot
    static constexpr std::uint32_t dark = 0xFF4D4DB3;   // down; the outline while hot or focused
    static constexpr std::uint32_t grey = 0xFF808080;   // checked; the outline else
    static constexpr std::uint32_t light = 0xFFD3D3D3;  // disabled and hot

    // Kept throughout, with what the platform makes once.
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }

    void SetUp() override {
        leak_checked_test::SetUp();
        user_thread = std::this_thread::get_id();
        test_support::move_mouse(GetDesktopWindow(), {700, 600});
        window = std::make_unique<serving_window>();
        window->set_background_color({0, 1, 0, 1});
        window->create_window(0, L"control", WS_POPUP, 60, 60, 200, 120, nullptr, nullptr);
    }
    void TearDown() override {
        window->destroy_window();
        window.reset();
        leak_checked_test::TearDown();
    }

    void show(const com::ptr<scene::INode>& node) {
        window->addContent(node.get());
        test_support::bring_to_front(handle());
    }
    [[nodiscard]] HWND handle() const { return window->get_window_handle(); }
    void move_mouse(LONG x, LONG y) const { test_support::move_mouse(handle(), {x, y}); }

    /// Runs in the window's thread, from any thread.
    void in_window(const std::function<void()>& work) const {
        if (std::this_thread::get_id() == user_thread) return work();
        window->run(work);
    }
    /// Waits until something holds, asked in the window's thread.
    [[nodiscard]] bool becomes(const std::function<bool()>& holds) const {
        if (std::this_thread::get_id() == user_thread) return test_support::pump_until(holds, patience);
        const auto end = std::chrono::steady_clock::now() + patience;
        bool held = false;
        const auto ask = [&] { held = holds(); };
        for (in_window(ask); !held && std::chrono::steady_clock::now() < end; in_window(ask))
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return held;
    }
    /// Waits until the screen shows a colour at a point of the window. A channel may be off by one.
    [[nodiscard]] testing::AssertionResult shows(std::uint32_t color, unsigned x, unsigned y) const {
        return comes_to(color, [=, this] { return test_support::grab_client_area(handle()).at(x, y); });
    }
    /// The same at a point that may be beyond the window, counted from its corner.
    [[nodiscard]] testing::AssertionResult shows_beyond(std::uint32_t color, POINT point) const {
        return comes_to(color, [=, this] { return screen_at(point); });
    }
    [[nodiscard]] std::uint32_t screen_at(POINT point) const {
        ClientToScreen(handle(), &point);
        return test_support::grab_client_area(GetDesktopWindow())
            .at(static_cast<unsigned>(point.x), static_cast<unsigned>(point.y));
    }

    static inline std::optional<factory> token;
    std::unique_ptr<serving_window> window;

private:
    static constexpr std::chrono::seconds patience{5};

    template <class Look>
    [[nodiscard]] testing::AssertionResult comes_to(std::uint32_t color, Look look) const {
        std::uint32_t seen = 0;
        const auto is_shown = [&] { return test_support::are_near(color, seen = look(), 1); };
        if (becomes(is_shown)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << std::hex << "expected " << color << ", stands " << seen;
    }

    std::thread::id user_thread;
};

/// The same for what floats: with the window that the platform makes once for the bitmaps of layered windows.
class floating_control_window : public control_window {
protected:
    static void SetUpTestSuite() {
        control_window::SetUpTestSuite();
        layered_window first;
        first.create(nullptr, L"first", {0, 0, 10, 10}, false, false);
        first.destroy_window();
    }
};

}  // namespace d2d::fakes
