#pragma once

#include <map>
#include <typeindex>

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
    [[nodiscard]] record& of(std::type_index type) { return records_[type]; }
    /// The record of a class, or null.
    [[nodiscard]] const record* find(std::type_index type) const;

    /// A window of the class is gone; with the last one the class is unregistered and its record goes.
    void give_back(std::type_index type);

private:
    std::map<std::type_index, record> records_;
};

}  // namespace win32
