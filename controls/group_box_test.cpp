// A frame around a node of content.

#include "controls/testing/fake_label.h"
#include "controls/testing/label_test.h"
#include "d2d/ui/IGroupBox.h"
#include "scene/testing/metrics_text.h"

#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using fakes::failure_of;
using fakes::fake_label;
using scene::identity_matrix;
using scene::translation_matrix;
using scene::fakes::references;
using scene::fakes::same;
using scene::fakes::text_of;
using scene::fakes::thrown_by;

class group_box_test : public scene::fakes::tree_test {
protected:
    static constexpr D2D_RECT_F rect{10, 20, 70, 60};

    void SetUp() override {
        tree_test::SetUp();
        style = com::create_object<fakes::recording_group_box_style>(host_log());
    }
    void TearDown() override {
        box.reset();
        style.reset();
        tree_test::TearDown();
    }
    void show_box(const D2D_RECT_F& place = rect) {
        box = ui::create_group_box(nullptr, place, style.get());
        root->add_child(box->get_node());
        show();
    }

    com::ptr<fakes::recording_group_box_style> style;
    com::ptr<ui::IGroupBox> box;
};

TEST_F(group_box_test, answers_for_its_interfaces_but_not_as_a_control) {
    const auto made = ui::create_group_box(nullptr, rect, nullptr);
    EXPECT_TRUE(answers<IUnknown>(made));
    EXPECT_TRUE(answers<ui::IGroupBox>(made));
    EXPECT_TRUE(answers<scene::layout::IElement>(made));
    EXPECT_FALSE(answers<ui::IControl>(made));
    EXPECT_FALSE(answers<ui::ILabel>(made));
    ui::IControl* const control = made.get();
    EXPECT_TRUE(same(rect, control->get_rect()));
}

TEST_F(group_box_test, is_drawn_as_it_is_made_where_it_has_an_area) {
    struct {
        D2D_RECT_F place;
        lines drawn;
    } const cases[] = {
        {{10, 20, 70, 60}, {"draw 10 20 70 60 label 0 0 0 0"}},
        {{-5, -5, -4, -4}, {"draw -5 -5 -4 -4 label 0 0 0 0"}},
        {{0, 0, 0.25f, 0.25f}, {"draw 0 0 0.25 0.25 label 0 0 0 0"}},
        {{}, {}},
        {{10, 20, 10, 60}, {}},
        {{10, 20, 70, 20}, {}},
        {{70, 20, 10, 60}, {}},
        {{10, 60, 70, 20}, {}},
        {{70, 60, 10, 20}, {}},
    };
    for (const auto& [place, drawn] : cases) {
        const auto made = ui::create_group_box(nullptr, place, style.get());
        EXPECT_EQ(drawn, calls());
        EXPECT_TRUE(same(place, made->get_rect()));
        EXPECT_TRUE(same(identity_matrix, made->get_node()->get_transform()));
    }
}

TEST_F(group_box_test, is_drawn_when_it_is_arranged_elsewhere) {
    show_box();
    box->arrange(rect);
    EXPECT_EQ((lines{}), calls());
    box->arrange({0, 0, 40, 30});
    EXPECT_EQ(
        (lines{"draw 0 0 40 30 label 0 0 0 0", "invalidate_rect 10 20 70 60", "invalidate_rect 0 0 40 30"}),
        calls());
    EXPECT_TRUE(same(D2D_RECT_F{0, 0, 40, 30}, box->get_rect()));
    const D2D_RECT_F nearly[] = {{1, 0, 40, 30}, {1, 2, 40, 30}, {1, 2, 41, 30}, {1, 2, 41, 32}};
    for (const auto& place : nearly) {
        box->arrange(place);
        EXPECT_EQ(3u, calls().size()) << text_of(place);
        box->arrange(place);
        EXPECT_EQ((lines{}), calls()) << text_of(place);
    }
}

TEST_F(group_box_test, made_without_an_area_is_drawn_at_its_first_arrangement) {
    show_box({});
    box->arrange({});
    EXPECT_EQ((lines{}), calls());
    EXPECT_TRUE(same(D2D_RECT_F{}, box->get_node()->get_bounds(true)));
    box->arrange(rect);
    EXPECT_EQ((lines{"draw 10 20 70 60 label 0 0 0 0", "invalidate_rect 10 20 70 60"}), calls());
}

TEST_F(group_box_test, is_drawn_where_it_is_arranged_to_nothing) {
    show_box();
    box->arrange({});  // unlike at its making
    EXPECT_EQ("draw 0 0 0 0 label 0 0 0 0", calls().front());
}

TEST_F(group_box_test, of_any_size_is_drawn_by_the_default_style) {
    for (const D2D_RECT_F& place : {D2D_RECT_F{}, D2D_RECT_F{5, 5, 6, 6}, D2D_RECT_F{0, 0, 0.5f, 0.5f},
                                    D2D_RECT_F{10, 20, 70, 20}, D2D_RECT_F{70, 40, 10, 20}}) {
        SCOPED_TRACE(text_of(place));
        com::ptr<ui::IGroupBox> made;
        ASSERT_NO_THROW(made = ui::create_group_box(nullptr, place, nullptr));
        EXPECT_NO_THROW(made->arrange({0, 0, 40, 30}));
        EXPECT_NO_THROW(made->arrange(place));
        EXPECT_TRUE(same(place, made->get_rect()));
    }
}

TEST_F(group_box_test, keeps_its_label_and_shows_it_nowhere) {
    const auto label = com::create_object<fake_label>(D2D_RECT_F{-5, -5, 5, 5}, host_log());
    box = ui::create_group_box(label.get(), rect, style.get());
    EXPECT_EQ((lines{"draw 10 20 70 60 label 0 0 0 0"}), calls());
    EXPECT_EQ(2u, references(label.get()));
    EXPECT_EQ(nullptr, label->node->get_parent());
    EXPECT_EQ(nullptr, label->brush);
    box->arrange({0, 0, 5, 5});
    EXPECT_EQ(nullptr, label->node->get_parent());
    box.reset();
    EXPECT_EQ(1u, references(label.get()));
}

TEST_F(group_box_test, measures_its_content_and_ten_pixels) {
    show_box();
    EXPECT_EQ("margin 10,10,0,0 min 0x0 max 0x0 preferred 0x0", text_of(box->measure()));
    const auto content = filled({5, 6, 25, 16});
    filled({-5, 0, 0, 1}, content);
    box->set_content(content);
    EXPECT_EQ("margin 0,0,0,0 min 40x26 max 40x26 preferred 40x26", text_of(box->measure()));
    box->arrange({0, 0, 90, 90});
    EXPECT_EQ("margin 0,0,0,0 min 40x26 max 40x26 preferred 40x26", text_of(box->measure()));
    filled({25, 16, 45.5f, 20.25f}, content);
    EXPECT_EQ("margin 0,0,0,0 min 60.5x30.25 max 60.5x30.25 preferred 60.5x30.25", text_of(box->measure()));
    box->set_content(scene::create_node());
    EXPECT_EQ("margin 0,0,0,0 min 10x10 max 10x10 preferred 10x10", text_of(box->measure()));
    box->set_content(nullptr);
    EXPECT_EQ("margin 10,10,0,0 min 0x0 max 0x0 preferred 0x0", text_of(box->measure()));
}

TEST_F(group_box_test, content_comes_and_goes) {
    show_box();
    const auto first = filled({0, 0, 5, 5});
    const auto second = filled({0, 0, 7, 7});
    const auto node = box->get_node();
    EXPECT_EQ(nullptr, box->set_content(nullptr));
    EXPECT_EQ(nullptr, box->set_content(first));
    EXPECT_EQ(node, first->get_parent());
    EXPECT_EQ(first, box->set_content(second));
    EXPECT_EQ(nullptr, first->get_parent());
    EXPECT_EQ(node, second->get_parent());
    EXPECT_EQ(second, box->set_content(second));
    EXPECT_EQ(node, second->get_parent());
    EXPECT_EQ(second, box->set_content(nullptr));
    EXPECT_EQ(nullptr, second->get_parent());
    EXPECT_EQ(nullptr, box->set_content(nullptr));
    for (const auto& line : calls()) EXPECT_TRUE(line.starts_with("invalidate_rect")) << line;
    EXPECT_EQ(1u, references(first.get()));
    EXPECT_EQ(1u, references(second.get()));
}

TEST_F(group_box_test, owns_its_content) {
    show_box();
    auto content = scene::create_node();
    const long before = com::live_object_count();
    box->set_content(std::move(content));
    content.reset();
    EXPECT_EQ(before, com::live_object_count());
    EXPECT_TRUE(box->set_content(nullptr));
    EXPECT_EQ(before - 1, com::live_object_count());
}

TEST_F(group_box_test, content_moves_to_the_corner_at_the_next_other_arrangement) {
    show_box();
    const auto content = filled({0, 0, 5, 5});
    content->set_transform(translation_matrix(3, 4));
    box->set_content(content);
    EXPECT_TRUE(same(translation_matrix(3, 4), content->get_transform()));
    box->arrange(rect);  // nothing new
    EXPECT_TRUE(same(translation_matrix(3, 4), content->get_transform()));
    forget();
    box->arrange({30, 40, 50, 60});
    EXPECT_TRUE(same(translation_matrix(30, 40), content->get_transform()));
    EXPECT_EQ(
        (lines{"invalidate_rect 3 4 8 9", "invalidate_rect 30 40 35 45", "draw 30 40 50 60 label 0 0 0 0",
               "invalidate_rect 10 20 70 60", "invalidate_rect 30 40 50 60"}),
        calls());
    box->arrange({-30, -40, 0, 0});  // the inverse of where it is
    EXPECT_TRUE(same(translation_matrix(-30, -40), content->get_transform()));
    box->arrange({0, 0, 50, 60});
    EXPECT_TRUE(same(identity_matrix, content->get_transform()));
}

TEST_F(group_box_test, content_that_stands_elsewhere_is_refused_and_stays_there) {
    show_box();
    const auto elsewhere = filled({0, 0, 5, 5}, root);
    EXPECT_EQ("unexpected", thrown_by([&] { box->set_content(elsewhere); }));
    EXPECT_EQ(root, elsewhere->get_parent());
    EXPECT_EQ("margin 0,0,0,0 min 15x15 max 15x15 preferred 15x15", text_of(box->measure()));
    const auto content = filled({0, 0, 5, 5});
    EXPECT_EQ(elsewhere, box->set_content(content)) << "kept ahead of being added";
    EXPECT_EQ(box->get_node(), content->get_parent());
    EXPECT_EQ(root, elsewhere->get_parent());
}

// Handlers that hear of a content

TEST_F(group_box_test, content_that_is_set_while_another_comes_or_goes_is_the_one_that_shows) {
    enum class moment { coming, going };
    for (const auto when : {moment::coming, moment::going}) {
        for (const bool to_nothing : {false, true}) {
            SCOPED_TRACE(testing::Message() << static_cast<int>(when) << to_nothing);
            const auto made = ui::create_group_box(nullptr, rect, style.get());
            const auto node = made->get_node();
            const auto first = filled({-50, -50, 5, 5});  // beyond the frame: its coming and going is heard
            const auto last = to_nothing ? nullptr : filled({0, 0, 7, 7});
            const auto other = filled({0, 0, 3, 3});
            com::ptr<scene::INode> taken;
            int heard = 0;
            const int awaited = when == moment::coming ? 1 : 2;
            node->add_bounds_handler([&](bool, D2D_RECT_F) {
                if (++heard == awaited) taken = made->set_content(last);
            });
            EXPECT_EQ(nullptr, made->set_content(first));
            if (when == moment::going) {
                EXPECT_EQ(first, made->set_content(other));
            }
            EXPECT_LE(awaited, heard);
            EXPECT_EQ(when == moment::coming ? first : other, taken);
            EXPECT_EQ(nullptr, first->get_parent());
            EXPECT_EQ(nullptr, other->get_parent());
            if (last) {
                EXPECT_EQ(node, last->get_parent());
            }
            EXPECT_EQ(last, made->set_content(nullptr));
            EXPECT_TRUE(inside(node).children.empty());
        }
    }
}

TEST_F(group_box_test, content_whose_coming_made_a_handler_throw_is_the_content_all_the_same) {
    show_box();
    const auto content = filled({-50, -50, 5, 5});
    bool failing = true;
    box->get_node()->add_bounds_handler([&](bool, D2D_RECT_F) {
        if (std::exchange(failing, false)) throw std::runtime_error("enough");
    });
    EXPECT_EQ("enough", thrown_by<std::runtime_error>([&] { box->set_content(content); }));
    EXPECT_EQ(box->get_node(), content->get_parent());
    EXPECT_EQ(content, box->set_content(nullptr));
    EXPECT_EQ(nullptr, content->get_parent());
}

TEST_F(group_box_test, frame_lies_behind_the_content_and_takes_clicks_beside_it) {
    box = ui::create_group_box(nullptr, rect, nullptr);
    const auto content = scene::create_node();
    fill(content, {0, 0, 5, 5});
    box->set_content(content);
    root->add_child(box->get_node());
    show();
    EXPECT_EQ((lines{"DrawGeometry rounded_rectangle(10.5 20.5 69.5 59.5 5 5) brush(0.5 0.5 0.5 1) 1 null",
                     "FillGeometry rectangle(0 0 5 5) brush(1 0 0 1)"}),
              fakes::drawing_of(painted()));
    EXPECT_TRUE(box->get_node()->hit_test({40, 20.5f}));
    EXPECT_FALSE(box->get_node()->hit_test({40, 40}));
    EXPECT_FALSE(box->get_node()->hit_test({10.25f, 20.25f}));
}

TEST_F(group_box_test, style_of_another_kind_is_refused) {
    const auto other = com::create_object<fakes::recording_label_style>(nullptr);
    const auto label = com::create_object<fake_label>();
    const long before = com::live_object_count();
    EXPECT_EQ(E_NOINTERFACE,
              failure_of([&] { static_cast<void>(ui::create_group_box(label.get(), rect, other.get())); }));
    EXPECT_EQ(before, com::live_object_count());
    EXPECT_EQ(1u, references(label.get()));
}

TEST_F(group_box_test, node_that_is_kept_shows_frame_and_content_on) {
    show_box();
    box->set_content(filled({0, 0, 5, 5}));
    const lines before = painted();
    box.reset();
    EXPECT_EQ(1u, references(style.get()));
    EXPECT_EQ(before, painted());
}

}  // namespace
}  // namespace d2d
