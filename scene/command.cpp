#include "scene/command.h"

#include "com/check.h"
#include "scene/rectangle.h"
#include "scene/view.h"

namespace d2d::scene {
namespace {

template <class... Functions>
struct overloaded : Functions... {
    using Functions::operator()...;
};
template <class... Functions>
overloaded(Functions...) -> overloaded<Functions...>;

/// The resource of a command that has one.
auto& resource_of(bitmap_command& recorded) noexcept {
    return recorded.bitmap;
}
template <class Recorded>
auto& resource_of(Recorded& recorded) noexcept {
    return recorded.brush;
}

}  // namespace

void bind_command(command& recorded, view& shown_in) {
    std::visit(overloaded{
                   [&](visual_command& it) { it.visual->bind(&shown_in); },
                   [&](auto& it) { it.binding = resource_of(it)->bind_typed(&shown_in); },
               },
               recorded);
}

void bind_resource(command& recorded, view* shown_in) {
    std::visit(overloaded{
                   [](visual_command&) {},
                   [&](auto& it) { it.binding = shown_in ? resource_of(it)->bind_typed(shown_in) : nullptr; },
               },
               recorded);
}

void release_command(command& recorded, view& shown_in) {
    std::visit(overloaded{
                   [&](visual_command& it) { it.visual->unbind(&shown_in); },
                   [&](auto& it) { it.binding.reset(); },
               },
               recorded);
}

void update_command(command& recorded, double time) {
    std::visit(overloaded{
                   [&](visual_command& it) {
                       if (it.visual->get_animation()) it.visual->animate(time);
                   },
                   [](bitmap_command&) {},
                   [&](auto& it) {
                       if (it.binding) it.binding->update(time);
                   },
               },
               recorded);
}

namespace {

void replay(const bitmap_command& it, ID2D1RenderTarget* target) {
    target->DrawBitmap(it.binding->get(), &it.destination, it.opacity, it.mode, &it.source);
}

void replay(const stroke_command& it, ID2D1RenderTarget* target) {
    target->DrawGeometry(it.geometry.get(), it.binding->get(), it.width, it.style.get());
}

void replay(const fill_command& it, ID2D1RenderTarget* target) {
    target->FillGeometry(it.geometry.get(), it.binding->get(), nullptr);
}

void replay(const text_command& it, ID2D1RenderTarget* target) {
    target->DrawTextLayout(it.origin, it.layout.get(), it.binding->get(), it.options);
}

}  // namespace

void replay_command(const command& recorded, ID2D1RenderTarget* target) {
    std::visit(overloaded{
                   [&](const visual_command& it) { it.visual->render(target); },
                   [&](const auto& it) {
                       if (it.binding) replay(it, target);
                   },
               },
               recorded);
}

bool command_contains(const command& recorded, D2D_POINT_2F point, float tolerance) {
    BOOL contained = FALSE;
    std::visit(
        overloaded{
            [&](const bitmap_command& it) { contained = contains(it.destination, point); },
            [&](const stroke_command& it) {
                com::check(it.geometry->StrokeContainsPoint(point, it.width, it.style.get(), nullptr,
                                                            tolerance, &contained));
            },
            [&](const fill_command& it) {
                com::check(it.geometry->FillContainsPoint(point, nullptr, tolerance, &contained));
            },
            [&](const text_command& it) {
                BOOL trailing = FALSE;
                BOOL inside = FALSE;
                DWRITE_HIT_TEST_METRICS metrics{};
                com::check(it.layout->HitTestPoint(point.x - it.origin.x, point.y - it.origin.y, &trailing,
                                                   &inside, &metrics));
                contained = inside || trailing;
            },
            [&](const visual_command& it) { contained = it.visual->hit_test(point.x, point.y, tolerance); },
        },
        recorded);
    return contained != FALSE;
}

IVisual* visual_of(const command& recorded) noexcept {
    const auto* const visual = std::get_if<visual_command>(&recorded);
    return visual ? visual->visual.get() : nullptr;
}

}  // namespace d2d::scene
