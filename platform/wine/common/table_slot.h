#pragma once

#include <windows.h>

#include <bit>
#include <cstddef>
#include <cstring>
#include <mutex>

namespace completion {

/// What a pointer to a method of a COM interface says about its slot: the interface, and the type of the
/// plain function (the object first) that stands in the table.
template <typename Method>
struct method_traits;

template <typename Interface, typename Result, typename... Arguments>
struct method_traits<Result (STDMETHODCALLTYPE Interface::*)(Arguments...)> {
    using interface_type = Interface;
    using function_type = Result STDMETHODCALLTYPE(Interface*, Arguments...);
};

template <typename Interface, typename Result, typename... Arguments>
struct method_traits<Result (STDMETHODCALLTYPE Interface::*)(Arguments...) const> {
    using interface_type = Interface;
    using function_type = Result STDMETHODCALLTYPE(Interface*, Arguments...);
};

// Compilers that take the headers' "nothrow" at its word see another type of method, but the same function.
template <typename Interface, typename Result, typename... Arguments>
struct method_traits<Result (STDMETHODCALLTYPE Interface::*)(Arguments...) noexcept>
    : method_traits<Result (STDMETHODCALLTYPE Interface::*)(Arguments...)> {};

template <typename Interface, typename Result, typename... Arguments>
struct method_traits<Result (STDMETHODCALLTYPE Interface::*)(Arguments...) const noexcept>
    : method_traits<Result (STDMETHODCALLTYPE Interface::*)(Arguments...) const> {};

/// The number of a virtual method in its interface's table. The completions are built by compilers of the
/// Itanium ABI only, where a pointer to a virtual method holds one more than the byte offset in the table.
/// For an overloaded name, say which: slot_number<HRESULT (STDMETHODCALLTYPE I::*)(int)>(&I::method).
template <typename Method>
[[nodiscard]] std::size_t slot_number(Method method) noexcept {
    struct representation {
        std::ptrdiff_t function;
        std::ptrdiff_t adjustment;
    };
    static_assert(sizeof(Method) == sizeof(representation));
    return static_cast<std::size_t>(std::bit_cast<representation>(method).function - 1) / sizeof(void*);
}

/// Writes one pointer into an object's table and gives back the one that stood there. The table is shared by
/// every object of the class.
void* exchange_slot(void* object, std::size_t number, void* replacement);

/// One operation of one class that a completion replaces: keeps the original, for the replacement to call
/// first. A class has its own table, hence its own table_slot, typically as static members of a template over
/// the kind of object:
///
///     template <typename Kind> struct bounds_completion {
///         using get_bounds = HRESULT (STDMETHODCALLTYPE ID2D1Geometry::*)(const D2D1_MATRIX_3X2_F*,
///                                                                         D2D1_RECT_F*) const;
///         static inline table_slot<get_bounds> slot{&ID2D1Geometry::GetBounds};
///
///         static HRESULT STDMETHODCALLTYPE replacement(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F*
///         transform,
///                                                      D2D1_RECT_F* bounds) {
///             const HRESULT result = slot.original()(self, transform, bounds);
///             return result == E_NOTIMPL ? own_work(self, transform, bounds) : result;
///         }
///     };
///
///     bounds_completion<ellipse>::slot.replace(sample_ellipse, &bounds_completion<ellipse>::replacement);
///
/// Methods that return structures by value are not for it: MinGW passes their result otherwise than Windows
/// does.
template <typename Method>
class table_slot {
public:
    using interface_type = typename method_traits<Method>::interface_type;
    using function_type = typename method_traits<Method>::function_type;

    explicit table_slot(Method method) noexcept : number_(slot_number(method)) {}

    /// Replaces the operation in the table of the sample's class; every call but the first does nothing.
    /// The caller keeps the sample. From any thread.
    void replace(interface_type* sample, function_type* replacement) {
        std::call_once(once_, [&] {
            original_ = read(sample);
            exchange_slot(sample, number_, reinterpret_cast<void*>(replacement));
        });
    }

    /// The operation that stood in the table before.
    [[nodiscard]] function_type* original() const noexcept { return original_; }

private:
    [[nodiscard]] function_type* read(interface_type* sample) const noexcept {
        void** table = nullptr;
        std::memcpy(&table, static_cast<void*>(sample), sizeof table);
        return reinterpret_cast<function_type*>(table[number_]);
    }

    std::size_t number_;
    std::once_flag once_;
    function_type* original_ = nullptr;
};

}  // namespace completion
