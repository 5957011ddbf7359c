#pragma once

namespace bench {

/// References and weak references.
void run_object_workloads();
/// Building, changing and painting a scene.
void run_scene_workloads();
/// Hit tests, input routed to nodes, and ticks.
void run_input_workloads();
/// Reading path data.
void run_path_workload();
/// Placing elements in a row.
void run_layout_workload();
/// Looking up the colours of controls.
void run_style_workload();
/// Scrolling.
void run_scroll_workload();
/// Filling and clearing a list of labels, and selecting in it.
void run_list_workloads();
/// Making push buttons, and drawing them anew.
void run_button_workloads();
/// Typing into a line edit.
void run_line_edit_workload();
/// Filling, sorting and selecting in a table.
void run_table_workloads();
/// Filling a tree view, expanding and collapsing in it, and selecting.
void run_tree_workloads();
/// Portable layouts: a stack, and a grid.
void run_portable_workloads();
/// Bytes per node, and per push button with its label.
void run_memory_workload();

}  // namespace bench
