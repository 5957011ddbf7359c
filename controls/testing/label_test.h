#pragma once

#include "controls/testing/failure_of.h"
#include "controls/testing/answers.h"
#include "controls/testing/press_test.h"
#include "controls/testing/recording_format.h"
#include "controls/testing/recording_style.h"
#include "d2d/ui/ILabel.h"
#include "scene/testing/tree_test.h"

#include <functional>
#include <string>

namespace d2d::fakes {

/// A fixture: a label below the root, with a style that writes down what it is asked, in blue.
class label_test : public scene::fakes::tree_test {
protected:
    void SetUp() override {
        tree_test::SetUp();
        style = com::create_object<recording_label_style>(host_log());
        style->format = com::create_object<recording_format>("style", 12.0f, host_log());
    }
    void TearDown() override {
        style.reset();
        tree_test::TearDown();
    }
    void show_node(const com::ptr<scene::INode>& node) {
        root->add_child(node);
        show();
    }

    /// How many hold an object, the test included.
    template <class T>
    [[nodiscard]] static unsigned long holders(const com::ptr<T>& object) {
        return object ? scene::fakes::references(object.get()) : 0;
    }
    /// What was asked of style and formats since the last time; damage is forgotten.
    [[nodiscard]] lines asked() {
        lines kept;
        for (auto& line : calls()) {
            if (!line.starts_with("invalidate_rect")) kept.push_back(std::move(line));
        }
        return kept;
    }
    [[nodiscard]] lines drawing() { return drawing_of(painted()); }

    com::ptr<recording_label_style> style;
};

}  // namespace d2d::fakes
