#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "controls/testing/refused_layout_operation.h"
#include "d2d/scene/ITextFormat.h"
#include "scene/testing/call_text.h"
#include "scene/testing/test_resources.h"

#include <string>
#include <utility>

namespace d2d::fakes {

/// A format of Tahoma that writes down what it lays out, in bytes or in UTF-16 units: "own: 5 bytes in 0 0".
class recording_format : public com::base_object<com::object_base, scene::ITextFormat> {
public:
    recording_format(std::string called, float size, scene::fakes::log_function writes_to)
        : name(std::move(called)),
          log(std::move(writes_to)),
          real(scene::ITextFormat::get(L"Tahoma", DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL,
                                       size)) {}

    /// Given in the place of a new layout, when there is one.
    com::ptr<IDWriteTextLayout> ready;

    com::ptr<IDWriteTextFormat> get_format() override { return real->get_format(); }
    com::ptr<IDWriteTextLayout> create_layout(std::string_view text, float width, float height) override {
        log(scene::fakes::call_text(name + ":", text.size(), "bytes in", width, height));
        return ready ? ready : real->create_layout(text, width, height);
    }
    com::ptr<IDWriteTextLayout> create_layout(std::wstring_view text, float width, float height) override {
        log(scene::fakes::call_text(name + ":", text.size(), "units in", width, height));
        return ready ? ready : real->create_layout(text, width, height);
    }

protected:
    ~recording_format() = default;

private:
    std::string name;
    scene::fakes::log_function log;
    com::ptr<scene::ITextFormat> real;
};

using failing_metrics = refused_layout_operation<get_metrics>;

}  // namespace d2d::fakes
