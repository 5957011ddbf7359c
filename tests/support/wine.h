#pragma once

namespace test_support {

/// Does Wine run this process? Wine's pixels and some of its counters differ from Windows'.
[[nodiscard]] bool running_under_wine() noexcept;

}  // namespace test_support
