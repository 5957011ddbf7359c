#include "win32/window_class_table.h"

#include "win32/module.h"

#include <cstring>
#include <functional>

namespace win32 {

bool window_class_table::in_order::operator()(const std::type_info* a,
                                              const std::type_info* b) const noexcept {
    if (*a == *b) return false;
    const int order = std::strcmp(a->name(), b->name());
    return order != 0 ? order < 0 : std::less<>()(a, b);
}

window_class_table& window_class_table::instance() {
    static window_class_table table;
    return table;
}

const window_class_table::record* window_class_table::find(const std::type_info& type) const {
    const auto found = records_.find(&type);
    return found == records_.end() ? nullptr : &found->second;
}

void window_class_table::give_back(const std::type_info& type) {
    const auto found = records_.find(&type);
    if (found == records_.end() || found->second.use_count == 0) return;
    if (--found->second.use_count != 0) return;
    UnregisterClassW(MAKEINTATOM(found->second.atom), library_module());
    records_.erase(found);
}

}  // namespace win32
