// "AEGP Collection Suite" 1: collections of layers, owned by the caller until disposed.
#include "host/suite_call.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

using Items = std::vector<AEGP_CollectionItemV1>;

A_Err newCollection(AEGP_PluginID, AEGP_CollectionH* collection) {
    return hostCall("AEGP_NewCollection", given(collection), [&](State& s) {
        const Id id = newId();
        s.collections[id];
        *collection = makeHandle<AEGP_CollectionH>(id, Tag::collection);
        return A_Err_NONE;
    });
}

A_Err disposeCollection(AEGP_CollectionH collection) {
    return hostCall("AEGP_DisposeCollection", [&](State& s) {
        return s.collections.erase(handleId(collection, Tag::collection)) != 0 ? A_Err_NONE : A_Err_PARAMETER;
    });
}

A_Err getCollectionNumItems(AEGP_CollectionH collection, A_u_long* num_items) {
    return onCollection("AEGP_GetCollectionNumItems", collection, given(num_items), [&](State&, Items& items) {
        *num_items = static_cast<A_u_long>(items.size());
        return A_Err_NONE;
    });
}

A_Err getCollectionItemByIndex(AEGP_CollectionH collection, A_u_long index, AEGP_CollectionItemV1* item) {
    return onCollection("AEGP_GetCollectionItemByIndex", collection, given(item), [&](State&, Items& items) {
        if (index >= items.size()) {
            return A_Err_PARAMETER;
        }
        *item = items[index];
        return A_Err_NONE;
    });
}

A_Err collectionPushBack(AEGP_CollectionH collection, const AEGP_CollectionItemV1* item) {
    // Layers are the only items this host collects.
    const bool valid = given(item) && item->type == AEGP_CollectionItemType_LAYER;
    return onCollection("AEGP_CollectionPushBack", collection, valid, [&](State& s, Items& items) {
        if (placeOf(s, item->u.layer.layerH).comp == nullptr) {
            return A_Err_PARAMETER;
        }
        items.push_back(*item);
        return A_Err_NONE;
    });
}

const AEGP_CollectionSuite1 kSuite{newCollection, disposeCollection, getCollectionNumItems, getCollectionItemByIndex,
                                   collectionPushBack};

const ServedSuite kServed[] = {{kAEGPCollectionSuite, kAEGPCollectionSuiteVersion1, &kSuite}};

}  // namespace

std::span<const ServedSuite> collectionSuites() { return kServed; }

}  // namespace host::detail
