// The record list of "Apply": built from the selection in selection order, then sorted by layer
// index, reversed or shuffled as the dialog asks.
#include "common/adobe/AssistantDlg.h"

#include "math/random.h"

#include <cstdint>
#include <vector>

namespace {

bool is_arrangeable_type(AEGP_ObjectType type) {
    return type == AEGP_ObjectType_AV || type == AEGP_ObjectType_TEXT || type == AEGP_ObjectType_VECTOR;
}

}  // namespace

A_Err AssistantDlg::build_layer_list(AEGP_SuiteHandler& suites, A_u_long item_count) {
    layers.clear();
    for (A_u_long i = 0; i < item_count; ++i) {
        AEGP_CollectionItemV1 item{};
        A_Err err = suites.CollectionSuite1()->AEGP_GetCollectionItemByIndex(collection, i, &item);
        if (err != A_Err_NONE) {
            return err;
        }
        if (item.type != AEGP_CollectionItemType_LAYER) {
            continue;
        }
        const AEGP_LayerH layer = item.u.layer.layerH;
        AEGP_ObjectType type = AEGP_ObjectType_NONE;
        err = suites.LayerSuite5()->AEGP_GetLayerObjectType(layer, &type);
        if (err != A_Err_NONE) {
            return err;
        }
        if (!is_arrangeable_type(type)) {
            continue;
        }
        A_Boolean is_3d = 0;
        err = suites.LayerSuite5()->AEGP_IsLayer3D(layer, &is_3d);
        if (err != A_Err_NONE) {
            return err;
        }
        if (!is_3d) {
            continue;
        }
        LayerInfo record{};
        err = collect_info(layer, &record);
        if (err != A_Err_NONE) {
            return err;
        }
        layers.push_back(record);
    }
    return A_Err_NONE;
}

void AssistantDlg::sort_layers() { layers.sort(); }

void AssistantDlg::reverse_layers() { layers.reverse(); }

void AssistantDlg::shuffle_layers() {
    std::vector<LayerInfo> left;
    left.reserve(layers.size());
    left.assign(layers.begin(), layers.end());
    layers.clear();
    while (!left.empty()) {
        const std::uint32_t k = static_cast<std::uint32_t>(math::LRand()) % static_cast<std::uint32_t>(left.size());
        layers.push_back(left[k]);
        left.erase(left.begin() + k);  // the others keep their order
    }
}

void AssistantDlg::order_layers() {
    sort_layers();
    if (is_reverse_order()) {
        reverse_layers();
    }
    if (is_random_order()) {
        shuffle_layers();
    }
}
