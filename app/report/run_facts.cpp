#include "app/report/run_facts.h"

#include "controls/settings_table.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

namespace app {

namespace {

bool isArrangeable(const host::Layer& layer) {
    return layer.three_d && (layer.type == AEGP_ObjectType_AV || layer.type == AEGP_ObjectType_TEXT ||
                             layer.type == AEGP_ObjectType_VECTOR);
}

// A composition's layers by id: compositions of many thousand layers are looked up as often.
class LayerIndex {
public:
    explicit LayerIndex(const host::Comp& comp) {
        for (const host::Layer& layer : comp.layers) {
            layers_.emplace(layer.id, &layer);
        }
    }
    const host::Layer* find(host::Id id) const {
        const auto it = layers_.find(id);
        return it != layers_.end() ? it->second : nullptr;
    }

private:
    std::unordered_map<host::Id, const host::Layer*> layers_;
};

// The last outermost step the plug-in opened, if any.
const host::UndoGroup* applyStep(const host::Host& host) {
    const std::vector<host::UndoGroup>& groups = host.undoGroups();
    for (auto it = groups.rbegin(); it != groups.rend(); ++it) {
        if (it->depth == 0 && it->name == kProductName) {
            return &*it;
        }
    }
    return nullptr;
}

controls::Extent largestSource(const host::Project& before, const host::Comp& comp, const host::Host& after) {
    std::vector<const host::Layer*> selected;
    for (const host::Id id : comp.selection) {
        const host::Layer* layer = before.layer(id);
        if (layer != nullptr && layer->three_d && sourceExtent(before, *layer)) {
            selected.push_back(layer);
        }
    }
    std::sort(selected.begin(), selected.end(), [&](const host::Layer* a, const host::Layer* b) {
        return std::less<const void*>()(after.layerHandle(a->id), after.layerHandle(b->id));
    });
    controls::Extent largest;
    for (const host::Layer* layer : selected) {
        const controls::Extent extent = *sourceExtent(before, *layer);
        if (controls::hasLargerArea(extent, largest)) {
            largest = extent;
        }
    }
    return largest;
}

void gatherWritten(const host::UndoGroup& step, const host::Project& before, const host::Comp& comp, RunFacts& facts) {
    const LayerIndex layers(comp);
    std::unordered_map<host::Id, host::Id> original_of;
    for (const LayerCopy& copy : facts.copies) {
        original_of.emplace(copy.layer, copy.original);
    }
    for (const host::Id id : step.written) {
        const host::Layer* layer = layers.find(id);
        if (layer == nullptr) {
            continue;
        }
        const auto original = original_of.find(id);
        const host::Layer* old = before.layer(original != original_of.end() ? original->second : id);
        const Vec3 scale = layer->prop(host::Prop::scale).valueAt(comp.time);
        facts.written.push_back({id, layer->name, layer->prop(host::Prop::position).valueAt(comp.time), scale,
                                 old != nullptr ? old->prop(host::Prop::scale).valueAt(comp.time) : scale,
                                 sourceExtent(before, old != nullptr ? *old : *layer)});
    }
}

}  // namespace

std::optional<controls::Extent> sourceExtent(const host::Project& project, const host::Layer& layer) {
    if (const host::Footage* footage = project.findFootage(layer.source)) {
        return controls::Extent{footage->width, footage->height};
    }
    if (const host::Comp* nested = project.comp(layer.source)) {
        return controls::Extent{nested->width, nested->height};
    }
    return std::nullopt;
}

RunFacts gatherRun(const host::Project& before, const host::Host& after) {
    RunFacts facts;
    const host::Comp* comp_before = before.comp(before.active);
    const host::Comp* comp = comp_before != nullptr ? after.project().comp(comp_before->id) : nullptr;
    if (comp_before == nullptr || comp == nullptr) {
        return facts;
    }
    facts.comp = comp->id;
    facts.comp_size = {comp_before->width, comp_before->height};
    const LayerIndex layers_before(*comp_before);
    for (const host::Id id : comp_before->selection) {
        const host::Layer* layer = layers_before.find(id);
        if (layer != nullptr && isArrangeable(*layer)) {
            facts.taken.push_back(id);
        }
    }
    for (const host::Layer& layer : comp->layers) {
        if (layer.copy_of != 0 && layers_before.find(layer.id) == nullptr) {
            facts.copies.push_back({layer.id, layer.copy_of});
        }
    }
    facts.largest_source = largestSource(before, *comp_before, after);
    if (const host::UndoGroup* step = applyStep(after)) {
        facts.apply = step->undone ? ApplyState::undone : ApplyState::applied;
        gatherWritten(*step, before, *comp, facts);
    }
    return facts;
}

}  // namespace app
