// How descriptions come alive on the scene: registry, contexts, group boxes, nested layouts, failures.

#include "portable/check_box_control_impl.h"
#include "portable/d2d_materialization_context_impl.h"
#include "portable/edit_control_impl.h"
#include "portable/group_box_control_impl.h"
#include "portable/label_control_impl.h"
#include "portable/list_view_control_impl.h"
#include "portable/option_control_impl.h"
#include "portable/push_button_control_impl.h"
#include "portable/radio_button_control_impl.h"
#include "portable/scene_widget_factories.h"
#include "portable/testing/scene_form.h"
#include "ui/mossHarbour/d2d_layout.h"

#include "com/error.h"

#include <stdexcept>
#include <typeindex>

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;
using testing::ElementsAre;
using testing::ThrowsMessage;

constexpr const char* no_such_form = "Unable to materialized the specified element!";

class scene_materialization : public scene_form {
protected:
    [[nodiscard]] std::size_t shown_nodes() const { return nodes_below(panel->get_node()).size(); }
};

TEST_F(scene_materialization, knows_six_kinds) {
    std::vector<const std::type_info*> added;
    register_scene_widgets([&](const std::type_info& type, com::ptr<ID2dWidget> (*make)()) {
        added.push_back(&type);
        EXPECT_TRUE(make());
        EXPECT_TRUE(scene_widget_factories.make(type));
    });
    const std::type_info* const kinds[] = {
        &typeid(label_control_impl::facade),       &typeid(edit_control_impl::facade),
        &typeid(check_box_control_impl::facade),   &typeid(radio_button_control_impl::facade),
        &typeid(push_button_control_impl::facade), &typeid(group_box_control_impl::facade)};
    ASSERT_EQ(added.size(), std::size(kinds));
    for (std::size_t i = 0; i < added.size(); ++i) EXPECT_TRUE(*added[i] == *kinds[i]) << i;
    for (const std::type_info* const other :
         {&typeid(option_control_impl::facade), &typeid(list_view_control_impl::facade)}) {
        EXPECT_THAT([other] { static_cast<void>(scene_widget_factories.make(*other)); },
                    ThrowsMessage<std::runtime_error>(no_such_form));
    }
}

TEST_F(scene_materialization, measures_no_text_for_its_controls) {
    d2d_measure_context context;
    EXPECT_THAT([&] { static_cast<void>(context.measure_text(L"text", 4)); },
                ThrowsMessage<std::logic_error>("not expected"));
}

TEST_F(scene_materialization, adds_nodes_in_the_order_of_the_items_and_takes_them_away) {
    const auto inner = create_label_control();
    const auto box = create_group_box_control();
    box->set_content(stacked({inner}));
    panel->set_content(stacked({create_label_control(), box, create_edit_control()}));
    EXPECT_EQ(shown_nodes(), 3u);
    const auto& group = nodes_below(panel->get_node())[1];
    ASSERT_EQ(group->children.size(), 1u);  // for the content
    EXPECT_EQ(group->children[0]->children.size(), 1u);
    panel->set_content(stacked({create_label_control()}));
    EXPECT_EQ(shown_nodes(), 1u);
    panel->set_content(nullptr);
    EXPECT_EQ(shown_nodes(), 0u);
}

TEST_F(scene_materialization, ends_in_the_order_of_the_items_and_in_a_group_box_ahead_of_the_box) {
    const auto first = create_label_control();
    const auto box = create_group_box_control();
    const auto last = create_label_control();
    auto& before = make_stub({});
    auto& inside = make_stub({});
    auto& behind = make_stub({});
    box->set_content(stacked({element_of(inside)}));
    panel->set_content(stacked({first, element_of(before), box, element_of(behind), last}));
    // Labels and group box have a node each; what goes is off the panel's node ahead of what follows.
    std::vector<std::pair<const char*, std::size_t>> left;
    before.when_going = [&] { left.emplace_back("before", shown_nodes()); };
    inside.when_going = [&] { left.emplace_back("inside", shown_nodes()); };
    behind.when_going = [&] { left.emplace_back("behind", shown_nodes()); };
    EXPECT_EQ(shown_nodes(), 3u);
    panel->set_content(nullptr);
    EXPECT_THAT(left, ElementsAre(testing::Pair("before", 2u), testing::Pair("inside", 2u),
                                  testing::Pair("behind", 1u)));
}

TEST_F(scene_materialization, clears_what_else_was_put_on_the_panels_node) {
    panel->get_node()->add_child(d2d::scene::create_node());
    panel->set_content(stacked({create_label_control()}));
    EXPECT_EQ(shown_nodes(), 2u);  // nothing to take away at first
    panel->set_content(nullptr);
    EXPECT_EQ(shown_nodes(), 0u);
}

TEST_F(scene_materialization, measures_a_group_box_around_its_content_and_arranges_that_5_pixels_inside) {
    auto& stub = make_stub({0, 0, 0, 0, 100, 100, 100, 100, 100, 100});
    const auto box = create_group_box_control();
    box->set_padding(20, 20, 20, 20);
    box->set_content(stacked({element_of(stub)}));
    panel->set_content(stacked({box}));
    box->set_text(L"A caption that is far wider than what it belongs to");
    const auto measured = panel->measure();
    EXPECT_THAT(fields_of(measured), ElementsAre(0, 0, 0, 0, 144, 142, 144, 142, 144, 142));
    EXPECT_EQ(fields_of(panel->get_measured()), fields_of(measured));
    panel->arrange(30, 40, 174, 182);
    ASSERT_EQ(stub.placed.size(), 1u);
    // In the space of the content's node; no larger than it may be.
    EXPECT_THAT(edges_of(stub.placed[0]), ElementsAre(5, 5, 105, 105));
    const auto frame = panel->get_node()->get_bounds(true);
    EXPECT_FLOAT_EQ(frame.left, 30);
    EXPECT_FLOAT_EQ(frame.top, 40);
    EXPECT_FLOAT_EQ(frame.right, 174);
    EXPECT_FLOAT_EQ(frame.bottom, 182);
}

TEST_F(scene_materialization, gives_the_content_of_a_group_box_all_but_5_pixels_on_each_side) {
    auto& stub = make_stub({3, 4, 5, 6, 1, 1, unbounded_extent, unbounded_extent, 10, 10});
    const auto box = create_group_box_control();
    box->set_padding(20, 21, 22, 23);
    box->set_content(stacked({element_of(stub)}));
    panel->set_content(stacked({box}));
    panel->measure();
    panel->arrange(30, 40, 174, 182);
    ASSERT_EQ(stub.placed.size(), 1u);
    EXPECT_THAT(edges_of(stub.placed[0]), ElementsAre(5, 5, 144 - 5, 142 - 5));
}

TEST_F(scene_materialization, measures_a_group_box_by_margins_that_are_larger_than_its_padding) {
    auto& stub = make_stub({1, 30, 2, 3, 10, 20, unbounded_extent, 40, 15, 25});
    const auto box = create_group_box_control();
    box->set_padding(4, 5, 1, font_percent(0));
    box->set_content(stacked({element_of(stub)}));
    panel->set_content(stacked({box}));
    EXPECT_THAT(fields_of(panel->measure()),
                ElementsAre(0, 0, 0, 0, 10 + 4 + 2 + 4, 20 + 30 + 3 + 2, unbounded_extent, 40 + 30 + 3 + 2,
                            15 + 4 + 2 + 4, 25 + 30 + 3 + 2));
}

TEST_F(scene_materialization, shows_a_group_box_without_a_content) {
    const auto box = create_group_box_control();
    box->set_padding(1, 2, 3, 4);
    panel->set_content(stacked({box}));
    EXPECT_THAT(fields_of(panel->measure()), ElementsAre(0, 0, 0, 0, 8, 8, 8, 8, 8, 8));
    panel->arrange(0, 0, 8, 8);
}

TEST_F(scene_materialization, places_what_is_in_group_boxes_in_group_boxes) {
    const auto label = create_label_control();
    const auto inner = create_group_box_control();
    inner->set_content(stacked({label}, fixed(20, 10)));
    const auto outer = create_group_box_control();
    outer->set_content(stacked({inner}, fixed(60, 40)));
    panel->set_content(stacked({outer}, fixed(90, 80)));
    label->set_text(L"Pier");
    panel->measure();
    panel->arrange(100, 200, 190, 280);
    const auto& outer_node = nodes_below(panel->get_node())[0];
    const auto& inner_node = outer_node->children[0]->children[0];
    const auto& label_node = inner_node->children[0]->children[0];
    const auto at = label_node->get_bounds(true);  // in the space of the inner content
    EXPECT_EQ(at.left, 5);
    EXPECT_EQ(at.top, 5);
    const auto outer_move = outer_node->children[0]->get_transform();
    EXPECT_EQ(outer_move._31, 100);
    EXPECT_EQ(outer_move._32, 200);
    const auto inner_move = inner_node->children[0]->get_transform();
    EXPECT_EQ(inner_move._31, 5);
    EXPECT_EQ(inner_move._32, 5);
}

TEST_F(scene_materialization, nests_stacks_and_grids) {
    auto& left = make_stub({0, 0, 0, 0, 10, 20, 30, 20, 20, 20});
    auto& right = make_stub({0, 0, 0, 0, 40, 10, 40, 10, 40, 10});
    auto& below = make_stub({0, 3, 0, 0, 5, 7, unbounded_extent, 7, 5, 7});
    const auto row = create_stack_layout(orientation::horizontal);
    row->add_item({}, element_of(left));
    row->add_item(stack_item_details(item_alignment::far_side), element_of(right));
    const auto grid = create_grid_layout();
    grid->add_item({}, row);
    grid_item_details second;
    second.row = 1;
    grid->add_item(second, element_of(below));
    panel->set_content(stacked({grid}));
    EXPECT_THAT(fields_of(panel->measure()), ElementsAre(0, 0, 0, 0, 50, 30, unbounded_extent, 30, 60, 30));
    panel->arrange(100, 0, 170, 30);
    EXPECT_THAT(edges_of(left.placed.back()), ElementsAre(100, 0, 128, 20));
    EXPECT_THAT(edges_of(right.placed.back()), ElementsAre(128, 10, 168, 20));
    EXPECT_THAT(edges_of(below.placed.back()), ElementsAre(100, 23, 170, 30));
}

TEST_F(scene_materialization, shows_layouts_below_any_node) {
    const auto own = d2d::scene::create_node();
    own->add_child(d2d::scene::create_node());
    const auto button = create_push_button_control();
    int clicks = 0;
    button->set_on_click([&](IPanel* from) {
        EXPECT_EQ(from, nullptr);
        ++clicks;
    });
    const auto layout = stacked({button});
    for (int round = 0; round < 2; ++round) {
        root->add_child(own);
        auto live = materialize_d2d_layout(nullptr, own.get(), layout);
        EXPECT_EQ(nodes_below(own).size(), 2u);
        button->set_text(L"Cast off");
        d2d_measure_context context;
        const auto measured = live->measure(context);
        EXPECT_GT(measured.preferred_width, 20);
        live->arrange(10, 10, 10 + measured.preferred_width, 10 + measured.preferred_height);
        press_at({15, 15});
        EXPECT_EQ(clicks, round + 1);
        live.reset();
        dematerialize_d2d_layout(nullptr, own.get(), layout);
        EXPECT_EQ(nodes_below(own).size(), 1u);  // the client's
        press_at({15, 15});
        EXPECT_EQ(clicks, round + 1);
        root->remove_child(own);
    }
    EXPECT_THAT(
        [&] {
            static_cast<void>(materialize_d2d_layout(nullptr, own.get(), stacked({create_option_control()})));
        },
        ThrowsMessage<std::runtime_error>(no_such_form));
}

TEST_F(scene_materialization, of_a_group_box_is_undone_when_its_content_fails) {
    const auto first = create_label_control();
    const auto inside_first = create_check_box_control();
    const auto box = create_group_box_control();
    const auto failing = stacked({inside_first, create_option_control()});
    box->set_content(failing);
    const auto layout = stacked({first, box});
    EXPECT_THAT([&] { panel->set_content(layout); }, ThrowsMessage<std::runtime_error>(no_such_form));
    EXPECT_EQ(shown_nodes(), 0u);
    EXPECT_THAT([&] { first->set_text(L"a"); }, ThrowsMessage<std::logic_error>(not_materialized));
    EXPECT_THAT([&] { inside_first->set_text(L"a"); }, ThrowsMessage<std::logic_error>(not_materialized));
    EXPECT_THAT([&] { box->set_text(L"a"); }, ThrowsMessage<std::logic_error>(not_materialized));
    // The description can be put right, and shown.
    EXPECT_TRUE(box->set_content(stacked({inside_first})) == failing);
    EXPECT_TRUE(panel->set_content(layout) == layout);
    EXPECT_EQ(shown_nodes(), 2u);
    inside_first->set_text(L"a");
}

/// Has no facade.
class stranger : public com::base_object<com::object_base, IMaterializableElement> {
public:
    com::ptr<IMaterializedElement> materialize(materialization_context& context) override {
        return context.materialize(typeid(label_control_impl::facade), this);
    }
    void dematerialize(materialization_context&) override {}

protected:
    ~stranger() = default;
};

TEST_F(scene_materialization, of_an_element_without_a_facade_fails) {
    const auto other = com::create_object<stranger>();
    d2d_materialization_context_impl context(panel->get_node().get(), panel.get());
    const auto fails = [&](auto&& call) {
        try {
            call();
            ADD_FAILURE() << "nothing thrown";
        } catch (const com::error& failure) {
            EXPECT_EQ(failure.hresult, E_NOINTERFACE);
        }
        EXPECT_EQ(shown_nodes(), 0u);
    };
    fails([&] { other->materialize(context); });
    register_scene_widgets([&](const std::type_info&, com::ptr<ID2dWidget> (*make)()) {
        const auto widget = make();
        fails([&] { widget->materialize(context, other.get()); });
    });
    // So does an element of a layout that cannot be materialized at all.
    class plain_element : public com::base_object<com::object_base, IElement> {
    protected:
        ~plain_element() = default;
    };
    const auto layout = stacked({com::ptr<IElement>(com::create_object<plain_element>().get())});
    fails([&] { panel->set_content(layout); });
    EXPECT_TRUE(panel->set_content(nullptr) == layout);  // which never stood there
}

TEST_F(scene_materialization, cannot_take_away_what_is_no_form_of_the_scene) {
    auto& stub = make_stub({});
    const auto label = create_label_control();
    d2d_materialization_context_impl context(panel->get_node().get(), panel.get());
    try {
        context.dematerialize(com::ptr<IMaterializableElement>(label.get()).get(), &stub);
        ADD_FAILURE() << "nothing thrown";
    } catch (const com::error& failure) {
        EXPECT_EQ(failure.hresult, E_NOINTERFACE);
    }
}

TEST_F(scene_materialization, of_each_kind_holds_its_facade_until_it_ends) {
    const com::ptr<IElement> facades[] = {create_label_control(),       create_edit_control(),
                                          create_check_box_control(),   create_radio_button_control(true),
                                          create_push_button_control(), create_group_box_control()};
    std::size_t kind = 0;
    register_scene_widgets([&](const std::type_info&, com::ptr<ID2dWidget> (*make)()) {
        const auto& facade = facades[kind++];
        const auto references = [&] {
            facade->AddRef();
            return facade->Release();
        };
        const auto widget = make();
        d2d_materialization_context_impl context(panel->get_node().get(), panel.get());
        widget->materialize(context, facade.get());
        EXPECT_EQ(references(), 2u) << kind;
        EXPECT_EQ(shown_nodes(), 1u) << kind;
        widget->dematerialize(context, facade.get());
        EXPECT_EQ(references(), 1u) << kind;
        EXPECT_EQ(shown_nodes(), 0u) << kind;
    });
    EXPECT_EQ(kind, std::size(facades));
}

TEST_F(scene_materialization, of_a_group_box_cannot_measure_without_its_facade) {
    const auto widget = group_box_control_impl::make_d2d_widget();
    const com::ptr<IMaterializedElement> live(widget.get());
    d2d_measure_context measuring;
    const auto measure = [&] { static_cast<void>(live->measure(measuring)); };
    EXPECT_THAT(measure, ThrowsMessage<std::logic_error>("Facade not available!"));
    const auto box = create_group_box_control();
    d2d_materialization_context_impl context(panel->get_node().get(), panel.get());
    widget->materialize(context, box.get());
    EXPECT_EQ(live->measure(measuring).min_width, 4);
    widget->dematerialize(context, box.get());
    EXPECT_THAT(measure, ThrowsMessage<std::logic_error>("Facade not available!"));
}

TEST_F(scene_materialization, that_fails_leaves_no_facade_in_the_form) {
    const auto box = create_group_box_control();
    box->set_content(stacked({create_option_control()}));
    const auto widget = group_box_control_impl::make_d2d_widget();
    d2d_materialization_context_impl context(panel->get_node().get(), panel.get());
    EXPECT_THAT([&] { widget->materialize(context, box.get()); },
                ThrowsMessage<std::runtime_error>(no_such_form));
    d2d_measure_context measuring;
    EXPECT_THAT([&] { static_cast<void>(com::ptr<IMaterializedElement>(widget.get())->measure(measuring)); },
                ThrowsMessage<std::logic_error>("Facade not available!"));
    EXPECT_EQ(shown_nodes(), 0u);
}

TEST_F(scene_materialization, that_failed_here_leaves_the_layout_alone_where_it_stands) {
    auto& stub = make_stub({0, 0, 0, 0, 10, 10, 10, 10, 10, 10});
    const auto label = create_label_control();
    const auto layout = stacked({label, element_of(stub)});
    stub.is_refusing = true;
    EXPECT_THAT([&] { panel->set_content(layout); }, ThrowsMessage<std::runtime_error>("refused"));
    stub.is_refusing = false;
    const auto other = create_d2d_scene_node_panel(nullptr);
    other->set_content(layout);
    EXPECT_TRUE(panel->set_content(nullptr) == layout);
    EXPECT_EQ(stub.materialized, 1);
    label->set_text(L"still there");
    EXPECT_EQ(nodes_below(other->get_node()).size(), 1u);
    other->set_content(nullptr);
}

/// Cannot be materialized.
class plain_layout : public com::base_object<com::object_base, ILayout> {
protected:
    ~plain_layout() = default;
};

TEST_F(scene_materialization, of_a_layout_that_has_no_form_at_all_fails_and_gives_way_to_another) {
    const com::ptr<ILayout> plain(com::create_object<plain_layout>().get());
    try {
        panel->set_content(plain);
        ADD_FAILURE() << "nothing thrown";
    } catch (const com::error& failure) {
        EXPECT_EQ(failure.hresult, E_NOINTERFACE);
    }
    const auto label = create_label_control();
    EXPECT_TRUE(panel->set_content(stacked({label})) == plain);
    label->set_text(L"text");
}

TEST_F(scene_materialization, twice_in_a_row_leaves_the_first_form_to_nobody) {
    const auto label = create_label_control();
    const auto element = com::ptr<IMaterializableElement>(label.get());
    d2d_materialization_context_impl context(panel->get_node().get(), panel.get());
    element->materialize(context);
    label->set_text(L"first");
    element->materialize(context);
    label->set_text(L"second");
    EXPECT_EQ(shown_nodes(), 2u);
    element->dematerialize(context);
    EXPECT_EQ(shown_nodes(), 1u);
    panel->get_node()->clear();
}

TEST_F(scene_materialization, of_a_control_in_two_panels_follows_the_later_one) {
    const auto other = create_d2d_scene_node_panel(nullptr);
    const auto label = create_label_control();
    other->set_content(stacked({label}));
    EXPECT_THAT(fields_of(other->get_measured()), testing::Each(0));  // not measured yet
    label->set_text(L"Pier");
    const int width = other->measure().min_width;
    other->set_content(nullptr);
    panel->set_content(stacked({label}));
    label->set_text(L"Pier");
    EXPECT_EQ(panel->measure().min_width, width);
}

}  // namespace
