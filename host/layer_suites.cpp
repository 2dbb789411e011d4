// "AEGP Layer Suite" 5, 8 and 10: layer order and attributes, and duplicating layers.
// Indices in this suite are 0-based.
#include "host/host_state.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

A_Err getCompNumLayers(AEGP_CompH comp, A_long* num_layers) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetCompNumLayers", err);
    if (s == nullptr) {
        return err;
    }
    Comp* c = compOf(*s, comp);
    if (c == nullptr || num_layers == nullptr) {
        return A_Err_PARAMETER;
    }
    *num_layers = static_cast<A_long>(c->layers.size());
    return A_Err_NONE;
}

A_Err getCompLayerByIndex(AEGP_CompH comp, A_long layer_index, AEGP_LayerH* layer) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetCompLayerByIndex", err);
    if (s == nullptr) {
        return err;
    }
    Comp* c = compOf(*s, comp);
    if (c == nullptr || layer == nullptr || layer_index < 0 ||
        static_cast<std::size_t>(layer_index) >= c->layers.size()) {
        return A_Err_PARAMETER;
    }
    *layer = makeHandle<AEGP_LayerH>(c->layers[static_cast<std::size_t>(layer_index)].id, Tag::layer);
    return A_Err_NONE;
}

A_Err getLayerIndex(AEGP_LayerH layer, A_long* layer_index) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetLayerIndex", err);
    if (s == nullptr) {
        return err;
    }
    const LayerPlace place = placeOf(*s, layer);
    if (place.comp == nullptr || layer_index == nullptr) {
        return A_Err_PARAMETER;
    }
    *layer_index = static_cast<A_long>(place.index);
    return A_Err_NONE;
}

A_Err getLayerSourceItem(AEGP_LayerH layer, AEGP_ItemH* source_item) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetLayerSourceItem", err);
    if (s == nullptr) {
        return err;
    }
    const LayerPlace place = placeOf(*s, layer);
    if (place.comp == nullptr || source_item == nullptr) {
        return A_Err_PARAMETER;
    }
    const Id source = place.layer()->source;
    *source_item = s->project.isItem(source) ? makeHandle<AEGP_ItemH>(source, Tag::item) : nullptr;
    return A_Err_NONE;
}

A_Err getLayerCurrentTime(AEGP_LayerH layer, AEGP_LTimeMode time_mode, A_Time* time) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetLayerCurrentTime", err);
    if (s == nullptr) {
        return err;
    }
    const LayerPlace place = placeOf(*s, layer);
    if (place.comp == nullptr || time == nullptr ||
        (time_mode != AEGP_LTimeMode_LayerTime && time_mode != AEGP_LTimeMode_CompTime)) {
        return A_Err_PARAMETER;
    }
    // Layers start with their composition, so layer time and composition time agree.
    *time = place.comp->time;
    return A_Err_NONE;
}

A_Err getLayerObjectType(AEGP_LayerH layer, AEGP_ObjectType* object_type) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetLayerObjectType", err);
    if (s == nullptr) {
        return err;
    }
    const LayerPlace place = placeOf(*s, layer);
    if (place.comp == nullptr || object_type == nullptr) {
        return A_Err_PARAMETER;
    }
    *object_type = place.layer()->type;
    return A_Err_NONE;
}

A_Err isLayer3D(AEGP_LayerH layer, A_Boolean* is_3d) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_IsLayer3D", err);
    if (s == nullptr) {
        return err;
    }
    const LayerPlace place = placeOf(*s, layer);
    if (place.comp == nullptr || is_3d == nullptr) {
        return A_Err_PARAMETER;
    }
    *is_3d = place.layer()->three_d ? 1 : 0;
    return A_Err_NONE;
}

A_Err reorderLayer(AEGP_LayerH layer, A_long new_index) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_ReorderLayer", err);
    if (s == nullptr) {
        return err;
    }
    const LayerPlace place = placeOf(*s, layer);
    if (place.comp == nullptr || new_index < 0 || static_cast<std::size_t>(new_index) >= place.comp->layers.size()) {
        return A_Err_PARAMETER;
    }
    auto& layers = place.comp->layers;
    Layer moved = std::move(layers[place.index]);
    layers.erase(layers.begin() + static_cast<std::ptrdiff_t>(place.index));
    layers.insert(layers.begin() + new_index, std::move(moved));
    return A_Err_NONE;
}

A_Err duplicateLayer(AEGP_LayerH orig_layer, AEGP_LayerH* duplicate_layer) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_DuplicateLayer", err);
    if (s == nullptr) {
        return err;
    }
    const LayerPlace place = placeOf(*s, orig_layer);
    if (place.comp == nullptr || duplicate_layer == nullptr) {
        return A_Err_PARAMETER;
    }
    *duplicate_layer = makeHandle<AEGP_LayerH>(s->project.duplicate(place.layer()->id), Tag::layer);
    return A_Err_NONE;
}

#define ORBISETT_HOST_LAYER_COMMON                                                                                     \
    getCompNumLayers, getCompLayerByIndex, getLayerIndex, getLayerSourceItem, getLayerCurrentTime, getLayerObjectType, \
        isLayer3D, reorderLayer

const AEGP_LayerSuite5 kSuite5{ORBISETT_HOST_LAYER_COMMON};
const AEGP_LayerSuite8 kSuite8{ORBISETT_HOST_LAYER_COMMON};
const AEGP_LayerSuite10 kSuite10{ORBISETT_HOST_LAYER_COMMON, duplicateLayer};

#undef ORBISETT_HOST_LAYER_COMMON

}  // namespace

const AEGP_LayerSuite5* layerSuite5() { return &kSuite5; }
const AEGP_LayerSuite8* layerSuite8() { return &kSuite8; }
const AEGP_LayerSuite10* layerSuite10() { return &kSuite10; }

}  // namespace host::detail
