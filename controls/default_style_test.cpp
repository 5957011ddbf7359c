#include "controls/default_style.h"

#include "com/error.h"
#include "com/object.h"
#include "com/weak_ptr.h"
#include "controls/control_impl.h"
#include "controls/default_style_settings.h"
#include "controls/testing/style_test.h"
#include "d2d/factory.h"
#include "d2d/ui/IStyleSettingsBuilder.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace d2d {
namespace {

using com::guid;
using com::guid_of;
using ui::get_default_style;
using ui::IStyle;
using ui::IStyleSettings;

void expect_unrecognized(const std::function<void()>& action) {
    try {
        action();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::logic_error& refused) {
        EXPECT_STREQ("unrecognized style identifier", refused.what());
    }
}

struct style_interface {
    const char* name;
    GUID known;
    GUID declared;
};

const style_interface style_interfaces[] = {
    {"IButtonStyle", guid("2F5B5897-F93D-4678-84CB-5D7C53B72DD6"), guid_of<ui::IButtonStyle>()},
    {"ICheckBoxStyle", guid("A360D74F-8517-469A-9FA6-F3CF60F3136F"), guid_of<ui::ICheckBoxStyle>()},
    {"IRadioButtonStyle", guid("EEDAD5ED-FCF1-4493-B9D2-242A25E12DD4"), guid_of<ui::IRadioButtonStyle>()},
    {"ILabelStyle", guid("E57E7307-F63E-4D60-8886-81614AA4D301"), guid_of<ui::ILabelStyle>()},
    {"ILineEditStyle", guid("ACF7D3D3-C1EE-485B-A3D0-61EA8FAA5742"), guid_of<ui::ILineEditStyle>()},
    {"ICommandStripStyle", guid("28A0A9A4-9DF4-4D60-9001-973E20CC4DC0"), guid_of<ui::ICommandStripStyle>()},
    {"IPopupOptionsStyle", guid("AAABC95B-6D0F-4841-92C4-8DEC33BDB35C"), guid_of<ui::IPopupOptionsStyle>()},
    {"IScrollBarStyle", guid("56F6BC8B-81C9-4598-90E3-6C46C181FAF5"), guid_of<ui::IScrollBarStyle>()},
    {"IScrollAreaStyle", guid("54941771-719C-470F-9434-9109C7EFAC60"), guid_of<ui::IScrollAreaStyle>()},
    {"IGroupBoxStyle", guid("DACC7FF3-7A34-4A9D-B793-F9D00111E820"), guid_of<ui::IGroupBoxStyle>()},
};

TEST(style_identifiers, are_these) {
    for (const auto& one : style_interfaces) EXPECT_TRUE(com::same_guid(one.known, one.declared)) << one.name;
    EXPECT_TRUE(com::same_guid(guid("B8DF9BF0-A641-46FD-9889-9315824E3573"), guid_of<IStyle>()));
    EXPECT_TRUE(com::same_guid(guid("AA1F87BE-1820-47A2-9D63-2421B3011107"), guid_of<IStyleSettings>()));
    EXPECT_TRUE(
        com::same_guid(guid("0B9CE123-DCBD-4D9D-99A3-FB9CE69FFA50"), guid_of<ui::IStyleSettingsBuilder>()));
}

/// With the graphics objects alive throughout.
class default_style_test : public fakes::style_test {
protected:
    [[nodiscard]] static IUnknown* answer(IUnknown* asked, const GUID& id) {
        com::ptr<IUnknown> found;
        EXPECT_EQ(S_OK, asked->QueryInterface(id, reinterpret_cast<void**>(found.put())));
        return found.get();  // as long as `asked` lives
    }
    [[nodiscard]] static default_style* inside(const com::ptr<IStyle>& style) {
        return static_cast<default_style*>(static_cast<ui::IButtonStyle*>(style.get()));
    }
};

TEST_F(default_style_test, has_all_style_interfaces) {
    const auto style = get_default_style(nullptr);
    for (const auto& from : style_interfaces) {
        IUnknown* const part = answer(style.get(), from.known);
        ASSERT_TRUE(part) << from.name;
        EXPECT_EQ(answer(style.get(), guid_of<IUnknown>()), answer(part, guid_of<IUnknown>())) << from.name;
        EXPECT_EQ(answer(style.get(), guid_of<IStyle>()), answer(part, guid_of<IStyle>())) << from.name;
        for (const auto& to : style_interfaces) {
            EXPECT_EQ(answer(style.get(), to.known), answer(part, to.known)) << from.name << " " << to.name;
            EXPECT_EQ(com::same_guid(from.known, to.known), part == answer(part, to.known));
        }
    }
}

TEST_F(default_style_test, is_a_button_style_first) {
    const auto style = get_default_style(nullptr);
    IUnknown* const button_style = answer(style.get(), guid_of<ui::IButtonStyle>());
    EXPECT_EQ(static_cast<IUnknown*>(style.get()), button_style);
    EXPECT_EQ(button_style, answer(style.get(), guid_of<IStyle>()));
    EXPECT_EQ(button_style, answer(style.get(), guid_of<IUnknown>()));
}

TEST_F(default_style_test, has_no_other_interfaces) {
    const auto style = get_default_style(nullptr);
    for (const GUID& id : {guid_of<IStyleSettings>(), guid_of<ui::IControl>(), guid_of<scene::IBrush>()}) {
        void* found = &found;
        EXPECT_EQ(E_NOINTERFACE, style->QueryInterface(id, &found));
    }
}

TEST_F(default_style_test, has_the_same_settings_behind_each_interface) {
    const auto style = get_default_style(nullptr);
    const auto values = style->get_settings();
    ASSERT_TRUE(values);
    for (const auto& one : style_interfaces) {
        const com::ptr<IUnknown> part = answer(style.get(), one.known);
        // Each style interface begins like IStyle.
        EXPECT_EQ(values, static_cast<IStyle*>(part.get())->get_settings()) << one.name;
    }
}

TEST_F(default_style_test, is_shared_while_somebody_holds_it) {
    auto first = get_default_style(nullptr);
    auto second = get_default_style(nullptr);
    EXPECT_EQ(first, second);
    first.reset();
    EXPECT_EQ(second, get_default_style(nullptr));
    const com::ptr<ui::ILabelStyle> part(second.get());
    second.reset();
    EXPECT_EQ(answer(part.get(), guid_of<IStyle>()), get_default_style(nullptr).get());
}

TEST_F(default_style_test, is_made_anew_behind_its_last_release) {
    auto style = get_default_style(nullptr);
    const com::weak_ptr<default_style> first(inside(style));
    IStyle* const address = style.get();  // the weak reference keeps the storage
    style.reset();
    EXPECT_FALSE(first.lock());
    style = get_default_style(nullptr);
    EXPECT_NE(address, style.get());
    EXPECT_FALSE(first.lock());
    EXPECT_EQ(style, get_default_style(nullptr));
}

TEST_F(default_style_test, keeps_its_settings_and_is_not_kept_by_them) {
    const long before = com::live_object_count();
    auto style = get_default_style(nullptr);
    const long with_style = com::live_object_count();
    auto values = style->get_settings();
    EXPECT_EQ(with_style, com::live_object_count());
    style.reset();
    EXPECT_EQ(with_style - 1, com::live_object_count());
    EXPECT_TRUE(values->get_color("text"));
    values.reset();
    EXPECT_EQ(before, com::live_object_count());
}

TEST_F(default_style_test, takes_the_newest_settings_that_are_there) {
    const auto values = get_default_style(nullptr)->get_settings();
    EXPECT_EQ(values, get_default_style(nullptr)->get_settings());
    const auto first = get_default_style(nullptr);
    EXPECT_EQ(values, first->get_settings());
}

TEST_F(default_style_test, is_not_made_on_empty_settings) {
    auto built = ui::create_style_settings_builder(true)->build();
    expect_unrecognized([&] { (void)get_default_style(built); });
    // The failure has made the newest settings, and taken them away again: the next style gets its own.
    EXPECT_NE(built, get_default_style(nullptr)->get_settings());

    const auto newest = ui::create_style_settings_builder(true)->build();
    expect_unrecognized([] { (void)get_default_style(nullptr); });
}

TEST_F(default_style_test, survives_failures_and_other_settings) {
    const auto style = get_default_style(nullptr);
    const auto built = ui::create_style_settings_builder(true)->build();
    EXPECT_EQ(style, get_default_style(nullptr));
    expect_unrecognized([&] { (void)get_default_style(built); });
    expect_unrecognized([&] { (void)get_default_style(style->get_settings()); });
    EXPECT_EQ(style, get_default_style(nullptr));
}

// Settings and styles that go leave none behind for the next ones, even if newer ones are there.
TEST_F(default_style_test, is_made_on_new_settings_when_any_have_gone) {
    auto older = get_default_style(nullptr)->get_settings();
    const auto empty = ui::create_style_settings_builder(false)->build();
    older.reset();
    const auto values = get_default_style(nullptr)->get_settings();
    EXPECT_TRUE(values->get_color("text"));

    (void)ui::create_style_settings_builder(false)->build();
    EXPECT_NE(values, get_default_style(nullptr)->get_settings());
}

TEST_F(default_style_test, is_made_anew_when_any_style_has_gone) {
    auto older = get_default_style(nullptr);
    auto newer = com::create_object<default_style>(older->get_settings());
    EXPECT_EQ(newer.get(), inside(get_default_style(nullptr)));
    older.reset();
    older = get_default_style(nullptr);
    EXPECT_NE(newer.get(), inside(older));
    EXPECT_EQ(older, get_default_style(nullptr));
    newer.reset();
    const auto newest = get_default_style(nullptr);
    EXPECT_NE(older, newest);
    EXPECT_EQ(older->get_settings(), newest->get_settings());
}

TEST_F(default_style_test, is_its_own_scroll_bar_style) {
    const auto style = get_default_style(nullptr);
    const auto bars = com::ptr<ui::IScrollAreaStyle>(style.get())->get_scroll_bar_style();
    EXPECT_EQ(com::ptr<ui::IScrollBarStyle>(style.get()), bars);
}

// No token of the test's own: the style brings one.
class default_style_lifetime_test : public test_support::leak_checked_test {};

TEST_F(default_style_lifetime_test, graphics_objects_live_as_long_as_the_style) {
    ASSERT_FALSE(factory::d2d1());
    auto style = get_default_style(nullptr);
    EXPECT_TRUE(factory::d2d1());
    EXPECT_TRUE(factory::dwrite());
    auto other = get_default_style(nullptr);
    style.reset();
    EXPECT_TRUE(factory::d2d1());
    auto values = other->get_settings();
    other.reset();
    EXPECT_TRUE(factory::d2d1());
    values.reset();
    EXPECT_FALSE(factory::d2d1());
    EXPECT_FALSE(factory::dwrite());
}

TEST_F(default_style_lifetime_test, failure_leaves_nothing_behind) {
    auto built = ui::create_style_settings_builder(true)->build();
    const long before = com::live_object_count();
    expect_unrecognized([&] { (void)get_default_style(built); });
    EXPECT_EQ(before, com::live_object_count());
    built.reset();
    EXPECT_FALSE(factory::d2d1());
}

using style_of_controls = default_style_test;

TEST_F(style_of_controls, is_the_default_style_without_another) {
    const auto style = get_default_style(nullptr);
    EXPECT_EQ(com::ptr<ui::ILineEditStyle>(style.get()), resolve_style<ui::ILineEditStyle>(nullptr));
    EXPECT_EQ(com::ptr<ui::IGroupBoxStyle>(style.get()), resolve_style<ui::IGroupBoxStyle>(style.get()));
}

TEST_F(style_of_controls, has_to_have_their_interface) {
    const auto style = get_default_style(nullptr);
    const auto values = style->get_settings();
    try {
        (void)resolve_style<ui::IButtonStyle>(values.get());
        ADD_FAILURE() << "accepted";
    } catch (const com::error& refused) {
        EXPECT_EQ(E_NOINTERFACE, refused.hresult);
    }
}

}  // namespace
}  // namespace d2d
