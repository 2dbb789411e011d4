// A host with workspace panels: the command toggles the panel, which the plug-in fills with its
// dialog when the host first builds it.
#include "plugin_fixture.h"

namespace {

class WorkspacePanel : public PluginTest {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        load(true);
    }

    ControlRef view() const { return host_->panelView(kPanelName); }
    ControlRef panel_control(ADMInt32 id) const { return platform::findControlById(view(), id); }
};

TEST_F(WorkspacePanel, PanelIsRegisteredUnderItsMatchNameAndRefreshesBeforeItExistsTouchNoWindow) {
    EXPECT_EQ(std::vector<std::string>{kPanelName}, host_->panelNames());
    EXPECT_FALSE(host_->panelCreated(kPanelName));
    host_->idle(3);
    host_->updateMenus();
    EXPECT_EQ(0u, platform::liveCounts().windows);
    EXPECT_EQ(0u, platform::liveCounts().controls);
    EXPECT_TRUE(menu_item()->enabled);
    EXPECT_TRUE(host_->escapedExceptions().empty());
}

TEST_F(WorkspacePanel, EachCommandTogglesThePanelOfTheDialogsSizeAndTheItemIsNeverChecked) {
    command();
    ASSERT_TRUE(host_->panelCreated(kPanelName));
    EXPECT_TRUE(host_->panelShown(kPanelName));
    EXPECT_EQ(0u, platform::windows().size()) << "the dialog lives in the panel, not in a window";
    ASSERT_NE(nullptr, panel_control(BUTTON_APPLY));
    EXPECT_TRUE(IsControlEnabled(panel_control(BUTTON_APPLY)));
    EXPECT_EQ("Orbisett", host_->panelTitle(kPanelName));
    host_->updateMenus();
    EXPECT_FALSE(menu_item()->checked);

    command();
    EXPECT_FALSE(host_->panelShown(kPanelName));
    host_->updateMenus();
    EXPECT_FALSE(menu_item()->checked);
    // Hidden, the panel keeps the sizes the plug-in gave it.
    const std::vector<A_LPoint> sizes = host_->panelSnapSizes(kPanelName);
    ASSERT_EQ(1u, sizes.size());
    EXPECT_EQ(385, sizes[0].x);
    EXPECT_EQ(383, sizes[0].y);
}

TEST_F(WorkspacePanel, ApplyFromThePanelArrangesTheSelection) {
    command();
    ASSERT_TRUE(platform::click(panel_control(BUTTON_APPLY)).ok());
    const host::Layer* first = host_->project().layer(cards_[0]);
    // Given steps from the front, bottom of a 2000-high cylinder, composition centre added.
    EXPECT_EQ((host::Vec3{960, 1540, -500}), first->prop(host::Prop::position).value);
    EXPECT_TRUE(host_->undoBalanced());
}

TEST_F(WorkspacePanel, DisposedPanelIsBuiltAgainWithInitialValues) {
    command();
    ASSERT_TRUE(platform::typeText(panel_control(EDIT_DIM_X), "777").ok());
    ASSERT_TRUE(host_->disposePanel(kPanelName));
    host_->idle();
    EXPECT_TRUE(host_->escapedExceptions().empty());

    command();
    ASSERT_TRUE(host_->panelCreated(kPanelName));
    EXPECT_EQ("1000", platform::controlText(panel_control(EDIT_DIM_X)));
}

}  // namespace
