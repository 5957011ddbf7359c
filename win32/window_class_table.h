#pragma once

#include <map>
#include <typeinfo>

#include <windows.h>

namespace win32 {

/// The window classes that the library has registered, one for each C++ class that made a window. For the
/// thread of the user interface alone.
class window_class_table {
public:
    struct record {
        ATOM atom = 0;           // 0 until registered
        unsigned use_count = 0;  // windows that `destroy_window` has yet to end
    };

    [[nodiscard]] static window_class_table& instance();

    /// The record of a class; a new one is not registered.
    [[nodiscard]] record& of(const std::type_info& type) { return records_[&type]; }
    /// The record of a class, or null.
    [[nodiscard]] const record* find(const std::type_info& type) const;

    /// A window of the class is gone; with the last one the class is unregistered and its record goes.
    void give_back(const std::type_info& type);

private:
    /// By name, and types of one name by their place. `type_info::before` would do, but GCC's for Windows has
    /// types without linkage both before and behind others.
    struct in_order {
        [[nodiscard]] bool operator()(const std::type_info* a, const std::type_info* b) const noexcept;
    };

    std::map<const std::type_info*, record, in_order> records_;
};

}  // namespace win32
