#include "test_assistant.h"

#include "shell/global_suites.h"

TestAssistant::TestAssistant(int plugin_id, std::set<ADMInt32> missing)
    : AssistantDlg(plugin_id), missing_(std::move(missing)) {}

ASErr TestAssistant::Init() {
    const ASErr err = AssistantDlg::Init();
    SetLocalRect(IASRect{0, 0, 260, 300});
    struct Box {
        ADMInt32 id;
        const char* label;
        int value;
    };
    const Box boxes[] = {{kAssistantReverseOrderId, "Reverse Layer Order", 0},
                         {kAssistantRandomOrderId, "Random Order", 0},
                         {kAssistantUseCompCenterId, "Use Comp Center", 0},
                         {kAssistantRepeatLayersId, "Repeat Layers", 0},
                         {kAssistantRepeatSequentiallyId, "Repeat Sequentially", 0},
                         {kAssistantKeyPositionId, "Position", 1},
                         {kAssistantKeyOrientationId, "Orientation", 1},
                         {kAssistantKeyScaleId, "Scale", 1},
                         {kAssistantCropTextLayersId, "Crop Text Layers To Size Of Other 3D Layers", 0}};
    short top = 10;
    for (const Box& box : boxes) {
        if (missing_.count(box.id) == 0) {
            add_checkbox(IASRect{top, 10, 16, 130}, box.label, box.id, box.value);
        }
        top += 20;
    }
    if (missing_.count(kAssistantRepeatCountId) == 0) {
        add_edit(IASRect{70, 150, 16, 60}, kAssistantRepeatCountId, 1.0f, 10000.0f, 1.0f);
    }
    add_ctrl(kADMTextPushButtonType, IASRect{220, 200, 20, 80}, "Apply", kAssistantApplyId);
    add_ctrl(kADMTextPushButtonType, IASRect{220, 100, 20, 80}, "OK", kTestAssistantOkId);
    return err;
}

void TestAssistant::Destroy() {
    ++destroys;
    AssistantDlg::Destroy();
}

A_Err TestAssistant::get_layers_pos() {
    ++applies;
    constrain_layers();
    layout_input.clear();
    layout_clones.clear();
    double x = 0;
    for (LayerInfo& record : layers) {
        layout_input.push_back(record.index);
        layout_clones.push_back(record.clone);
        record.position.val.three_d = AEGP_ThreeDVal{x, 0.0, 500.0};
        x += 100;
    }
    if (after_layout) {
        after_layout(layers);
    }
    return layout_result;
}

A_Err TestAssistant::build_records() {
    A_Err err = save_selection();
    A_u_long count = 0;
    AEGP_SuiteHandler suites(sSPBasic);
    if (err == A_Err_NONE && collection != nullptr) {
        err = suites.CollectionSuite1()->AEGP_GetCollectionNumItems(collection, &count);
    }
    return err != A_Err_NONE ? err : build_layer_list(suites, count);
}
