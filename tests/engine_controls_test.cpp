// The assistant's dialog side: title, the repeat controls following "Repeat Layers", the text
// layer option following the selection and the host, and the release of the held selection.
#include "engine_fixture.h"

namespace {

class Controls : public EngineTest {};

TEST_F(Controls, WindowIsTitledWithTheAssistantsName) {
    open_dialog();
    ASSERT_NE(window(), nullptr);
    EXPECT_EQ(platform::windowTitle(window()), kTestAssistantName);
}

TEST_F(Controls, RepeatControlsFollowRepeatLayers) {
    open_dialog();
    set_check(kAssistantRepeatLayersId, true);
    EXPECT_TRUE(enabled(kAssistantRepeatCountId));
    EXPECT_TRUE(enabled(kAssistantRepeatSequentiallyId));
    set_check(kAssistantRepeatLayersId, false);
    EXPECT_FALSE(enabled(kAssistantRepeatCountId));
    EXPECT_FALSE(enabled(kAssistantRepeatSequentiallyId));
}

TEST_F(Controls, EnablingTheDialogRestoresTheRepeatRule) {
    const host::Id card = add_av("Card", 100, 100);
    select({card});
    open_dialog();
    refresh();  // enables everything, then the rules
    EXPECT_TRUE(enabled(kAssistantReverseOrderId));
    EXPECT_FALSE(enabled(kAssistantRepeatCountId));
    EXPECT_FALSE(enabled(kAssistantRepeatSequentiallyId));

    select({});
    refresh();
    EXPECT_FALSE(enabled(kAssistantRepeatLayersId));
    EXPECT_FALSE(enabled(kAssistantApplyId));
    EXPECT_EQ(platform::click(control(kAssistantApplyId)).refused, platform::kDriverControlDisabled);

    // Enabling walks every control on, then the rule takes the two back.
    select({card});
    refresh();
    EXPECT_TRUE(enabled(kAssistantRepeatLayersId));
    EXPECT_FALSE(enabled(kAssistantRepeatCountId));
    EXPECT_FALSE(enabled(kAssistantRepeatSequentiallyId));
}

TEST_F(Controls, CropTextOptionNeedsA3DLayerWithASource) {
    const host::Id footage = add_av("Card", 1920, 1080);
    const host::Id text = add_layer("Title", AEGP_ObjectType_TEXT);
    open_dialog();
    select({footage, text});
    refresh();
    EXPECT_TRUE(enabled(kAssistantCropTextLayersId));
    select({text});
    refresh();
    EXPECT_FALSE(enabled(kAssistantCropTextLayersId));
    EXPECT_TRUE(enabled(kAssistantReverseOrderId));
}

TEST_F(Controls, CropTextOptionStaysDisabledWithoutLayerSuite8ButKeepsItsMeaning) {
    const host::Id footage = add_av("Card", 800, 600);
    const host::Id text = add_layer("Title", AEGP_ObjectType_TEXT);
    comp().width = 1280;
    comp().height = 720;
    open_dialog();
    set_check(kAssistantCropTextLayersId, true);
    host().withholdSuite(kAEGPLayerSuite, kAEGPLayerSuiteVersion8);
    select({footage, text});
    refresh();
    EXPECT_FALSE(enabled(kAssistantCropTextLayersId));
    EXPECT_TRUE(checked(kAssistantCropTextLayersId));
    EXPECT_TRUE(host().allSuitesReleased());

    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    ASSERT_EQ(dlg().records().size(), 2u);
    EXPECT_EQ(dlg().records().back().dims.x, 800);
    EXPECT_EQ(dlg().records().back().dims.y, 600);
}

TEST_F(Controls, DestroyReleasesTheHeldSelectionOnce) {
    select({add_av("Card", 100, 100)});
    open_dialog();
    refresh();
    ASSERT_EQ(host().openCollections(), 1u);
    dlg().Destroy();
    EXPECT_EQ(host().openCollections(), 0u);
    EXPECT_EQ(dlg().held_collection(), nullptr);
    const int disposals = host().callCount("AEGP_DisposeCollection");
    dlg().Destroy();
    EXPECT_EQ(host().callCount("AEGP_DisposeCollection"), disposals);
}

TEST_F(Controls, ClosingTheWindowReleasesTheSelectionAndKeepsTheObject) {
    select({add_av("Card", 100, 100)});
    open_dialog();
    refresh();
    platform::closeWindow(window());
    EXPECT_EQ(dlg().destroys, 1);
    EXPECT_EQ(dlg().dialog, nullptr);
    EXPECT_EQ(host().openCollections(), 0u);
}

TEST_F(Controls, OptionsOfMissingControlsCountAsOff) {
    const host::Id card = add_av("Card", 100, 100);
    select({card});
    open_dialog({kAssistantReverseOrderId, kAssistantRandomOrderId, kAssistantUseCompCenterId,
                 kAssistantRepeatLayersId, kAssistantRepeatCountId, kAssistantRepeatSequentiallyId,
                 kAssistantKeyPositionId, kAssistantKeyOrientationId, kAssistantKeyScaleId,
                 kAssistantCropTextLayersId});
    EXPECT_FALSE(dlg().is_reverse_order());
    EXPECT_FALSE(dlg().is_random_order());
    EXPECT_FALSE(dlg().is_repeat_seq());
    EXPECT_FALSE(dlg().is_key_pos());
    EXPECT_FALSE(dlg().is_key_orient());
    EXPECT_FALSE(dlg().is_key_scale());
    EXPECT_TRUE(dlg().is_text_layer_use_comp_size());
    press_apply();
    EXPECT_EQ(dlg().layout_input.size(), 1u);
    EXPECT_EQ(prop(card, host::Prop::position).value, vec(0, 0, 500));
    EXPECT_EQ(host().callCount("AEGP_InsertKeyframe"), 0);
}

TEST_F(Controls, RepeatCountWithoutRepeatLayersBoxPlansNothing) {
    select({add_av("Card", 100, 100)});
    open_dialog({kAssistantRepeatLayersId});
    type(kAssistantRepeatCountId, "3");
    press_apply();
    EXPECT_EQ(dlg().layout_input.size(), 1u);
}

}  // namespace
