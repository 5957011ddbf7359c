#include "scene/testing/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace {

std::atomic<std::size_t> allocations{0};

/// Frees a block whose content is made useless first: whoever uses it later fails at once, not now and then.
void free_spoiled(void* block) noexcept {
    constexpr unsigned char spoiled = 0xDD;
    if (!block) return;
    // Volatile: nobody reads it, as far as a compiler can tell.
    auto* const bytes = static_cast<volatile unsigned char*>(block);
    for (std::size_t i = _msize(block); i > 0; --i) bytes[i - 1] = spoiled;
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* const block = std::malloc(size ? size : 1)) return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    free_spoiled(block);
}

void operator delete(void* block, std::size_t) noexcept {
    free_spoiled(block);
}

namespace d2d::scene::fakes {

std::size_t allocation_count() noexcept {
    return allocations;
}

}  // namespace d2d::scene::fakes
