#pragma once

#include "com/count_word.h"
#include "com/object.h"
#include "d2d/scene/IAnimation.h"
#include "scene/testing/fake_geometry.h"
#include "scene/testing/scene_test.h"

#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <utility>

namespace d2d::scene::fakes {

/// An animation whose value a test chooses.
class test_animation : public com::base_object<com::object_base, IValueAnimation<D2D_MATRIX_3X2_F>> {
public:
    using function = std::function<D2D_MATRIX_3X2_F(double time)>;

    explicit test_animation(function of_time) : value(std::move(of_time)) {}

    bool is_stepped() override { return false; }
    double next_update(double) override { return 0.05; }
    D2D_MATRIX_3X2_F get_value(double time) override { return value(time); }

protected:
    ~test_animation() = default;

private:
    function value;
};

/// A fixture for trees of nodes: the process's graphics objects are made once, and recordings are rectangles
/// of exactly the wanted bounds.
class tree_test : public scene_test {
protected:
    static void SetUpTestSuite() { kept_graphics() = std::make_unique<factory>(); }
    static void TearDownTestSuite() { kept_graphics().reset(); }

    void TearDown() override {
        scene_test::TearDown();
        for (const auto& used : geometries) EXPECT_EQ(0u, used.references());
    }

    /// Records one filled shape, which covers `rect` whatever the order of its edges.
    void record(INode* node, const D2D_RECT_F& rect, bool animated = false) {
        const auto context = node->draw(false);
        const auto brush = com::create_object<test_brush>(red, "brush", animated);
        context->fill_geometry(geometry(rect), brush.get());
        context->commit();
    }
    void record(const com::ptr<INode>& node, const D2D_RECT_F& rect, bool animated = false) {
        record(node.get(), rect, animated);
    }
    static void erase(const com::ptr<INode>& node) { node->draw(false)->commit(); }

    /// A node with a recording, below a parent or free.
    com::ptr<INode> filled(const D2D_RECT_F& rect, const com::ptr<INode>& parent = nullptr) {
        const auto made = create_node();
        record(made, rect);
        if (parent) parent->add_child(made);
        return made;
    }
    static com::ptr<INode> empty_below(const com::ptr<INode>& parent) {
        auto made = create_node();
        parent->add_child(made);
        return made;
    }

    /// A filled shape; lives until the end of the test, and is used anew only long after everybody let go of
    /// it.
    fake_geometry* geometry(const D2D_RECT_F& bounds) {
        constexpr std::size_t many = 1000;
        for (std::size_t tried = 0; geometries.size() >= many && tried < geometries.size(); ++tried) {
            fake_geometry& used = geometries[next_geometry++ % geometries.size()];
            if (used.references() > 0) continue;
            used.bounds = used.widened_bounds = bounds;
            return &used;
        }
        fake_geometry& made = geometries.emplace_back(bounds);
        made.filled = true;
        return &made;
    }

    [[nodiscard]] lines calls() { return site.take_calls(); }

    static com::ptr<test_animation> still() {
        return com::create_object<test_animation>([](double) { return identity_matrix; });
    }

private:
    static std::unique_ptr<factory>& kept_graphics() {
        static std::unique_ptr<factory> kept;
        return kept;
    }

    std::deque<fake_geometry> geometries;
    std::size_t next_geometry = 0;
};

/// How many strong references an object has; none for null.
[[nodiscard]] inline unsigned long references(IUnknown* object) {
    if (!object) return 0;
    object->AddRef();
    return object->Release() & com::count_word::strong_mask;
}

/// What a call throws: the exception's text, or "nothing". Of another type than `Exception`: passes on.
template <class Exception = std::logic_error, class Call>
[[nodiscard]] std::string thrown_by(Call&& call) {
    try {
        call();
    } catch (const Exception& thrown) {
        return typeid(thrown) == typeid(Exception) ? thrown.what() : "another exception";
    }
    return "nothing";
}

/// Tells whether two rectangles have the same edges, in words that name both.
[[nodiscard]] inline testing::AssertionResult same(const D2D_RECT_F& expected, const D2D_RECT_F& actual) {
    if (expected.left == actual.left && expected.top == actual.top && expected.right == actual.right &&
        expected.bottom == actual.bottom)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "expected (" << call_text(expected) << "), is (" << call_text(actual) << ")";
}

[[nodiscard]] inline testing::AssertionResult same(const D2D_MATRIX_3X2_F& expected,
                                                   const D2D_MATRIX_3X2_F& actual) {
    if (call_text(expected) == call_text(actual)) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "expected (" << call_text(expected) << "), is (" << call_text(actual) << ")";
}

}  // namespace d2d::scene::fakes
