#pragma once

#include <utility>

#include <windows.h>

namespace d2d::fakes {

/// An entry in the table of the operations that objects of one kind share. `Operation` is the type of a
/// pointer to it, with the object as first parameter.
template <class Operation>
class table_entry {
public:
    /// `slot` counts from the beginning of the interface, `QueryInterface` being 0.
    table_entry(void* object, int slot) noexcept : entry(*static_cast<Operation**>(object) + slot) {}

    /// Puts another operation there and returns the present one.
    Operation exchange(Operation operation) const noexcept {
        DWORD former = 0;
        VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &former);
        const Operation replaced = std::exchange(*entry, operation);
        VirtualProtect(entry, sizeof *entry, former, &former);
        return replaced;
    }

private:
    Operation* entry;
};

}  // namespace d2d::fakes
