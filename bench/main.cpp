// Prints a line per workload: name, nanoseconds per operation, operations per repetition. Each figure is the
// minimum of five repetitions. Judge them by their ratio to `refcount` in the same run: machines are noisy.
//
//     bench [NAME...]     only the workloads with these names

#include "measure.h"
#include "workloads.h"

#include <cstdio>
#include <exception>

int main(int count, char** arguments) {
    try {
        bench::select({arguments + 1, arguments + count});
        bench::run_memory_workload();  // first: while the heap has no gaps to fill
        bench::run_object_workloads();
        bench::run_path_workload();
        bench::run_layout_workload();
        bench::run_scene_workloads();
        bench::run_input_workloads();
        bench::run_scroll_workload();
        bench::run_table_workloads();
        bench::run_style_workload();
        bench::run_list_workloads();
        bench::run_tree_workloads();
        bench::run_portable_workloads();
        bench::run_button_workloads();
        bench::run_line_edit_workload();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench: %s\n", failure.what());
        return 1;
    }
    return 0;
}
