// Radio groups: runs of radio items with consecutive ids.
#include "toolkit_fixture.h"

#include <initializer_list>
#include <vector>

namespace {

class RadioGroups : public ToolkitWindowTest {
protected:
    ADMItemRef radio(ADMInt32 id) { return add(dialog, id, kADMTextRadioButtonType); }
    // Which of the radios are on.
    std::vector<bool> states(std::initializer_list<ADMInt32> ids) {
        std::vector<bool> out;
        for (ADMInt32 id : ids)
            out.push_back(sADMItem->GetBooleanValue(sADMDialog->GetItem(dialog, id)) != 0);
        return out;
    }
};

// The first radio of a group starts on; a click or a value set on turns the others off, and
// turning one off touches only that one.
TEST_F(RadioGroups, TheFirstStartsOnAndOneOnTurnsTheOthersOff) {
    radio(251);
    radio(252);
    ADMItemRef last = radio(253);
    EXPECT_EQ((std::vector<bool>{true, false, false}), states({251, 252, 253}));
    const platform::Outcome outcome = platform::click(find(253));
    ASSERT_TRUE(outcome.ok());
    EXPECT_EQ(0, outcome.eventStatus);  // the notify proc's result
    EXPECT_EQ((std::vector<bool>{false, false, true}), states({251, 252, 253}));
    ASSERT_EQ(1u, recorder.notes.size());
    EXPECT_EQ(last, recorder.notes[0].item);
    EXPECT_EQ("ADM User Changed Notifier", recorder.notes[0].type);

    sADMItem->SetBooleanValue(sADMDialog->GetItem(dialog, 252), true);
    EXPECT_EQ((std::vector<bool>{false, true, false}), states({251, 252, 253}));
    sADMItem->SetBooleanValue(sADMDialog->GetItem(dialog, 252), false);
    EXPECT_EQ((std::vector<bool>{false, false, false}), states({251, 252, 253}));
}

// A radio after a gap in the ids, or after an item of another kind, starts a group of its own.
TEST_F(RadioGroups, AGapInTheIdsOrAnotherKindOfItemSeparatesGroups) {
    radio(251);
    radio(252);
    radio(254);
    radio(255);
    add(dialog, 256, kADMTextCheckBoxType);
    radio(257);
    EXPECT_EQ((std::vector<bool>{true, true, true}), states({251, 254, 257}));
    sADMItem->SetBooleanValue(sADMDialog->GetItem(dialog, 255), true);
    EXPECT_EQ((std::vector<bool>{true, false, true, true}), states({251, 254, 255, 257}));
}

}  // namespace
