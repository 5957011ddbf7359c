#pragma once

#include "controls/popup_options/option_row.h"
#include "d2d/scene/IFloatingNode.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace d2d::popup_options {

/// The open list of a control: a frame with a row for each option, in a node of its own. A press in it is a
/// drag that chooses. Its handlers keep it for the length of a call, as it may be ended, and the control
/// released, inside of them.
class option_list : public std::enable_shared_from_this<option_list> {
public:
    using option = ui::IPopupOptions::option;
    using done_function = std::function<void(std::optional<int> choice)>;

    /// `rect` is the control's. `done` ends the list, with what was chosen or without.
    [[nodiscard]] static std::shared_ptr<option_list> create(com::ptr<ui::IPopupOptionsStyle> style,
                                                             const D2D_RECT_F& rect,
                                                             std::span<const option> options,
                                                             done_function done);

    /// Floats the list over a control's node. Messages arrive meanwhile.
    void float_above(scene::INode& control_node);
    /// Gives the labels back, free, and takes no notice of the focus any more.
    void take_apart();
    /// The same, and nothing is seen of the list any more, though a call in it may still run.
    void end_floating();

private:
    option_list(com::ptr<ui::IPopupOptionsStyle> list_style, done_function done)
        : style(std::move(list_style)), on_done(std::move(done)) {}

    void draw_frame(const D2D_RECT_F& rect, std::size_t count);
    void add_rows(const D2D_RECT_F& rect, std::span<const option> options);
    void listen();
    [[nodiscard]] bool handle_mouse(int depth, const input::mouse::event& event);
    void hover_at(D2D_POINT_2F point);
    [[nodiscard]] bool hits(const option_row& row, D2D_POINT_2F point) const;
    [[nodiscard]] std::optional<int> hovered_id() const;
    void finish(std::optional<int> choice);

    const com::ptr<ui::IPopupOptionsStyle> style;
    const com::ptr<scene::INode> node = scene::create_node();
    std::vector<option_row> rows;  // none any more once the list is taken apart
    com::ptr<scene::IFloatingNode> floating;
    const done_function on_done;
    bool finished = false;
};

}  // namespace d2d::popup_options
