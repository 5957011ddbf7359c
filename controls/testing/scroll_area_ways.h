#pragma once

#include "controls/testing/scroll_area_fixture.h"
#include "scene/testing/fake_element.h"

#include <functional>
#include <utility>
#include <vector>

namespace d2d::fakes {

/// An element that does something when it is laid out.
class acting_element : public scene::fakes::fake_element {
public:
    explicit acting_element(std::function<void()> does) : fake_element({}), action(std::move(does)) {}

    void arrange(D2D_RECT_F given) override {
        fake_element::arrange(given);
        if (const auto running = action) running();
    }

    std::function<void()> action;

protected:
    ~acting_element() = default;
};

/// Knows all ways to change what an area shows.
class scroll_area_ways : public scroll_area_fixture {
protected:
    void TearDown() override {
        acting.reset();
        scroll_area_fixture::TearDown();
    }

    static constexpr D2D_RECT_F usual{0, 0, 112, 92};  // 100 by 80 with both bars
    static constexpr D2D_RECT_F large{0, 0, 300, 400};

    struct way {
        const char* name;
        std::function<void()> change;
    };
    /// The ways to change what an area shows: by the user, and by the owner.
    [[nodiscard]] std::vector<way> ways_of_the_user() {
        return {{"wheel",
                 [this] {
                     wheel({50, 40}, -120);
                 }},
                {"page",
                 [this] {
                     press({106, 79});
                 }},
                {"jump",
                 [this] {
                     press({106, 40}, input::mouse::button::right);
                 }},
                {"drag",
                 [this] {
                     drag_through({{106, 20}, {106, 30}, {106, 40}});
                     press({106, 10});
                     site.drag = nullptr;
                 }},
                {"drag across", [this] {
                     drag_through({{20, 86}, {30, 86}});
                     press({10, 86});
                     site.drag = nullptr;
                 }}};
    }
    [[nodiscard]] std::vector<way> ways_of_the_owner() {
        return {{"position", [this] { com::ptr<ui::IScrollArea>(area)->set_scroll_position(20, 30); }},
                {"bounds",
                 [this] {
                     area.get()->set_content_bounds({10, 10, 310, 410});
                 }},
                {"arrange",
                 [this] {
                     area.get()->arrange({0, 0, 122, 102});
                 }},
                {"fixed margin", [this] { area.get()->set_margin_fixed_size(top, 9); }},
                {"scrolled margin", [this] { area.get()->set_margin_scrolled_size(left, 9); }}};
    }
    com::ptr<acting_element> acting;  // of the left margin, in some tests

    [[nodiscard]] std::vector<way> all_ways() {
        auto all = ways_of_the_user();
        for (auto& each : ways_of_the_owner()) all.push_back(std::move(each));
        return all;
    }
};

}  // namespace d2d::fakes
