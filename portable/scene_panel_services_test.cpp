// Who answers for a service that a panel on the scene is asked for.

#include "com/guid.h"
#include "com/object.h"
#include "d2d/factory.h"
#include "host/testing/fake_service.h"
#include "support/leak_checked_test.h"
#include "ui/mossHarbour/ID2DScenePanel.h"
#include "ui/mossHarbour/IFileSelectionService.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"

#include <optional>

#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;
using com::guid_of;

constexpr GUID modal = com::guid("CAAEFBB3-96C2-4F81-8D4E-8CC542E9B802");
constexpr GUID file_selection = com::guid("B24A1C9F-775B-4712-B1DA-84E776966AD7");
constexpr GUID unknown = com::guid("0D0A5C11-93F8-4B7E-9C55-1B2F1B0C77E1");

/// Has no service, and says so in its own way.
class refusing_provider : public com::base_object<com::object_base, IServiceProvider> {
public:
    static constexpr HRESULT refusal = E_ACCESSDENIED;
    HRESULT STDMETHODCALLTYPE QueryService(const GUID&, const GUID&, void** result) override {
        *result = nullptr;
        ++asked;
        return refusal;
    }

    int asked = 0;

protected:
    ~refusing_provider() = default;
};

class scene_panel_services : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }

    /// Asks for a service by an interface; empty when the answer is `expected`, which is a failure.
    template <class Interface>
    static com::ptr<Interface> ask(IServiceProvider& asked, const GUID& service, HRESULT expected = S_OK) {
        void* result = nullptr;
        EXPECT_EQ(asked.QueryService(service, guid_of<Interface>(), &result), expected);
        EXPECT_EQ(result != nullptr, SUCCEEDED(expected));
        return com::ptr<Interface>::attach(static_cast<Interface*>(result));
    }

    static inline std::optional<d2d::factory> token;
};

template <class Interface>
com::ptr<Interface> face_of(const com::ptr<IHwndPanel>& panel) {
    return com::ptr<Interface>(panel.get());
}

TEST_F(scene_panel_services, are_the_windows_own) {
    const auto panel = create_d2d_hwnd_panel(nullptr);
    EXPECT_TRUE(ask<IModalService>(*panel, modal) == face_of<IModalService>(panel));
    EXPECT_TRUE(ask<IFileSelectionService>(*panel, file_selection) == face_of<IFileSelectionService>(panel));
    // Either id stands for the panel, whatever interface it is asked for.
    EXPECT_TRUE(ask<IFileSelectionService>(*panel, modal));
    EXPECT_TRUE(ask<IModalService>(*panel, file_selection));
    EXPECT_TRUE(ask<IPanel>(*panel, modal) == face_of<IPanel>(panel));
    EXPECT_FALSE(ask<ILayout>(*panel, modal, E_NOINTERFACE));
    EXPECT_FALSE(ask<IModalService>(*panel, unknown, E_FAIL));
}

TEST_F(scene_panel_services, are_sought_upstream_first) {
    for (const GUID& service : {modal, file_selection, unknown}) {
        d2d::fakes::fake_service upstream(service);
        {
            const auto panel = create_d2d_hwnd_panel(&upstream);
            EXPECT_EQ(upstream.references(), 1u);  // kept
            EXPECT_TRUE(ask<IServiceProvider>(*panel, service).get() == &upstream);
        }
        EXPECT_EQ(upstream.references(), 0u);
    }
}

TEST_F(scene_panel_services, are_the_windows_own_where_upstream_fails) {
    const auto upstream = com::create_object<refusing_provider>();
    const auto panel = create_d2d_hwnd_panel(upstream.get());
    EXPECT_TRUE(ask<IModalService>(*panel, modal) == face_of<IModalService>(panel));
    EXPECT_TRUE(ask<IFileSelectionService>(*panel, file_selection));
    EXPECT_FALSE(ask<ILayout>(*panel, file_selection, E_NOINTERFACE));
    EXPECT_FALSE(ask<IModalService>(*panel, unknown, refusing_provider::refusal));
    EXPECT_EQ(upstream->asked, 4);
    // A service that upstream has, but not by this interface.
    d2d::fakes::fake_service other(modal);
    EXPECT_TRUE(ask<IModalService>(*create_d2d_hwnd_panel(&other), modal));
}

TEST_F(scene_panel_services, of_a_node_are_those_upstream) {
    const auto alone = create_d2d_scene_node_panel(nullptr);
    for (const GUID& service : {modal, file_selection, unknown}) {
        EXPECT_FALSE(ask<IModalService>(*alone, service, E_NOINTERFACE));
        d2d::fakes::fake_service upstream(service);
        {
            const auto panel = create_d2d_scene_node_panel(&upstream);
            EXPECT_EQ(upstream.references(), 1u);
            EXPECT_TRUE(ask<IServiceProvider>(*panel, service).get() == &upstream);
        }
        EXPECT_EQ(upstream.references(), 0u);
    }
    const auto refusing = com::create_object<refusing_provider>();
    EXPECT_FALSE(
        ask<IModalService>(*create_d2d_scene_node_panel(refusing.get()), modal, refusing_provider::refusal));
}

}  // namespace
