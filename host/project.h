// The host's project: footage items, compositions with their layers in order, the selection of
// each composition, the active item, and the animatable layer properties with their keyframes.
// Plain values, so that the whole project can be copied for undo. Lookups by id take constant
// time, whatever the size of the project.
#pragma once

#include "host/layer.h"
#include "host/layer_list.h"
#include "host_api.h"

#include <cstddef>
#include <string>
#include <vector>

namespace host {

struct Footage {
    Id id = 0;
    std::string name;
    A_long width = 0, height = 0;
};

struct Comp {
    Id id = 0;  // also the id of the composition's project item
    std::string name;
    A_long width = 0, height = 0;
    A_Time time{0, 1};            // the current time; every layer's current time
    LayerList layers{};           // layer order: index 0 is layer number 1
    std::vector<Id> selection{};  // selected layers in the order they were selected
};

// A layer with a new id, Scale at 100 % and everything else at rest, not yet in a composition.
Layer newLayer(std::string name, AEGP_ObjectType type, bool three_d, Id source = 0);

// Where a layer lives.
struct LayerPlace {
    Comp* comp = nullptr;
    std::size_t index = 0;   // 0-based
    Layer* found = nullptr;  // the layer itself, as Project::find gives it
    Layer* layer() const { return found != nullptr ? found : (comp ? &comp->layers[index] : nullptr); }
};

// Finds footage items by id. Items added through the project come in ascending id order, so a
// binary search of the list finds them with nothing kept beside it; a list put out of that order
// from outside is searched from end to end.
class FootageIndex {
public:
    // The place of the item with this id in `list`, or `list.size()` when there is none.
    std::size_t find(const std::vector<Footage>& list, Id id) const;
    std::size_t visits() const { return visits_; }

private:
    mutable std::size_t checked_size_ = 0;  // the list's size when its order was last checked
    mutable bool ordered_ = true;
    mutable std::size_t visits_ = 0;
};

struct Project {
    std::vector<Footage> footage;
    std::vector<Comp> comps;
    Id active = 0;  // the active item: a comp, a footage item, or 0 for none

    // Building (for tests and scene files). Ids returned are those of the new objects.
    Id addFootage(std::string name, A_long width, A_long height);
    // The first composition added becomes the active item.
    Id addComp(std::string name, A_long width, A_long height, A_Time time = {0, 1});
    // Appends a layer at the bottom of the layer order. Scale starts at 100 %.
    Id addLayer(Id comp, std::string name, AEGP_ObjectType type, bool three_d, Id source = 0);
    void select(Id comp, const std::vector<Id>& layers);

    // Lookup; null or an empty place when the id is unknown.
    Comp* comp(Id id);
    const Comp* comp(Id id) const;
    Footage* findFootage(Id id);
    const Footage* findFootage(Id id) const;
    bool isItem(Id id) const;
    LayerPlace find(Id layer);
    Layer* layer(Id id);
    const Layer* layer(Id id) const;
    Comp* compOf(Id layer);
    Comp* activeComp();  // the active item when it is a composition

    // Inserts a copy of a layer directly above it (taking its index); returns the copy's id.
    Id duplicate(Id layer);

    // Entries the lookups by id have examined so far: layers, footage items, compositions and the
    // blocks of the layer lists. Constant per lookup, so tests can tell a search from an index.
    std::size_t lookupVisits() const;

private:
    FootageIndex footage_index_;
    mutable std::size_t comp_visits_ = 0;
};

}  // namespace host
