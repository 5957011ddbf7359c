#pragma once

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <limits>
#include <span>
#include <string_view>

namespace bench {

/// Keeps the compiler from dropping what nobody reads.
inline const volatile void* volatile sink;
template <class T>
void keep(const T& value) {
    sink = &value;
}

/// Measures the time of a piece of work by the minimum of five repetitions, which is what the machine can do
/// when nothing disturbs it.
class stopwatch {
public:
    static constexpr int repetitions = 5;

    /// Runs `work()` once under the clock.
    template <class Work>
    void run_once(Work&& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const auto end = std::chrono::steady_clock::now();
        const double passed = std::chrono::duration<double, std::nano>(end - start).count();
        if (passed < best) best = passed;
    }

    [[nodiscard]] double nanoseconds() const noexcept { return best; }

private:
    double best = std::numeric_limits<double>::infinity();
};

/// Chooses the workloads that run; all of them when there are no names.
void select(std::span<char*> names);
[[nodiscard]] bool selected(std::string_view name);

/// A line of the table: name, nanoseconds per operation, how many operations a repetition had.
inline void report(const char* name, double nanoseconds, std::size_t operations) {
    std::printf("%s\t%.2f\t%zu\n", name, nanoseconds / static_cast<double>(operations), operations);
    std::fflush(stdout);
}

/// Measures `work()`, which does `operations` operations.
template <class Work>
void measure(const char* name, std::size_t operations, Work&& work) {
    if (!selected(name)) return;
    stopwatch watch;
    for (int i = 0; i < stopwatch::repetitions; ++i) watch.run_once(work);
    report(name, watch.nanoseconds(), operations);
}

}  // namespace bench
