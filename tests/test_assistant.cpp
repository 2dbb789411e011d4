#include "test_assistant.h"

#include "shell/global_suites.h"

TestAssistant::TestAssistant(int plugin_id, std::set<ADMInt32> missing)
    : AssistantDlg(plugin_id), missing_(std::move(missing)) {}

ASErr TestAssistant::Init() {
    const ASErr err = AssistantDlg::Init();
    const IASRect size{0, 0, 260, 300};
    SetLocalRect(size);
    build_controls();
    return init_result != 0 ? init_result : err;
}

void TestAssistant::add_box(ADMInt32 id, const char* label, short top, int value) {
    if (missing_.count(id) == 0) {
        add_checkbox(IASRect{top, 10, 16, 130}, label, id, value);
    }
}

void TestAssistant::build_controls() {
    add_box(kAssistantReverseOrderId, "Reverse Layer Order", 10, 0);
    add_box(kAssistantRandomOrderId, "Random Order", 30, 0);
    add_box(kAssistantUseCompCenterId, "Use Comp Center", 50, 0);
    add_box(kAssistantRepeatLayersId, "Repeat Layers", 70, 0);
    if (missing_.count(kAssistantRepeatCountId) == 0) {
        add_edit(IASRect{70, 150, 16, 60}, kAssistantRepeatCountId, 1.0f, 10000.0f, 1.0f);
    }
    add_box(kAssistantRepeatSequentiallyId, "Repeat Sequentially", 90, 0);
    add_box(kAssistantKeyPositionId, "Position", 110, 1);
    add_box(kAssistantKeyOrientationId, "Orientation", 130, 1);
    add_box(kAssistantKeyScaleId, "Scale", 150, 1);
    add_box(kAssistantCropTextLayersId, "Crop Text Layers To Size Of Other 3D Layers", 170, 0);
    if (missing_.count(kAssistantApplyId) == 0) {
        add_ctrl(kADMTextPushButtonType, IASRect{220, 200, 20, 80}, "Apply", kAssistantApplyId);
    }
    if (missing_.count(kTestAssistantOkId) == 0) {
        add_ctrl(kADMTextPushButtonType, IASRect{220, 100, 20, 80}, "OK", kTestAssistantOkId);
    }
}

void TestAssistant::Notify(IADMNotifier notifier) {
    ++notifies;
    AssistantDlg::Notify(notifier);
}

void TestAssistant::Destroy() {
    ++destroys;
    AssistantDlg::Destroy();
}

A_Err TestAssistant::get_layers_pos() {
    ++applies;
    if (repeats) {
        constrain_layers();
    }
    layout_input.clear();
    layout_clones.clear();
    A_long k = 0;
    for (LayerInfo& record : layers) {
        layout_input.push_back(record.index);
        layout_clones.push_back(record.clone);
        record.position.val.three_d = AEGP_ThreeDVal{100.0 * k, 0.0, 500.0};
        ++k;
    }
    if (after_layout) {
        after_layout(layers);
    }
    return layout_result;
}

std::string TestAssistant::get_name() const { return kTestAssistantName; }

bool TestAssistant::is_orient_changed() { return turns_layers; }

A_Err TestAssistant::build_records() {
    A_Err err = save_selection();
    if (err != A_Err_NONE || held_collection() == nullptr) {
        return err;
    }
    AEGP_SuiteHandler suites(sSPBasic);
    A_u_long count = 0;
    err = suites.CollectionSuite1()->AEGP_GetCollectionNumItems(collection, &count);
    if (err != A_Err_NONE) {
        return err;
    }
    return build_layer_list(suites, count);
}
