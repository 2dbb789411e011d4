// "AEGP Item Suite" 3 and "AEGP Comp Suite" 4: the active item, item sizes, compositions and
// their selection.
#include "host/suite_call.h"
#include "host/suite_tables.h"

#include <unordered_set>

namespace host::detail {

namespace {

// An item handle's id, 0 when it names no item; `body` gets the id.
template <typename Body>
A_Err onItem(const char* function, AEGP_ItemH item, bool valid, Body&& body) {
    return hostCall(function, valid, [&](State& s) {
        const Id id = handleId(item, Tag::item);
        return s.project.isItem(id) ? body(s, id) : A_Err_PARAMETER;
    });
}

A_Err getActiveItem(AEGP_ItemH* item) {
    return hostCall("AEGP_GetActiveItem", given(item), [&](State& s) {
        *item = s.project.isItem(s.project.active) ? makeHandle<AEGP_ItemH>(s.project.active, Tag::item) : nullptr;
        return A_Err_NONE;
    });
}

A_Err getItemType(AEGP_ItemH item, AEGP_ItemType* type) {
    return onItem("AEGP_GetItemType", item, given(type), [&](State& s, Id id) {
        *type = s.project.comp(id) != nullptr ? AEGP_ItemType_COMP : AEGP_ItemType_FOOTAGE;
        return A_Err_NONE;
    });
}

A_Err getItemDimensions(AEGP_ItemH item, A_long* width, A_long* height) {
    return onItem("AEGP_GetItemDimensions", item, given(width, height), [&](State& s, Id id) {
        if (const Comp* c = s.project.comp(id)) {
            *width = c->width;
            *height = c->height;
        } else {
            const Footage* f = s.project.findFootage(id);
            *width = f->width;
            *height = f->height;
        }
        return A_Err_NONE;
    });
}

A_Err getCompFromItem(AEGP_ItemH item, AEGP_CompH* comp) {
    return onItem("AEGP_GetCompFromItem", item, given(comp), [&](State& s, Id id) {
        // Footage has no composition: a null one, as the caller is told to expect.
        *comp = s.project.comp(id) != nullptr ? makeHandle<AEGP_CompH>(id, Tag::comp) : nullptr;
        return A_Err_NONE;
    });
}

A_Err getItemFromComp(AEGP_CompH comp, AEGP_ItemH* item) {
    return onComp("AEGP_GetItemFromComp", comp, given(item), [&](State&, Comp& c) {
        *item = makeHandle<AEGP_ItemH>(c.id, Tag::item);
        return A_Err_NONE;
    });
}

A_Err getNewCollectionFromCompSelection(AEGP_PluginID, AEGP_CompH comp, AEGP_CollectionH* collection) {
    return onComp("AEGP_GetNewCollectionFromCompSelection", comp, given(collection), [&](State& s, Comp& c) {
        std::vector<AEGP_CollectionItemV1> items;
        for (Id layer : c.selection) {
            AEGP_CollectionItemV1 item{};
            item.type = AEGP_CollectionItemType_LAYER;
            item.u.layer.layerH = makeHandle<AEGP_LayerH>(layer, Tag::layer);
            items.push_back(item);
        }
        const Id id = newId();
        s.collections[id] = std::move(items);
        *collection = makeHandle<AEGP_CollectionH>(id, Tag::collection);
        return A_Err_NONE;
    });
}

// The layers of a collection, each once, in its order; false when one is not a layer of `comp`.
bool selectionOf(State& s, const Comp& comp, const std::vector<AEGP_CollectionItemV1>& items, std::vector<Id>* out) {
    std::unordered_set<Id> chosen;
    for (const AEGP_CollectionItemV1& item : items) {
        const LayerPlace place = placeOf(s, item.u.layer.layerH);
        if (item.type != AEGP_CollectionItemType_LAYER || place.comp != &comp) {
            return false;
        }
        const Id id = place.layer()->id;
        if (chosen.insert(id).second) {
            out->push_back(id);
        }
    }
    return true;
}

A_Err setSelection(AEGP_CompH comp, AEGP_CollectionH collection) {
    return onComp("AEGP_SetSelection", comp, true, [&](State& s, Comp& c) {
        const auto* items = collectionOf(s, collection);
        std::vector<Id> selection;
        if (items == nullptr || !selectionOf(s, c, *items, &selection)) {
            return A_Err_PARAMETER;
        }
        c.selection = std::move(selection);
        return A_Err_NONE;
    });
}

const AEGP_ItemSuite3 kItemSuite{getActiveItem, getItemType, getItemDimensions};
const AEGP_CompSuite4 kCompSuite{getCompFromItem, getItemFromComp, getNewCollectionFromCompSelection, setSelection};

const ServedSuite kServed[] = {{kAEGPCompSuite, kAEGPCompSuiteVersion4, &kCompSuite},
                               {kAEGPItemSuite, kAEGPItemSuiteVersion3, &kItemSuite}};

}  // namespace

std::span<const ServedSuite> compAndItemSuites() { return kServed; }

}  // namespace host::detail
