#include "support/debug_heap.h"

#include "com/base_object.h"
#include "com/object.h"
#include "com/weak_ptr.h"
#include "d2d/scene/INode.h"
#include "scene/small_blocks.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <string>
#include <vector>

namespace d2d::scene::fakes {
namespace {

using test_support::debug_heap;

/// The same pointer, of which the compiler knows nothing: it neither warns of what is done with it nor leaves
/// it out.
template <class T>
T* hidden(T* pointer) {
    T* volatile kept = pointer;
    return kept;
}

volatile std::byte sink{};

void read(const std::byte* at) {
    sink = *hidden(at);
}
void write(std::byte* at) {
    *static_cast<volatile std::byte*>(hidden(at)) = std::byte{1};
}

/// A block that nobody frees.
std::byte* block_of(std::size_t size) {
    return static_cast<std::byte*>(hidden(::operator new(size)));
}

std::byte* freed_block_of(std::size_t size) {
    std::byte* const block = block_of(size);
    std::byte* const same = hidden(block);
    ::operator delete(block);
    return same;
}

/// Each test runs a process that uses the debug heap and does something wrong.
class debug_heap_death_test : public testing::Test {
protected:
    void SetUp() override {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        SetEnvironmentVariableW(L"MOSSHARBOUR_DEBUG_HEAP", L"1");
    }
    void TearDown() override {
        if (!debug_heap::in_use()) SetEnvironmentVariableW(L"MOSSHARBOUR_DEBUG_HEAP", nullptr);
    }
};

TEST_F(debug_heap_death_test, stops_at_the_use_of_a_freed_block) {
    EXPECT_DEATH(read(freed_block_of(24) + 8),
                 "memory was read that is not there\ndebug heap: at offset 8 of a freed block of 24 bytes");
    EXPECT_DEATH(
        write(freed_block_of(5000)),
        "memory was written that is not there\ndebug heap: at offset 0 of a freed block of 5000 bytes");
}

TEST_F(debug_heap_death_test, stops_behind_the_end_of_a_block) {
    constexpr std::size_t granule = 16;  // compilers other than GCC want blocks to lie so
    EXPECT_DEATH(read(block_of(3 * granule) + 3 * granule),
                 "memory was read that is not there\ndebug heap: at offset 48 of a living block of 48 bytes");
    EXPECT_DEATH(write(block_of(1 << 16) + (1 << 16)), "at offset 65536 of a living block of 65536 bytes");
#if defined(__GNUC__) && !defined(__clang__)
    EXPECT_DEATH(read(block_of(3) + 3), "at offset 3 of a living block of 3 bytes");
#endif
}

TEST_F(debug_heap_death_test, stops_at_the_free_of_a_block_whose_margin_was_overwritten) {
    const auto overwritten = [](std::ptrdiff_t offset) {
        std::byte* const block = block_of(48);
        write(block + offset);
        ::operator delete(block);
    };
    EXPECT_DEATH(overwritten(-1), "the memory ahead of a block of 48 bytes was overwritten");
    const auto overwritten_behind_an_aligned_block = [] {
        auto* const block = static_cast<std::byte*>(::operator new (40, std::align_val_t{64}));
        write(block + 40);
        ::operator delete (block, std::align_val_t{64});
    };
    EXPECT_DEATH(overwritten_behind_an_aligned_block(), "behind a block of 40 bytes was overwritten");
}

TEST_F(debug_heap_death_test, stops_at_a_wrong_free) {
    EXPECT_DEATH(::operator delete(freed_block_of(24)), "a block was freed twice");
    EXPECT_DEATH(::operator delete(hidden(block_of(24) + 8)), "what was freed is no block");
    EXPECT_DEATH(debug_heap::free(debug_heap::allocate(24, 8), 16),
                 "a block of 24 bytes was freed as one of 16");
}

TEST_F(debug_heap_death_test, stops_at_the_use_of_an_element_that_a_vector_has_moved) {
    const auto use_after_move = [] {
        std::vector<int> numbers{1, 2, 3};
        const int* const first = hidden(numbers.data());
        numbers.reserve(100);
        read(reinterpret_cast<const std::byte*>(first));
    };
    EXPECT_DEATH(use_after_move(), "at offset 0 of a freed block of 12 bytes");
}

TEST_F(debug_heap_death_test, stops_at_the_use_of_a_node_that_is_gone) {
    const auto use_without_reference = [] {
        auto node = create_node();
        INode* const gone = hidden(node.get());
        node.reset();
        gone->get_parent();
    };
    EXPECT_DEATH(use_without_reference(), "of a freed block");
}

TEST_F(debug_heap_death_test, stops_at_the_use_of_a_small_block_that_was_given_back) {
    const auto use_behind_free = [] {
        void* const block = small_blocks::allocate(100);
        auto* const same = static_cast<std::byte*>(hidden(block));
        small_blocks::free(block, 100);
        read(same);
    };
    EXPECT_DEATH(use_behind_free(), "at offset 0 of a freed block of 100 bytes");
}

class weakly_held : public com::base_object<com::object_base, IUnknown> {
protected:
    ~weakly_held() = default;
};

// While a weak reference is there the storage is not freed: what is left of the object answers it.
TEST_F(debug_heap_death_test, lets_a_weak_reference_outlive_its_object_but_not_its_storage) {
    const auto use_after_the_last_weak_reference = [] {
        auto object = com::create_object<weakly_held>();
        auto* const address = hidden(object.get());
        com::weak_ptr<weakly_held> weak(object);
        object.reset();
        if (!weak.lock()) std::fputs("refused, ", stderr);
        std::fflush(stderr);
        weak = nullptr;
        static_cast<void>(hidden(address)->lock_reference());
    };
    EXPECT_DEATH(use_after_the_last_weak_reference(),
                 "refused, debug heap: memory was read that is not there");
}

// Used by this process itself, whatever its operators do.
TEST(debug_heap, fills_new_blocks) {
    auto* const block = static_cast<unsigned char*>(debug_heap::allocate(40, 8));
    for (int i = 0; i < 40; ++i) EXPECT_EQ(0xCD, block[i]);
    debug_heap::free(block, 40);
}

TEST(debug_heap, aligns_blocks) {
    for (std::size_t alignment = 1; alignment <= 4096; alignment *= 2) {
        for (const std::size_t size : {0u, 1u, 7u, 64u, 4095u, 4096u, 4097u, 10'000u}) {
            void* const block = debug_heap::allocate(size, alignment);
            EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(block) % alignment) << size;
            debug_heap::free(block, size);
        }
    }
}

TEST(debug_heap, gives_a_freed_block_a_rest) {
    void* const block = debug_heap::allocate(40, 8);
    debug_heap::free(block);
    std::vector<void*> others;
    for (int i = 0; i < 1000; ++i) others.push_back(debug_heap::allocate(40, 8));
    EXPECT_EQ(others.end(), std::find(others.begin(), others.end(), block));
    for (void* const other : others) debug_heap::free(other);
}

TEST(debug_heap, has_room_for_all_even_if_not_for_all_guarded) {
    std::vector<void*> blocks;
    const std::size_t unguarded = debug_heap::unguarded_count();
    for (std::size_t i = 0; i < debug_heap::most_guarded + 10; ++i) {
        blocks.push_back(debug_heap::allocate(40, 8));
        std::memset(blocks.back(), 1, 40);
    }
    EXPECT_LE(unguarded + 10, debug_heap::unguarded_count());
    for (void* const block : blocks) debug_heap::free(block, 40);
    const std::size_t guarded = debug_heap::guarded_count();
    debug_heap::free(debug_heap::allocate(40, 8));
    EXPECT_EQ(guarded + 1, debug_heap::guarded_count());
}

}  // namespace
}  // namespace d2d::scene::fakes
