// The identifiers of interfaces: clients have them compiled in, and ask by them.

#include "com/guid.h"
#include "com/interface_traits.h"
#include "mossHarbour.ui.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

using com::guid;
using com::guid_of;
using com::same_guid;
namespace scene = d2d::scene;
namespace controls = d2d::ui;

struct identifier {
    const char* name;
    GUID known;
    GUID declared;
};

void expect_known(std::initializer_list<identifier> identifiers) {
    for (const auto& [name, known, declared] : identifiers) EXPECT_TRUE(same_guid(known, declared)) << name;
}

TEST(identifiers, of_the_scene_are_these) {
    expect_known({
        {"INode", guid("39ACCC9F-E227-4AD5-8382-7E4D6437D236"), guid_of<scene::INode>()},
        {"IVisual", guid("490F76C8-7F3A-4FA4-9773-23226914C385"), guid_of<scene::IVisual>()},
        {"IVisual::ISite", guid("9B305FCB-FAE4-47E8-B8A6-DA1CB01FEEAB"), guid_of<scene::IVisual::ISite>()},
        {"IView", guid("054AC459-7FAB-4114-8ED5-710ACE24CEEC"), guid_of<scene::IView>()},
        {"IViewLowerEdge", guid("A7E34346-DFB3-4B00-8386-CD1375E75481"), guid_of<d2d::IViewLowerEdge>()},
        {"IResourceBindingContext", guid("973464D1-5E80-4006-9F14-B91F80D77DB4"),
         guid_of<scene::IResourceBindingContext>()},
        {"IDrawingContext", guid("D4CA2414-560A-4AD0-AF93-DA99C5370EF3"), guid_of<scene::IDrawingContext>()},
        {"IBrush", guid("01470EFA-DF56-4CD5-9909-B8304C2F152C"), guid_of<scene::IBrush>()},
        {"IBitmap", guid("65FA6EF1-5D5D-40F2-B5D2-111049CBEF2A"), guid_of<scene::IBitmap>()},
        {"IEffect", guid("7D671EEA-4C6E-4664-836A-D323A5EEB83E"), guid_of<scene::IEffect>()},
        {"ITextFormat", guid("0F4A70D1-239D-48E2-AF5A-BC160E034091"), guid_of<scene::ITextFormat>()},
        {"layout::IElement", guid("E32D91BF-E7DF-406C-83EF-4250CD0CFBF1"),
         guid_of<scene::layout::IElement>()},
    });
}

TEST(identifiers, of_services_are_these) {
    expect_known({
        {"IDeferredExecutionService", guid("E91C1E59-EEE3-48A6-9FBE-C389CB4F55E0"),
         guid_of<scene::IDeferredExecutionService>()},
        {"IFloatingNode::IService", guid("D4A069E1-625A-4020-B6F8-9EE8D6B4246C"),
         guid_of<scene::IFloatingNode::IService>()},
    });
}

TEST(identifiers, of_controls_are_these) {
    expect_known({
        {"IControl", guid("E5FEA52E-ACB7-41E0-AE18-24793533E500"), guid_of<controls::IControl>()},
        {"IButton", guid("D992A518-7B39-49A8-B382-72200C70ED26"), guid_of<controls::IButton>()},
        {"IPushButton", guid("39882B75-3BD2-42EE-9764-976B28205BA1"), guid_of<controls::IPushButton>()},
        {"ICheckBox", guid("A4390193-0468-4F01-8F5F-2E8C9D927932"), guid_of<controls::ICheckBox>()},
        {"ILabel", guid("5A7E444B-65FC-4255-8385-D992D1061445"), guid_of<controls::ILabel>()},
        {"ITextLabel", guid("5176D965-3F85-4602-BA40-4C38FF9F6148"), guid_of<controls::ITextLabel>()},
        {"IIconLabel", guid("4FF4C336-6A0E-4690-BA24-4D2DE6E5DA27"), guid_of<controls::IIconLabel>()},
        {"IGroupBox", guid("AB556156-8E45-4BA5-BEF0-68CC9052A620"), guid_of<controls::IGroupBox>()},
        {"ICommandStrip", guid("E190E641-3177-465C-A775-35D6284FD501"), guid_of<controls::ICommandStrip>()},
        {"IScrollBar", guid("56BB7066-D2EF-49A8-B3BF-0DE3973D3867"), guid_of<controls::IScrollBar>()},
        {"IScrollArea", guid("B62E9D2B-DEA7-4E59-A76D-B5C5C342BCC0"), guid_of<controls::IScrollArea>()},
        {"ILineEdit", guid("431FD5DB-129D-44BF-AF08-69AF95572CF7"), guid_of<controls::ILineEdit>()},
    });
}

TEST(identifiers, of_cell_editors_is_this) {
    expect_known({{"IListViewControl::ICellEditor", guid("B1331356-1499-4BE9-BC22-732C01FE61B3"),
                   guid_of<ui::mossHarbour::IListViewControl::ICellEditor>()}});
}

}  // namespace
