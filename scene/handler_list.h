#pragma once

#include "d2d/scene/handler_record.h"

#include <type_traits>
#include <utility>

namespace d2d::scene {

/// The mouse and cursor handlers of a node, sorted by ascending priority. Records may be added and removed
/// while they are being called: a removal during a dispatch only marks, and the outermost dispatch sweeps at
/// its end.
class handler_list {
public:
    handler_list() noexcept = default;
    handler_list(const handler_list&) = delete;
    handler_list& operator=(const handler_list&) = delete;
    ~handler_list();

    [[nodiscard]] static handler_block allocate(unsigned size);
    [[nodiscard]] static void* functor_of(handler_record* record) noexcept;
    /// Destroys the functor of a record that is in no list, and frees the record.
    static void free(handler_record* record) noexcept;

    /// Puts a record behind those of the same priority.
    void link(handler_record* record) noexcept;
    void remove(handler_record* record) noexcept;
    void remove_first(std::uint32_t id) noexcept;
    void remove_all(std::uint32_t id) noexcept;
    void clear() noexcept;

    [[nodiscard]] bool empty() const noexcept { return !first; }

    /// Calls `call(record)` for each record of a kind that wants all of `events`, in list order, until one
    /// returns something that is true; returns that, or the default value.
    template <class Call>
    auto dispatch(handler_kind kind, std::uint32_t events, Call&& call)
        -> std::invoke_result_t<Call, handler_record&> {
        if (!first) return {};
        const running guard(*this);
        for (handler_record* record = first; record; record = record->next) {
            const std::uint32_t relevant = record->mask & (handler_record::removed | events);
            if (record->kind != kind || relevant != events) continue;
            if (auto result = call(*record)) return result;
        }
        return {};
    }

private:
    class running {
    public:
        explicit running(handler_list& list) noexcept : list_(list) { ++list_.dispatch_depth; }
        running(const running&) = delete;
        running& operator=(const running&) = delete;
        ~running() {
            if (--list_.dispatch_depth == 0 && std::exchange(list_.handlers_pending, false)) list_.sweep();
        }

    private:
        handler_list& list_;
    };

    void sweep() noexcept;
    void mark(handler_record& record) noexcept;
    static void destroy_chain(handler_record* record) noexcept;

    handler_record* first = nullptr;
    int dispatch_depth = 0;
    bool handlers_pending = false;  // a record awaits its removal
};

}  // namespace d2d::scene
