// Host errors and missing suites during "Apply": the first error ends it and is returned, the
// undo group is always closed, and no suite, stream or collection is left behind.
#include "engine_fixture.h"

namespace {

class Errors : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        card_ = add_av("A", 400, 300);
        prop(card_, host::Prop::position).value = vec(1, 2, 3);
        select({add_av("B", 1000, 600), add_layer(AEGP_ObjectType_TEXT), card_});
        open_dialog();
    }
    void expect_clean_host() {
        EXPECT_TRUE(host().undoBalanced());
        EXPECT_TRUE(host().allSuitesReleased());
        EXPECT_EQ(host().openStreams(), 0u);
        EXPECT_LE(host().openCollections(), 1u);  // only the dialog's held selection
    }
    host::Id card_ = 0;
};

// Calls made only inside the undo group, while the record list is built.
class ErrorInsideTheGroup : public Errors, public ::testing::WithParamInterface<const char*> {};

TEST_P(ErrorInsideTheGroup, EndsApplyWithThatErrorAndTheGroupClosed) {
    host().failFunction(GetParam(), 77);
    EXPECT_EQ(dlg().apply_assistant(), 77);
    EXPECT_EQ(dlg().applies, 0);
    ASSERT_EQ(host().undoGroups().size(), 1u);
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 0);
    expect_clean_host();
}

INSTANTIATE_TEST_SUITE_P(Calls, ErrorInsideTheGroup,
                         ::testing::Values("AEGP_GetCollectionNumItems", "AEGP_GetCollectionItemByIndex",
                                           "AEGP_GetLayerObjectType", "AEGP_GetLayerCurrentTime",
                                           "AEGP_GetLayerStreamValue", "AEGP_GetLayerIndex"));

// Calls of the snapshot before the group: the error comes back and no group is opened.
class ErrorBeforeTheGroup : public Errors, public ::testing::WithParamInterface<const char*> {};

TEST_P(ErrorBeforeTheGroup, EndsApplyWithoutAnUndoGroup) {
    host().failFunction(GetParam(), 78);
    EXPECT_EQ(dlg().apply_assistant(), 78);
    EXPECT_TRUE(host().undoGroups().empty());
    expect_clean_host();
}

INSTANTIATE_TEST_SUITE_P(Calls, ErrorBeforeTheGroup,
                         ::testing::Values("AEGP_GetActiveItem", "AEGP_GetItemType", "AEGP_GetCompFromItem",
                                           "AEGP_GetNewCollectionFromCompSelection", "AEGP_GetItemDimensions",
                                           "AEGP_IsLayer3D", "AEGP_GetLayerSourceItem", "AEGP_StartUndoGroup"));

TEST_F(Errors, LayoutErrorIsReturnedAndNothingIsWritten) {
    dlg().layout_result = 42;
    EXPECT_EQ(dlg().apply_assistant(), 42);
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 0);
    EXPECT_EQ(host().undoGroups().size(), 1u);
    expect_clean_host();
}

TEST_F(Errors, WriteErrorsAreIgnoredAndEveryPropertyIsStillTried) {
    host().failFunction("AEGP_SetStreamValue", 9);
    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    // Three layers, each with three rotations, orientation, position and scale.
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 18);
    EXPECT_EQ(host().callCount("AEGP_DisposeStream"), 18);
    host().clearFaults();
    host().failFunction("AEGP_GetNewLayerStream", 9);  // a stream that cannot be opened is not disposed
    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 36);
    EXPECT_EQ(host().callCount("AEGP_DisposeStream"), 18);
    expect_clean_host();
}

TEST_F(Errors, AMissingSuitePassesUpAndTheGroupIsStillClosed) {
    host().withholdSuite(kAEGPStreamSuite, kAEGPStreamSuiteVersion4);
    int thrown = 0;
    try {
        dlg().apply_assistant();
    } catch (int err) {
        thrown = err;
    }
    EXPECT_EQ(thrown, A_Err_BAD_CALLBACK_PARAM);
    EXPECT_EQ(host().undoGroups().size(), 1u);
    expect_clean_host();
}

}  // namespace
