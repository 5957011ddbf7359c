// Which services a native panel answers for.

#include "com/object.h"
#include "portable/testing/native_panel_fixture.h"
#include "ui/mossHarbour/IFileSelectionService.h"
#include "ui/mossHarbour/IModalService.h"

namespace ui::mossHarbour {
namespace {

class native_panel_services : public native_panel_fixture {};

/// Answers for one service, by itself, and counts how often it is asked.
class stub_provider : public com::base_object<com::object_base, IServiceProvider> {
public:
    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& iid, void** result) override {
        ++asked;
        if (!com::same_guid(service, com::guid_of<IServiceProvider>())) return E_ACCESSDENIED;
        return QueryInterface(iid, result);
    }

    int asked = 0;

protected:
    ~stub_provider() = default;
};

TEST_F(native_panel_services, are_its_dialogs) {
    for (const GUID& service : {com::guid_of<IModalService>(), com::guid_of<IFileSelectionService>()}) {
        com::ptr<IModalService> modal;
        EXPECT_EQ(panel->QueryService(service, com::guid_of<IModalService>(), modal.put_void()), S_OK);
        EXPECT_TRUE(modal == com::ptr<IModalService>(panel.get()));
        com::ptr<IFileSelectionService> files;
        EXPECT_EQ(panel->QueryService(service, com::guid_of<IFileSelectionService>(), files.put_void()),
                  S_OK);
        EXPECT_TRUE(files);
        com::ptr<ILayout> layout;
        EXPECT_EQ(panel->QueryService(service, com::guid_of<ILayout>(), layout.put_void()), E_NOINTERFACE);
    }
    com::ptr<IPanel> none;
    EXPECT_EQ(panel->QueryService(com::guid_of<IPanel>(), com::guid_of<IPanel>(), none.put_void()), E_FAIL);
}

TEST_F(native_panel_services, are_sought_upstream_first) {
    const auto provider = com::create_object<stub_provider>();
    panel = create_win32_hwnd_panel(provider.get());
    com::ptr<IServiceProvider> found;
    EXPECT_EQ(panel->QueryService(com::guid_of<IServiceProvider>(), com::guid_of<IServiceProvider>(),
                                  found.put_void()),
              S_OK);
    EXPECT_TRUE(found == com::ptr<IServiceProvider>(provider.get()));
    EXPECT_EQ(provider->asked, 1);
    com::ptr<IModalService> modal;
    EXPECT_EQ(
        panel->QueryService(com::guid_of<IModalService>(), com::guid_of<IModalService>(), modal.put_void()),
        S_OK);
    EXPECT_EQ(provider->asked, 2);
    EXPECT_EQ(panel->QueryService(com::guid_of<IPanel>(), com::guid_of<IPanel>(), found.put_void()),
              E_ACCESSDENIED);
}

}  // namespace
}  // namespace ui::mossHarbour
