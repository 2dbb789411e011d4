// "AEGP Collection Suite" 1: collections of layers, owned by the caller until disposed.
#include "host/host_state.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

A_Err newCollection(AEGP_PluginID, AEGP_CollectionH* collection) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_NewCollection", err);
    if (s == nullptr) {
        return err;
    }
    if (collection == nullptr) {
        return A_Err_PARAMETER;
    }
    const Id id = newId();
    s->collections[id];
    *collection = makeHandle<AEGP_CollectionH>(id, Tag::collection);
    return A_Err_NONE;
}

A_Err disposeCollection(AEGP_CollectionH collection) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_DisposeCollection", err);
    if (s == nullptr) {
        return err;
    }
    return s->collections.erase(handleId(collection, Tag::collection)) != 0 ? A_Err_NONE : A_Err_PARAMETER;
}

A_Err getCollectionNumItems(AEGP_CollectionH collection, A_u_long* num_items) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetCollectionNumItems", err);
    if (s == nullptr) {
        return err;
    }
    auto* items = collectionOf(*s, collection);
    if (items == nullptr || num_items == nullptr) {
        return A_Err_PARAMETER;
    }
    *num_items = static_cast<A_u_long>(items->size());
    return A_Err_NONE;
}

A_Err getCollectionItemByIndex(AEGP_CollectionH collection, A_u_long index, AEGP_CollectionItemV1* item) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetCollectionItemByIndex", err);
    if (s == nullptr) {
        return err;
    }
    auto* items = collectionOf(*s, collection);
    if (items == nullptr || item == nullptr || index >= items->size()) {
        return A_Err_PARAMETER;
    }
    *item = (*items)[index];
    return A_Err_NONE;
}

A_Err collectionPushBack(AEGP_CollectionH collection, const AEGP_CollectionItemV1* item) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_CollectionPushBack", err);
    if (s == nullptr) {
        return err;
    }
    auto* items = collectionOf(*s, collection);
    // Layers are the only items this host collects.
    if (items == nullptr || item == nullptr || item->type != AEGP_CollectionItemType_LAYER ||
        placeOf(*s, item->u.layer.layerH).comp == nullptr) {
        return A_Err_PARAMETER;
    }
    items->push_back(*item);
    return A_Err_NONE;
}

const AEGP_CollectionSuite1 kSuite{newCollection, disposeCollection, getCollectionNumItems, getCollectionItemByIndex,
                                   collectionPushBack};

}  // namespace

const AEGP_CollectionSuite1* collectionSuite1() { return &kSuite; }

}  // namespace host::detail
