// Random forms that come and go in native panels, against a plain model of which controls are on the screen.

#include "portable/testing/every_kind.h"
#include "portable/testing/native_panel_fixture.h"

#include <memory>
#include <random>

namespace ui::mossHarbour {
namespace {

class random_numbers {
public:
    explicit random_numbers(unsigned seed) : engine(seed) {}

    [[nodiscard]] std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(engine);
    }

private:
    std::mt19937 engine;
};

/// A description of nested stacks and group boxes, with a label in each of them that can be asked whether it
/// is on the screen.
class random_form {
public:
    explicit random_form(random_numbers& random) : layout(make_stack(random, 0)) {}

    std::vector<com::ptr<ILabelControl>> labels;
    std::vector<com::ptr<IGroupBoxControl>> groups;
    unsigned controls = 0;
    const com::ptr<ILayout> layout;  // made last: it fills those above

private:
    com::ptr<IStackLayout> make_stack(random_numbers& random, int depth) {
        auto stack =
            create_stack_layout(random.below(2) == 0 ? orientation::vertical : orientation::horizontal);
        labels.push_back(create_label_control());
        add(stack, labels.back());
        for (auto left = random.below(4); left > 0; --left) {
            const auto choice = random.below(10);
            if (choice < 7 || depth == 3) {
                const auto kinds = every_kind();
                add(stack, kinds[random.below(kinds.size())].element);
            } else if (choice < 9) {
                groups.push_back(create_group_box_control());
                const auto group = groups.back();
                group->set_content(make_stack(random, depth + 1));
                add(stack, group);
            } else {
                stack->add_item(stack_item_details(), make_stack(random, depth + 1));
            }
        }
        return stack;
    }

    void add(const com::ptr<IStackLayout>& stack, const com::ptr<IElement>& element) {
        stack->add_item(stack_item_details(), element);
        ++controls;
    }
};

class random_native_forms : public native_panel_fixture, public testing::WithParamInterface<unsigned> {
protected:
    /// Without the parts that some controls have.
    [[nodiscard]] static unsigned controls_in(HWND window) {
        unsigned count = 0;
        for (const HWND child : children_of(window)) count += (widget_of(child) ? 1 : 0) + controls_in(child);
        return count;
    }
    static void expect_live(const random_form& form, bool live) {
        for (const auto& label : form.labels) {
            if (live) {
                EXPECT_NO_THROW(label->set_text(L"text"));
            } else {
                EXPECT_THROW(label->set_text(L"text"), std::logic_error);
            }
        }
        for (const auto& group : form.groups) {
            if (live) {
                EXPECT_THROW(group->set_padding(1, 2, 3, 4), std::logic_error);
            } else {
                EXPECT_NO_THROW(group->set_padding(1, 2, 3, 4));
            }
        }
    }
};

TEST_P(random_native_forms, have_a_window_for_each_control_that_is_shown_and_no_other) {
    random_numbers random(GetParam());
    std::vector<std::unique_ptr<random_form>> forms;
    for (int i = 0; i < 4; ++i) forms.push_back(std::make_unique<random_form>(random));
    const random_form* content = nullptr;
    bool has_window = false;
    for (int step = 0; step < 60; ++step) {
        SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", step " + std::to_string(step));
        const com::ptr<ILayout> before = content ? content->layout : nullptr;
        switch (random.below(6)) {
            case 0:
                create_window();
                has_window = true;
                break;
            case 1:
                panel->destroy_window();
                has_window = false;
                break;
            case 2:
                EXPECT_TRUE(panel->set_content(nullptr) == before);
                content = nullptr;
                break;
            case 3:
                if (content && has_window) {
                    const auto measured = panel->measure();
                    EXPECT_LE(measured.min_width, measured.max_width);
                    EXPECT_LE(measured.min_height, measured.max_height);
                    MoveWindow(panel->get_window_handle(), 0, 0, 400, 300, FALSE);
                }
                break;
            default:
                content = forms[random.below(forms.size())].get();
                EXPECT_TRUE(panel->set_content(content->layout) == before);
                break;
        }
        EXPECT_EQ(panel->get_window_handle() != nullptr, has_window);
        const unsigned shown = content && has_window ? content->controls : 0;
        if (has_window) {
            EXPECT_EQ(controls_in(panel->get_window_handle()), shown);
        }
        for (const auto& form : forms) expect_live(*form, form.get() == content && has_window);
        if (HasFailure()) return;
    }
    panel->destroy_window();
    panel->set_content(nullptr);
}

INSTANTIATE_TEST_SUITE_P(seeds, random_native_forms, testing::Range(1u, 9u));

}  // namespace
}  // namespace ui::mossHarbour
