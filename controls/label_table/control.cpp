#include "controls/label_table/control.h"

#include "com/object.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace d2d::ui::label_table {
namespace {

constexpr int top_margin = 1;
constexpr int bottom_margin = 3;

void require(bool met, const char* failure) {
    if (!met) throw std::logic_error(failure);
}

std::unique_ptr<row> make_row(ILabelTable::sort_value value, ILabelTable::row_key key,
                              std::initializer_list<ILabel*> labels) {
    auto made = std::make_unique<row>();
    made->cells.reserve(labels.size());
    for (ILabel* const label : labels) made->cells.push_back({label});
    made->value = value;
    made->key = key;
    return made;
}

/// Puts the labels of a row below the node of its section; all of them or none.
void attach_labels(scene::INode& section, const row& added) {
    std::size_t attached = 0;
    try {
        for (; attached < added.cells.size(); ++attached) {
            section.add_child(added.cells[attached].label->get_node());
        }
    } catch (...) {
        while (attached > 0) section.remove_child(added.cells[--attached].label->get_node());
        throw;
    }
}

}  // namespace

control::control(IStyle* style_source)
    : style(style_source ? style_source : get_default_style(nullptr)),
      scroll_area(create_scroll_area({}, style.get())) {}

void control::final_construct() {
    scroll_area->add_margin_scrolled_node(top_margin, header_node);
    scroll_area->add_content(background_node);
    scroll_area->add_content(body_node);
    scroll_area->add_margin_scrolled_node(bottom_margin, footer_node);
    listen_to_header();
    listen_to_body();
}

com::ptr<scene::INode> control::make_section_node() {
    auto made = scene::create_node();
    made->set_hit_mode(scene::INode::hit_solid);
    return made;
}

const com::ptr<scene::INode>& control::node_of(int section) const noexcept {
    if (section == header) return header_node;
    return section == body ? body_node : footer_node;
}

// Labels, and handlers that hear of them, may drop the table: each change keeps it.

void control::clear() {
    const com::ptr<control> keep = this;
    shown.clear();
    rows.clear();
    columns.clear();
    forget_candidates();
    anchor.reset();
    renew_header();
    renew_body();
    renew_footer();
}

void control::clear_section(int section) {
    if (section != body) std::abort();
    const com::ptr<control> keep = this;
    shown.clear(body);
    rows.clear(body);
    forget_candidates();
    anchor.reset();
    renew_body();
}

// A node that is left with its labels as a whole lets them go at the cost of one walk.

void control::renew_header() {
    scroll_area->remove_margin_scrolled_node(top_margin, std::exchange(header_node, make_section_node()));
    scroll_area->add_margin_scrolled_node(top_margin, header_node);
    listen_to_header();
}

void control::renew_body() {
    scroll_area->remove_content(std::exchange(body_node, make_section_node()));
    scroll_area->add_content(body_node);
    listen_to_body();
}

void control::renew_footer() {
    scroll_area->remove_margin_scrolled_node(bottom_margin, std::exchange(footer_node, make_section_node()));
    scroll_area->add_margin_scrolled_node(bottom_margin, footer_node);
}

bool control::fits(std::size_t labels) const noexcept {
    return rows.empty() ? columns.empty() || labels == columns.size(body) : labels == columns.size(body);
}

void control::add_row(sort_value value, row_key key, int section, std::initializer_list<ILabel*> labels) {
    check_section(section);
    require(fits(labels.size()), "Wrong number of values for row");
    put_row(rows.size(section), section, make_row(value, key, labels));
}

void control::insert_row(unsigned index, int section, sort_value value, row_key key,
                         std::initializer_list<ILabel*> labels) {
    check_section(section);
    require(fits(labels.size()), "not expected");
    put_row(std::min<std::size_t>(index, rows.size(section)), section, make_row(value, key, labels));
}

void control::put_row(std::size_t index, int section, std::unique_ptr<row> added) {
    const com::ptr<control> keep = this;
    sections<column> first_columns;
    if (rows.empty()) {
        for (std::size_t i = 0; i < added->cells.size(); ++i) first_columns.append(body, {});
    }
    rows.make_room();
    attach_labels(*node_of(section), *added);
    if (rows.empty()) columns = std::move(first_columns);
    rows.insert(section, index, std::move(added));
}

void control::remove_row(unsigned index, int section) {
    check_section(section);
    require(index < rows.size(section), "invalid row number");
    const com::ptr<control> keep = this;
    const std::unique_ptr<row> removed = rows.take(section, index);
    const auto placed = shown[section];
    const auto place = std::find(placed.begin(), placed.end(), removed.get());
    if (place != placed.end()) shown.take(section, static_cast<std::size_t>(place - placed.begin()));
    forget_candidates();
    const com::ptr<scene::INode> section_node = node_of(section);
    for (const cell& each : removed->cells) section_node->remove_child(each.label->get_node());
}

void control::reserved2() {
    throw std::logic_error("not implemented");
}

void control::set_compare(compare_function new_compare) {
    compare = std::move(new_compare);
}

void control::clear_compare() {
    compare = nullptr;
}

void control::set_on_header_click(click_function handler) {
    on_header_click.set(std::move(handler));
}

unsigned control::get_row_count() const {
    return static_cast<unsigned>(rows.size(body));
}

void control::end_update() {
    if (--update_depth == 0) lay_out();
}

void control::lay_out() {
    const com::ptr<control> keep = this;
    if (hot_row && *hot_row >= rows.size(body)) hot_row.reset();
    order_rows();
    measure_cells();
    const float width = place_tracks(columns);
    const float height = place_tracks(shown);
    scroll_area->set_margin_scrolled_size(top_margin, thickness_of(shown[header]));
    scroll_area->set_margin_scrolled_size(bottom_margin, thickness_of(shown[footer]));
    scroll_area->set_content_bounds({0, 0, width, height});
    arrange_cells();
    draw_hot_row();
    draw_selection();
}

void control::order_rows() {
    sections<row*> ordered;
    for (const int section : all_sections) {
        for (const auto& each : rows[section]) ordered.append(section, each.get());
    }
    if (const compare_function order = compare) {
        const auto sorted = ordered[body];
        std::stable_sort(sorted.begin(), sorted.end(),
                         [&](const row* a, const row* b) { return order(a->value, b->value) < 0; });
    }
    shown = std::move(ordered);
    forget_candidates();
}

void control::measure_cells() {
    for (column& each : columns.all()) each.forget_demands();
    for (row* const each : shown.all()) {
        each->forget_demands();
        auto across = columns.all().begin();
        for (cell& measured : each->cells) {
            measured.measured = measured.label->measure();
            each->take_in(demand_down(measured.measured), row_gap);
            across++->take_in(demand_across(measured.measured), column_gap);
        }
    }
}

void control::arrange_cells() {
    for (const row* const each : shown.all()) {
        auto across = columns.all().begin();
        for (const cell& placed : each->cells) {
            placed.label->arrange({across->start, each->start, across->end, each->end});
            ++across;
        }
    }
}

}  // namespace d2d::ui::label_table

namespace d2d::ui {

com::ptr<ILabelTable> create_label_table(IStyle* style) {
    return com::create_object<label_table::control>(style);
}

}  // namespace d2d::ui
