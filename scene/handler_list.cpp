#include "scene/handler_list.h"

#include <cstring>
#include <new>

#include <malloc.h>

namespace d2d::scene {
namespace {

constexpr std::size_t alignment = 8;
constexpr std::size_t header_size = (sizeof(handler_record) + alignment - 1) / alignment * alignment;

}  // namespace

void* handler_list::functor_of(handler_record* record) noexcept {
    return reinterpret_cast<std::byte*>(record) + header_size;
}

handler_list::~handler_list() {
    destroy_chain(first);
}

handler_block handler_list::allocate(unsigned size) {
    const std::size_t bytes = size + header_size + alignment - 1;
    void* const block = _aligned_malloc(bytes, alignment);
    if (!block) throw std::bad_alloc();
    std::memset(block, 0, bytes);
    auto* const record = ::new (block) handler_record{};
    return {record, functor_of(record)};
}

void handler_list::free(handler_record* record) noexcept {
    if (record->destroy) record->destroy(functor_of(record));
    _aligned_free(record);
}

void handler_list::link(handler_record* record) noexcept {
    record->mask &= handler_record::event_bits;
    handler_record** place = &first;
    while (*place && (*place)->priority <= record->priority) place = &(*place)->next;
    record->next = *place;
    *place = record;
}

void handler_list::remove(handler_record* record) noexcept {
    if (dispatch_depth > 0) return mark(*record);
    handler_record** place = &first;
    while (*place && *place != record) place = &(*place)->next;
    if (!*place) return;
    *place = record->next;
    free(record);
}

void handler_list::remove_first(std::uint32_t id) noexcept {
    for (handler_record* record = first; record; record = record->next) {
        if (record->id == id && !(record->mask & handler_record::removed)) return remove(record);
    }
}

void handler_list::remove_all(std::uint32_t id) noexcept {
    for (handler_record* record = first; record;) {
        handler_record* const next = record->next;
        if (record->id == id) remove(record);
        record = next;
    }
}

void handler_list::clear() noexcept {
    if (dispatch_depth == 0) return destroy_chain(std::exchange(first, nullptr));
    for (handler_record* record = first; record; record = record->next) mark(*record);
}

void handler_list::mark(handler_record& record) noexcept {
    record.mask |= handler_record::removed;
    handlers_pending = true;
}

void handler_list::sweep() noexcept {
    handler_record** place = &first;
    while (*place && !((*place)->mask & handler_record::removed)) place = &(*place)->next;
    // Kept: what stands behind the first marked record goes with it. Owners that remove during a dispatch add
    // anew what they still want.
    destroy_chain(std::exchange(*place, nullptr));
}

void handler_list::destroy_chain(handler_record* record) noexcept {
    while (record) {
        handler_record* const next = record->next;
        free(record);
        record = next;
    }
}

}  // namespace d2d::scene
