#include "scene/small_blocks.h"

#include <array>

namespace d2d::scene {
namespace {

struct free_block {
    free_block* next;
};

/// Cut from the heap a slab at a time.
class block_shelf {
public:
    void* take(std::size_t size) {
        if (free_block* const block = first) {
            first = block->next;
            return block;
        }
        if (left < size) refill(size);
        std::byte* const block = slab;
        slab += size;
        left -= size;
        return block;
    }

    void give_back(void* block) noexcept { first = ::new (block) free_block{first}; }

private:
    static constexpr std::size_t slab_size = 64 * 1024;

    void refill(std::size_t size) {
        const std::size_t whole = slab_size / size * size;
        slab = static_cast<std::byte*>(::operator new (whole, std::align_val_t{small_blocks::alignment}));
        left = whole;
    }

    free_block* first = nullptr;
    std::byte* slab = nullptr;
    std::size_t left = 0;
};

constexpr std::size_t class_of(std::size_t bytes) noexcept {
    return bytes == 0 ? 0 : (bytes - 1) / small_blocks::alignment;
}

constinit std::array<block_shelf, class_of(small_blocks::greatest) + 1> shelves{};

#if defined(NDEBUG)
constinit bool keeps_blocks = true;
#else
constinit bool keeps_blocks = false;
#endif

}  // namespace

void small_blocks::use_heap() noexcept {
    keeps_blocks = false;
}

void* small_blocks::allocate(std::size_t bytes) {
    if (keeps_blocks && bytes <= greatest) {
        return shelves[class_of(bytes)].take((class_of(bytes) + 1) * alignment);
    }
    return ::operator new (bytes, std::align_val_t{alignment});
}

void small_blocks::free(void* block, std::size_t bytes) noexcept {
    if (keeps_blocks && bytes <= greatest) return shelves[class_of(bytes)].give_back(block);
    ::operator delete (block, std::align_val_t{alignment});
}

}  // namespace d2d::scene
