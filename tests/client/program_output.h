#pragma once

#include <string>

namespace client_test {

/// Runs a console program beside the test's own until it ends, and gives what it has written. Throws
/// `std::runtime_error` when it does not start, or fails.
[[nodiscard]] std::string output_of_program(const std::wstring& name);

}  // namespace client_test
