#pragma once

#include <cstdint>

namespace d2d::scene {

/// What kind of handler a record holds.
enum class handler_kind : std::uint8_t { mouse = 0, cursor = 1 };

/// Header of a handler in a node's list; the functor lies behind it in the same block. A list is sorted by
/// ascending priority, and a new record goes behind equal ones.
struct handler_record {
    /// Set in `mask`: the record waits for its removal and is not called.
    static constexpr std::uint32_t removed = 0x80000000u;
    /// The bits of `mask` that a caller may set: bit n asks for mouse events of type n.
    static constexpr std::uint32_t event_bits = 0x0FFFFFFFu;

    handler_record* next;
    /// Chooses records for `INode::remove_handlers`.
    std::uint32_t id;
    std::uint32_t mask;
    std::int32_t priority;
    /// Destroys the functor in place; may be null.
    void (*destroy)(void* functor);
    /// Calls the functor: a `mouse_invoke*` or `cursor_invoke*`, as `kind` tells.
    void (*invoke)();
    handler_kind kind;
};

/// A block from `INode::allocate_handler`: a zeroed record and the room for its functor.
struct handler_block {
    handler_record* record;
    void* functor;
};

}  // namespace d2d::scene
