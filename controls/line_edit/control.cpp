#include "controls/line_edit/control.h"

#include "com/object.h"
#include "com/weak_ptr.h"

#include <utility>

namespace d2d::line_edit {

control::control(const wchar_t* text, const D2D_RECT_F& edit_rect, bool with_frame,
                 scene::ITextFormat* text_format, IUnknown* style_source)
    : control_base(edit_rect, with_frame, text_format, style_source), model(text ? text : L"") {}

void control::final_construct() {
    update();
    const com::weak_ptr<control> self(this);
    node->set_focus_handler(false, [self](scene::INode*, scene::INode* new_focus) {
        if (const auto alive = self.lock()) alive->handle_focus(alive->node == new_focus);
    });
    node->add_mouse_handler([self](scene::INode*, int depth, input::mouse::event event) {
        if (const auto alive = self.lock()) alive->handle_mouse(depth, event);
        return false;
    });
    node->add_cursor_handler(
        [](scene::INode*, int, D2D_POINT_2F) -> HICON { return LoadCursorW(nullptr, IDC_IBEAM); });
    node->set_key_handler([self](scene::INode*, int depth, input::key::event event) {
        const auto alive = self.lock();
        return alive && alive->handle_key(depth, event);
    });
    node->set_char_handler([self](scene::INode*, int, wchar_t character) {
        const auto alive = self.lock();
        return alive && alive->finish(alive->model.type(character));
    });
}

scene::layout::metrics control::measure() {
    return measure_text(model.text());
}

void control::arrange(D2D_RECT_F new_rect) {
    move_to(new_rect);
    update();
}

void control::set_on_change(std::function<void()> handler) {
    on_change.set(std::move(handler));
}

void control::set_text(std::wstring text) {
    model.set_text(std::move(text));
    layout_dirty = true;
    update();
}

/// Brings what is drawn up to the model.
void control::update() {
    show_cursor_and_selection(model);
    flush(model.text());
}

bool control::finish(const edit_model::reaction& reaction) {
    if (reaction.text_changed) layout_dirty = true;
    update();
    if (reaction.edited) on_change.call();
    return reaction.handled;
}

void control::handle_focus(bool gained) {
    show_as_focused(gained);
    update();
}

void control::handle_mouse(int depth, const input::mouse::event& event) {
    namespace event_type = input::mouse::event_type;
    if (depth != 0 || event.type != event_type::button_down || event.button != input::mouse::button::left)
        return;
    node->set_focus();
    constexpr std::uint32_t extending = MK_LBUTTON | MK_SHIFT;  // and no other key
    model.click(position_at(event.position), event.flags == extending);
    update();
}

bool control::handle_key(int depth, const input::key::event& event) {
    if (depth != 0 || !event.down) return false;
    return finish(model.press_key(event.key, event.modifiers));
}

}  // namespace d2d::line_edit

namespace d2d::ui {

com::ptr<ILineEdit> create_line_edit(const wchar_t* text, D2D_RECT_F rect, bool framed,
                                     scene::ITextFormat* format, IUnknown* style) {
    return com::create_object<line_edit::control>(text, rect, framed, format, style);
}

}  // namespace d2d::ui
