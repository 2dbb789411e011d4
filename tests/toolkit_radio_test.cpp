// Radio groups: runs of radio items with consecutive ids.
#include "toolkit_fixture.h"

namespace {

class RadioGroups : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        dialog = makeWindowDialog();
        sADMDialog->Show(dialog, true);
    }
    void TearDown() override {
        sADMDialog->Destroy(dialog);
        ToolkitTest::TearDown();
    }
    ADMItemRef radio(ADMInt32 id) { return add(dialog, id, kADMTextRadioButtonType); }
    bool on(ADMInt32 id) { return sADMItem->GetBooleanValue(sADMDialog->GetItem(dialog, id)) != 0; }

    ADMDialogRef dialog = nullptr;
};

TEST_F(RadioGroups, TheFirstRadioOfAGroupStartsOn) {
    radio(251);
    radio(252);
    radio(253);
    EXPECT_TRUE(on(251));
    EXPECT_FALSE(on(252));
    EXPECT_FALSE(on(253));
}

TEST_F(RadioGroups, ALoneRadioFormsItsOwnGroupAndStartsOn) {
    radio(251);
    add(dialog, 259, kADMTextCheckBoxType);
    radio(260);
    EXPECT_TRUE(on(251));
    EXPECT_TRUE(on(260));
}

TEST_F(RadioGroups, AGapInTheIdsSeparatesGroups) {
    radio(251);
    radio(252);
    radio(254);
    radio(255);
    EXPECT_TRUE(on(254));
    sADMItem->SetBooleanValue(sADMDialog->GetItem(dialog, 255), true);
    EXPECT_TRUE(on(251));
    EXPECT_FALSE(on(254));
    EXPECT_TRUE(on(255));
}

TEST_F(RadioGroups, SettingOneOnTurnsTheOthersOff) {
    radio(251);
    radio(252);
    radio(253);
    sADMItem->SetBooleanValue(sADMDialog->GetItem(dialog, 252), true);
    EXPECT_FALSE(on(251));
    EXPECT_TRUE(on(252));
    EXPECT_FALSE(on(253));
    // Turning one off touches only that one.
    sADMItem->SetBooleanValue(sADMDialog->GetItem(dialog, 252), false);
    EXPECT_FALSE(on(251));
    EXPECT_FALSE(on(252));
    EXPECT_FALSE(on(253));
}

TEST_F(RadioGroups, ClickingARadioRestoresExclusivityAndNotifies) {
    radio(251);
    radio(252);
    ADMItemRef last = radio(253);
    const platform::Outcome outcome = platform::click(find(253));
    ASSERT_TRUE(outcome.ok());
    EXPECT_EQ(0, outcome.eventStatus);  // the notify proc's result
    EXPECT_FALSE(on(251));
    EXPECT_FALSE(on(252));
    EXPECT_TRUE(on(253));
    ASSERT_EQ(1u, recorder.notes.size());
    EXPECT_EQ(last, recorder.notes[0].item);
    EXPECT_EQ("ADM User Changed Notifier", recorder.notes[0].type);
}

TEST_F(RadioGroups, ClickingACheckBoxTogglesItAndNotifies) {
    ADMItemRef box = add(dialog, 40, kADMTextCheckBoxType);
    ASSERT_TRUE(platform::click(find(40)).ok());
    EXPECT_TRUE(sADMItem->GetBooleanValue(box));
    ASSERT_EQ(1u, recorder.notes.size());
    EXPECT_EQ(box, recorder.notes[0].item);
}

}  // namespace
