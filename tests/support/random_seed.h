#pragma once

namespace test_support {

/// The seed of a random test, which shows it where it fails. The same in every run, so that what passed goes
/// on passing until something changes. The environment variable `MOSSHARBOUR_SEED` gives another one: a
/// number to repeat a failure, `any` for one that is new at each call, to look for what no run has met yet.
/// Throws `std::runtime_error` when it is neither.
[[nodiscard]] unsigned random_seed();

}  // namespace test_support
