#pragma once

#include "portable/length.h"
#include "portable/testing/stub_element.h"
#include "support/leak_checked_test.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ui::mossHarbour::stubs {

/// A layout of stubs, which a derived fixture makes.
class layout_fixture : public test_support::leak_checked_test {
protected:
    stub_element& make_stub(const element_metrics& said) {
        made.push_back(com::create_object<stub_element>(said));
        return *made.back();
    }

    void materialize() { live = layout->materialize(context); }
    void dematerialize() {
        live.reset();
        layout->dematerialize(context);
    }
    element_metrics measure() {
        if (!live) materialize();
        return live->measure(context);
    }
    void arrange(int left, int top, int right, int bottom) {
        static_cast<void>(measure());
        live->arrange(left, top, right, bottom);
    }

    void TearDown() override {
        if (layout) dematerialize();
        layout.reset();
        made.clear();
        leak_checked_test::TearDown();
    }

    unused_context context;
    com::ptr<IMaterializableElement> layout;
    com::ptr<IMaterializedElement> live;
    std::vector<com::ptr<stub_element>> made;
};

}  // namespace ui::mossHarbour::stubs
