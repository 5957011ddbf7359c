#include "support/resource_counts.h"

#include "support/wine.h"

#include <windows.h>
#include <winternl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <stdexcept>
#include <string_view>

namespace test_support {
namespace {

BOOL CALLBACK count_child(HWND, LPARAM count) {
    ++*reinterpret_cast<unsigned*>(count);
    return TRUE;
}

// The system adds an input method window to a thread's first window, and removes it with the last; Wine's
// Direct3D keeps a window of its own from a device's first drawing on.
bool is_window_of_the_system(HWND window) {
    std::array<wchar_t, 16> buffer{};
    GetClassNameW(window, buffer.data(), static_cast<int>(buffer.size()));
    const std::wstring_view name(buffer.data());
    return name == L"IME" || name == L"WineD3D_OpenGL";
}

BOOL CALLBACK count_own_window(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId() && !is_window_of_the_system(window)) {
        ++*reinterpret_cast<unsigned*>(count);
        EnumChildWindows(window, &count_child, count);
    }
    return TRUE;
}

// The table of GDI handles that is mapped into every process; Wine keeps one of its own for each.
struct gdi_entry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user;
};
static_assert(sizeof(gdi_entry) == 24);

unsigned gdi_objects_in_table() {
    constexpr std::size_t table_offset = sizeof(void*) == 8 ? 0xF8 : 0x94;
    constexpr std::size_t table_size = 0x10000;
    PROCESS_BASIC_INFORMATION process{};
    if (NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof process,
                                  nullptr) < 0)
        throw std::runtime_error("the process's environment block cannot be had");
    const auto* const block = reinterpret_cast<const std::byte*>(process.PebBaseAddress);
    const gdi_entry* table = nullptr;
    std::memcpy(&table, block + table_offset, sizeof table);
    if (!table) return 0;
    return static_cast<unsigned>(
        std::count_if(table, table + table_size, [](const gdi_entry& entry) { return entry.type != 0; }));
}

// Each value that a handle can have is tried: Wine gives out the lowest that is free. Its list of all handles
// of the system ends Wine's server, and all programs with it, where another program is just starting.
unsigned handles_by_value() {
    constexpr std::uintptr_t step = 4;
    constexpr std::uintptr_t widest_gap = 2048 * step;
    unsigned count = 0;
    std::uintptr_t last = 0;
    for (std::uintptr_t value = step; value <= last + widest_gap; value += step) {
        DWORD flags = 0;
        if (!GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) continue;
        ++count;
        last = value;
    }
    return count;
}

unsigned handles_by_process() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

}  // namespace

unsigned own_windows() {
    unsigned count = 0;
    EnumWindows(&count_own_window, reinterpret_cast<LPARAM>(&count));
    return count;
}

std::ostream& operator<<(std::ostream& out, const resource_counts& counts) {
    return out << counts.windows << " windows, " << counts.gdi_objects << " GDI objects, " << counts.handles
               << " handles";
}

resource_counts current_resources() {
    if (running_under_wine()) return {own_windows(), gdi_objects_in_table(), handles_by_value()};
    return {own_windows(), static_cast<unsigned>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)),
            handles_by_process()};
}

void expect_no_growth(const std::function<void()>& work, unsigned rounds) {
    work();
    work();
    const auto before = current_resources();
    for (unsigned i = 0; i < rounds; ++i) work();
    const auto after = current_resources();
    EXPECT_LT(after.windows, before.windows + rounds) << before << " became " << after;
    EXPECT_LT(after.gdi_objects, before.gdi_objects + rounds) << before << " became " << after;
    EXPECT_LT(after.handles, before.handles + rounds) << before << " became " << after;
}

}  // namespace test_support
