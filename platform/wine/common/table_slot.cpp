#include "table_slot.h"

#include <stdexcept>

namespace completion {

void* exchange_slot(void* object, std::size_t number, void* replacement) {
    void** table = nullptr;
    std::memcpy(&table, object, sizeof table);
    void** const slot = table + number;
    DWORD protection = 0;
    if (!VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection)) {
        throw std::runtime_error("a table of operations cannot be written");
    }
    void* const original = InterlockedExchangePointer(slot, replacement);
    VirtualProtect(slot, sizeof *slot, protection, &protection);
    return original;
}

}  // namespace completion
