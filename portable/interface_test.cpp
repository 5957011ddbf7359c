// Which interfaces the objects of described forms answer for, and the ids of those: clients are built with
// them.

#include "com/object.h"
#include "d2d/factory.h"
#include "portable/ID2dWidget.h"
#include "portable/IHwndCellEditor.h"
#include "portable/check_box_control_impl.h"
#include "portable/edit_control_impl.h"
#include "portable/group_box_control_impl.h"
#include "portable/label_control_impl.h"
#include "portable/list_view_control_impl.h"
#include "portable/option_control_impl.h"
#include "portable/push_button_control_impl.h"
#include "portable/radio_button_control_impl.h"
#include "support/leak_checked_test.h"
#include "ui/mossHarbour/ID2DScenePanel.h"
#include "ui/mossHarbour/IFileSelectionService.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"
#include "ui/mossHarbour/IStackLayout.h"
#include "ui/mossHarbour/d2d_layout.h"

#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;
using testing::ElementsAre;

struct named_interface {
    const char* name;
    GUID id;
};

const named_interface all_interfaces[] = {
    {"IUnknown", com::guid_of<IUnknown>()},
    {"IServiceProvider", com::guid_of<IServiceProvider>()},
    {"IElement", com::guid("2A4B9DC6-8AE0-41AC-BFC7-6111F90D9974")},
    {"IWidget", com::guid("00E91240-40CA-401E-8ED2-1D3E38C721FF")},
    {"ILayout", com::guid("8029A38E-3F7B-4E35-B2A9-A3DB24ACBD78")},
    {"IMaterializableElement", com::guid("3F13907E-13D1-4F9C-B72F-EA2324999978")},
    {"IMaterializedElement", com::guid("363C1C04-FD58-432D-BEF9-A65CEDDF6F3C")},
    {"ID2dWidget", com::guid("15FC184B-1A40-4BCA-B568-067FB2DF2771")},
    {"IHwndWidget", com::guid("F43FA6C3-E2B6-4F9E-82A4-CA96A42AC15B")},
    {"IPanel", com::guid("34102B1E-96BC-4837-B07C-9B97A6B59492")},
    {"ID2DScenePanel", com::guid("47A416D7-38ED-4CFE-A3D6-F59DFCED646B")},
    {"IBasicHwndPanel", com::guid("5E0B7C93-1F64-4A8D-B2E9-36D7A081C54F")},
    {"IHwndPanel", com::guid("C21D8F46-70BA-4E35-9A17-E84F5B09D362")},
    {"IModalService", com::guid("CAAEFBB3-96C2-4F81-8D4E-8CC542E9B802")},
    {"IFileSelectionService", com::guid("B24A1C9F-775B-4712-B1DA-84E776966AD7")},
    {"IStackLayout", com::guid("2C83A66D-FB9C-4CE5-B5A5-318BF0AB496F")},
    {"IGridLayout", com::guid("09C15E74-C2E2-459F-A4D2-1938A8263CD3")},
    {"ILabelControl", com::guid("E1D65AFF-0826-44C4-9A8B-211769DE3E32")},
    {"IEditControl", com::guid("8D4F0B7E-52A6-4C19-9E3D-7B60F1A2C845")},
    {"IOptionControl", com::guid("70D2E580-3DCF-4A6F-9B9F-99CA5665A7A5")},
    {"ICheckBoxControl", com::guid("033B3DDD-6055-4068-B105-E3BA0C40E517")},
    {"IPushButtonControl", com::guid("4148BCF0-0AD7-467C-8DFD-7E8291934AD8")},
    {"IRadioButtonControl", com::guid("E658FED2-380C-4308-804A-110C346ECBBD")},
    {"IGroupBoxControl", com::guid("32CC5E7F-A648-4C82-BB73-05F21383F76F")},
    {"IListViewControl", com::guid("B0C0AAC2-E3FA-4E5A-8408-2FAD887305E2")},
    {"label facade", com::guid("109BF4D8-2AA7-4EDE-A991-E5B6D8D847BD")},
    {"edit facade", com::guid("88CAA40F-3D05-4654-A545-8E6CAE08D35B")},
    {"option facade", com::guid("E0B4F956-348D-48B7-8730-972359C56BBB")},
    {"check box facade", com::guid("7D7516D3-B074-4F30-9A35-3EA5D774BF7A")},
    {"push button facade", com::guid("54967F47-2A94-4E9E-91DA-261BD29FEF67")},
    {"radio button facade", com::guid("88F2A083-C5D4-46DB-97FB-615E06E98757")},
    {"group box facade", com::guid("8E144BC4-2255-4DA5-8001-E572356B9F68")},
    {"list view facade", com::guid("6EF5D34D-4A79-46CC-B788-3803D0A4812B")},
    {"label form", com::guid("5A4016D2-EEDF-4E1F-B485-C0D66BF92EBB")},
    {"edit form", com::guid("2EFD5373-B500-40CD-8902-9B95BA2046AF")},
    {"option form", com::guid("067F6A5D-40AA-4074-9BF4-340536C622B0")},
    {"check box form", com::guid("8709EDD4-F01C-4682-BA9F-E91A0F3FFDA3")},
    {"push button form", com::guid("9D23A256-5A7E-4A3A-8952-AED07A007E78")},
    {"radio button form", com::guid("08D35DCB-5CF0-4FD1-B40E-FB3BD5B9407F")},
    {"group box form", com::guid("B6311CA9-E3CB-48E0-92AF-52A361B44F8D")},
    {"list view form", com::guid("A43B38B2-EA04-4853-8F47-D823CC1254B2")},
    {"ICellEditor", com::guid("B1331356-1499-4BE9-BC22-732C01FE61B3")},
    {"IHwndCellEditor", com::guid("4D27C93B-0920-410E-85D3-F6CA66F2B460")}};

class interfaces : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }

    /// The names of those that an object answers for, each with the object itself.
    template <class T>
    static std::vector<std::string> of(const com::ptr<T>& object) {
        const auto identity = object.template try_as<IUnknown>();
        std::vector<std::string> found;
        for (const auto& [name, id] : all_interfaces) {
            com::ptr<IUnknown> answer;
            if (FAILED(identity->QueryInterface(id, answer.put_void()))) continue;
            found.emplace_back(name);
            EXPECT_TRUE(answer.try_as<IUnknown>() == identity) << name;
        }
        return found;
    }

    static inline std::optional<d2d::factory> token;
};

auto facade_of(const char* client, const char* facade) {
    return ElementsAre("IUnknown", "IElement", "IWidget", "IMaterializableElement", client, facade);
}

TEST_F(interfaces, of_facades_are_the_clients_and_the_forms) {
    EXPECT_THAT(of(create_label_control()), facade_of("ILabelControl", "label facade"));
    EXPECT_THAT(of(create_edit_control()), facade_of("IEditControl", "edit facade"));
    EXPECT_THAT(of(create_option_control()), facade_of("IOptionControl", "option facade"));
    EXPECT_THAT(of(create_check_box_control()), facade_of("ICheckBoxControl", "check box facade"));
    EXPECT_THAT(of(create_push_button_control()), facade_of("IPushButtonControl", "push button facade"));
    EXPECT_THAT(of(create_radio_button_control(true)),
                facade_of("IRadioButtonControl", "radio button facade"));
    EXPECT_THAT(of(create_group_box_control()), facade_of("IGroupBoxControl", "group box facade"));
    EXPECT_THAT(of(create_list_view_control()), facade_of("IListViewControl", "list view facade"));
}

TEST_F(interfaces, of_forms_on_the_scene_are_the_facades_and_the_contexts) {
    const auto form = [](const char* name) {
        return ElementsAre("IUnknown", "IMaterializedElement", "ID2dWidget", name);
    };
    EXPECT_THAT(of(label_control_impl::make_d2d_widget()), form("label form"));
    EXPECT_THAT(of(edit_control_impl::make_d2d_widget()), form("edit form"));
    EXPECT_THAT(of(check_box_control_impl::make_d2d_widget()), form("check box form"));
    EXPECT_THAT(of(push_button_control_impl::make_d2d_widget()), form("push button form"));
    EXPECT_THAT(of(radio_button_control_impl::make_d2d_widget()), form("radio button form"));
    EXPECT_THAT(of(group_box_control_impl::make_d2d_widget()), form("group box form"));
}

TEST_F(interfaces, of_native_forms_are_the_facades_and_the_parent_s) {
    const auto form = [](const char* name) {
        return ElementsAre("IUnknown", "IMaterializedElement", "IHwndWidget", name);
    };
    EXPECT_THAT(of(label_control_impl::make_win32_widget()), form("label form"));
    EXPECT_THAT(of(edit_control_impl::make_win32_widget()), form("edit form"));
    EXPECT_THAT(of(option_control_impl::make_win32_widget()), form("option form"));
    EXPECT_THAT(of(check_box_control_impl::make_win32_widget()), form("check box form"));
    EXPECT_THAT(of(push_button_control_impl::make_win32_widget()), form("push button form"));
    EXPECT_THAT(of(radio_button_control_impl::make_win32_widget()), form("radio button form"));
    EXPECT_THAT(of(group_box_control_impl::make_win32_widget()), form("group box form"));
    EXPECT_THAT(of(list_view_control_impl::make_win32_widget()), form("list view form"));
}

TEST_F(interfaces, of_cell_editors_are_the_client_s_and_the_list_s) {
    EXPECT_THAT(of(create_list_view_control()->create_text_editor(nullptr, nullptr)),
                ElementsAre("IUnknown", "ICellEditor", "IHwndCellEditor"));
}

TEST_F(interfaces, of_layouts_tell_what_they_are) {
    const auto layout = [](const char* name) {
        return ElementsAre("IUnknown", "IElement", "ILayout", "IMaterializableElement", name);
    };
    const auto stack = create_stack_layout(orientation::vertical);
    EXPECT_THAT(of(stack), layout("IStackLayout"));
    EXPECT_THAT(of(create_grid_layout()), layout("IGridLayout"));
    const auto node = d2d::scene::create_node();
    EXPECT_THAT(of(materialize_d2d_layout(nullptr, node.get(), stack)),
                ElementsAre("IUnknown", "IMaterializedElement"));
    dematerialize_d2d_layout(nullptr, node.get(), stack);
}

TEST_F(interfaces, of_panels_tell_where_they_are) {
    for (const auto& panel : {create_d2d_hwnd_panel(nullptr), create_win32_hwnd_panel(nullptr)}) {
        EXPECT_THAT(of(panel), ElementsAre("IUnknown", "IServiceProvider", "IPanel", "IBasicHwndPanel",
                                           "IHwndPanel", "IModalService", "IFileSelectionService"));
    }
    EXPECT_THAT(of(create_d2d_scene_node_panel(nullptr)),
                ElementsAre("IUnknown", "IServiceProvider", "IPanel", "ID2DScenePanel"));
}

}  // namespace
