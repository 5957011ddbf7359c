#include "portable_forms.h"

#include "ui/mossHarbour/ID2DScenePanel.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IStackLayout.h"

namespace client_test {

using namespace ui::mossHarbour;

com::ptr<ILayout> fixed(const com::ptr<IElement>& element, int width, int height) {
    stack_item_details details;
    details.min_width = details.preferred_width = details.max_width = width;
    details.min_height = details.preferred_height = details.max_height = height;
    const auto stack = create_stack_layout(orientation::vertical);
    stack->add_item(details, element);
    return stack;
}

com::ptr<ILayout> blank(int width, int height) {
    return fixed(create_label_control(), width, height);
}

int font_height() {
    const auto panel = create_d2d_scene_node_panel(nullptr);
    panel->set_content(blank(font_percent(100), 10));
    const int result = panel->measure().preferred_width;
    panel->set_content(nullptr);
    return result;
}

SIZE scene_button_size(const wchar_t* text) {
    const auto panel = create_d2d_scene_node_panel(nullptr);
    const auto button = create_push_button_control();
    const auto stack = create_stack_layout(orientation::vertical);
    stack->add_item({}, button);
    panel->set_content(stack);
    button->set_text(text);
    const element_metrics measured = panel->measure();
    panel->set_content(nullptr);
    return {measured.preferred_width, measured.preferred_height};
}

}  // namespace client_test
