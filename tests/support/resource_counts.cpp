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
#include <vector>

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

unsigned own_windows() {
    unsigned count = 0;
    EnumWindows(&count_own_window, reinterpret_cast<LPARAM>(&count));
    return count;
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

// The answer to SystemHandleInformation: a count, then one of these for each handle of the system.
struct handle_entry {
    USHORT process;
    USHORT creator;
    UCHAR type;
    UCHAR flags;
    USHORT handle;
    void* object;
    ACCESS_MASK access;
};

struct handle_list {
    ULONG count;
    handle_entry first;
};

unsigned handles_in_list() {
    constexpr auto system_handle_information = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    constexpr auto too_small = static_cast<NTSTATUS>(0xC0000004);
    std::vector<std::byte> buffer(0x10000);
    NTSTATUS status = 0;
    while ((status = NtQuerySystemInformation(system_handle_information, buffer.data(),
                                              static_cast<ULONG>(buffer.size()), nullptr)) == too_small)
        buffer.resize(2 * buffer.size());
    if (status < 0) throw std::runtime_error("the list of handles cannot be had");

    ULONG count = 0;
    std::memcpy(&count, buffer.data(), sizeof count);
    unsigned own = 0;
    for (ULONG i = 0; i < count; ++i) {
        handle_entry entry{};
        std::memcpy(&entry, buffer.data() + offsetof(handle_list, first) + i * sizeof entry, sizeof entry);
        if (entry.process == GetCurrentProcessId()) ++own;
    }
    return own;
}

unsigned handles_by_process() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const resource_counts& counts) {
    return out << counts.windows << " windows, " << counts.gdi_objects << " GDI objects, " << counts.handles
               << " handles";
}

resource_counts current_resources() {
    if (running_under_wine()) return {own_windows(), gdi_objects_in_table(), handles_in_list()};
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
