// Host errors and missing suites during "Apply": the first error ends it and is returned, the
// undo group is always closed, and no suite, stream or collection is left behind.
#include "engine_fixture.h"

namespace {

using host::Prop;

class Errors : public EngineTest {
protected:
    void make_scene() {
        a_ = add_av("A", 400, 300);
        b_ = add_av("B", 1000, 600);
        text_ = add_layer("Title", AEGP_ObjectType_TEXT);
        prop(a_, Prop::position).value = vec(1, 2, 3);
        select({b_, text_, a_});
    }
    void expect_nothing_left_behind() {
        EXPECT_TRUE(host().undoBalanced());
        EXPECT_TRUE(host().allSuitesReleased());
        EXPECT_EQ(host().strayReleases(), 0);
        EXPECT_EQ(host().openStreams(), 0u);
        EXPECT_LE(host().openCollections(), 1u);  // only the dialog's held selection
    }

    host::Id a_ = 0;
    host::Id b_ = 0;
    host::Id text_ = 0;
};

// Calls made only while the record list is built, inside the undo group.
class ErrorWhileBuildingTheList : public Errors, public ::testing::WithParamInterface<const char*> {};

TEST_P(ErrorWhileBuildingTheList, EndsApplyWithThatErrorAndTheGroupClosed) {
    make_scene();
    open_dialog();
    host().failFunction(GetParam(), 77);
    EXPECT_EQ(dlg().apply_assistant(), 77);
    EXPECT_EQ(dlg().applies, 0);
    ASSERT_EQ(host().undoGroups().size(), 1u);
    EXPECT_TRUE(host().undoGroups()[0].closed);
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 0);
    EXPECT_EQ(prop(a_, Prop::position).value, vec(1, 2, 3));
    expect_nothing_left_behind();
}

INSTANTIATE_TEST_SUITE_P(Calls, ErrorWhileBuildingTheList,
                         ::testing::Values("AEGP_GetCollectionNumItems", "AEGP_GetCollectionItemByIndex",
                                           "AEGP_GetLayerObjectType", "AEGP_GetLayerCurrentTime",
                                           "AEGP_GetLayerStreamValue", "AEGP_GetLayerIndex"));

// Calls of the snapshot before the undo group: the error comes back and nothing is opened.
class ErrorBeforeTheGroup : public Errors, public ::testing::WithParamInterface<const char*> {};

TEST_P(ErrorBeforeTheGroup, EndsApplyWithoutAnUndoGroup) {
    make_scene();
    open_dialog();
    host().failFunction(GetParam(), 78);
    EXPECT_EQ(dlg().apply_assistant(), 78);
    EXPECT_TRUE(host().undoGroups().empty());
    EXPECT_EQ(host().callCount("AEGP_EndUndoGroup"), 0);
    expect_nothing_left_behind();
}

INSTANTIATE_TEST_SUITE_P(Calls, ErrorBeforeTheGroup,
                         ::testing::Values("AEGP_GetActiveItem", "AEGP_GetItemType", "AEGP_GetCompFromItem",
                                           "AEGP_GetNewCollectionFromCompSelection", "AEGP_GetItemDimensions",
                                           "AEGP_IsLayer3D", "AEGP_GetLayerSourceItem", "AEGP_StartUndoGroup"));

TEST_F(Errors, LayoutErrorIsReturnedAndNothingIsWritten) {
    make_scene();
    open_dialog();
    dlg().layout_result = 42;
    EXPECT_EQ(dlg().apply_assistant(), 42);
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 0);
    EXPECT_TRUE(host().undoGroups().at(0).closed);
    expect_nothing_left_behind();
}

TEST_F(Errors, WriteErrorsAreIgnoredAndEveryPropertyIsStillTried) {
    make_scene();
    open_dialog();
    host().failFunction("AEGP_SetStreamValue", 9);
    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    // Three layers, each with three rotations, orientation, position and scale.
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 18);
    EXPECT_EQ(host().callCount("AEGP_GetNewLayerStream"), 18);
    EXPECT_EQ(host().callCount("AEGP_DisposeStream"), 18);
    expect_nothing_left_behind();
}

TEST_F(Errors, UnopenableStreamsAreHandedOnNullAndNotDisposed) {
    make_scene();
    open_dialog();
    host().failFunction("AEGP_GetNewLayerStream", 9);
    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 18);
    EXPECT_EQ(host().callCount("AEGP_DisposeStream"), 0);
    expect_nothing_left_behind();
}

TEST_F(Errors, AMissingSuitePassesUpAndStillClosesTheGroup) {
    make_scene();
    open_dialog();
    host().withholdSuite(kAEGPStreamSuite, kAEGPStreamSuiteVersion4);
    try {
        dlg().apply_assistant();
        ADD_FAILURE() << "no missing-suite error came up";
    } catch (int err) {
        EXPECT_EQ(err, A_Err_BAD_CALLBACK_PARAM);
    }
    ASSERT_EQ(host().undoGroups().size(), 1u);
    EXPECT_TRUE(host().undoGroups()[0].closed);
    expect_nothing_left_behind();
}

TEST_F(Errors, AFullApplyReleasesEverySuiteAndLeavesOnlyTheHeldCollection) {
    make_scene();
    open_dialog();
    set_check(kAssistantRepeatLayersId, true);
    press_apply();
    EXPECT_EQ(comp().layers.size(), 6u);
    expect_nothing_left_behind();
    EXPECT_EQ(host().openCollections(), 1u);
    close_dialog();
    EXPECT_EQ(host().openCollections(), 0u);
}

// Every host call of a full "Apply" (with copies on the command path) made to fail in turn:
// whatever fails, the group is balanced and nothing leaks.
TEST_F(Errors, FailingAnyOneCallLeavesTheHostClean) {
    auto run = [this](long fail_at) {
        stop_host();
        start_host();
        host().withholdSuite(kAEGPLayerSuite, kAEGPLayerSuiteVersion10);
        make_scene();
        open_dialog();
        set_check(kAssistantRepeatLayersId, true);
        set_check(kAssistantRepeatSequentiallyId, true);
        host().resetCallCounts();
        if (fail_at > 0) {
            host().failNthCall(fail_at, 55);
        }
        A_Err err = A_Err_NONE;
        try {
            err = dlg().apply_assistant();
        } catch (int thrown) {
            err = thrown;  // a refused acquire is a missing suite
        }
        const long calls = host().totalCalls();
        const std::vector<std::string> failed = host().failedCalls();
        const std::string what = failed.empty() ? "" : failed.back();
        EXPECT_TRUE(err == A_Err_NONE || err == 55 || (what == "AcquireSuite" && err == A_Err_BAD_CALLBACK_PARAM))
            << what << " gave " << err;
        // A failed release, disposal or group end is the host's refusal, not a leak of ours.
        if (what != "ReleaseSuite" && what != "AEGP_DisposeStream" && what != "AEGP_DisposeCollection" &&
            what != "AEGP_EndUndoGroup") {
            expect_nothing_left_behind();
        }
        return calls;
    };
    const long total = run(0);
    ASSERT_GT(total, 100);
    for (long n = 1; n <= total; ++n) {
        SCOPED_TRACE("failing call " + std::to_string(n));
        run(n);
        if (HasFailure()) {
            break;
        }
    }
}

}  // namespace
