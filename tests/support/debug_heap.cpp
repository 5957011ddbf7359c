#include "support/debug_heap.h"

#include <windows.h>

#include <malloc.h>

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>

namespace test_support {
namespace {

constexpr unsigned char fresh_fill = 0xCD;
constexpr unsigned char margin_fill = 0xFD;

constexpr std::size_t page_size = 4096;
constexpr std::size_t arena_pages = (std::size_t{1} << (sizeof(void*) == 8 ? 33 : 29)) / page_size;

void write(std::string_view text) noexcept {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written,
              nullptr);
}

template <std::integral Number>
void write(Number number, int base = 10) noexcept {
    char digits[24];
    write(std::string_view(digits, std::to_chars(std::begin(digits), std::end(digits), number, base).ptr));
}

/// One line of explanation. Allocates nothing.
template <class... Parts>
void say(Parts... parts) noexcept {
    write("debug heap: ");
    (write(parts), ...);
    write("\n");
}

/// Ends the program, which says where it was by return addresses.
[[noreturn]] void stop() noexcept {
    void* frames[32];
    const USHORT count = CaptureStackBackTrace(0, static_cast<DWORD>(std::size(frames)), frames, nullptr);
    write("debug heap: stack:");
    for (USHORT i = 0; i != count; ++i) {
        write(" 0x");
        write(reinterpret_cast<std::uintptr_t>(frames[i]), 16);
    }
    write("\n");
    TerminateProcess(GetCurrentProcess(), 3);
    for (;;) Sleep(INFINITE);
}

class held_lock {
public:
    explicit held_lock(SRWLOCK& on) noexcept : lock(on) { AcquireSRWLockExclusive(&lock); }
    held_lock(const held_lock&) = delete;
    held_lock& operator=(const held_lock&) = delete;
    ~held_lock() { ReleaseSRWLockExclusive(&lock); }

private:
    SRWLOCK& lock;
};

/// The address space that guarded blocks are cut from, each with a page behind it that is never committed. It
/// is used from its start to its end, and then from its start again: what was freed stays untouched for long.
class arena {
public:
    /// Null when it has no room.
    [[nodiscard]] std::byte* allocate(std::size_t size, std::size_t alignment) noexcept;
    void free(std::byte* block, std::size_t size) noexcept;

    [[nodiscard]] bool contains(const void* address) const noexcept {
        return base && address >= base && address < base + arena_pages * page_size;
    }
    /// Says what lies or lay at an address of this arena.
    void describe(const void* address) const noexcept;

    std::size_t allocations = 0;

private:
    enum class state : unsigned char { unused, live, freed };

    /// Of the block that begins on a page.
    struct record {
        std::size_t size;
        unsigned pages;
        unsigned short offset;  // of the block in its first page
        state is;
    };

    [[nodiscard]] bool reserve() noexcept;
    [[nodiscard]] record* find_room(std::size_t pages) noexcept;
    [[nodiscard]] const record* nearest(std::size_t page) const noexcept;
    void check_margins(const record& of) const noexcept;

    [[nodiscard]] std::size_t page_of(const void* address) const noexcept {
        return static_cast<std::size_t>(static_cast<const std::byte*>(address) - base) / page_size;
    }
    [[nodiscard]] std::byte* start_of(const record& of) const noexcept {
        return base + static_cast<std::size_t>(&of - records) * page_size;
    }

    std::byte* base = nullptr;
    record* records = nullptr;
    std::size_t next = 0;
    std::size_t live = 0;
};

bool arena::reserve() noexcept {
    if (base) return true;
    records = static_cast<record*>(
        VirtualAlloc(nullptr, arena_pages * sizeof(record), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    if (!records) return false;
    base =
        static_cast<std::byte*>(VirtualAlloc(nullptr, arena_pages * page_size, MEM_RESERVE, PAGE_NOACCESS));
    return base != nullptr;
}

/// The first of `pages` pages that no living block has; freed ones may have been there.
arena::record* arena::find_room(std::size_t pages) noexcept {
    std::size_t first = next;
    int turns = 0;
    for (std::size_t page = first; page != first + pages;) {
        if (first + pages > arena_pages) {
            if (++turns == 2) return nullptr;
            first = page = 0;
        } else if (records[page].is == state::live) {
            first = page = page + records[page].pages + 1;
        } else {
            ++page;
        }
    }
    std::fill_n(records + first, pages, record{});
    next = first + pages;
    return records + first;
}

std::byte* arena::allocate(std::size_t size, std::size_t alignment) noexcept {
    const std::size_t extent = (size + alignment - 1) / alignment * alignment;
    const std::size_t pages = (extent + page_size - 1) / page_size;
    if (live == debug_heap::most_guarded || pages >= arena_pages || !reserve()) return nullptr;
    record* const made = find_room(pages + 1);
    if (!made) return nullptr;
    std::byte* const start = start_of(*made);
    if (!VirtualAlloc(start, pages * page_size, MEM_COMMIT, PAGE_READWRITE)) return nullptr;
    const std::size_t offset = pages * page_size - extent;
    *made = {size, static_cast<unsigned>(pages), static_cast<unsigned short>(offset), state::live};
    std::memset(start, margin_fill, pages * page_size);
    std::memset(start + offset, fresh_fill, size);
    ++live;
    ++allocations;
    return start + offset;
}

void arena::check_margins(const record& of) const noexcept {
    const std::byte* const start = start_of(of);
    const std::byte* const block = start + of.offset;
    const auto overwritten = [](std::byte byte) { return byte != std::byte{margin_fill}; };
    if (std::any_of(start, block, overwritten)) {
        say("the memory ahead of a block of ", of.size, " bytes was overwritten");
        stop();
    }
    if (std::any_of(block + of.size, start + of.pages * page_size, overwritten)) {
        say("the memory behind a block of ", of.size, " bytes was overwritten");
        stop();
    }
}

void arena::free(std::byte* block, std::size_t size) noexcept {
    record& of = records[page_of(block)];
    if (of.is != state::live || start_of(of) + of.offset != block) {
        say(of.is == state::freed ? "a block was freed twice" : "what was freed is no block");
        describe(block);
        stop();
    }
    if (size != debug_heap::unknown_size && size != of.size) {
        say("a block of ", of.size, " bytes was freed as one of ", size);
        stop();
    }
    check_margins(of);
    VirtualFree(start_of(of), of.pages * page_size, MEM_DECOMMIT);
    of.is = state::freed;
    --live;
}

const arena::record* arena::nearest(std::size_t page) const noexcept {
    for (const record* of = records + page;; --of) {
        if (of->is != state::unused)
            return static_cast<std::size_t>(of - records) + of->pages >= page ? of : nullptr;
        if (of == records) return nullptr;
    }
}

void arena::describe(const void* address) const noexcept {
    const record* const of = nearest(page_of(address));
    if (!of) return say("no block was there lately");
    const std::ptrdiff_t offset = static_cast<const std::byte*>(address) - (start_of(*of) + of->offset);
    say("at offset ", offset, of->is == state::freed ? " of a freed" : " of a living", " block of ", of->size,
        " bytes");
}

SRWLOCK lock = SRWLOCK_INIT;
constinit arena guarded;
constinit std::size_t unguarded = 0;

LONG CALLBACK on_exception(EXCEPTION_POINTERS* raised) noexcept {
    const EXCEPTION_RECORD& fault = *raised->ExceptionRecord;
    if (fault.ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
    const auto* const address = reinterpret_cast<const void*>(fault.ExceptionInformation[1]);
    if (!guarded.contains(address)) return EXCEPTION_CONTINUE_SEARCH;
    const ULONG_PTR access = fault.ExceptionInformation[0];
    say("memory was ", access == 0 ? "read" : access == 1 ? "written" : "run", " that is not there");
    guarded.describe(address);
    stop();
}

bool asked_for() noexcept {
    wchar_t value[8];
    const DWORD length =
        GetEnvironmentVariableW(L"MOSSHARBOUR_DEBUG_HEAP", value, static_cast<DWORD>(std::size(value)));
    const bool asked = length == 1 && value[0] == L'1';
    if (asked) AddVectoredExceptionHandler(1, on_exception);
    return asked;
}

}  // namespace

bool debug_heap::in_use() noexcept {
    static const bool asked = asked_for();
    return asked;
}

void* debug_heap::allocate(std::size_t size, std::size_t alignment) noexcept {
    const held_lock hold(lock);
    // A block of no bytes has an address of its own too.
    if (std::byte* const block = guarded.allocate(std::max<std::size_t>(size, 1), alignment)) return block;
    ++unguarded;
    return _aligned_malloc(std::max<std::size_t>(size, 1), alignment);
}

void debug_heap::free(void* block, std::size_t size) noexcept {
    if (!block) return;
    const held_lock hold(lock);
    if (!guarded.contains(block)) return _aligned_free(block);
    guarded.free(static_cast<std::byte*>(block), size == 0 ? 1 : size);
}

std::size_t debug_heap::guarded_count() noexcept {
    const held_lock hold(lock);
    return guarded.allocations;
}

std::size_t debug_heap::unguarded_count() noexcept {
    const held_lock hold(lock);
    return unguarded;
}

}  // namespace test_support
