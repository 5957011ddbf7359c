#pragma once

#include <utility>

namespace win32 {

/// Runs a function on every way out of a scope, in the order opposite to that of the guards. A function that
/// throws ends the process.
template <class F>
class [[nodiscard]] scope_exit {
public:
    explicit scope_exit(F function) : function_(std::move(function)) {}
    scope_exit(const scope_exit&) = delete;
    scope_exit& operator=(const scope_exit&) = delete;
    ~scope_exit() { function_(); }

private:
    F function_;
};

}  // namespace win32
