#include "win32/window_class_table.h"

#include "win32/module.h"

namespace win32 {

window_class_table& window_class_table::instance() {
    static window_class_table table;
    return table;
}

const window_class_table::record* window_class_table::find(std::type_index type) const {
    const auto found = records_.find(type);
    return found == records_.end() ? nullptr : &found->second;
}

void window_class_table::give_back(std::type_index type) {
    const auto found = records_.find(type);
    if (found == records_.end() || found->second.use_count == 0) return;
    if (--found->second.use_count != 0) return;
    UnregisterClassW(MAKEINTATOM(found->second.atom), library_module());
    records_.erase(found);
}

}  // namespace win32
