#pragma once

#include <cstddef>

namespace d2d::scene::fakes {

/// How many times this process has called `operator new`. A program that uses it replaces the operator; with
/// MinGW it links the C++ library statically, so that the library's own containers and strings count too. The
/// program's `operator delete` overwrites what it frees, so that a use of it shows.
[[nodiscard]] std::size_t allocation_count() noexcept;

}  // namespace d2d::scene::fakes
