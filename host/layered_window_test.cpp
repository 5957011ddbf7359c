#include "d2d/layered_window.h"

#include "d2d/layered_window_host.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/IView.h"
#include "d2d/window.h"
#include "host/testing/fake_lower_edge.h"
#include "scene/testing/call_text.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/picture.h"
#include "support/shown.h"
#include "support/wine.h"

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

class recording_layered_window : public layered_window {
public:
    using layered_window::redraw;
    using layered_window::resize;

    std::vector<std::string> calls;
    std::function<void(ID2D1RenderTarget*)> on_render;
    [[nodiscard]] std::vector<std::string> take_calls() { return std::exchange(calls, {}); }

    void render(ID2D1RenderTarget* drawn_on, D2D_RECT_F invalid) override {
        write(drawn_on, "render", invalid);
        if (on_render) {
            on_render(drawn_on);
        } else {
            layered_window::render(drawn_on, invalid);
        }
    }
    void acquire_independant_resources() override { calls.emplace_back("acquire independent"); }
    void release_independant_resources() override { calls.emplace_back("release independent"); }
    void acquire_render_target_dependant_resources(ID2D1RenderTarget* drawn_on) override {
        write(drawn_on, "acquire");
    }
    void release_render_target_dependant_resources(ID2D1RenderTarget* drawn_on) override {
        write(drawn_on, "release");
    }
    void acquire_render_target_size_dependant_resources(ID2D1RenderTarget* drawn_on, bool resized) override {
        write(drawn_on, "acquire size", resized, render_target_size());
    }
    void release_render_target_size_dependant_resources(ID2D1RenderTarget* drawn_on, bool resized) override {
        write(drawn_on, "release size", resized, render_target_size());
    }

private:
    template <class... Words>
    void write(ID2D1RenderTarget* drawn_on, const Words&... words) {
        calls.push_back(call_text(words...));
        if (drawn_on != render_target()) calls.emplace_back("on another target");
    }
};

/// White, behind the layered window of a test.
class backdrop : public d2d::window {
public:
    void render(ID2D1RenderTarget* target, D2D_RECT_F) override {
        constexpr D2D1_COLOR_F white{1, 1, 1, 1};
        target->Clear(&white);
    }
};

class layered : public test_support::leak_checked_test {
protected:
    static constexpr RECT place{60, 70, 160, 120};

    static void SetUpTestSuite() {
        token.emplace();
        // With the first bitmap the platform makes a device for all of them, which has a window.
        layered_window first;
        open(first);
        first.destroy_window();
    }
    static void TearDownTestSuite() { token.reset(); }

    static void open(layered_window& opened) { opened.create(nullptr, L"layered", place, false, true); }
    static RECT place_of(const layered_window& asked) {
        RECT rect{};
        GetWindowRect(asked.get_window_handle(), &rect);
        return rect;
    }
    static std::string text_of(const RECT& rect) {
        return call_text(rect.left, rect.top, rect.right, rect.bottom);
    }
    /// Does the layered window come to look so at a point, above white? A channel may differ by `tolerance`.
    static testing::AssertionResult shows_above_white(layered_window& shown, std::uint32_t color, unsigned x,
                                                      unsigned y, int tolerance = 0) {
        backdrop behind;
        behind.create_window(WS_EX_TOPMOST, L"behind", WS_POPUP, 40, 40, 300, 200, nullptr, nullptr);
        ShowWindow(behind.get_window_handle(), SW_SHOWNA);
        UpdateWindow(behind.get_window_handle());
        SetWindowPos(shown.get_window_handle(), HWND_TOPMOST, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
        const auto is_near = [&](const test_support::picture& seen) {
            return test_support::are_near(color, seen.at(x, y), tolerance);
        };
        const auto seen = test_support::grab_when(shown.get_window_handle(), is_near);
        behind.destroy_window();
        if (is_near(seen)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << std::hex << seen.at(x, y) << " instead of " << color;
    }

    static inline std::optional<factory> token;
};

TEST_F(layered, draws_itself_with_its_creation) {
    recording_layered_window opened;
    EXPECT_EQ(nullptr, opened.render_target());
    open(opened);
    EXPECT_THAT(opened.take_calls(),
                ElementsAre("acquire independent", "acquire", "acquire size 0 100 50", "render 0 0 100 50"));
    EXPECT_EQ("60 70 160 120", text_of(place_of(opened)));
    EXPECT_EQ(100, opened.size().cx);
    EXPECT_EQ(50, opened.size().cy);
    EXPECT_FALSE(IsWindowVisible(opened.get_window_handle()));
    opened.destroy_window();
    EXPECT_THAT(opened.take_calls(), ElementsAre("release size 0 100 50", "release", "release independent"));
    EXPECT_EQ(nullptr, opened.render_target());
}

TEST_F(layered, has_the_styles_that_were_asked_for) {
    for (const bool transparent : {false, true}) {
        for (const bool topmost : {false, true}) {
            recording_layered_window opened;
            opened.create(nullptr, L"layered", place, transparent, topmost);
            const LONG_PTR ex_style = GetWindowLongPtrW(opened.get_window_handle(), GWL_EXSTYLE);
            EXPECT_NE(0, ex_style & WS_EX_LAYERED);
            EXPECT_EQ(transparent, (ex_style & WS_EX_TRANSPARENT) != 0);
            EXPECT_EQ(topmost, (ex_style & WS_EX_TOPMOST) != 0);
            EXPECT_NE(0, GetWindowLongPtrW(opened.get_window_handle(), GWL_STYLE) &
                             static_cast<LONG_PTR>(WS_POPUP));
            opened.destroy_window();
        }
    }
}

TEST_F(layered, moves_and_fades_without_drawing) {
    recording_layered_window opened;
    open(opened);
    opened.calls.clear();
    opened.move(200, 210);
    EXPECT_EQ("200 210 300 260", text_of(place_of(opened)));
    opened.move(POINT{10, 20}, 128);
    EXPECT_EQ("10 20 110 70", text_of(place_of(opened)));
    opened.set_alpha(64);
    opened.move(30, 40, 255);
    opened.move(POINT{50, 60});
    EXPECT_EQ("50 60 150 110", text_of(place_of(opened)));
    EXPECT_THAT(opened.calls, IsEmpty());
    opened.destroy_window();
}

TEST_F(layered, painting_at_the_present_size_keeps_the_bitmap) {
    recording_layered_window opened;
    open(opened);
    opened.calls.clear();
    ID2D1RenderTarget* const before = opened.render_target();
    opened.move_and_paint(10, 20, 100, 50);
    EXPECT_THAT(opened.calls, ElementsAre("render 0 0 100 50"));
    EXPECT_EQ(before, opened.render_target());
    EXPECT_EQ("10 20 110 70", text_of(place_of(opened)));
    opened.destroy_window();
}

TEST_F(layered, painting_at_another_size_exchanges_the_bitmap) {
    recording_layered_window opened;
    open(opened);
    opened.calls.clear();
    opened.move_and_paint(RECT{10, 20, 90, 80});
    EXPECT_THAT(opened.take_calls(), ElementsAre("release size 0 100 50", "release", "acquire",
                                                 "acquire size 0 80 60", "render 0 0 80 60"));
    EXPECT_EQ("10 20 90 80", text_of(place_of(opened)));
    EXPECT_EQ(80u, opened.render_target_size().width);
    opened.resize({80, 60});
    EXPECT_THAT(opened.take_calls(), IsEmpty());
    opened.resize({40, 30});
    EXPECT_THAT(opened.take_calls(),
                ElementsAre("release size 0 80 60", "release", "acquire", "acquire size 0 40 30"));
    opened.destroy_window();
}

TEST_F(layered, an_empty_window_is_refused) {
    recording_layered_window opened;
    EXPECT_ANY_THROW(opened.create(nullptr, L"layered", {10, 10, 10, 20}, false, false));
}

TEST_F(layered, what_render_throws_leaves_the_window_able_to_draw) {
    recording_layered_window opened;
    open(opened);
    opened.on_render = [](ID2D1RenderTarget*) { throw std::runtime_error("no paint today"); };
    EXPECT_THROW(opened.redraw(), std::runtime_error);
    opened.on_render = [](ID2D1RenderTarget* target) {
        constexpr D2D1_COLOR_F red{1, 0, 0, 1};
        target->Clear(&red);
    };
    opened.redraw();
    EXPECT_TRUE(shows_above_white(opened, 0xFFFF0000, 50, 25));
    opened.destroy_window();
}

TEST_F(layered, shows_its_colours_by_their_alpha) {
    recording_layered_window opened;
    opened.on_render = [](ID2D1RenderTarget* target) {
        constexpr D2D1_COLOR_F half_black{0, 0, 0, 0.5f};
        target->Clear(&half_black);
    };
    open(opened);
    EXPECT_TRUE(shows_above_white(opened, 0xFF808080, 50, 25, 2));
    const auto fade = [&](int alpha) {
        opened.set_alpha(alpha);
        // Wine shows another alpha with the next picture only.
        if (test_support::running_under_wine()) opened.redraw();
    };
    fade(128);
    EXPECT_TRUE(shows_above_white(opened, 0xFFBFBFBF, 50, 25, 2));
    fade(0x7FF);  // the low byte
    EXPECT_TRUE(shows_above_white(opened, 0xFF808080, 50, 25, 2));
    opened.destroy_window();
}

TEST_F(layered, without_a_window_draws_nothing) {
    recording_layered_window none;
    none.redraw();
    EXPECT_THAT(none.calls, IsEmpty());
}

class layered_host : public layered {
protected:
    void TearDown() override {
        EXPECT_EQ(0u, edge.references());
        layered::TearDown();
    }
    fakes::fake_lower_edge edge;
};

TEST_F(layered_host, draws_its_view_with_its_creation) {
    {
        layered_window_host opened{com::ptr<IViewLowerEdge>(&edge)};
        open(opened);
        EXPECT_THAT(edge.take_calls(),
                    ElementsAre("attach_site", "attach_render_target", "render 0 0 100 50 at 0 0"));
        EXPECT_EQ(opened.render_target(), edge.target);
        opened.destroy_window();
        EXPECT_THAT(edge.take_calls(), ElementsAre("detach_render_target"));
    }
    EXPECT_THAT(edge.calls, ElementsAre("detach_site"));
}

TEST_F(layered_host, each_invalidation_is_a_whole_redraw_at_once) {
    layered_window_host opened;
    open(opened);
    EXPECT_EQ(nullptr, opened.set_lower_edge(&edge));
    edge.calls.clear();
    edge.site->invalidate_rect({1, 2, 3, 4});
    edge.site->invalidate_rect({5, 6, 7, 8});
    EXPECT_THAT(edge.take_calls(), ElementsAre("render 0 0 100 50 at 0 0", "render 0 0 100 50 at 0 0"));
    opened.destroy_window();
    edge.calls.clear();
    edge.site->invalidate_rect({1, 2, 3, 4});  // nothing to draw on any more
    EXPECT_THAT(edge.calls, IsEmpty());
}

TEST_F(layered_host, a_subclass_hears_what_is_invalid) {
    class listening : public layered_window_host {
    public:
        std::vector<std::string> heard;
        void invalidate(RECT rect) override { heard.push_back(text_of(rect)); }
    };
    listening opened;
    open(opened);
    opened.set_lower_edge(&edge);
    edge.calls.clear();
    edge.site->invalidate_rect({0.5f, 2, 3, 4.5f});
    EXPECT_THAT(opened.heard, ElementsAre("0 2 3 5"));
    EXPECT_THAT(edge.calls, IsEmpty());
    opened.destroy_window();
}

TEST_F(layered_host, messages_reach_the_view) {
    layered_window_host opened{com::ptr<IViewLowerEdge>(&edge)};
    open(opened);
    edge.calls.clear();
    EXPECT_EQ(0, SendMessageW(opened.get_window_handle(), WM_CHAR, 'a', 0));
    EXPECT_THAT(edge.take_calls(), ElementsAre("char 97"));
    opened.destroy_window();
}

TEST_F(layered_host, shows_nothing_where_the_view_draws_nothing) {
    const auto root = scene::create_node();
    const auto context = root->draw(false);
    context->fill_geometry(factory::create_rectangle_geometry({0, 0, 20, 20}).get(),
                           scene::create_solid_color_brush({1, 0, 0, 1}).get());
    context->commit();
    const auto view = scene::create_view();
    view->set_root(root);
    layered_window_host opened{com::ptr<IViewLowerEdge>(view)};
    open(opened);
    EXPECT_TRUE(shows_above_white(opened, 0xFFFF0000, 10, 10));
    EXPECT_TRUE(shows_above_white(opened, 0xFFFFFFFF, 50, 25));
    opened.destroy_window();
    view->set_root(nullptr);
}

}  // namespace
