#pragma once

#include <cstddef>

namespace test_support {

/// A heap on which a mistake with memory stops the program at once, with a line that says what it was. A test
/// program whose `operator new` asks it uses it when it is started with `MOSSHARBOUR_DEBUG_HEAP=1` in the
/// environment.
///
/// Each block has pages of its own and ends where they end; the page behind them cannot be touched, and
/// neither can the pages of a block that was freed, until all of the heap's address space has been used. What
/// is ahead of a block on its first page, and behind one that is aligned more coarsely than its size, is
/// checked when the block is freed. So is the size that the block is freed with. New blocks are filled with
/// 0xCD.
///
/// For any thread. Beyond `most_guarded` blocks at a time, new ones are ordinary and unguarded.
class debug_heap {
public:
    /// Each block splits the address space, which Linux lets a process do 65530 times.
    static constexpr std::size_t most_guarded = 24'000;
    static constexpr std::size_t unknown_size = static_cast<std::size_t>(-1);

    /// Whether this process was asked to use it; the answer never changes.
    [[nodiscard]] static bool in_use() noexcept;
    /// Null when there is no memory. `alignment` is a power of two and no more than a page.
    [[nodiscard]] static void* allocate(std::size_t size, std::size_t alignment) noexcept;
    /// `size` is what the block was asked for with, where the caller knows.
    static void free(void* block, std::size_t size = unknown_size) noexcept;

    /// The number of steps of a random test: `usual`, or fewer on this heap, where an allocation takes some
    /// ten microseconds.
    [[nodiscard]] static int steps(int usual) noexcept { return in_use() ? usual / 20 : usual; }

    /// How many guarded blocks there have been, and how many unguarded.
    [[nodiscard]] static std::size_t guarded_count() noexcept;
    [[nodiscard]] static std::size_t unguarded_count() noexcept;
};

}  // namespace test_support
