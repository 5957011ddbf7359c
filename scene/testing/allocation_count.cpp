#include "scene/testing/allocation_count.h"

#include "scene/small_blocks.h"
#include "support/debug_heap.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

using test_support::debug_heap;

std::atomic<std::size_t> allocations{0};

[[maybe_unused]] const bool scene_uses_debug_heap = [] {
    if (debug_heap::in_use()) d2d::scene::small_blocks::use_heap();
    return debug_heap::in_use();
}();

/// How blocks lie that are asked for without an alignment. GCC takes no more for granted than what objects of
/// that size can need, so that a block can end at its guard to the byte.
[[nodiscard]] std::size_t alignment_of([[maybe_unused]] std::size_t size) noexcept {
    constexpr std::size_t usual = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
#if defined(__GNUC__) && !defined(__clang__)
    return size ? std::min(size & (~size + 1), usual) : 1;
#else
    return usual;
#endif
}

/// Frees a block whose content is made useless first: whoever uses it later fails at once, not now and then.
void free_spoiled(void* block) noexcept {
    constexpr unsigned char spoiled = 0xDD;
    if (!block) return;
    // Volatile: nobody reads it, as far as a compiler can tell.
    auto* const bytes = static_cast<volatile unsigned char*>(block);
    for (std::size_t i = _msize(block); i > 0; --i) bytes[i - 1] = spoiled;
    std::free(block);
}

void free(void* block, std::size_t size) noexcept {
    if (debug_heap::in_use()) return debug_heap::free(block, size);
    free_spoiled(block);
}

void free_aligned(void* block, std::size_t size) noexcept {
    if (debug_heap::in_use()) return debug_heap::free(block, size);
    _aligned_free(block);
}

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    void* const block = debug_heap::in_use() ? debug_heap::allocate(size, alignment_of(size))
                                             : std::malloc(std::max<std::size_t>(size, 1));
    if (!block) throw std::bad_alloc();
    return block;
}

// Not counted: `small_blocks` asks for whole slabs so, at no foreseeable moment.
void* operator new(std::size_t size, std::align_val_t alignment) {
    void* const block = debug_heap::in_use() ? debug_heap::allocate(size, static_cast<std::size_t>(alignment))
                                             : _aligned_malloc(std::max<std::size_t>(size, 1),
                                                               static_cast<std::size_t>(alignment));
    if (!block) throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept {
    free(block, debug_heap::unknown_size);
}

void operator delete(void* block, std::size_t size) noexcept {
    free(block, size);
}

void operator delete(void* block, std::align_val_t) noexcept {
    free_aligned(block, debug_heap::unknown_size);
}

void operator delete(void* block, std::size_t size, std::align_val_t) noexcept {
    free_aligned(block, size);
}

namespace d2d::scene::fakes {

std::size_t allocation_count() noexcept {
    return allocations;
}

}  // namespace d2d::scene::fakes
