#pragma once

#include "controls/line_edit/control_base.h"
#include "d2d/input/key.h"
#include "d2d/input/mouse.h"
#include "d2d/ui/ILineEdit.h"
#include "scene/handler_slot.h"

#include <functional>
#include <string>

namespace d2d::line_edit {

/// Joins what is edited and what is drawn: each event is an operation on the model, with one `flush` behind
/// it.
class control : public com::base_object<com::object_base, ui::ILineEdit>, private control_base {
public:
    control(const wchar_t* text, const D2D_RECT_F& edit_rect, bool with_frame,
            scene::ITextFormat* text_format, IUnknown* style_source);
    void final_construct();

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;

    // IControl
    com::ptr<scene::INode> get_node() override { return node; }
    D2D_RECT_F get_rect() override { return rect; }

    // ILineEdit
    void set_on_change(std::function<void()> handler) override;
    void set_text(std::wstring text) override;
    std::wstring get_text() override { return model.text(); }

protected:
    ~control() = default;

private:
    void update();
    [[nodiscard]] bool finish(const edit_model::reaction& reaction);
    void handle_focus(bool gained);
    void handle_mouse(int depth, const input::mouse::event& event);
    [[nodiscard]] bool handle_key(int depth, const input::key::event& event);

    edit_model model;
    scene::handler_slot<std::function<void()>> on_change;
};

}  // namespace d2d::line_edit
