#pragma once

#include <unknwn.h>
#include <windows.h>

#include <memory>

namespace completion {

struct releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};

/// One counted reference. The toolkit's own pointer isn't used: a completion stands apart from the library.
template <typename Interface>
using owned = std::unique_ptr<Interface, releaser>;

/// Takes over the reference that a creating call left: make<I>([&](I** result) { return f->Create(result);
/// }); empty on failure.
template <typename Interface, typename Create>
[[nodiscard]] owned<Interface> make(Create create) {
    Interface* object = nullptr;
    return SUCCEEDED(create(&object)) ? owned<Interface>(object) : owned<Interface>();
}

/// The object's other interface; empty when it has none.
template <typename Interface>
[[nodiscard]] owned<Interface> query(IUnknown* object) {
    void* found = nullptr;
    return object && SUCCEEDED(object->QueryInterface(__uuidof(Interface), &found))
               ? owned<Interface>(static_cast<Interface*>(found))
               : owned<Interface>();
}

}  // namespace completion
