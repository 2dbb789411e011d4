// Writing scene files, and making a read scene the host's project. Numbers are written in
// their shortest form that reads back to the same double.
#include "host/scene_file.h"

#include <fstream>
#include <unordered_map>
#include <unordered_set>

namespace host {

namespace {

using Ordered = nlohmann::ordered_json;

const char* typeText(AEGP_ObjectType type) {
    switch (type) {
        case AEGP_ObjectType_TEXT: return "text";
        case AEGP_ObjectType_VECTOR: return "vector";
        case AEGP_ObjectType_CAMERA: return "camera";
        case AEGP_ObjectType_LIGHT: return "light";
        default: return "av";
    }
}

Ordered vec3(const Vec3& v) { return Ordered::array({v.x, v.y, v.z}); }

Ordered time(const A_Time& t) { return Ordered{{"value", t.value}, {"scale", t.scale}}; }

// The scene number of the layer a copy stands for, following copies of copies.
int copiedNumber(const Project& project, const Layer& layer) {
    const Layer* at = &layer;
    for (int guard = 0; guard < 100000 && at != nullptr; ++guard) {
        if (at != &layer && at->scene_number > 0) {
            return at->scene_number;
        }
        if (at->copy_of == 0) {
            return at->copy_of_number;
        }
        at = project.layer(at->copy_of);
    }
    return 0;
}

Ordered keyframes(const Layer& layer) {
    Ordered out = Ordered::object();
    for (std::size_t p = 0; p < kPropCount; ++p) {
        const Prop prop = static_cast<Prop>(p);
        const Property& property = layer.prop(prop);
        if (property.keys.empty()) {
            continue;
        }
        Ordered list = Ordered::array();
        for (const Keyframe& k : property.keys) {
            list.push_back(Ordered{{"time", time(k.time)}, {"value", isOneD(prop) ? Ordered(k.value.x) : vec3(k.value)}});
        }
        out[propName(prop)] = std::move(list);
    }
    return out;
}

Ordered layerJson(const Project& project, const Layer& layer, bool selected) {
    Ordered out;
    out["name"] = layer.name;
    out["type"] = typeText(layer.type);
    out["three_d"] = layer.three_d;
    const Footage* source = project.findFootage(layer.source);
    const Comp* source_comp = project.comp(layer.source);
    if (source != nullptr) {
        out["source"] = Ordered{{"width", source->width}, {"height", source->height}};
    } else if (source_comp != nullptr) {
        out["source"] = Ordered{{"width", source_comp->width}, {"height", source_comp->height}};
    }
    out["position"] = vec3(layer.prop(Prop::position).value);
    out["scale"] = vec3(layer.prop(Prop::scale).value);
    out["orientation"] = vec3(layer.prop(Prop::orientation).value);
    out["rotation"] = Ordered::array({layer.prop(Prop::rotate_x).value.x, layer.prop(Prop::rotate_y).value.x,
                                      layer.prop(Prop::rotate_z).value.x});
    Ordered keys = keyframes(layer);
    if (!keys.empty()) {
        out["keyframes"] = std::move(keys);
    }
    out["selected"] = selected;
    if (const int copied = copiedNumber(project, layer); copied > 0) {
        out["copy_of"] = copied;
    }
    return out;
}

const Comp* sceneComp(const Project& project) {
    if (const Comp* active = project.comp(project.active)) {
        return active;
    }
    return project.comps.empty() ? nullptr : &project.comps.front();
}

}  // namespace

std::string sceneText(const Host& host, const nlohmann::json& settings) {
    const Project& project = host.project();
    const Comp* comp = sceneComp(project);
    if (comp == nullptr) {
        throw SceneError("the project has no composition to write");
    }
    Ordered root;
    Ordered withhold = Ordered::array();
    const std::string panel_key = suiteKey(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
    for (const std::string& key : host.withheldSuites()) {
        if (key != panel_key) {
            withhold.push_back(key);
        }
    }
    root["host"] = Ordered{{"panels", !host.isWithheld(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1)},
                           {"withhold", std::move(withhold)}};
    root["comp"] = Ordered{{"name", comp->name}, {"width", comp->width}, {"height", comp->height}, {"time", time(comp->time)}};
    Ordered layers = Ordered::array();
    const std::unordered_set<Id> selected(comp->selection.begin(), comp->selection.end());
    std::unordered_map<Id, int> numbers;
    for (std::size_t i = 0; i < comp->layers.size(); ++i) {
        const Layer& layer = comp->layers[i];
        layers.push_back(layerJson(project, layer, selected.count(layer.id) != 0));
        numbers[layer.id] = static_cast<int>(i + 1);
    }
    root["layers"] = std::move(layers);
    Ordered selection = Ordered::array();
    for (Id id : comp->selection) {
        if (auto number = numbers.find(id); number != numbers.end()) {
            selection.push_back(number->second);
        }
    }
    root["selection"] = std::move(selection);
    Ordered groups = Ordered::array();
    for (const UndoGroup& g : host.undoGroups()) {
        if (g.depth == 0) {
            groups.push_back(Ordered{{"name", g.name}, {"closed", g.closed}, {"undone", g.undone}});
        }
    }
    root["undo_groups"] = std::move(groups);
    Ordered reports = Ordered::array();
    for (const Report& r : host.reports()) {
        reports.push_back(r.text);
    }
    root["reports"] = std::move(reports);
    if (!settings.is_null()) {
        root["settings"] = Ordered(settings);
    }
    return root.dump(2) + "\n";
}

void saveScene(const Host& host, const std::string& path, const nlohmann::json& settings) {
    const std::string text = sceneText(host, settings);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    out.flush();
    if (!out) {
        throw SceneError(path + ": cannot be written");
    }
}

void applyScene(Host& host, Scene scene) {
    for (const std::string& key : host.withheldSuites()) {
        const auto slash = key.rfind('/');
        host.offerSuite(key.substr(0, slash), std::stoi(key.substr(slash + 1)));
    }
    if (!scene.panels) {
        host.withholdSuite(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
    }
    for (const auto& [name, version] : scene.withhold) {
        host.withholdSuite(name, version);
    }
    host.replaceProject(std::move(scene.project));
}

void loadScene(Host& host, const std::string& path, nlohmann::json* settings) {
    Scene scene = readSceneFile(path);  // throws before anything changes
    if (settings != nullptr) {
        *settings = scene.settings;
    }
    applyScene(host, std::move(scene));
}

}  // namespace host
