#include "com/error.h"
#include "scene/testing/forwarding_target.h"
#include "scene/testing/pixel_target.h"
#include "scene/testing/scene_test.h"

#include <optional>

namespace d2d::scene {
namespace {

using fakes::forwarding_target;
using fakes::recording_render_target;
using fakes::test_effect;
using test_support::picture;

/// What a target makes for an effect: writes its calls down, and sends them on where there is a real one.
/// Stands on the stack of a test.
class fake_layer final : public forwarding_target<ID2D1BitmapRenderTarget> {
public:
    fake_layer() : forwarding_target(recording) {}
    explicit fake_layer(com::ptr<ID2D1BitmapRenderTarget> forward_to)
        : forwarding_target(recording), real(std::move(forward_to)), recording(real.get()) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID&, void** out) noexcept override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references; }
    HRESULT STDMETHODCALLTYPE GetBitmap(ID2D1Bitmap** bitmap) override {
        recording.note("GetBitmap");
        if (real) return real->GetBitmap(bitmap);
        constexpr D2D1_BITMAP_PROPERTIES properties{
            {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, 96.0f, 96.0f};
        return recording.CreateBitmap({4, 4}, nullptr, 0, &properties, bitmap);
    }

    ULONG references = 0;

private:
    com::ptr<ID2D1BitmapRenderTarget> real;

public:
    recording_render_target recording;
};

class painter_effect : public fakes::scene_test {
protected:
    void SetUp() override {
        scene_test::SetUp();
        effect = com::create_object<test_effect>("e", target_log());
        child = create_node();
        root->add_child(child);
    }
    void TearDown() override {
        child.reset();
        effect.reset();
        scene_test::TearDown();
    }

    com::ptr<test_effect> effect;
    com::ptr<INode> child;
};

/// On a real target, whose device context draws the effect's image.
class painter_effect_pixels : public painter_effect {
protected:
    void SetUp() override {
        painter_effect::SetUp();
        recording.emplace(real.get());
        edge->attach_render_target(&*recording);
        view->set_root(root);
        recording->make_layer = [this](const D2D1_SIZE_F& size, ID2D1BitmapRenderTarget** out) {
            com::ptr<ID2D1BitmapRenderTarget> made;
            const HRESULT result = real->CreateCompatibleRenderTarget(
                &size, nullptr, nullptr, D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS_NONE, made.put());
            layer.emplace(std::move(made));
            layer->AddRef();
            *out = &*layer;
            return result;
        };
    }
    void TearDown() override {
        view->set_root(nullptr);
        edge->detach_render_target(nullptr);
        layer.reset();
        recording.reset();
        painter_effect::TearDown();
    }

    [[nodiscard]] picture paint() {
        constexpr D2D1_COLOR_F transparent{};
        static_cast<void>(recording->take_calls());
        real->BeginDraw();
        real->Clear(&transparent);
        edge->render({0, 0, 100, 100}, {{{1, 0, 0, 1, 0, 0}}});
        com::check(real->EndDraw(nullptr, nullptr));
        return real.picture();
    }

    fakes::pixel_target real{100, 100};
    std::optional<recording_render_target> recording;
    std::optional<fake_layer> layer;
};

TEST_F(painter_effect_pixels, the_background_is_painted_through_it_alone) {
    effect = com::create_object<test_effect>("e", [this](std::string line) { recording->note(line); });
    const auto below = create_node();
    fill(below, {2, 2, 4, 4}, blue);
    child->add_child(below);
    child->set_transform({{{2, 0, 0, 2, 20, 30}}});
    const auto context = child->draw(false);
    fill(*context, {0, 0, 5, 10}, red);
    fill(*context, {5, 5, 10, 10}, red);
    context->foreground();
    fill(*context, {8, 8, 9, 9}, green);
    context->commit();
    child->set_effect(effect.get());
    const picture seen = paint();
    const lines calls = recording->take_calls();
    EXPECT_EQ((lines{
                  "SetTransform 1 0 0 1 0 0",
                  "SetTransform 2 0 0 2 20 30",
                  "CreateCompatibleRenderTarget 20 20",
                  "SetTransform 1 0 0 1 0 0",
                  "apply e",
                  "SetTransform 2 0 0 2 20 30",
                  "FillGeometry rectangle(2 2 4 4) brush(0 0 1 1)",
                  "FillGeometry rectangle(8 8 9 9) brush(0 1 0 1)",
                  "SetTransform 1 0 0 1 0 0",
              }),
              calls);
    EXPECT_EQ((lines{
                  "BeginDraw",
                  "Clear null",
                  "SetTransform 2 0 0 2 0 0",
                  "FillGeometry rectangle(0 0 5 10) brush(1 0 0 1)",
                  "FillGeometry rectangle(5 5 10 10) brush(1 0 0 1)",
                  "EndDraw",
                  "GetBitmap",
              }),
              layer->recording.take_calls());
    picture expected(100, 100);
    const auto put = [&](unsigned left, unsigned top, unsigned right, unsigned bottom, std::uint32_t color) {
        for (unsigned y = top; y < bottom; ++y) {
            for (unsigned x = left; x < right; ++x) expected.at(x, y) = color;
        }
    };
    put(20, 30, 30, 50, 0xFFFF0000);
    put(30, 40, 40, 50, 0xFFFF0000);
    put(24, 34, 28, 38, 0xFF0000FF);
    put(36, 46, 38, 48, 0xFF00FF00);
    EXPECT_TRUE(expected == seen);
    EXPECT_EQ(0u, layer->references) << "nothing is kept from one paint to the next";
}

TEST_F(painter_effect_pixels, a_quarter_turn_keeps_the_picture_in_its_place) {
    child->set_transform({{{0, 1, -1, 0, 50, 10}}});  // (x, y) comes to (50 - y, 10 + x)
    const auto context = child->draw(false);
    fill(*context, {0, 0, 20, 10}, red);
    fill(*context, {0, 0, 5, 5}, blue);
    context->commit();
    const picture direct = paint();
    child->set_effect(effect.get());
    EXPECT_TRUE(direct == paint());
    EXPECT_EQ(0xFF0000FFu, direct.at(49, 10));
    EXPECT_EQ(0xFFFF0000u, direct.at(40, 29));
    EXPECT_EQ("SetTransform 0 1 -1 0 10 0", layer->recording.calls().at(2));
}

TEST_F(painter_effect_pixels, without_a_background_recording_it_is_not_asked) {
    const auto context = child->draw(false);
    context->foreground();
    fill(*context, {0, 0, 10, 10}, red);
    context->commit();
    child->set_effect(effect.get());
    static_cast<void>(paint());
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 10 10) brush(1 0 0 1)"}),
              recording->take_calls());
}

HRESULT failure_of_paint(IViewLowerEdge& edge) {
    try {
        edge.render({0, 0, 100, 100}, {{{1, 0, 0, 1, 0, 0}}});
    } catch (const com::error& failure) {
        return failure.hresult;
    }
    return S_OK;
}

TEST_F(painter_effect, failures_of_the_platform_are_thrown) {
    fill(child, {1, 2, 3, 5});
    child->set_effect(effect.get());
    show();
    EXPECT_EQ(E_NOTIMPL, failure_of_paint(*edge.get())) << "no layer";
    EXPECT_EQ("CreateCompatibleRenderTarget 2 3", target.calls().back());

    fake_layer layer;
    target.make_layer = [&](const D2D1_SIZE_F&, ID2D1BitmapRenderTarget** out) {
        layer.AddRef();
        *out = &layer;
        return S_OK;
    };
    EXPECT_EQ(E_NOINTERFACE, failure_of_paint(*edge.get())) << "no device context";
    EXPECT_EQ("SetTransform 1 0 0 1 0 0", target.calls().back());
    EXPECT_EQ("SetTransform 1 0 0 1 -1 -2", layer.recording.calls().at(2));
    EXPECT_EQ(0u, layer.references);

    layer.recording.end_draw_result = E_OUTOFMEMORY;
    EXPECT_EQ(E_OUTOFMEMORY, failure_of_paint(*edge.get())) << "the layer's drawing failed";
    EXPECT_EQ(0u, layer.references);
}

}  // namespace
}  // namespace d2d::scene
