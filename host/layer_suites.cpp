// "AEGP Layer Suite" 5, 8 and 10: layer order and attributes, and duplicating layers.
// Indices in this suite are 0-based.
#include "host/suite_call.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

bool inRange(A_long index, std::size_t size) { return index >= 0 && static_cast<std::size_t>(index) < size; }

A_Err getCompNumLayers(AEGP_CompH comp, A_long* num_layers) {
    return onComp("AEGP_GetCompNumLayers", comp, given(num_layers), [&](State&, Comp& c) {
        *num_layers = static_cast<A_long>(c.layers.size());
        return A_Err_NONE;
    });
}

A_Err getCompLayerByIndex(AEGP_CompH comp, A_long layer_index, AEGP_LayerH* layer) {
    return onComp("AEGP_GetCompLayerByIndex", comp, given(layer), [&](State&, Comp& c) {
        if (!inRange(layer_index, c.layers.size())) {
            return A_Err_PARAMETER;
        }
        *layer = makeHandle<AEGP_LayerH>(c.layers[static_cast<std::size_t>(layer_index)].id, Tag::layer);
        return A_Err_NONE;
    });
}

A_Err getLayerIndex(AEGP_LayerH layer, A_long* layer_index) {
    return onLayer("AEGP_GetLayerIndex", layer, given(layer_index), [&](State&, const LayerPlace& place) {
        *layer_index = static_cast<A_long>(place.index);
        return A_Err_NONE;
    });
}

A_Err getLayerSourceItem(AEGP_LayerH layer, AEGP_ItemH* source_item) {
    return onLayer("AEGP_GetLayerSourceItem", layer, given(source_item), [&](State& s, const LayerPlace& place) {
        const Id source = place.layer()->source;
        *source_item = s.project.isItem(source) ? makeHandle<AEGP_ItemH>(source, Tag::item) : nullptr;
        return A_Err_NONE;
    });
}

A_Err getLayerCurrentTime(AEGP_LayerH layer, AEGP_LTimeMode time_mode, A_Time* time) {
    const bool valid = given(time) && (time_mode == AEGP_LTimeMode_LayerTime || time_mode == AEGP_LTimeMode_CompTime);
    return onLayer("AEGP_GetLayerCurrentTime", layer, valid, [&](State&, const LayerPlace& place) {
        // Layers start with their composition, so layer time and composition time agree.
        *time = place.comp->time;
        return A_Err_NONE;
    });
}

A_Err getLayerObjectType(AEGP_LayerH layer, AEGP_ObjectType* object_type) {
    return onLayer("AEGP_GetLayerObjectType", layer, given(object_type), [&](State&, const LayerPlace& place) {
        *object_type = place.layer()->type;
        return A_Err_NONE;
    });
}

A_Err isLayer3D(AEGP_LayerH layer, A_Boolean* is_3d) {
    return onLayer("AEGP_IsLayer3D", layer, given(is_3d), [&](State&, const LayerPlace& place) {
        *is_3d = place.layer()->three_d ? 1 : 0;
        return A_Err_NONE;
    });
}

A_Err reorderLayer(AEGP_LayerH layer, A_long new_index) {
    return onLayer("AEGP_ReorderLayer", layer, true, [&](State&, const LayerPlace& place) {
        auto& layers = place.comp->layers;
        if (!inRange(new_index, layers.size())) {
            return A_Err_PARAMETER;
        }
        Layer moved = std::move(layers[place.index]);
        layers.erase(layers.begin() + static_cast<std::ptrdiff_t>(place.index));
        layers.insert(layers.begin() + new_index, std::move(moved));
        return A_Err_NONE;
    });
}

A_Err duplicateLayer(AEGP_LayerH orig_layer, AEGP_LayerH* duplicate_layer) {
    return onLayer("AEGP_DuplicateLayer", orig_layer, given(duplicate_layer), [&](State& s, const LayerPlace& place) {
        *duplicate_layer = makeHandle<AEGP_LayerH>(s.project.duplicate(place.layer()->id), Tag::layer);
        return A_Err_NONE;
    });
}

#define ORBISETT_HOST_LAYER_COMMON                                                                                     \
    getCompNumLayers, getCompLayerByIndex, getLayerIndex, getLayerSourceItem, getLayerCurrentTime, getLayerObjectType, \
        isLayer3D, reorderLayer

const AEGP_LayerSuite5 kSuite5{ORBISETT_HOST_LAYER_COMMON};
const AEGP_LayerSuite8 kSuite8{ORBISETT_HOST_LAYER_COMMON};
const AEGP_LayerSuite10 kSuite10{ORBISETT_HOST_LAYER_COMMON, duplicateLayer};

#undef ORBISETT_HOST_LAYER_COMMON

const ServedSuite kServed[] = {{kAEGPLayerSuite, kAEGPLayerSuiteVersion5, &kSuite5},
                               {kAEGPLayerSuite, kAEGPLayerSuiteVersion8, &kSuite8},
                               {kAEGPLayerSuite, kAEGPLayerSuiteVersion10, &kSuite10}};

}  // namespace

std::span<const ServedSuite> layerSuites() { return kServed; }

}  // namespace host::detail
