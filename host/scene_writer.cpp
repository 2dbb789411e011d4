// Writing scene files, and making a read scene the host's project. Numbers are written in
// their shortest form that reads back to the same double.
#include "host/scene_file.h"

#include "host/json_text.h"

#include <fstream>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>

namespace host {

namespace {

std::string_view typeText(AEGP_ObjectType type) {
    for (const auto& [name, value] : kLayerTypeNames) {
        if (value == type) {
            return name;
        }
    }
    return "av";
}

void vec3(JsonText& out, const Vec3& v) {
    out.beginArray();
    out.value(v.x);
    out.value(v.y);
    out.value(v.z);
    out.endArray();
}

void time(JsonText& out, const A_Time& t) {
    out.beginObject();
    out.member("value", t.value);
    out.member("scale", t.scale);
    out.endObject();
}

void size(JsonText& out, A_long width, A_long height) {
    out.beginObject();
    out.member("width", width);
    out.member("height", height);
    out.endObject();
}

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

bool hasKeys(const Layer& layer) {
    for (const Property& property : layer.props) {
        if (!property.keys.empty()) {
            return true;
        }
    }
    return false;
}

void keyframes(JsonText& out, const Layer& layer) {
    out.beginObject();
    for (std::size_t p = 0; p < kPropCount; ++p) {
        const Prop prop = static_cast<Prop>(p);
        const Property& property = layer.prop(prop);
        if (property.keys.empty()) {
            continue;
        }
        out.key(propName(prop));
        out.beginArray();
        for (const Keyframe& k : property.keys) {
            out.beginObject();
            out.key("time");
            time(out, k.time);
            out.key("value");
            if (isOneD(prop)) {
                out.value(k.value.x);
            } else {
                vec3(out, k.value);
            }
            out.endObject();
        }
        out.endArray();
    }
    out.endObject();
}

void layerJson(JsonText& out, const Project& project, const Layer& layer, bool selected) {
    out.beginObject();
    out.member("name", layer.name);
    out.member("type", typeText(layer.type));
    out.member("three_d", layer.three_d);
    if (const Footage* source = project.findFootage(layer.source)) {
        out.key("source");
        size(out, source->width, source->height);
    } else if (const Comp* source_comp = project.comp(layer.source)) {
        out.key("source");
        size(out, source_comp->width, source_comp->height);
    }
    out.key("position");
    vec3(out, layer.prop(Prop::position).value);
    out.key("scale");
    vec3(out, layer.prop(Prop::scale).value);
    out.key("orientation");
    vec3(out, layer.prop(Prop::orientation).value);
    out.key("rotation");
    vec3(out, Vec3{layer.prop(Prop::rotate_x).value.x, layer.prop(Prop::rotate_y).value.x,
                   layer.prop(Prop::rotate_z).value.x});
    if (hasKeys(layer)) {
        out.key("keyframes");
        keyframes(out, layer);
    }
    out.member("selected", selected);
    if (const int copied = copiedNumber(project, layer); copied > 0) {
        out.member("copy_of", copied);
    }
    out.endObject();
}

const Comp* sceneComp(const Project& project) {
    if (const Comp* active = project.comp(project.active)) {
        return active;
    }
    return project.comps.empty() ? nullptr : &project.comps.front();
}

void writeHost(JsonText& out, const Host& host) {
    out.beginObject();
    out.member("panels", !host.isWithheld(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1));
    out.key("withhold");
    out.beginArray();
    const std::string panel_key = suiteKey(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
    for (const std::string& key : host.withheldSuites()) {
        if (key != panel_key) {
            out.value(key);
        }
    }
    out.endArray();
    out.endObject();
}

void writeComp(JsonText& out, const Comp& comp) {
    out.beginObject();
    out.member("name", comp.name);
    out.member("width", comp.width);
    out.member("height", comp.height);
    out.key("time");
    time(out, comp.time);
    out.endObject();
}

void writeLayersAndSelection(JsonText& out, const Project& project, const Comp& comp) {
    const std::unordered_set<Id> selected(comp.selection.begin(), comp.selection.end());
    std::unordered_map<Id, int> numbers;
    numbers.reserve(comp.layers.size());
    out.key("layers");
    out.beginArray();
    for (std::size_t i = 0; i < comp.layers.size(); ++i) {
        const Layer& layer = comp.layers[i];
        layerJson(out, project, layer, selected.count(layer.id) != 0);
        numbers[layer.id] = static_cast<int>(i + 1);
    }
    out.endArray();
    out.key("selection");
    out.beginArray();
    for (Id id : comp.selection) {
        if (auto number = numbers.find(id); number != numbers.end()) {
            out.value(number->second);
        }
    }
    out.endArray();
}

void writeRecord(JsonText& out, const Host& host) {
    out.key("undo_groups");
    out.beginArray();
    for (const UndoGroup& g : host.undoGroups()) {
        if (g.depth == 0) {
            out.beginObject();
            out.member("name", g.name);
            out.member("closed", g.closed);
            out.member("undone", g.undone);
            out.endObject();
        }
    }
    out.endArray();
    out.key("reports");
    out.beginArray();
    for (const Report& r : host.reports()) {
        out.value(r.text);
    }
    out.endArray();
}

void writeSceneText(JsonText& out, const Host& host, const nlohmann::json& settings) {
    const Project& project = host.project();
    const Comp* comp = sceneComp(project);
    if (comp == nullptr) {
        throw SceneError("the project has no composition to write");
    }
    out.beginObject();
    out.key("host");
    writeHost(out, host);
    out.key("comp");
    writeComp(out, *comp);
    writeLayersAndSelection(out, project, *comp);
    writeRecord(out, host);
    if (!settings.is_null()) {
        out.key("settings");
        out.document(settings);
    }
    out.endObject();
}

}  // namespace

std::string sceneText(const Host& host, const nlohmann::json& settings) {
    JsonText out;
    writeSceneText(out, host, settings);
    std::string text = out.take();
    text += '\n';
    return text;
}

void writeScene(const Host& host, std::ostream& stream, const nlohmann::json& settings) {
    JsonText out(&stream);
    writeSceneText(out, host, settings);
    out.finish();
    if (!stream.put('\n').flush()) {
        throw std::runtime_error("the scene could not be written");
    }
}

void saveScene(const Host& host, const std::string& path, const nlohmann::json& settings) {
    if (sceneComp(host.project()) == nullptr) {
        throw SceneError("the project has no composition to write");
    }
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) {
        throw SceneError(path + ": cannot be written");
    }
    try {
        writeScene(host, file, settings);
    } catch (const std::runtime_error&) {
        throw SceneError(path + ": cannot be written");
    }
    if (!file) {
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
