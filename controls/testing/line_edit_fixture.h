#pragma once

#include "controls/testing/recording_format.h"
#include "controls/testing/recording_line_edit_style.h"
#include "d2d/input/key.h"
#include "d2d/ui/ILineEdit.h"
#include "scene/command.h"
#include "scene/matrix.h"
#include "scene/testing/geometry_text.h"
#include "scene/testing/tree_test.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace d2d::fakes {

/// A fixture: a line edit below the root of a shown tree, with a style and a format that write down what they
/// are asked.
///
/// What an edit shows is written as its text with "|" for the caret and "[...]" around what is selected:
/// "Ha[rb|]our". It is read from what is drawn, and compared with a layout of the test's own.
class line_edit_fixture : public scene::fakes::tree_test {
protected:
    using codes = std::vector<std::uint32_t>;

    static constexpr D2D_RECT_F rect{10, 20, 210, 42};
    static constexpr std::uint8_t alt = input::key::modifier::alt;
    static constexpr std::uint8_t shift = input::key::modifier::shift;
    static constexpr std::uint8_t control = input::key::modifier::control;

    void SetUp() override {
        tree_test::SetUp();
        style = com::create_object<recording_line_edit_style>(host_log());
        format = com::create_object<recording_format>("own", 12.0f, host_log());
        plain_format =
            scene::ITextFormat::get(L"Tahoma", DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL, 12.0f);
    }
    void TearDown() override {
        drop_edit();
        format.reset();
        plain_format.reset();
        style.reset();
        tree_test::TearDown();
    }

    /// Makes an edit, shows it in the place of the one before, and forgets what that took.
    void make(const wchar_t* text, bool framed = true, const D2D_RECT_F& in = rect) {
        drop_edit();
        has_frame = framed;
        edit = ui::create_line_edit(text, in, framed, format.get(), style->get_IUnknown());
        edit->set_on_change([this] { ++changes; });
        own = edit->get_node();
        root->add_child(own);
        if (target.references() == 0) show();
        changes = 0;
        forget();
    }
    /// Makes an edit that has the focus and looks like this: "Ha[rb|]our". The cursor was never behind its
    /// present place. Without a "|" the cursor has no position yet.
    void make_focused(std::wstring_view look, bool framed = true) {
        std::wstring text;
        std::optional<std::uint32_t> cursor, start, end;
        for (const wchar_t each : look) {
            const auto at = static_cast<std::uint32_t>(text.size());
            if (each == L'|') cursor = at;
            if (each == L'[') start = at;
            if (each == L']') end = at;
            if (each != L'|' && each != L'[' && each != L']') text += each;
        }
        make(text.c_str(), framed);
        focus();
        if (start) click(*cursor == *start ? *end : *start);
        if (cursor) click(*cursor, start ? MK_LBUTTON | MK_SHIFT : MK_LBUTTON);
        changes = 0;
        forget();
    }
    void drop_edit() {
        edit.reset();
        if (own && own->get_parent()) own->get_parent()->remove_child(own);
        own.reset();
    }

    // The user

    void focus() {
        edge->on_focus_gained();
        own->set_focus();
    }
    bool press(std::uint32_t key, std::uint8_t modifiers = 0) {
        return edge->on_key_event({true, false, key, modifiers});
    }
    void type(std::wstring_view text) {
        for (const wchar_t each : text) edge->on_char(each);
    }
    void click_at(D2D_POINT_2F point, std::uint32_t flags = MK_LBUTTON,
                  input::mouse::button button = input::mouse::button::left) {
        edge->on_mouse_event({input::mouse::event_type::button_down, button, flags, point, 0});
    }
    void click(std::uint32_t position, std::uint32_t flags = MK_LBUTTON) {
        const D2D_POINT_2F at = text_origin();
        click_at({at.x + x_of(position) + 0.25f, at.y + 5}, flags);
    }

    /// "left", "shift+end", "click 3", "shift+click 5", "type x".
    void act(std::string_view what) {
        constexpr std::string_view prefix = "shift+";
        const bool with_shift = what.starts_with(prefix);
        if (with_shift) what.remove_prefix(prefix.size());
        const std::string_view rest = what.substr(std::min(what.find(' ') + 1, what.size()));
        if (what.starts_with("click ")) {
            click(static_cast<std::uint32_t>(std::stoul(std::string(rest))),
                  with_shift ? MK_LBUTTON | MK_SHIFT : MK_LBUTTON);
        } else if (what.starts_with("type ")) {
            type(std::wstring(rest.begin(), rest.end()));
        } else {
            press(key_called(what), with_shift ? shift : std::uint8_t{0});
        }
    }
    /// Has the user do one thing after the other with an edit that has the focus, and looks what shows then.
    void follow(const wchar_t* before,
                const std::vector<std::pair<std::string_view, const wchar_t*>>& actions_and_looks,
                bool framed = true) {
        make_focused(before, framed);
        for (const auto& [action, looks] : actions_and_looks) {
            act(action);
            EXPECT_EQ(looks, look()) << action << ", of what was " << testing::PrintToString(before);
        }
    }

    // What shows

    [[nodiscard]] D2D_POINT_2F text_origin() const {
        const D2D_RECT_F in = edit->get_rect();
        if (!has_frame) return {in.left, in.top};
        return {in.left + style->inset_size.width, in.top + style->inset_size.height};
    }
    [[nodiscard]] std::uint32_t length() const { return static_cast<std::uint32_t>(edit->get_text().size()); }
    /// A layout of what the edit holds.
    [[nodiscard]] com::ptr<IDWriteTextLayout> plain_layout() const {
        return plain_format->create_layout(std::wstring_view(edit->get_text()), 1000, 22);
    }
    [[nodiscard]] float x_of(std::uint32_t position) const {
        float x = 0;
        float y = 0;
        DWRITE_HIT_TEST_METRICS metrics{};
        EXPECT_EQ(S_OK, plain_layout()->HitTestTextPosition(position, FALSE, &x, &y, &metrics));
        return x;
    }
    [[nodiscard]] scene::node& edit_node() const { return inside(own); }
    [[nodiscard]] bool has_caret() const { return !edit_node().children.empty(); }
    [[nodiscard]] scene::node& caret_node() const { return *edit_node().children.at(0); }
    [[nodiscard]] std::optional<std::uint32_t> caret() const {
        if (!has_caret()) return {};
        const D2D_MATRIX_3X2_F& place = caret_node().transform;
        EXPECT_TRUE(scene::is_translation(place));
        for (std::uint32_t each = 0; each <= length(); ++each) {
            if (std::floor(text_origin().x + x_of(each)) == place._31) return each;
        }
        throw std::logic_error("the caret is at no character");
    }
    /// The shapes behind the text, by their figures.
    [[nodiscard]] lines selection_figures() const {
        lines found;
        for (const auto& each : edit_node().background) {
            const auto* const fill = std::get_if<scene::fill_command>(&each);
            if (fill) found.push_back(scene::fakes::figures_text(fill->geometry.get()));
        }
        return found;
    }
    [[nodiscard]] std::string figure(float left, float top, float right, float bottom) const {
        return scene::fakes::call_text("closed", left, top, "-", right, top, "-", right, bottom, "-", left,
                                       bottom);
    }
    [[nodiscard]] std::string figure_of(std::uint32_t start, std::uint32_t end) const {
        const auto layout = plain_layout();
        const D2D_POINT_2F at = text_origin();
        DWRITE_HIT_TEST_METRICS run{};
        UINT32 count = 0;
        EXPECT_EQ(S_OK, layout->HitTestTextRange(start, end - start, at.x, at.y, &run, 1, &count));
        return figure(run.left, run.top, run.left + run.width, run.top + run.height);
    }
    [[nodiscard]] std::optional<std::pair<std::uint32_t, std::uint32_t>> selection() const {
        const lines shapes = selection_figures();
        if (shapes.empty()) return {};
        EXPECT_EQ(1u, shapes.size());
        for (std::uint32_t start = 0; start < length(); ++start) {
            for (std::uint32_t end = start + 1; end <= length(); ++end) {
                if (figure_of(start, end) == shapes.front()) return std::pair(start, end);
            }
        }
        throw std::logic_error("the selection is no range of the text: " + shapes.front());
    }
    [[nodiscard]] std::wstring look() const {
        const auto at = caret();
        const auto selected = selection();
        std::wstring text = edit->get_text();
        std::wstring shown;
        for (std::uint32_t each = 0; each <= text.size(); ++each) {
            if (selected && each == selected->first) shown += L'[';
            if (at && each == *at) shown += L'|';
            if (selected && each == selected->second) shown += L']';
            if (each < text.size()) shown += text[each];
        }
        return shown;
    }

    /// What was asked of style and formats since the last time.
    [[nodiscard]] lines asked() {
        lines kept;
        for (auto& line : calls()) {
            if (!line.starts_with("invalidate_rect") && !line.starts_with("request_focus") &&
                !line.starts_with("set_animation_clock"))
                kept.push_back(std::move(line));
        }
        return kept;
    }

    [[nodiscard]] static std::uint32_t key_called(std::string_view name) {
        constexpr std::pair<std::string_view, std::uint32_t> keys[] = {
            {"left", VK_LEFT}, {"right", VK_RIGHT}, {"up", VK_UP},     {"down", VK_DOWN},
            {"home", VK_HOME}, {"end", VK_END},     {"back", VK_BACK}, {"delete", VK_DELETE}};
        for (const auto& [each, code] : keys) {
            if (each == name) return code;
        }
        throw std::logic_error("no such key: " + std::string(name));
    }

    com::ptr<recording_line_edit_style> style;
    com::ptr<recording_format> format;
    com::ptr<scene::ITextFormat> plain_format;
    com::ptr<ui::ILineEdit> edit;
    com::ptr<scene::INode> own;
    bool has_frame = true;
    int changes = 0;
};

}  // namespace d2d::fakes
