// A host without workspace panels: the command opens a floating window, the close box hides it,
// the menu item follows the window and the selection.
#include "plugin_fixture.h"

namespace {

class FloatingWindow : public PluginTest {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        load(false);
    }

    bool window_visible() const { return window() != nullptr && IsWindowVisible(window()); }
    bool menu_checked() {
        host_->updateMenus();
        return menu_item()->checked;
    }
};

TEST_F(FloatingWindow, FirstCommandOfTheFloatersItemShowsTheWindowAndASecondBringsTheSameOneUp) {
    const host::MenuItem* item = menu_item();
    ASSERT_NE(nullptr, item);
    EXPECT_EQ(AEGP_Menu_FLOATERS, item->menu);
    EXPECT_TRUE(host_->panelNames().empty());
    EXPECT_EQ(nullptr, window()) << "no window before the first command";
    command();
    WindowRef first = window();
    ASSERT_NE(nullptr, first);
    EXPECT_TRUE(IsWindowVisible(first));
    EXPECT_TRUE(menu_checked());
    EXPECT_TRUE(IsControlEnabled(control(BUTTON_APPLY))) << "four 3D cards are selected";

    command();
    EXPECT_EQ(1u, platform::windows().size());
    EXPECT_EQ(first, window());
    EXPECT_TRUE(IsWindowVisible(first));
}

TEST_F(FloatingWindow, CloseBoxHidesKeepingTheValuesAndAfterTheWindowIsDestroyedAFreshOneIsBuilt) {
    command();
    ASSERT_TRUE(platform::typeText(control(EDIT_DIM_X), "1234").ok());
    ASSERT_TRUE(platform::click(control(CHECK_DISTRIBUTE_EVENLY)).ok());

    ASSERT_TRUE(platform::pressCloseBox(window()).ok());
    ASSERT_NE(nullptr, window()) << "the close box only hides";
    EXPECT_FALSE(IsWindowVisible(window()));
    EXPECT_FALSE(menu_checked());

    command();
    EXPECT_TRUE(window_visible());
    EXPECT_TRUE(menu_checked());
    EXPECT_EQ("1234", platform::controlText(control(EDIT_DIM_X)));
    EXPECT_EQ(1, GetControl32BitValue(control(CHECK_DISTRIBUTE_EVENLY)));
    command();
    ASSERT_TRUE(platform::typeText(control(EDIT_DIM_X), "1234").ok());
    ASSERT_TRUE(platform::closeWindow(window()).ok());
    EXPECT_EQ(nullptr, window());
    EXPECT_FALSE(menu_checked());

    command();
    ASSERT_TRUE(window_visible());
    EXPECT_EQ("1000", platform::controlText(control(EDIT_DIM_X)));
    EXPECT_EQ(0, GetControl32BitValue(control(CHECK_DISTRIBUTE_EVENLY)));
}

TEST_F(FloatingWindow, SelectionWithoutArrangeableLayersGreysTheMenuItemAndTheDialog) {
    command();
    ASSERT_TRUE(IsControlEnabled(control(BUTTON_APPLY)));

    for (const auto& selection :
         {std::vector<host::Id>{flat_}, std::vector<host::Id>{camera_, light_}, std::vector<host::Id>{}}) {
        select(selection);
        host_->updateMenus();
        EXPECT_FALSE(menu_item()->enabled);
        host_->idle();
        EXPECT_FALSE(IsControlEnabled(control(BUTTON_APPLY)));
        EXPECT_FALSE(IsControlEnabled(control(EDIT_DIM_X)));
        EXPECT_FALSE(IsControlEnabled(control(CHECK_KEY_POSITION)));
    }

    for (host::Id arrangeable : {cards_[0], title_}) {
        select({flat_, arrangeable});
        host_->updateMenus();
        EXPECT_TRUE(menu_item()->enabled);
        host_->idle();
        EXPECT_TRUE(IsControlEnabled(control(BUTTON_APPLY)));
        EXPECT_TRUE(IsControlEnabled(control(EDIT_DIM_X)));
        EXPECT_FALSE(IsControlEnabled(control(EDIT_REPEAT_COUNT))) << "follows Repeat Layers, which is off";
    }
}

}  // namespace
