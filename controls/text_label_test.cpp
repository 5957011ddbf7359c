// A label of text: centred on its origin until it is arranged, in one brush and one format.

#include "controls/testing/label_test.h"
#include "d2d/ui/IButton.h"
#include "d2d/ui/IIconLabel.h"
#include "d2d/ui/ITextLabel.h"
#include "scene/testing/metrics_text.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using fakes::failure_of;
using scene::fakes::call_text;
using scene::fakes::same;
using scene::fakes::text_of;

class text_label_test : public fakes::label_test {
protected:
    static constexpr const char* blue_text = "0 0 1 1";
    static constexpr const char* red_text = "1 0 0 1";

    void SetUp() override {
        label_test::SetUp();
        format = com::create_object<fakes::recording_format>("own", 20.0f, host_log());
    }
    void TearDown() override {
        label.reset();
        format.reset();
        label_test::TearDown();
    }

    void show_label(std::wstring_view text, scene::ITextFormat* own_format = nullptr) {
        label = ui::create_text_label(text, own_format, style.get());
        show_node(label->get_node());
    }
    /// What the platform measures of a text.
    [[nodiscard]] static D2D_SIZE_F extent(std::wstring_view text, float size) {
        const auto layout =
            scene::ITextFormat::get(L"Tahoma", DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL, size)
                ->create_layout(text, 0, 0);
        DWRITE_TEXT_METRICS metrics{};
        EXPECT_EQ(S_OK, layout->GetMetrics(&metrics));
        return {metrics.width, metrics.height};
    }
    [[nodiscard]] static D2D_RECT_F centred(D2D_SIZE_F size) {
        const float left = -size.width * 0.5f;
        const float top = -size.height * 0.5f;
        return {left, top, left + size.width, top + size.height};
    }
    [[nodiscard]] static std::string exactly(D2D_SIZE_F size) {
        const std::string text = text_of(D2D_SIZE_F{std::ceil(size.width), std::ceil(size.height)});
        return "margin 0,0,0,0 min " + text + " max " + text + " preferred " + text;
    }
    [[nodiscard]] static lines text_at(const D2D_RECT_F& rect, const char* color) {
        return {
            call_text("DrawTextLayout", rect.left, rect.top, std::string("layout brush(") + color + ") 0")};
    }

    com::ptr<fakes::recording_format> format;
    com::ptr<ui::ITextLabel> label;
};

TEST_F(text_label_test, answers_for_its_interfaces) {
    const auto made = ui::create_text_label(L"Sail", nullptr, nullptr);
    EXPECT_TRUE(answers<IUnknown>(made));
    EXPECT_TRUE(answers<ui::ITextLabel>(made));
    EXPECT_TRUE(answers<ui::ILabel>(made));
    EXPECT_TRUE(answers<ui::IControl>(made));
    EXPECT_TRUE(answers<scene::layout::IElement>(made));
    EXPECT_FALSE(answers<ui::IIconLabel>(made));
    EXPECT_FALSE(answers<ui::IButton>(made));
}

TEST_F(text_label_test, is_centred_on_its_origin_and_as_large_as_its_text) {
    show_label(L"Harbour");
    const D2D_SIZE_F size = extent(L"Harbour", 12);
    ASSERT_GT(size.width, 20);
    EXPECT_TRUE(same(centred(size), label->get_rect()));
    EXPECT_EQ(exactly(size), text_of(label->measure()));
    EXPECT_TRUE(same(scene::identity_matrix, label->get_node()->get_transform()));
    EXPECT_EQ(text_at(centred(size), blue_text), drawing());
}

TEST_F(text_label_test, measures_whole_pixels) {
    bool broken = false;
    for (const wchar_t* const text : {L"i", L"sail", L"Harbour", L"mossy stones", L"two\nlines"}) {
        const auto made = ui::create_text_label(text, nullptr, style.get());
        const D2D_SIZE_F size = extent(text, 12);
        broken = broken || size.width != std::ceil(size.width);
        EXPECT_EQ(exactly(size), text_of(made->measure()));
        EXPECT_TRUE(same(centred(size), made->get_rect()));
    }
    EXPECT_TRUE(broken) << "no text that has to be rounded";
}

TEST_F(text_label_test, is_made_of_either_kind_of_text) {
    const auto wide =
        ui::create_text_label(std::wstring_view(L"\u00C4g\u00E4is \xD83D\xDE00"), nullptr, style.get());
    EXPECT_EQ((lines{"text_format", "style: 8 units in 0 0", "text_brush 1"}), asked());
    const auto narrow =
        ui::create_text_label(std::string_view("\xC3\x84g\xC3\xA4is \xF0\x9F\x98\x80"), nullptr, style.get());
    EXPECT_EQ((lines{"text_format", "style: 12 bytes in 0 0", "text_brush 1"}), asked());
    EXPECT_TRUE(same(centred(extent(L"\u00C4g\u00E4is \xD83D\xDE00", 12)), wide->get_rect()));
    EXPECT_TRUE(same(wide->get_rect(), narrow->get_rect()));
}

TEST_F(text_label_test, asks_its_style_for_the_format_at_each_text) {
    show_label(L"one");
    label->set_text(L"three");
    EXPECT_EQ((lines{"text_format", "style: 5 units in 0 0", "text_brush 1"}), asked());
    style->format = format;
    label->set_text("seventeen");
    EXPECT_EQ((lines{"text_format", "own: 9 bytes in 0 0", "text_brush 1"}), asked());
    EXPECT_TRUE(same(centred(extent(L"seventeen", 20)), label->get_rect()));
    EXPECT_EQ(text_at(centred(extent(L"seventeen", 20)), blue_text), drawing());
}

TEST_F(text_label_test, keeps_the_format_that_it_was_given) {
    label = ui::create_text_label("one", format.get(), style.get());
    show_node(label->get_node());
    EXPECT_TRUE(same(centred(extent(L"one", 20)), label->get_rect()));
    label->set_text(L"three");
    EXPECT_EQ((lines{"own: 5 units in 0 0", "text_brush 1"}), asked());
    EXPECT_TRUE(same(centred(extent(L"three", 20)), label->get_rect()));
    EXPECT_EQ(2u, holders(format));
    root->remove_child(label->get_node());
    label.reset();
    EXPECT_EQ(1u, holders(format));
    EXPECT_EQ(1u, holders(style));
}

TEST_F(text_label_test, damages_the_old_text_and_the_new_one) {
    show_label(L"one");
    const D2D_RECT_F old_rect = label->get_rect();
    label->set_text(L"seventeen");
    EXPECT_EQ(
        (lines{"text_format", "style: 9 units in 0 0", "text_brush 1", call_text("invalidate_rect", old_rect),
               call_text("invalidate_rect", centred(extent(L"seventeen", 12)))}),
        calls());
}

TEST_F(text_label_test, without_text_is_nothing) {
    for (const bool wide : {false, true}) {
        const auto made = wide ? ui::create_text_label(L"", format.get(), style.get())
                               : ui::create_text_label("", format.get(), style.get());
        EXPECT_TRUE(same(D2D_RECT_F{}, made->get_rect()));
        EXPECT_EQ(exactly({}), text_of(made->measure()));
        EXPECT_TRUE(same(D2D_RECT_F{}, made->get_node()->get_bounds(true)));
        EXPECT_FALSE(made->get_node()->hit_test({0, 0}));
        for (const auto& line : calls()) EXPECT_EQ("text_brush 1", line);  // nothing is laid out
        made->arrange({1, 2, 3, 4});
        EXPECT_TRUE(same(D2D_RECT_F{1, 2, 3, 4}, made->get_rect()));
        EXPECT_EQ(exactly({}), text_of(made->measure()));
        forget();
    }
}

TEST_F(text_label_test, empty_text_that_is_set_is_laid_out) {
    show_label(L"Harbour");
    const D2D_SIZE_F size = extent(L"", 12);
    ASSERT_EQ(0, size.width);
    ASSERT_GT(size.height, 10);
    label->set_text(L"");
    EXPECT_EQ((lines{"text_format", "style: 0 units in 0 0", "text_brush 1"}), asked());
    EXPECT_TRUE(same(centred(size), label->get_rect()));
    EXPECT_EQ(exactly(size), text_of(label->measure()));
    label->set_text("");
    EXPECT_EQ((lines{"text_format", "style: 0 bytes in 0 0", "text_brush 1"}), asked());
    EXPECT_EQ(exactly(size), text_of(label->measure()));
    EXPECT_EQ(text_at(centred(size), blue_text), drawing());
}

TEST_F(text_label_test, stands_in_the_corner_that_it_is_arranged_to) {
    show_label(L"Harbour");
    const D2D_SIZE_F size = extent(L"Harbour", 12);
    label->arrange({10, 20, 90, 50});
    EXPECT_EQ((lines{"text_brush 1", call_text("invalidate_rect", centred(size)),
                     call_text("invalidate_rect", 10, 20, 10 + size.width, 20 + size.height)}),
              calls());
    EXPECT_TRUE(same(D2D_RECT_F{10, 20, 90, 50}, label->get_rect()));
    EXPECT_EQ(text_at({10, 20, 0, 0}, blue_text), drawing());
    EXPECT_EQ(exactly(size), text_of(label->measure()));
    EXPECT_TRUE(same(scene::identity_matrix, label->get_node()->get_transform()));
    label->arrange({10, 20, 90, 50});
    EXPECT_EQ((lines{"text_brush 1"}), asked());
    label->set_text(L"Harbour");  // in the middle again
    EXPECT_TRUE(same(centred(size), label->get_rect()));
    EXPECT_EQ(text_at(centred(size), blue_text), drawing());
}

TEST_F(text_label_test, brush_draws_anew_only_when_it_is_another) {
    show_label(L"Harbour");
    const auto red_brush = make_brush(red);
    label->set_brush(nullptr);
    EXPECT_EQ((lines{}), calls());
    label->set_brush(red_brush);
    const std::string damage = call_text("invalidate_rect", label->get_rect());
    EXPECT_EQ((lines{damage, damage}), calls());
    EXPECT_EQ(text_at(label->get_rect(), red_text), drawing());
    label->set_brush(red_brush);
    EXPECT_EQ((lines{}), calls());
    label->set_brush(make_brush(red));  // equal, but another object
    EXPECT_EQ((lines{damage, damage}), calls());
    label->set_brush(nullptr);
    EXPECT_EQ((lines{"text_brush 1", damage, damage}), calls());
    EXPECT_EQ(text_at(label->get_rect(), blue_text), drawing());
}

TEST_F(text_label_test, brush_stays_through_new_texts_and_places) {
    show_label(L"Harbour");
    label->set_brush(make_brush(red));
    label->set_text("Sail");
    EXPECT_EQ((lines{"text_format", "style: 4 bytes in 0 0"}), asked());
    EXPECT_EQ(text_at(label->get_rect(), red_text), drawing());
    label->arrange({1, 2, 3, 4});
    EXPECT_EQ(text_at({1, 2, 3, 4}, red_text), drawing());
}

TEST_F(text_label_test, is_hit_on_its_text) {
    show_label(L"HHHHHH");
    const D2D_RECT_F rect = label->get_rect();
    const auto node = label->get_node();
    EXPECT_TRUE(node->hit_test({0, 0}));
    EXPECT_TRUE(node->hit_test({rect.left + 2, rect.top + 2}));
    EXPECT_FALSE(node->hit_test({rect.left - 3, 0}));
    EXPECT_FALSE(node->hit_test({0, rect.bottom + 3}));
    // The platform takes what is right of the text for the trailing half of its last letter. The tree asks
    // within the bounds alone.
    const auto is_found = [this](float x, float y) {
        return root->enumerate_hits({x, y}, true, [](const auto&, auto) { return true; });
    };
    EXPECT_TRUE(is_found(rect.right - 2, 0));
    EXPECT_FALSE(is_found(rect.right + 3, 0));
}

TEST_F(text_label_test, malformed_text_is_refused_and_changes_nothing) {
    show_label(L"Harbour");
    const D2D_RECT_F rect = label->get_rect();
    const lines before = drawing();
    for (const char* const text : {"\xC3", "a\xFF", "\xE2\x82\xC2\x80"}) {
        EXPECT_NE(S_OK, failure_of([&] { label->set_text(text); }));
        EXPECT_NE(S_OK,
                  failure_of([&] { static_cast<void>(ui::create_text_label(text, nullptr, style.get())); }));
    }
    EXPECT_TRUE(same(rect, label->get_rect()));
    EXPECT_EQ(before, drawing());
    EXPECT_EQ(exactly(extent(L"Harbour", 12)), text_of(label->measure()));
}

TEST_F(text_label_test, metrics_that_the_platform_refuses_throw_and_change_nothing) {
    show_label(L"Harbour", format.get());
    const D2D_RECT_F rect = label->get_rect();
    const lines before = drawing();
    format->ready = scene::ITextFormat::get(L"Tahoma", DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL, 9)
                        ->create_layout(std::wstring_view(L"small"), 0, 0);
    {
        const fakes::failing_metrics failing(format->ready.get());
        EXPECT_EQ(failing.failure, failure_of([&] { label->set_text(L"small"); }));
        EXPECT_EQ(failing.failure, failure_of([&] { static_cast<void>(label->measure()); }));
        EXPECT_EQ(failing.failure, failure_of([&] {
                      static_cast<void>(ui::create_text_label(L"small", format.get(), style.get()));
                  }));
    }
    EXPECT_TRUE(same(rect, label->get_rect()));
    EXPECT_EQ(before, drawing());
    EXPECT_EQ(exactly(extent(L"Harbour", 20)), text_of(label->measure()));
    label->set_text(L"small");
    EXPECT_TRUE(same(centred(extent(L"small", 9)), label->get_rect()));
}

TEST_F(text_label_test, style_without_text_is_refused) {
    const auto other = com::create_object<fakes::recording_group_box_style>(nullptr);
    EXPECT_EQ(E_NOINTERFACE,
              failure_of([&] { static_cast<void>(ui::create_text_label(L"Sail", nullptr, other.get())); }));
}

TEST_F(text_label_test, default_style_gives_black_letters_of_12_pixels) {
    label = ui::create_text_label(L"Harbour", nullptr, nullptr);
    show_node(label->get_node());
    const auto plain =
        scene::ITextFormat::get(L"Sans Serif", DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL, 12);
    DWRITE_TEXT_METRICS metrics{};
    plain->create_layout(std::wstring_view(L"Harbour"), 0, 0)->GetMetrics(&metrics);
    EXPECT_TRUE(same(centred({metrics.width, metrics.height}), label->get_rect()));
    EXPECT_EQ(text_at(label->get_rect(), "0 0 0 1"), drawing());
}

TEST_F(text_label_test, node_that_is_kept_shows_the_text_on) {
    show_label(L"Harbour");
    const lines before = drawing();
    ASSERT_EQ(1u, before.size());
    label.reset();
    EXPECT_EQ(1u, holders(style));
    EXPECT_EQ(before, drawing());
}

}  // namespace
}  // namespace d2d
