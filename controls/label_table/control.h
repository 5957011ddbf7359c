#pragma once

#include "com/base_object.h"
#include "controls/label_table/sections.h"
#include "controls/label_table/tracks.h"
#include "d2d/input/mouse.h"
#include "d2d/ui/ILabelTable.h"
#include "d2d/ui/IScrollArea.h"
#include "scene/handler_slot.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace d2d::ui::label_table {

/// A table in a scroll area. Each section has a node that takes the mouse, and in it one that holds the
/// labels of its rows. Header and footer are in margins of the area; beneath the body lies the drawing of the
/// selection, and on that the one of the row under the mouse.
///
/// `rows` are in the order of insertion. `shown` has those that the last layout has placed and that are still
/// there, from the top down; what the mouse does counts along it.
///
/// Labels, and whoever hears of what they do, may call the table: each change keeps it, and works on rows
/// that it keeps as well.
class control : public com::base_object<com::object_base, ILabelTable> {
public:
    explicit control(IStyle* style_source);
    void final_construct();

    // IElement
    scene::layout::metrics measure() override { return scroll_area->measure(); }
    void arrange(D2D_RECT_F rect) override { scroll_area->arrange(rect); }
    // IControl
    com::ptr<scene::INode> get_node() override { return scroll_area->get_node(); }
    D2D_RECT_F get_rect() override { return scroll_area->get_rect(); }

    // ILabelTable
    void reserved1() override {}
    void clear() override;
    void clear_section(int section) override;
    void add_row(sort_value value, row_key key, int section, std::initializer_list<ILabel*> labels) override;
    void insert_row(unsigned index, int section, sort_value value, row_key key,
                    std::initializer_list<ILabel*> labels) override;
    void remove_row(unsigned index, int section) override;
    void reserved2() override;
    void set_compare(compare_function new_compare) override;
    void clear_compare() override;
    void set_on_header_click(click_function handler) override;
    unsigned get_row_count() const override;
    std::optional<row_key> get_selected_key() const override;
    std::vector<row_key> get_selected_keys() const override;
    std::optional<sort_value> get_selected_value() const override;
    std::vector<sort_value> get_selected_values() const override;
    void enable_multi_select() override { multi_select = true; }
    void disable_multi_select() override { multi_select = false; }
    void begin_update() override { ++update_depth; }
    void end_update() override;

protected:
    ~control() = default;

private:
    using mouse_event = input::mouse::event;
    class label_brushes;

    [[nodiscard]] static com::ptr<scene::INode> make_section_node();
    [[nodiscard]] const com::ptr<scene::INode>& node_of(int section) const noexcept;
    [[nodiscard]] com::ptr<scene::INode>& labels_of(int section) noexcept;

    // Rows.
    /// Whether a row may have so many labels.
    [[nodiscard]] bool fits(std::size_t labels) const noexcept;
    void put_row(std::size_t index, int section, std::shared_ptr<row> added);
    std::shared_ptr<row> take_out(int section, std::size_t index);
    void take_back(int section, const row& added);
    void drop_labels(int section, std::span<const std::shared_ptr<row>> of);

    // Layout.
    void lay_out();
    [[nodiscard]] sections<row*> ordered(sections<std::shared_ptr<row>>& all) const;
    static void measure_cells(sections<row*>& of);
    void place(sections<row*>& measured);
    void arrange_cells(sections<row*>& placed);

    // Selection, and the row under the mouse. Indices count along the body as it is shown.
    [[nodiscard]] std::span<row* const> body_rows() const noexcept { return shown[body]; }
    /// The rows from the first selected one to the last, or more.
    [[nodiscard]] std::span<row* const> candidates() const noexcept;
    /// Rows have come, gone or changed places.
    void forget_candidates() noexcept { selection = {0, body_rows().size()}; }
    void select_by_click(std::size_t clicked, std::uint32_t flags);
    void select_only(index_range wanted);
    void toggle(std::size_t index);
    /// Selects rows that are not selected, and the other way round.
    void turn_over(std::span<row* const> changed);
    void set_hot_row(std::optional<std::size_t> index);
    void draw_selection();
    void draw_hot_row();
    /// The rounded rectangle around rows, shrunk on all sides.
    [[nodiscard]] com::ptr<ID2D1Geometry> shape_around(const row& first, const row& last, float shrunk_by);
    [[nodiscard]] com::ptr<scene::IBrush> brush(std::string_view key) const;

    // The mouse.
    using mouse_operation = bool (control::*)(const mouse_event& event);
    void listen(scene::INode& node, mouse_operation operation);
    bool handle_header_mouse(const mouse_event& event);
    bool handle_body_mouse(const mouse_event& event);
    [[nodiscard]] bool press_body(const mouse_event& event);
    /// Where a row is now that was at `former`.
    [[nodiscard]] std::optional<std::size_t> place_of(const row& wanted, std::size_t former) const noexcept;

    static constexpr float column_gap = 8;  // the smallest margin of a column
    static constexpr float row_gap = 2;     // the smallest margin of a row

    const com::ptr<IStyle> style;
    const com::ptr<IScrollArea> scroll_area;
    const com::ptr<scene::INode> header_node = make_section_node();
    const com::ptr<scene::INode> body_node = make_section_node();
    const com::ptr<scene::INode> footer_node = make_section_node();
    std::array<com::ptr<scene::INode>, all_sections.size()> label_nodes{
        scene::create_node(), scene::create_node(), scene::create_node()};  // by section
    const com::ptr<scene::INode> background_node = scene::create_node();
    std::optional<std::size_t> hot_row;
    com::ptr<scene::INode> hot_node;  // on the background, while a row is hot
    bool multi_select = false;
    std::optional<std::size_t> anchor;  // where a range begins
    index_range selection;              // of the body; no row outside is selected
    sections<column> columns;           // all in the body
    sections<std::shared_ptr<row>> rows;
    sections<row*> shown;
    compare_function compare;  // empty: the order of insertion
    int update_depth = 0;
    unsigned layouts = 0;
    scene::handler_slot<click_function> on_header_click;
};

}  // namespace d2d::ui::label_table
