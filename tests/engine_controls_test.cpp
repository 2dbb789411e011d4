// The assistant's dialog side: title, the repeat controls following "Repeat Layers", the text
// layer option following the selection and the host, options of missing controls, and the
// release of the held selection.
#include "engine_fixture.h"

namespace {

class Controls : public EngineTest {};

TEST_F(Controls, RepeatControlsFollowRepeatLayersAlsoAfterTheDialogIsEnabled) {
    const host::Id card = add_av("Card", 100, 100);
    select({card});
    open_dialog();
    refresh();
    EXPECT_TRUE(enabled(kAssistantReverseOrderId));
    EXPECT_FALSE(enabled(kAssistantRepeatCountId));
    EXPECT_FALSE(enabled(kAssistantRepeatSequentiallyId));
    set_check(kAssistantRepeatLayersId, true);
    EXPECT_TRUE(enabled(kAssistantRepeatCountId));
    EXPECT_TRUE(enabled(kAssistantRepeatSequentiallyId));
    set_check(kAssistantRepeatLayersId, false);
    EXPECT_FALSE(enabled(kAssistantRepeatSequentiallyId));

    select({});
    refresh();
    EXPECT_EQ(platform::click(control(kAssistantApplyId)).refused, platform::kDriverControlDisabled);
    select({card});
    refresh();  // every control back on, then the rule takes the two away again
    EXPECT_TRUE(enabled(kAssistantApplyId));
    EXPECT_FALSE(enabled(kAssistantRepeatCountId));
}

TEST_F(Controls, CropTextOptionNeedsA3DLayerWithASourceAndLayerSuite8) {
    const host::Id footage = add_av("Card", 800, 600);
    const host::Id text = add_layer(AEGP_ObjectType_TEXT);
    open_dialog();
    select({footage, text});
    refresh();
    EXPECT_TRUE(enabled(kAssistantCropTextLayersId));
    set_check(kAssistantCropTextLayersId, true);
    select({text});
    refresh();
    EXPECT_FALSE(enabled(kAssistantCropTextLayersId));

    // Without the suite the option stays disabled but its checked state still counts.
    host().withholdSuite(kAEGPLayerSuite, kAEGPLayerSuiteVersion8);
    select({footage, text});
    refresh();
    EXPECT_FALSE(enabled(kAssistantCropTextLayersId));
    EXPECT_TRUE(host().allSuitesReleased());
    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    EXPECT_EQ(dlg().layers.back().dims.x, 800);
}

TEST_F(Controls, OptionsOfMissingControlsCountAsOff) {
    const host::Id card = add_av("Card", 100, 100);
    select({card});
    open_dialog({kAssistantReverseOrderId, kAssistantRandomOrderId, kAssistantUseCompCenterId, kAssistantRepeatLayersId,
                 kAssistantRepeatSequentiallyId, kAssistantKeyPositionId, kAssistantKeyOrientationId,
                 kAssistantKeyScaleId, kAssistantCropTextLayersId});
    EXPECT_FALSE(dlg().is_reverse_order() || dlg().is_random_order() || dlg().is_repeat_seq());
    EXPECT_FALSE(dlg().is_key_pos() || dlg().is_key_orient() || dlg().is_key_scale());
    EXPECT_TRUE(dlg().is_text_layer_use_comp_size());
    EXPECT_TRUE(platform::typeText(control(kAssistantRepeatCountId), "3").ok());
    press_apply();
    EXPECT_EQ(dlg().layout_input.size(), 1u);
    EXPECT_EQ(position(card), vec(0, 0, 500));
    EXPECT_EQ(host().callCount("AEGP_InsertKeyframe"), 0);
}

TEST_F(Controls, DestroyReleasesTheHeldSelectionOnceAndClosingKeepsTheObject) {
    select({add_av("Card", 100, 100)});
    open_dialog();
    refresh();
    ASSERT_EQ(host().openCollections(), 1u);
    dlg().Destroy();
    EXPECT_EQ(host().openCollections(), 0u);
    dlg().Destroy();
    EXPECT_EQ(host().callCount("AEGP_DisposeCollection"), 1);

    refresh();
    platform::closeWindow(window());
    EXPECT_EQ(dlg().destroys, 3);
    EXPECT_EQ(dlg().dialog, nullptr);
    EXPECT_EQ(host().openCollections(), 0u);
}

}  // namespace
