#include "scene_fixture.h"

#include "com/check.h"

#include <cmath>

namespace bench {
namespace {

constexpr D2D_MATRIX_3X2_F identity{{{1, 0, 0, 1, 0, 0}}};

com::ptr<IWICBitmap> make_bitmap() {
    com::ptr<IWICImagingFactory> imaging;
    com::check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                __uuidof(IWICImagingFactory), imaging.put_void()));
    com::ptr<IWICBitmap> bitmap;
    com::check(
        imaging->CreateBitmap(1000, 1000, GUID_WICPixelFormat32bppPBGRA, WICBitmapCacheOnLoad, bitmap.put()));
    return bitmap;
}

com::ptr<ID2D1RenderTarget> make_target(IWICBitmap* bitmap) {
    D2D1_RENDER_TARGET_PROPERTIES properties{};
    properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};
    com::ptr<ID2D1RenderTarget> target;
    com::check(d2d::factory::d2d1()->CreateWicBitmapRenderTarget(bitmap, &properties, target.put()));
    return target;
}

D2D_MATRIX_3X2_F place(std::size_t index, std::size_t per_row, float pitch) {
    return {{{1, 0, 0, 1, static_cast<float>(index % per_row) * pitch,
              static_cast<float>(index / per_row) * pitch}}};
}

}  // namespace

scene_fixture::scene_fixture(target_kind kind)
    : square(d2d::factory::create_rectangle_geometry({0, 0, 10, 10})),
      brush(d2d::scene::create_solid_color_brush({0.2f, 0.4f, 0.6f, 1})),
      bitmap(make_bitmap()),
      target(make_target(bitmap.get())),
      site(com::create_object<idle_site>()),
      view(d2d::scene::create_view()),
      edge(view) {
    if (kind == target_kind::idle) target = com::create_object<idle_target>(target);
    edge->attach_site(site.get());
    edge->attach_render_target(target.get());
}

scene_fixture::~scene_fixture() {
    view->set_root(nullptr);
    edge->detach_render_target(target.get());
    edge->detach_site(site.get());
}

com::ptr<d2d::scene::INode> scene_fixture::make_leaf(float x, float y) const {
    auto leaf = d2d::scene::create_node();
    record(*leaf);
    leaf->set_transform({{{1, 0, 0, 1, x, y}}});
    return leaf;
}

void scene_fixture::record(d2d::scene::INode& leaf) const {
    const auto context = leaf.draw(false);
    context->fill_geometry(square.get(), brush.get());
    context->commit();
}

com::ptr<d2d::scene::INode> scene_fixture::make_groups() const {
    auto root = d2d::scene::create_node();
    for (std::size_t i = 0; i < 100; ++i) {
        auto group = d2d::scene::create_node();
        group->set_transform(place(i, 10, 100));
        for (std::size_t k = 0; k < 100; ++k) {
            const D2D_MATRIX_3X2_F at = place(k, 10, 10);
            group->add_child(make_leaf(at._31, at._32));
        }
        root->add_child(std::move(group));
    }
    return root;
}

com::ptr<d2d::scene::INode> scene_fixture::make_flat(std::size_t count) const {
    return make_leaf_list(*this, count).parent;
}

void scene_fixture::paint() {
    target->BeginDraw();
    edge->render({0, 0, 1000, 1000}, identity);
    com::check(target->EndDraw(nullptr, nullptr));
}

std::size_t side_of(std::size_t count) {
    return static_cast<std::size_t>(std::lround(std::sqrt(static_cast<double>(count))));
}

leaf_list make_leaf_list(const scene_fixture& fixture, std::size_t count) {
    leaf_list list{d2d::scene::create_node(), {}};
    list.leaves.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const D2D_MATRIX_3X2_F at = place(i, side_of(count), 10);
        list.leaves.push_back(fixture.make_leaf(at._31, at._32));
        list.parent->add_child(list.leaves.back());
    }
    return list;
}

}  // namespace bench
