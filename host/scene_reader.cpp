// Reading scene files. Everything is checked before anything is used, and every refusal
// names the file, the JSON path of the place and what is wrong there.
#include "host/host_state.h"
#include "host/scene_file.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <set>
#include <sstream>
#include <unordered_set>

namespace host {

namespace {

using nlohmann::json;

const char* typeName(const json& j) {
    switch (j.type()) {
        case json::value_t::null:
            return "null";
        case json::value_t::boolean:
            return "a boolean";
        case json::value_t::string:
            return "a string";
        case json::value_t::array:
            return "an array";
        case json::value_t::object:
            return "an object";
        case json::value_t::number_integer:
        case json::value_t::number_unsigned:
            return "an integer";
        case json::value_t::number_float:
            return "a number";
        default:
            return "something else";
    }
}

std::string member(const std::string& path, const std::string& key) { return path + "." + key; }
std::string element(const std::string& path, std::size_t i) { return path + "[" + std::to_string(i) + "]"; }

// Strips the library's "[json.exception.x.n] " prefix from a message.
std::string plainMessage(const char* what) {
    std::string text = what;
    if (!text.empty() && text[0] == '[') {
        if (auto close = text.find("] "); close != std::string::npos) {
            text.erase(0, close + 2);
        }
    }
    return text;
}

// Walks a text with the parser's events only to name the place where it stops: the JSON path of
// the value it was reading. The library says where a syntax error is, but not where a number
// overflows.
class PlaceFinder {
public:
    std::string place;

    bool null() { return value(); }
    bool boolean(bool) { return value(); }
    bool number_integer(json::number_integer_t) { return value(); }
    bool number_unsigned(json::number_unsigned_t) { return value(); }
    bool number_float(json::number_float_t, const std::string&) { return value(); }
    bool string(std::string&) { return value(); }
    bool binary(json::binary_t&) { return value(); }
    bool start_object(std::size_t) { return open(false); }
    bool start_array(std::size_t) { return open(true); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(std::string& key) {
        frames_.back().key = key;
        return true;
    }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) {
        place = "$";
        for (const Frame& f : frames_) {
            place += f.array ? "[" + std::to_string(f.index) + "]" : "." + f.key;
        }
        return false;
    }

private:
    struct Frame {
        bool array = false;
        std::size_t index = 0;  // of the element being read
        std::string key;        // of the member being read
    };

    bool value() {
        if (!frames_.empty() && frames_.back().array) {
            ++frames_.back().index;
        }
        return true;
    }
    bool open(bool array) {
        frames_.push_back(Frame{array, 0, {}});
        return true;
    }
    bool close() {
        frames_.pop_back();
        return value();
    }

    std::vector<Frame> frames_;
};

// Layers are taken out of the document as the parser finishes each one, so a scene of tens of
// thousands of layers never stands as a whole document next to its project. The order in which
// errors are reported stays that of reading the whole document first: syntax, the top level, the
// host, the composition, then the first bad layer.
// The place where reading stops, found by reading the input again from its start.
std::string placeOfFailure(const std::string& text) {
    PlaceFinder finder;
    json::sax_parse(text, &finder);
    return finder.place;
}

std::string placeOfFailure(std::istream& in) {
    in.clear();
    in.seekg(0);
    PlaceFinder finder;
    json::sax_parse(in, &finder);
    return finder.place;
}

class SceneReader {
public:
    explicit SceneReader(std::string file) : file_(std::move(file)) {}

    template <typename Input>
    Scene read(Input&& input) {
        Scene scene;
        const json root = parse(std::forward<Input>(input), scene.project);
        expectType(root, "$", json::value_t::object);
        checkKeys(root, "$", {"host", "comp", "layers", "selection", "settings", "undo_groups", "reports"});
        if (root.contains("host")) {
            readHost(root["host"], "$.host", scene);
        }
        const Id comp = readComp(need(root, "$", "comp"), "$.comp", scene.project);
        expectType(need(root, "$", "layers"), "$.layers", json::value_t::array);
        if (layer_error_) {
            throw *layer_error_;
        }
        Comp& c = *scene.project.comp(comp);
        c.layers = std::move(layers_);
        std::vector<Id> selection = std::move(marked_);
        if (root.contains("selection")) {
            selection = readSelection(root["selection"], "$.selection", c);
        }
        scene.project.select(comp, selection);
        for (const char* key : {"undo_groups", "reports"}) {
            if (root.contains(key)) {
                expectType(root[key], member("$", key), json::value_t::array);  // written by us, not read back
            }
        }
        if (root.contains("settings")) {
            expectType(root["settings"], "$.settings", json::value_t::object);
            scene.settings = root["settings"];
        }
        return scene;
    }

private:
    [[noreturn]] void fail(const std::string& path, const std::string& problem) const {
        throw SceneError(file_ + ": at " + path + ": " + problem);
    }

    template <typename Input>
    json parse(Input&& input, Project& project) {
        try {
            return json::parse(std::forward<Input>(input), [&](int depth, json::parse_event_t event, json& parsed) {
                return take(depth, event, parsed, project);
            });
        } catch (const json::parse_error& e) {
            throw SceneError(file_ + ": not valid JSON: " + plainMessage(e.what()));
        } catch (const json::exception& e) {
            // Number overflow: a number that is not finite once read.
            throw SceneError(file_ + ": at " + placeOfFailure(input) +
                             ": not a usable number: " + plainMessage(e.what()));
        }
    }

    // Sees every parse event; an element of the top-level "layers" array is read into a layer as
    // soon as it is complete and dropped from the document (false).
    bool take(int depth, json::parse_event_t event, const json& parsed, Project& project) {
        using Event = json::parse_event_t;
        if (depth == 1) {
            if (event == Event::key) {
                top_key_ = parsed.get<std::string>();
                if (top_key_ == "layers") {
                    // A repeated key: the last one counts, as it does for every other key.
                    startLayers(project);
                }
            } else if (event == Event::array_start || event == Event::object_start) {
                in_layers_ = event == Event::array_start && top_key_ == "layers";
            } else if (event == Event::array_end) {
                in_layers_ = false;
            }
            return true;
        }
        const bool element_done = event == Event::object_end || event == Event::array_end || event == Event::value;
        if (depth != 2 || !in_layers_ || !element_done) {
            return true;
        }
        const std::size_t i = count_++;
        if (!layer_error_) {
            try {
                readLayer(parsed, element("$.layers", i), static_cast<int>(i + 1), project);
            } catch (const SceneError& e) {
                layer_error_ = e;
            }
        }
        return false;
    }

    void startLayers(Project& project) {
        layers_.clear();
        marked_.clear();
        layer_error_.reset();
        count_ = 0;
        // Sources made for an earlier "layers" go with it.
        if (footage_mark_) {
            project.footage.resize(*footage_mark_);
        }
        footage_mark_ = project.footage.size();
    }

    void expectType(const json& j, const std::string& path, json::value_t type) const {
        const bool ok = j.type() == type || (type == json::value_t::number_float && j.is_number());
        if (!ok) {
            const json sample = type == json::value_t::number_float ? json(0.5) : json(type);
            fail(path, std::string("expected ") + typeName(sample) + ", found " + typeName(j));
        }
    }

    const json& need(const json& object, const std::string& path, const char* key) const {
        if (!object.contains(key)) {
            fail(path, std::string("missing \"") + key + "\"");
        }
        return object[key];
    }

    void checkKeys(const json& object, const std::string& path, std::initializer_list<const char*> allowed) const {
        for (auto it = object.begin(); it != object.end(); ++it) {
            if (std::none_of(allowed.begin(), allowed.end(), [&](const char* k) { return it.key() == k; })) {
                fail(member(path, it.key()), "unknown key");
            }
        }
    }

    std::string readString(const json& j, const std::string& path) const {
        expectType(j, path, json::value_t::string);
        return j.get<std::string>();
    }

    bool readBool(const json& j, const std::string& path) const {
        expectType(j, path, json::value_t::boolean);
        return j.get<bool>();
    }

    int64_t readInteger(const json& j, const std::string& path, int64_t low, int64_t high) const {
        // Whole numbers beyond 64 bits are read as floating point: they are out of range, not
        // of the wrong kind.
        if (j.is_number_float() && std::fabs(j.get<double>()) >= 0x1p63) {
            fail(path, j.get<double>() > 0 ? "must be at most " + std::to_string(high)
                                           : (low >= 0 ? std::string("must not be negative") : "out of range"));
        }
        if (!j.is_number_integer()) {
            fail(path, std::string("expected an integer, found ") + typeName(j));
        }
        if (j.is_number_unsigned() && j.get<uint64_t>() > static_cast<uint64_t>(high)) {
            fail(path, "must be at most " + std::to_string(high));
        }
        const int64_t v = j.get<int64_t>();
        if (v < low) {
            fail(path, low == 1 ? "must be positive" : (low == 0 ? "must not be negative" : "out of range"));
        }
        if (v > high) {
            fail(path, "must be at most " + std::to_string(high));
        }
        return v;
    }

    double readNumber(const json& j, const std::string& path) const {
        expectType(j, path, json::value_t::number_float);
        const double v = j.get<double>();
        if (!std::isfinite(v)) {
            fail(path, "not a finite number");
        }
        return v;
    }

    Vec3 readVec3(const json& j, const std::string& path) const {
        expectType(j, path, json::value_t::array);
        if (j.size() != 3) {
            fail(path, "expected 3 numbers, found " + std::to_string(j.size()));
        }
        return Vec3{readNumber(j[0], element(path, 0)), readNumber(j[1], element(path, 1)),
                    readNumber(j[2], element(path, 2))};
    }

    A_Time readTime(const json& j, const std::string& path) const {
        expectType(j, path, json::value_t::object);
        checkKeys(j, path, {"value", "scale"});
        A_Time t;
        t.value =
            static_cast<A_long>(readInteger(need(j, path, "value"), member(path, "value"),
                                            std::numeric_limits<A_long>::min(), std::numeric_limits<A_long>::max()));
        t.scale = static_cast<A_u_long>(
            readInteger(need(j, path, "scale"), member(path, "scale"), 1, std::numeric_limits<A_u_long>::max()));
        return t;
    }

    A_long readSize(const json& j, const std::string& path) const {
        return static_cast<A_long>(readInteger(j, path, 1, 30000));
    }

    void readHost(const json& j, const std::string& path, Scene& scene) const {
        expectType(j, path, json::value_t::object);
        checkKeys(j, path, {"panels", "withhold"});
        if (j.contains("panels")) {
            scene.panels = readBool(j["panels"], member(path, "panels"));
        }
        if (j.contains("withhold")) {
            const std::string list = member(path, "withhold");
            expectType(j["withhold"], list, json::value_t::array);
            for (std::size_t i = 0; i < j["withhold"].size(); ++i) {
                const std::string where = element(list, i);
                const std::string key = readString(j["withhold"][i], where);
                const auto slash = key.rfind('/');
                int32_t version = 0;
                std::istringstream digits(slash == std::string::npos ? std::string() : key.substr(slash + 1));
                if (slash == 0 || slash == std::string::npos || !(digits >> version) || !digits.eof() || version < 1) {
                    fail(where, "expected \"Suite Name/version\", found \"" + key + "\"");
                }
                if (detail::suiteTable(key.substr(0, slash), version) == nullptr) {
                    std::string served;
                    for (const std::string& k : detail::suiteKeys()) {
                        served += (served.empty() ? "" : ", ") + k;
                    }
                    fail(where, "the host has no suite \"" + key + "\" to withhold (it has " + served + ")");
                }
                scene.withhold.emplace_back(key.substr(0, slash), version);
            }
        }
    }

    Id readComp(const json& j, const std::string& path, Project& project) const {
        expectType(j, path, json::value_t::object);
        checkKeys(j, path, {"name", "width", "height", "time"});
        const std::string name = readString(need(j, path, "name"), member(path, "name"));
        const A_long width = readSize(need(j, path, "width"), member(path, "width"));
        const A_long height = readSize(need(j, path, "height"), member(path, "height"));
        A_Time time{0, 1};
        if (j.contains("time")) {
            time = readTime(j["time"], member(path, "time"));
        }
        return project.addComp(name, width, height, time);
    }

    AEGP_ObjectType readType(const json& j, const std::string& path) const {
        const std::string type = readString(j, path);
        for (const auto& [name, value] : kLayerTypeNames) {
            if (type == name) {
                return value;
            }
        }
        fail(path, "unknown layer type \"" + type + "\" (expected av, text, vector, camera or light)");
    }

    void readKeyframes(const json& j, const std::string& path, Layer& layer) const {
        expectType(j, path, json::value_t::object);
        for (auto it = j.begin(); it != j.end(); ++it) {
            const std::string list = member(path, it.key());
            std::size_t p = 0;
            while (p < kPropCount && it.key() != propName(static_cast<Prop>(p))) {
                ++p;
            }
            if (p == kPropCount) {
                fail(list,
                     "unknown property (expected position, scale, orientation, rotation_x, rotation_y or "
                     "rotation_z)");
            }
            const Prop prop = static_cast<Prop>(p);
            expectType(it.value(), list, json::value_t::array);
            Property& property = layer.prop(prop);
            for (std::size_t i = 0; i < it.value().size(); ++i) {
                const json& key = it.value()[i];
                const std::string where = element(list, i);
                expectType(key, where, json::value_t::object);
                checkKeys(key, where, {"time", "value"});
                const A_Time time = readTime(need(key, where, "time"), member(where, "time"));
                const json& value = need(key, where, "value");
                const Vec3 v = isOneD(prop) ? Vec3{readNumber(value, member(where, "value")), 0, 0}
                                            : readVec3(value, member(where, "value"));
                if (property.keyAt(time) >= 0) {
                    fail(where, "a second keyframe at the same time");
                }
                property.insertKey(time, v);
            }
        }
    }

    void readLayer(const json& j, const std::string& path, int number, Project& project) {
        expectType(j, path, json::value_t::object);
        checkKeys(j, path,
                  {"name", "type", "three_d", "source", "position", "scale", "orientation", "rotation", "keyframes",
                   "selected", "copy_of"});
        const std::string name = readString(need(j, path, "name"), member(path, "name"));
        const AEGP_ObjectType type = readType(need(j, path, "type"), member(path, "type"));
        const bool three_d = j.contains("three_d") ? readBool(j["three_d"], member(path, "three_d")) : false;
        Id source = 0;
        if (j.contains("source")) {
            const std::string where = member(path, "source");
            if (type != AEGP_ObjectType_AV) {
                fail(where, "only av layers have a source");
            }
            expectType(j["source"], where, json::value_t::object);
            checkKeys(j["source"], where, {"width", "height"});
            const A_long w = readSize(need(j["source"], where, "width"), member(where, "width"));
            const A_long h = readSize(need(j["source"], where, "height"), member(where, "height"));
            source = project.addFootage(name + " source", w, h);
        }
        Layer layer = newLayer(name, type, three_d, source);
        layer.scene_number = number;
        if (j.contains("position"))
            layer.prop(Prop::position).value = readVec3(j["position"], member(path, "position"));
        if (j.contains("scale"))
            layer.prop(Prop::scale).value = readVec3(j["scale"], member(path, "scale"));
        if (j.contains("orientation")) {
            layer.prop(Prop::orientation).value = readVec3(j["orientation"], member(path, "orientation"));
        }
        if (j.contains("rotation")) {
            const Vec3 r = readVec3(j["rotation"], member(path, "rotation"));
            layer.prop(Prop::rotate_x).value = Vec3{r.x, 0, 0};
            layer.prop(Prop::rotate_y).value = Vec3{r.y, 0, 0};
            layer.prop(Prop::rotate_z).value = Vec3{r.z, 0, 0};
        }
        if (j.contains("keyframes")) {
            readKeyframes(j["keyframes"], member(path, "keyframes"), layer);
        }
        if (j.contains("copy_of")) {
            layer.copy_of_number = static_cast<int>(readInteger(j["copy_of"], member(path, "copy_of"), 1, 1000000));
        }
        if (j.contains("selected") && readBool(j["selected"], member(path, "selected"))) {
            marked_.push_back(layer.id);
        }
        layers_.push_back(std::move(layer));
    }

    std::vector<Id> readSelection(const json& j, const std::string& path, const Comp& comp) const {
        expectType(j, path, json::value_t::array);
        std::vector<Id> selection;
        std::unordered_set<Id> chosen;
        for (std::size_t i = 0; i < j.size(); ++i) {
            const std::string where = element(path, i);
            if (!j[i].is_number_integer()) {
                fail(where, std::string("expected a layer number, found ") + typeName(j[i]));
            }
            const int64_t number = j[i].get<int64_t>();
            if (number < 1 || static_cast<uint64_t>(number) > comp.layers.size()) {
                fail(where, "no layer " + std::to_string(number) + " (the scene has " +
                                std::to_string(comp.layers.size()) + " layers)");
            }
            const Id id = comp.layers[static_cast<std::size_t>(number - 1)].id;
            if (!chosen.insert(id).second) {
                fail(where, "layer " + std::to_string(number) + " is selected twice");
            }
            selection.push_back(id);
        }
        return selection;
    }

    std::string file_;
    // The layers read so far, in file order, and those marked "selected".
    LayerList layers_;
    std::vector<Id> marked_;
    std::optional<SceneError> layer_error_;  // the first bad layer, reported in its turn
    std::size_t count_ = 0;                  // elements of "layers" seen
    std::string top_key_;
    bool in_layers_ = false;
    std::optional<std::size_t> footage_mark_;  // footage items before the first "layers"
};

}  // namespace

Scene parseScene(const std::string& text, const std::string& file_name) { return SceneReader(file_name).read(text); }

Scene readSceneFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw SceneError(path + ": is a folder, not a scene file");
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        throw SceneError(path + ": cannot be read: " + std::strerror(errno));
    }
    // Parsed straight from the file: the text is never held whole.
    return SceneReader(path).read(in);
}

}  // namespace host
