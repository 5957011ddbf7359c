#pragma once

#include <cstddef>
#include <new>

namespace d2d::scene {

/// Memory for what a scene makes and drops all the time: nodes, open recordings, short command lists. Blocks
/// are aligned to a cache line and kept by size when they are given back, so that a scene that is built again
/// finds its memory warm; the process keeps what it has once used. For the thread of the user interface
/// alone, like all of the scene. A build with assertions asks the heap for each block, so that its checks see
/// them.
class small_blocks {
public:
    static constexpr std::size_t alignment = 64;
    static constexpr std::size_t greatest = 1024;

    /// From here on each block comes from the heap and goes back there, as in a build with assertions. Ahead
    /// of the first block.
    static void use_heap() noexcept;
    [[nodiscard]] static void* allocate(std::size_t bytes);
    static void free(void* block, std::size_t bytes) noexcept;
};

/// Base of a class whose objects lie in `small_blocks`.
class in_small_blocks {
public:
    static void* operator new(std::size_t bytes) { return small_blocks::allocate(bytes); }
    static void operator delete(void* block, std::size_t bytes) noexcept { small_blocks::free(block, bytes); }

protected:
    in_small_blocks() = default;
    ~in_small_blocks() = default;
};

/// Allocator of containers whose contents usually fit a small block.
template <class T>
class small_block_allocator {
public:
    using value_type = T;

    small_block_allocator() noexcept = default;
    template <class U>
    small_block_allocator(const small_block_allocator<U>&) noexcept {}

    [[nodiscard]] T* allocate(std::size_t count) {
        return static_cast<T*>(small_blocks::allocate(count * sizeof(T)));
    }
    void deallocate(T* block, std::size_t count) noexcept { small_blocks::free(block, count * sizeof(T)); }

    friend bool operator==(const small_block_allocator&, const small_block_allocator&) noexcept {
        return true;
    }
};

}  // namespace d2d::scene
