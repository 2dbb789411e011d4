// The snapshot of the host's state: active composition, its size, the selected layers and the
// largest source among them, and the selection tests built on it.
#include "common/adobe/AssistantDlg.h"

#include "controls/placement_rules.h"
#include "shell/global_suites.h"

namespace {

// The active item's composition, or null when the active item is none or not a composition.
A_Err active_comp(AEGP_SuiteHandler& suites, AEGP_ItemH* item, AEGP_CompH* comp) {
    A_Err err = suites.ItemSuite3()->AEGP_GetActiveItem(item);
    if (err != A_Err_NONE || *item == nullptr) {
        return err;
    }
    AEGP_ItemType type = AEGP_ItemType_NONE;
    err = suites.ItemSuite3()->AEGP_GetItemType(*item, &type);
    if (err != A_Err_NONE || type != AEGP_ItemType_COMP) {
        return err;
    }
    return suites.CompSuite4()->AEGP_GetCompFromItem(*item, comp);
}

}  // namespace

A_Err AssistantDlg::save_selection() {
    AEGP_SuiteHandler suites(sSPBasic);
    if (collection != nullptr) {
        suites.CollectionSuite1()->AEGP_DisposeCollection(collection);
        collection = nullptr;
    }
    AEGP_ItemH item = nullptr;
    A_Err err = suites.ItemSuite3()->AEGP_GetActiveItem(&item);
    if (err != A_Err_NONE || item == nullptr) {
        return err;
    }
    AEGP_ItemType type = AEGP_ItemType_NONE;
    err = suites.ItemSuite3()->AEGP_GetItemType(item, &type);
    if (err != A_Err_NONE || type != AEGP_ItemType_COMP) {
        return err;
    }
    err = suites.CompSuite4()->AEGP_GetCompFromItem(item, &comp);
    if (err != A_Err_NONE || comp == nullptr) {
        return err;
    }
    err = suites.CompSuite4()->AEGP_GetNewCollectionFromCompSelection(plugin_id, comp, &collection);
    if (err != A_Err_NONE) {
        return err;
    }
    // A failed size read is remembered but does not stop the search for the largest source.
    const A_Err size_err = suites.ItemSuite3()->AEGP_GetItemDimensions(item, &comp_width, &comp_height);

    max_width = 0;
    max_height = 0;
    std::set<AEGP_LayerH> selected;
    if (!snap_selection(&selected)) {
        return size_err;
    }
    for (AEGP_LayerH layer : selected) {
        A_Boolean is_3d = 0;
        err = suites.LayerSuite5()->AEGP_IsLayer3D(layer, &is_3d);
        if (err != A_Err_NONE) {
            return err;
        }
        if (!is_3d) {
            continue;
        }
        AEGP_ItemH source = nullptr;
        err = suites.LayerSuite5()->AEGP_GetLayerSourceItem(layer, &source);
        if (err != A_Err_NONE) {
            return err;
        }
        if (source == nullptr) {
            continue;
        }
        A_long width = 0;
        A_long height = 0;
        err = suites.ItemSuite3()->AEGP_GetItemDimensions(source, &width, &height);
        if (err != A_Err_NONE) {
            return err;
        }
        if (controls::hasLargerArea({width, height}, {max_width, max_height})) {
            max_width = width;
            max_height = height;
        }
    }
    return size_err;
}

bool AssistantDlg::snap_selection(std::set<AEGP_LayerH>* out) {
    if (collection == nullptr || out == nullptr) {
        return false;
    }
    out->clear();
    AEGP_SuiteHandler suites(sSPBasic);
    A_u_long count = 0;
    if (suites.CollectionSuite1()->AEGP_GetCollectionNumItems(collection, &count) != A_Err_NONE) {
        return false;
    }
    for (A_u_long i = 0; i < count; ++i) {
        AEGP_CollectionItemV1 item{};
        if (suites.CollectionSuite1()->AEGP_GetCollectionItemByIndex(collection, i, &item) != A_Err_NONE) {
            return false;
        }
        if (item.type == AEGP_CollectionItemType_LAYER) {
            out->insert(item.u.layer.layerH);
        }
    }
    return true;
}

bool AssistantDlg::snap_comp(std::set<AEGP_LayerH>* out) {
    if (out == nullptr) {
        return false;
    }
    out->clear();
    AEGP_SuiteHandler suites(sSPBasic);
    // Looked up afresh: a command may have changed the composition since the last snapshot.
    AEGP_ItemH item = nullptr;
    AEGP_CompH active = nullptr;
    if (active_comp(suites, &item, &active) != A_Err_NONE || active == nullptr) {
        return false;
    }
    A_long count = 0;
    if (suites.LayerSuite5()->AEGP_GetCompNumLayers(active, &count) != A_Err_NONE || count == 0) {
        return false;
    }
    for (A_long i = 0; i < count; ++i) {
        AEGP_LayerH layer = nullptr;
        if (suites.LayerSuite5()->AEGP_GetCompLayerByIndex(active, i, &layer) != A_Err_NONE || layer == nullptr) {
            return false;
        }
        out->insert(layer);
    }
    return true;
}

namespace {

// Lights and cameras count whatever their 3D flag; the other kinds only as 3D layers.
bool matches(unsigned int mask, AEGP_ObjectType type, bool is_3d) {
    if (type < 0 || type >= 32 || (mask & (1u << type)) == 0) {
        return false;
    }
    return type == AEGP_ObjectType_LIGHT || type == AEGP_ObjectType_CAMERA || is_3d;
}

}  // namespace

bool AssistantDlg::isCurSelectionContains(unsigned int mask) {
    if (save_selection() != A_Err_NONE) {
        return false;
    }
    std::set<AEGP_LayerH> selected;
    if (!snap_selection(&selected)) {
        return false;
    }
    AEGP_SuiteHandler suites(sSPBasic);
    for (AEGP_LayerH layer : selected) {
        AEGP_ObjectType type = AEGP_ObjectType_NONE;
        A_Boolean is_3d = 0;
        if (suites.LayerSuite5()->AEGP_GetLayerObjectType(layer, &type) != A_Err_NONE ||
            suites.LayerSuite5()->AEGP_IsLayer3D(layer, &is_3d) != A_Err_NONE) {
            continue;
        }
        if (matches(mask, type, is_3d != 0)) {
            return true;
        }
    }
    return false;
}
