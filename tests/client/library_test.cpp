// Objects, exceptions and standard types across the boundary of the DLL.

#include "com/IObjectInternal.h"
#include "com/error.h"
#include "com/object.h"
#include "d2d/factory.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/ITextFormat.h"
#include "d2d/scene/IView.h"
#include "support/leak_checked_test.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace {

namespace scene = d2d::scene;

class library : public test_support::leak_checked_test {
protected:
    const d2d::factory token;
};

template <class Exception, class Call>
std::string text_thrown(Call&& call) {
    try {
        call();
    } catch (const Exception& caught) {
        return caught.what();
    }
    return "nothing of that type was thrown";
}

TEST_F(library, misuse_is_caught_by_the_client_as_a_logic_error_with_its_text) {
    const auto node = scene::create_node();
    EXPECT_EQ("unexpected", text_thrown<std::logic_error>([&] { node->add_child(nullptr); }));
    EXPECT_EQ("invalid transform received by d2d::scene::INode", text_thrown<std::logic_error>([&] {
                  node->set_transform({{{std::numeric_limits<float>::quiet_NaN(), 0, 0, 1, 0, 0}}});
              }));
    EXPECT_EQ("unable to invert transform received by d2d::scene::INode", text_thrown<std::logic_error>([&] {
                  node->set_transform({{{1, 1, 1, 1, 0, 0}}});
              }));
    const auto view = scene::create_view();
    const auto parent = scene::create_node();
    parent->add_child(node);
    EXPECT_EQ("Node already in a tree", text_thrown<std::logic_error>([&] { view->set_root(node); }));
    EXPECT_EQ("not expected", text_thrown<std::runtime_error>([&] { node->set_focus(); }));
}

TEST_F(library, a_failed_call_of_the_platform_is_caught_with_its_result) {
    const auto format = d2d::factory::create_text_format(L"Segoe UI", 12.0f);
    try {
        static_cast<void>(d2d::factory::create_text_layout("\x80", 1, format.get(), 0, 0));
        FAIL() << "malformed text was taken";
    } catch (const com::error& caught) {
        EXPECT_LT(caught.hresult, 0);
    }
}

/// A node of another make.
struct foreign : com::base_object<com::object_base, IServiceProvider> {
    HRESULT STDMETHODCALLTYPE QueryService(const GUID&, const GUID&, void**) override {
        return E_NOINTERFACE;
    }
};

TEST_F(library, an_object_of_the_client_lacks_what_it_does_not_list) {
    const auto object = com::create_object<foreign>();
    try {
        const com::ptr<scene::INode> node(object.get());
        FAIL() << "an interface that is not there was found";
    } catch (const com::error& caught) {
        EXPECT_EQ(E_NOINTERFACE, caught.hresult);
    }
    EXPECT_EQ(1u, object->reference_word());
}

TEST_F(library, handlers_of_the_client_see_bounds_change) {
    const auto node = scene::create_node();
    std::vector<D2D_RECT_F> told;
    const auto token_of_handler = node->add_bounds_handler([&](bool valid, D2D_RECT_F bounds) {
        if (valid) told.push_back(bounds);
    });
    const auto context = node->draw(false);
    context->fill_geometry(d2d::factory::create_rectangle_geometry({1, 2, 30, 40}).get(),
                           scene::create_solid_color_brush({1, 0, 0, 1}).get());
    context->commit();
    node->remove_bounds_handler(token_of_handler);
    context->commit();
    ASSERT_EQ(1u, told.size());
    EXPECT_EQ(1, told[0].left);
    EXPECT_EQ(40, told[0].bottom);
}

TEST_F(library, equal_text_formats_are_one_object) {
    const auto first =
        scene::ITextFormat::get(L"Segoe UI", DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL, 12);
    const auto second =
        scene::ITextFormat::get(L"Segoe UI", DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL, 12);
    EXPECT_EQ(first, second);
}

}  // namespace
