#pragma once

namespace d2d::scene {

/// A value that stays until the process is gone, for tables that objects leave when they die: some do so from
/// the destructors of statics, at an end whose order nobody knows.
template <class T>
union process_wide {
    process_wide() : value() {}
    process_wide(const process_wide&) = delete;
    process_wide& operator=(const process_wide&) = delete;
    ~process_wide() {}

    T value;
};

}  // namespace d2d::scene
