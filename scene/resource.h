#pragma once

#include "com/base_object.h"
#include "com/ptr.h"
#include "d2d/scene/IResourceBindingContext.h"
#include "scene/linked_list.h"
#include "scene/materialized_effect.h"

#include <d2d1.h>

namespace d2d::scene {

// A drawing resource is two halves. The resource itself is independent of any device; clients make it, and
// recordings keep it. Its binding holds the real Direct2D object for one view, and lives while a recording in
// that view uses it: from the moment that a render target is there until it goes. There is at most one
// binding per resource and view.

class view;
class basic_resource;

/// Base of all bindings.
struct basic_resource_binding : IUnknown {
    virtual bool is_animated() noexcept = 0;
};

/// A binding that holds a device object of type `T`.
template <class T>
struct ID2DResourceBinding : IResourceBinding {
    /// Brings the device object to its value at `time`.
    virtual void update(double time) = 0;
    /// The device object; no reference is added.
    virtual T* get() noexcept = 0;
};

using animated_binding_list = linked_list<basic_resource_binding, view>;
using resource_binding_list = linked_list<basic_resource_binding, basic_resource>;

/// Base of all resources.
class basic_resource : public IUnknown {
public:
    /// The binding for a view, new or existing. The view has a render target.
    virtual com::ptr<basic_resource_binding> bind(view* shown_in) = 0;
    virtual bool is_animated() noexcept = 0;

protected:
    basic_resource() = default;
    ~basic_resource() = default;

    resource_binding_list bindings;
};

/// Base of the resources that make a device object of type `T`.
template <class T>
class resource : public basic_resource {
public:
    /// The same, typed.
    virtual com::ptr<ID2DResourceBinding<T>> bind_typed(view* shown_in) = 0;
    /// Makes the device object.
    virtual com::ptr<T> create(ID2D1RenderTarget* target) = 0;

    /// Base of the resource's bindings.
    class binding
        : public com::base_object<com::object_base, basic_resource_binding, ID2DResourceBinding<T>> {};

protected:
    ~resource() = default;
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::basic_resource_binding> : com::extends<> {
    static constexpr GUID id = com::guid("0B0E6A7D-5A19-4C22-8C66-2F4E7D1B9A53");
};
template <>
struct com::interface_traits<d2d::scene::ID2DResourceBinding<ID2D1Brush>>
    : com::extends<d2d::scene::IResourceBinding> {
    static constexpr GUID id = com::guid("8D3B1F62-7C4A-4E0B-9B1D-6A5C2E8F7043");
};
template <>
struct com::interface_traits<d2d::scene::ID2DResourceBinding<ID2D1Bitmap>>
    : com::extends<d2d::scene::IResourceBinding> {
    static constexpr GUID id = com::guid("F24C9E07-1D6B-4A83-B5E2-9C0D7F3A6B18");
};
template <>
struct com::interface_traits<d2d::scene::ID2DResourceBinding<d2d::scene::IMaterializedEffect>>
    : com::extends<d2d::scene::IResourceBinding> {
    static constexpr GUID id = com::guid("63A7D0C5-E84F-4B19-8F2A-0E1B5D9C7264");
};
template <>
struct com::interface_traits<d2d::scene::basic_resource> : com::extends<> {
    static constexpr GUID id = com::guid("A1C8F35E-60D2-4F7B-9E04-B7D3269A5C81");
};
template <>
struct com::interface_traits<d2d::scene::resource<ID2D1Brush>> : com::extends<d2d::scene::basic_resource> {
    static constexpr GUID id = com::guid("4F9E2B70-D1A6-4C3E-8B57-E06C8A1D3F92");
};
template <>
struct com::interface_traits<d2d::scene::resource<ID2D1Bitmap>> : com::extends<d2d::scene::basic_resource> {
    static constexpr GUID id = com::guid("97B05D1C-3E8A-4D64-A2F9-5C7E1B0D8A36");
};
template <>
struct com::interface_traits<d2d::scene::resource<d2d::scene::IMaterializedEffect>>
    : com::extends<d2d::scene::basic_resource> {
    static constexpr GUID id = com::guid("D85A6E43-9C1F-4B70-B3D8-2A9F4E7C0B15");
};
