// "AEGP Item Suite" 3 and "AEGP Comp Suite" 4: the active item, item sizes, compositions and
// their selection.
#include "host/host_state.h"
#include "host/suite_tables.h"

#include <unordered_set>

namespace host::detail {

namespace {

Id itemIdOf(State& s, AEGP_ItemH item) {
    const Id id = handleId(item, Tag::item);
    return s.project.isItem(id) ? id : 0;
}

A_Err getActiveItem(AEGP_ItemH* item) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetActiveItem", err);
    if (s == nullptr) {
        return err;
    }
    if (item == nullptr) {
        return A_Err_PARAMETER;
    }
    *item = s->project.isItem(s->project.active) ? makeHandle<AEGP_ItemH>(s->project.active, Tag::item) : nullptr;
    return A_Err_NONE;
}

A_Err getItemType(AEGP_ItemH item, AEGP_ItemType* type) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetItemType", err);
    if (s == nullptr) {
        return err;
    }
    const Id id = itemIdOf(*s, item);
    if (id == 0 || type == nullptr) {
        return A_Err_PARAMETER;
    }
    *type = s->project.comp(id) != nullptr ? AEGP_ItemType_COMP : AEGP_ItemType_FOOTAGE;
    return A_Err_NONE;
}

A_Err getItemDimensions(AEGP_ItemH item, A_long* width, A_long* height) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetItemDimensions", err);
    if (s == nullptr) {
        return err;
    }
    const Id id = itemIdOf(*s, item);
    if (id == 0 || width == nullptr || height == nullptr) {
        return A_Err_PARAMETER;
    }
    if (const Comp* c = s->project.comp(id)) {
        *width = c->width;
        *height = c->height;
    } else {
        const Footage* f = s->project.findFootage(id);
        *width = f->width;
        *height = f->height;
    }
    return A_Err_NONE;
}

A_Err getCompFromItem(AEGP_ItemH item, AEGP_CompH* comp) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetCompFromItem", err);
    if (s == nullptr) {
        return err;
    }
    const Id id = itemIdOf(*s, item);
    if (id == 0 || comp == nullptr) {
        return A_Err_PARAMETER;
    }
    // Footage has no composition: a null one, as the caller is told to expect.
    *comp = s->project.comp(id) != nullptr ? makeHandle<AEGP_CompH>(id, Tag::comp) : nullptr;
    return A_Err_NONE;
}

A_Err getItemFromComp(AEGP_CompH comp, AEGP_ItemH* item) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetItemFromComp", err);
    if (s == nullptr) {
        return err;
    }
    Comp* c = compOf(*s, comp);
    if (c == nullptr || item == nullptr) {
        return A_Err_PARAMETER;
    }
    *item = makeHandle<AEGP_ItemH>(c->id, Tag::item);
    return A_Err_NONE;
}

A_Err getNewCollectionFromCompSelection(AEGP_PluginID, AEGP_CompH comp, AEGP_CollectionH* collection) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetNewCollectionFromCompSelection", err);
    if (s == nullptr) {
        return err;
    }
    Comp* c = compOf(*s, comp);
    if (c == nullptr || collection == nullptr) {
        return A_Err_PARAMETER;
    }
    std::vector<AEGP_CollectionItemV1> items;
    for (Id layer : c->selection) {
        AEGP_CollectionItemV1 item{};
        item.type = AEGP_CollectionItemType_LAYER;
        item.u.layer.layerH = makeHandle<AEGP_LayerH>(layer, Tag::layer);
        items.push_back(item);
    }
    const Id id = newId();
    s->collections[id] = std::move(items);
    *collection = makeHandle<AEGP_CollectionH>(id, Tag::collection);
    return A_Err_NONE;
}

A_Err setSelection(AEGP_CompH comp, AEGP_CollectionH collection) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_SetSelection", err);
    if (s == nullptr) {
        return err;
    }
    Comp* c = compOf(*s, comp);
    auto* items = collectionOf(*s, collection);
    if (c == nullptr || items == nullptr) {
        return A_Err_PARAMETER;
    }
    std::vector<Id> selection;
    std::unordered_set<Id> chosen;
    for (const AEGP_CollectionItemV1& item : *items) {
        const LayerPlace place = placeOf(*s, item.u.layer.layerH);
        if (item.type != AEGP_CollectionItemType_LAYER || place.comp != c) {
            return A_Err_PARAMETER;
        }
        const Id id = place.layer()->id;
        if (chosen.insert(id).second) {
            selection.push_back(id);
        }
    }
    c->selection = std::move(selection);
    return A_Err_NONE;
}

const AEGP_ItemSuite3 kItemSuite{getActiveItem, getItemType, getItemDimensions};
const AEGP_CompSuite4 kCompSuite{getCompFromItem, getItemFromComp, getNewCollectionFromCompSelection, setSelection};

}  // namespace

const AEGP_ItemSuite3* itemSuite3() { return &kItemSuite; }
const AEGP_CompSuite4* compSuite4() { return &kCompSuite; }

}  // namespace host::detail
