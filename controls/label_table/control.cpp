#include "controls/label_table/control.h"

#include "com/object.h"
#include "com/weak_ptr.h"
#include "scene/node.h"

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

std::shared_ptr<row> make_row(ILabelTable::sort_value value, ILabelTable::row_key key,
                              std::initializer_list<ILabel*> labels) {
    auto made = std::make_shared<row>();
    made->cells.reserve(labels.size());
    for (ILabel* const label : labels) made->cells.push_back({label});
    made->value = value;
    made->key = key;
    return made;
}

void detach_labels(scene::INode& node, std::span<const cell> cells) {
    for (const cell& each : cells) node.remove_child(each.label->get_node());
}

/// Puts the labels of a row below a node, as long as the row is there; all of them or none.
void attach_labels(scene::INode& node, const row& added) {
    const std::span<const cell> cells = added.cells;
    std::size_t attached = 0;
    try {
        while (attached < cells.size() && !added.removed) {
            node.add_child(cells[attached].label->get_node());
            ++attached;
        }
    } catch (...) {
        detach_labels(node, cells.first(attached));
        throw;
    }
    if (added.removed) detach_labels(node, cells.first(attached));
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
    for (const int section : all_sections) node_of(section)->add_child(labels_of(section));
    listen(*header_node, &control::handle_header_mouse);
    listen(*body_node, &control::handle_body_mouse);
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

com::ptr<scene::INode>& control::labels_of(int section) noexcept {
    return label_nodes[static_cast<std::size_t>(section - header)];
}

void control::clear() {
    const com::ptr<control> keep = this;
    auto former = std::exchange(rows, {});
    for (const auto& each : former.all()) each->removed = true;
    shown.clear();
    columns.clear();
    forget_candidates();
    anchor.reset();
    for (const int section : all_sections) drop_labels(section, former[section]);
}

void control::clear_section(int section) {
    if (section != body) std::abort();
    const com::ptr<control> keep = this;
    const auto former = rows.take_all(body);
    for (const auto& each : former) each->removed = true;
    shown.take_all(body);
    forget_candidates();
    anchor.reset();
    drop_labels(body, former);
}

/// A node that goes with its labels as a whole lets them go at the cost of one walk; the section's own one
/// stays, and the mouse with it.
void control::drop_labels(int section, std::span<const std::shared_ptr<row>> of) {
    const auto& section_node = node_of(section);
    const auto fresh = scene::create_node();
    section_node->add_child(fresh);
    auto former = std::exchange(labels_of(section), fresh);
    section_node->remove_child(former);
    const com::weak_ptr<scene::node> kept = com::internal_object<scene::node>(former.get());
    former.reset();
    // Somebody keeps it, a route of the mouse above all: the labels have to be free all the same.
    if (const auto left = kept.lock()) {
        for (const auto& each : of) detach_labels(*left, each->cells);
    }
}

bool control::fits(std::size_t labels) const noexcept {
    return (rows.empty() && columns.empty()) || labels == columns.size(body);
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

void control::put_row(std::size_t index, int section, std::shared_ptr<row> added) {
    const com::ptr<control> keep = this;
    const com::ptr<scene::INode> node = labels_of(section);
    const bool settles_columns = rows.empty() && columns.empty();
    sections<column> new_columns;
    if (settles_columns) {
        for (std::size_t i = 0; i < added->cells.size(); ++i) new_columns.append(body, {});
    }
    rows.insert(section, index, added);
    if (settles_columns) columns = std::move(new_columns);
    try {
        attach_labels(*node, *added);
    } catch (...) {
        take_back(section, *added);
        if (settles_columns && rows.empty()) columns.clear();
        throw;
    }
}

std::shared_ptr<row> control::take_out(int section, std::size_t index) {
    auto taken = rows.take(section, index);
    taken->removed = true;
    const auto placed = shown[section];
    const auto place = std::find(placed.begin(), placed.end(), taken.get());
    if (place != placed.end()) shown.take(section, static_cast<std::size_t>(place - placed.begin()));
    forget_candidates();
    return taken;
}

void control::take_back(int section, const row& added) {
    const auto all = rows[section];
    const auto place =
        std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.get() == &added; });
    if (place != all.end()) take_out(section, static_cast<std::size_t>(place - all.begin()));
}

void control::remove_row(unsigned index, int section) {
    check_section(section);
    require(index < rows.size(section), "invalid row number");
    const com::ptr<control> keep = this;
    const auto removed = take_out(section, index);
    const com::ptr<scene::INode> node = labels_of(section);
    detach_labels(*node, removed->cells);
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

/// Labels are a client's, and so is the order: of layouts within a layout the innermost counts.
void control::lay_out() {
    const com::ptr<control> keep = this;
    const unsigned layout = ++layouts;
    if (hot_row && *hot_row >= rows.size(body)) hot_row.reset();
    auto kept = rows;
    auto all = ordered(kept);
    measure_cells(all);
    if (layout != layouts) return;
    place(all);
    if (layout == layouts) arrange_cells(all);
    if (layout != layouts) return;
    draw_hot_row();
    draw_selection();
}

sections<row*> control::ordered(sections<std::shared_ptr<row>>& all) const {
    sections<row*> found;
    for (const int section : all_sections) {
        for (const auto& each : all[section]) found.append(section, each.get());
    }
    if (const compare_function order = compare) {
        const auto sorted = found[body];
        std::stable_sort(sorted.begin(), sorted.end(),
                         [&](const row* a, const row* b) { return order(a->value, b->value) < 0; });
    }
    return found;
}

void control::measure_cells(sections<row*>& of) {
    for (row* const each : of.all()) {
        for (cell& measured : each->cells) measured.measured = measured.label->measure();
    }
}

void control::place(sections<row*>& measured) {
    shown.clear();
    for (const int section : all_sections) {
        for (row* const each : measured[section]) {
            if (!each->removed) shown.append(section, each);
        }
    }
    forget_candidates();
    for (column& each : columns.all()) each.forget_demands();
    for (row* const each : shown.all()) {
        each->forget_demands();
        auto across = columns.all().begin();
        for (const cell& asked : each->cells) {
            each->take_in(demand_down(asked.measured), row_gap);
            across++->take_in(demand_across(asked.measured), column_gap);
        }
    }
    const float width = place_tracks(columns);
    const float height = place_tracks(shown);
    const float header_height = thickness_of(shown[header]);
    const float footer_height = thickness_of(shown[footer]);
    scroll_area->set_margin_scrolled_size(top_margin, header_height);
    scroll_area->set_margin_scrolled_size(bottom_margin, footer_height);
    scroll_area->set_content_bounds({0, 0, width, height});
}

void control::arrange_cells(sections<row*>& placed) {
    const unsigned layout = layouts;
    for (const row* const each : placed.all()) {
        for (std::size_t i = 0; i < each->cells.size(); ++i) {
            if (each->removed || layout != layouts) break;
            const column& across = columns.all()[i];
            each->cells[i].label->arrange({across.start, each->start, across.end, each->end});
        }
    }
}

}  // namespace d2d::ui::label_table

namespace d2d::ui {

com::ptr<ILabelTable> create_label_table(IStyle* style) {
    return com::create_object<label_table::control>(style);
}

}  // namespace d2d::ui
