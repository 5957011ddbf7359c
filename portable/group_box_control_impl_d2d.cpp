#include "portable/group_box_control_impl.h"

#include "com/object.h"
#include "d2d/ui/IGroupBox.h"
#include "d2d/ui/ITextLabel.h"
#include "portable/d2d_materialization_impl.h"
#include "portable/group_box_measure.h"
#include "portable/layout_arithmetic.h"
#include "ui/mossHarbour/d2d_layout.h"

#include <stdexcept>
#include <string_view>

namespace ui::mossHarbour::group_box_control_impl {
namespace {

class d2d_materialization
    : public d2d_materialization_impl<d2d_materialization, d2d::ui::IGroupBox, facade, materialization> {
public:
    d2d_materialization()
        : d2d_materialization(d2d::ui::create_text_label(std::wstring_view(), nullptr, nullptr)) {}

    // materialization
    void set_text(const wchar_t* text) override { label->set_text(std::wstring_view(text)); }

    // IMaterializedElement
    element_metrics measure(measure_context& context) override {
        if (!description) throw std::logic_error("Facade not available!");
        const element_metrics inner = content ? content->measure(context) : element_metrics{};
        constexpr SIZE no_caption{};  // the frame shows none
        return measure_group_box(inner, no_caption, distances_around(inner, description->get_padding()));
    }
    /// What `measure` adds around the content is not looked at: kept, forms are laid out for it.
    void arrange(int left, int top, int right, int bottom) override {
        constexpr int frame = 5;
        d2d_materialization_impl::arrange(left, top, right, bottom);
        if (!content) return;
        content->arrange(frame, frame, difference(difference(right, left), frame),
                         difference(difference(bottom, top), frame));
    }

    void show_content() {
        shown_layout = description->get_content();
        if (shown_layout) content = materialize_d2d_layout(panel, content_node.get(), shown_layout);
    }
    void hide_content() {
        if (shown_layout) dematerialize_d2d_layout(panel, content_node.get(), shown_layout);
        content.reset();
        shown_layout.reset();
    }

protected:
    ~d2d_materialization() = default;

private:
    explicit d2d_materialization(com::ptr<d2d::ui::ITextLabel> caption)
        : d2d_materialization_impl(d2d::ui::create_group_box(caption.get(), {}, nullptr)),
          label(std::move(caption)) {
        control->set_content(content_node);
    }

    const com::ptr<d2d::ui::ITextLabel> label;
    const com::ptr<d2d::scene::INode> content_node = d2d::scene::create_node();
    com::ptr<ILayout> shown_layout;
    com::ptr<IMaterializedElement> content;
};

}  // namespace

com::ptr<ID2dWidget> make_d2d_widget() {
    return com::create_object<d2d_materialization>();
}

}  // namespace ui::mossHarbour::group_box_control_impl
