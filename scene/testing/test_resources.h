#pragma once

#include "com/base_object.h"
#include "com/check.h"
#include "d2d/scene/IBitmap.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IEffect.h"
#include "scene/resource_impl.h"
#include "scene/testing/call_text.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace d2d::scene::fakes {

class test_brush;
class test_bitmap;
class test_effect;
using test_brush_resource = resource_impl<test_brush, ID2D1Brush, ID2D1SolidColorBrush>;
using test_bitmap_resource = resource_impl<test_bitmap, ID2D1Bitmap, ID2D1Bitmap>;
using test_effect_resource = resource_impl<test_effect, IMaterializedEffect, IMaterializedEffect>;

/// Where the objects below write what happens to them, a line each. May be empty.
using log_function = std::function<void(std::string)>;

}  // namespace d2d::scene::fakes

template <>
struct com::interface_traits<d2d::scene::fakes::test_brush_resource>
    : com::extends<d2d::scene::resource<ID2D1Brush>> {
    static constexpr GUID id = com::guid("5A0C9D34-8E71-4B52-9F06-1D4E7B3A6C80");
};
template <>
struct com::interface_traits<d2d::scene::fakes::test_bitmap_resource>
    : com::extends<d2d::scene::resource<ID2D1Bitmap>> {
    static constexpr GUID id = com::guid("C7E2416B-03F9-4A8D-B5D1-82F60E9C3A17");
};
template <>
struct com::interface_traits<d2d::scene::fakes::test_effect_resource>
    : com::extends<d2d::scene::resource<d2d::scene::IMaterializedEffect>> {
    static constexpr GUID id = com::guid("1F8B5E90-6D2C-47A3-8C4E-F9A07B1D5E62");
};

namespace d2d::scene::fakes {

/// A brush of one colour that writes down "update <name> <time>" when it is told a frame's time, animated or
/// not.
class test_brush : public com::base_object<com::object_base, IBrush, test_brush_resource> {
public:
    test_brush(_D3DCOLORVALUE of_color, std::string called = "brush", bool is_animated = false,
               log_function writes_to = {})
        : color(of_color), name(std::move(called)), animated(is_animated), log(std::move(writes_to)) {}

    [[nodiscard]] com::ptr<ID2D1SolidColorBrush> create_device_object(ID2D1RenderTarget* target) const {
        com::ptr<ID2D1SolidColorBrush> made;
        com::check(target->CreateSolidColorBrush(&color, nullptr, made.put()));
        return made;
    }
    [[nodiscard]] bool has_animation() const noexcept { return animated; }
    void update_device_object(ID2D1SolidColorBrush*, double time) const {
        if (log) log(call_text("update", name, time));
    }

protected:
    ~test_brush() = default;

private:
    _D3DCOLORVALUE color;
    std::string name;
    bool animated;
    log_function log;
};

/// A bitmap of one colour (0xAARRGGBB, premultiplied) that writes down updates as a brush does.
class test_bitmap : public com::base_object<com::object_base, IBitmap, test_bitmap_resource> {
public:
    test_bitmap(D2D_SIZE_U of_size, unsigned of_color, bool is_animated = false, log_function writes_to = {})
        : size(of_size), color(of_color), animated(is_animated), log(std::move(writes_to)) {}

    D2D_SIZE_U get_size() override { return size; }

    [[nodiscard]] com::ptr<ID2D1Bitmap> create_device_object(ID2D1RenderTarget* target) const {
        constexpr D2D1_BITMAP_PROPERTIES properties{
            {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, 96.0f, 96.0f};
        const std::vector<unsigned> pixels(std::size_t{size.width} * size.height, color);
        com::ptr<ID2D1Bitmap> made;
        com::check(target->CreateBitmap(size, pixels.data(), size.width * 4, &properties, made.put()));
        return made;
    }
    [[nodiscard]] bool has_animation() const noexcept { return animated; }
    void update_device_object(ID2D1Bitmap*, double time) const {
        if (log) log(call_text("update bitmap", time));
    }

protected:
    ~test_bitmap() = default;

private:
    D2D_SIZE_U size;
    unsigned color;
    bool animated;
    log_function log;
};

/// An effect that hands on what it is given, and writes down "apply <name>" and "materialize <name>",
/// "dematerialize <name>" for its device objects.
class test_effect : public com::base_object<com::object_base, IEffect, test_effect_resource> {
public:
    explicit test_effect(std::string called, log_function writes_to = {})
        : name(std::move(called)), log(std::move(writes_to)) {}

    /// What the making of a device object answers.
    HRESULT creation_result = S_OK;

    [[nodiscard]] com::ptr<IMaterializedEffect> create_device_object(ID2D1RenderTarget*) const {
        com::check(creation_result);
        return com::create_object<materialized>(*this);
    }

protected:
    ~test_effect() = default;

private:
    class materialized : public com::base_object<com::object_base, IMaterializedEffect> {
    public:
        explicit materialized(const test_effect& from) : name(from.name), log(from.log) {
            write("materialize");
        }
        void final_release() { write("dematerialize"); }
        ID2D1Image* apply(ID2D1Image* input) override {
            write("apply");
            return input;
        }

    protected:
        ~materialized() = default;

    private:
        void write(const char* what) const {
            if (log) log(call_text(what, name));
        }
        std::string name;
        log_function log;
    };

    std::string name;
    log_function log;
};

}  // namespace d2d::scene::fakes
