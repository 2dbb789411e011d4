// "Repeat Layers": planned copies appended to the record list, and the copies made in the host,
// by the layer duplication call where the host has it and by its duplicate command otherwise.
#include "common/adobe/AssistantDlg.h"

#include "common/adobe/on_exit.h"
#include "shell/global_suites.h"

#include <algorithm>
#include <iterator>

void AssistantDlg::constrain_layers() {
    ADMItemRef repeat = get_item(kAssistantRepeatLayersId);
    ADMItemRef count = get_item(kAssistantRepeatCountId);
    if (repeat == nullptr || count == nullptr || sADMItem->GetBooleanValue(repeat) == 0) {
        return;
    }
    // Every run repeats the first run's order, random or not.
    std::list<LayerInfo> run(layers);
    for (LayerInfo& record : run) {
        record.clone = true;
    }
    const ADMInt32 runs = sADMItem->GetIntValue(count);
    for (ADMInt32 i = 0; i < runs; ++i) {
        layers.insert(layers.end(), run.begin(), run.end());
    }
}

bool AssistantDlg::clone_attr(std::list<LayerInfo>::iterator record) {
    record->layer = clone(record->layer);
    return record->layer != nullptr;
}

AEGP_LayerH AssistantDlg::clone(AEGP_LayerH layer) {
    try {
        AEGP_SuiteHandler suites(sSPBasic);
        AEGP_LayerH copy = nullptr;
        if (suites.LayerSuite10()->AEGP_DuplicateLayer(layer, &copy) != A_Err_NONE) {
            return nullptr;
        }
        return copy;
    } catch (...) {
        // Older hosts lack the duplication call: fall back to their duplicate command.
    }
    return clonePre65(layer);
}

namespace {

struct CommandCopies {
    std::set<AEGP_LayerH> added;  // layers that were not there before the command
    A_long layer_count = 0;       // layers of the composition after the command
};

}  // namespace

AEGP_LayerH AssistantDlg::clonePre65(AEGP_LayerH layer) {
    AEGP_SuiteHandler suites(sSPBasic);
    AEGP_CollectionH one_layer = nullptr;
    if (suites.CollectionSuite1()->AEGP_NewCollection(plugin_id, &one_layer) != A_Err_NONE || one_layer == nullptr) {
        return nullptr;
    }
    CommandCopies copies;
    {
        AEGP_CollectionSuite1* collections = suites.CollectionSuite1();
        OnExit dispose([collections, one_layer] { collections->AEGP_DisposeCollection(one_layer); });

        AEGP_CollectionItemV1 item{};
        item.type = AEGP_CollectionItemType_LAYER;
        item.u.layer.layerH = layer;
        std::set<AEGP_LayerH> before;
        std::set<AEGP_LayerH> after;
        // The command duplicates the selection, so the selection becomes this one layer.
        if (collections->AEGP_CollectionPushBack(one_layer, &item) == A_Err_NONE &&
            suites.CompSuite4()->AEGP_SetSelection(comp, one_layer) == A_Err_NONE && snap_comp(&before) &&
            suites.CommandSuite1()->AEGP_DoCommand(AEGP_Command_DUPLICATE) == A_Err_NONE && snap_comp(&after)) {
            std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                                std::inserter(copies.added, copies.added.end()));
            copies.layer_count = static_cast<A_long>(after.size());
        }
    }
    if (copies.added.empty()) {
        return nullptr;
    }
    AEGP_LayerH copy = *copies.added.begin();
    if (is_repeat_seq()) {
        suites.LayerSuite5()->AEGP_ReorderLayer(copy, copies.layer_count - 1);  // to the bottom
    }
    return copy;
}

void AssistantDlg::enable_repeat_layers() {
    ADMItemRef repeat = get_item(kAssistantRepeatLayersId);
    if (repeat == nullptr) {
        return;
    }
    const bool on = sADMItem->GetBooleanValue(repeat) != 0;
    for (ADMInt32 id : {kAssistantRepeatCountId, kAssistantRepeatSequentiallyId}) {
        ADMItemRef item = get_item(id);
        if (item != nullptr) {
            sADMItem->Enable(item, on);
        }
    }
}
