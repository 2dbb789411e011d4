#include "host/project.h"

#include <algorithm>
#include <atomic>
#include <cmath>

namespace host {

Id newId() {
    static std::atomic<Id> next{1};
    return next++;
}

bool isOneD(Prop prop) { return prop == Prop::rotate_x || prop == Prop::rotate_y || prop == Prop::rotate_z; }

bool propFromStream(AEGP_LayerStream stream, Prop* prop) {
    switch (stream) {
        case AEGP_LayerStream_POSITION:
            *prop = Prop::position;
            return true;
        case AEGP_LayerStream_SCALE:
            *prop = Prop::scale;
            return true;
        case AEGP_LayerStream_ORIENTATION:
            *prop = Prop::orientation;
            return true;
        case AEGP_LayerStream_ROTATE_X:
            *prop = Prop::rotate_x;
            return true;
        case AEGP_LayerStream_ROTATE_Y:
            *prop = Prop::rotate_y;
            return true;
        case AEGP_LayerStream_ROTATE_Z:
            *prop = Prop::rotate_z;
            return true;
        default:
            return false;
    }
}

AEGP_StreamType streamTypeOf(Prop prop) {
    if (isOneD(prop)) {
        return AEGP_StreamType_OneD;
    }
    return prop == Prop::position ? AEGP_StreamType_ThreeD_SPATIAL : AEGP_StreamType_ThreeD;
}

const char* propName(Prop prop) {
    static const char* const names[kPropCount] = {"position",   "scale",      "orientation",
                                                  "rotation_x", "rotation_y", "rotation_z"};
    return names[static_cast<std::size_t>(prop)];
}

int compareTimes(const A_Time& a, const A_Time& b) {
    // Cross-multiplied in 64 bits: a value is 32-bit signed and a scale 32-bit unsigned.
    const int64_t sa = a.scale == 0 ? 1 : a.scale;
    const int64_t sb = b.scale == 0 ? 1 : b.scale;
    const int64_t lhs = static_cast<int64_t>(a.value) * sb;
    const int64_t rhs = static_cast<int64_t>(b.value) * sa;
    return lhs < rhs ? -1 : (lhs > rhs ? 1 : 0);
}

double seconds(const A_Time& t) {
    return static_cast<double>(t.value) / static_cast<double>(t.scale == 0 ? 1 : t.scale);
}

namespace {

// Linear interpolation that stays finite between finite keys, even far apart ones such as
// -1e308 and 1e308, whose difference alone would overflow.
double between(double a, double b, double t) {
    const double span = b - a;
    return std::isfinite(span) ? a + span * t : a * (1.0 - t) + b * t;
}

}  // namespace

Vec3 Property::valueAt(const A_Time& time) const {
    if (keys.empty()) {
        return value;
    }
    if (compareTimes(time, keys.front().time) <= 0) {
        return keys.front().value;
    }
    if (compareTimes(time, keys.back().time) >= 0) {
        return keys.back().value;
    }
    std::size_t next = 1;
    while (compareTimes(keys[next].time, time) < 0) {
        ++next;
    }
    const Keyframe& a = keys[next - 1];
    const Keyframe& b = keys[next];
    if (compareTimes(time, b.time) == 0) {
        return b.value;
    }
    const double t = (seconds(time) - seconds(a.time)) / (seconds(b.time) - seconds(a.time));
    return Vec3{between(a.value.x, b.value.x, t), between(a.value.y, b.value.y, t), between(a.value.z, b.value.z, t)};
}

int Property::keyAt(const A_Time& time) const {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (compareTimes(keys[i].time, time) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

int Property::insertKey(const A_Time& time, const Vec3& v) {
    const int existing = keyAt(time);
    if (existing >= 0) {
        return existing;
    }
    auto at = std::find_if(keys.begin(), keys.end(), [&](const Keyframe& k) { return compareTimes(k.time, time) > 0; });
    at = keys.insert(at, Keyframe{time, v});
    return static_cast<int>(at - keys.begin());
}

int Property::setKey(const A_Time& time, const Vec3& v) {
    const int index = insertKey(time, v);
    keys[static_cast<std::size_t>(index)].value = v;
    return index;
}

std::size_t FootageIndex::find(const std::vector<Footage>& list, Id id) const {
    const auto found = std::lower_bound(list.begin(), list.end(), id, [this](const Footage& f, Id wanted) {
        ++visits_;
        return f.id < wanted;
    });
    if (found != list.end() && found->id == id) {
        return static_cast<std::size_t>(found - list.begin());
    }
    // Not where the order puts it: gone, or in a list that is out of order.
    if (checked_size_ != list.size()) {
        ordered_ =
            std::is_sorted(list.begin(), list.end(), [](const Footage& a, const Footage& b) { return a.id < b.id; });
        checked_size_ = list.size();
        visits_ += list.size();
    }
    if (ordered_) {
        return list.size();
    }
    for (std::size_t i = 0; i < list.size(); ++i) {
        ++visits_;
        if (list[i].id == id) {
            return i;
        }
    }
    return list.size();
}

Id Project::addFootage(std::string name, A_long width, A_long height) {
    footage.push_back(Footage{.id = newId(), .name = std::move(name), .width = width, .height = height});
    return footage.back().id;
}

Id Project::addComp(std::string name, A_long width, A_long height, A_Time time) {
    comps.push_back(Comp{.id = newId(), .name = std::move(name), .width = width, .height = height, .time = time});
    if (comps.size() == 1) {
        active = comps.back().id;
    }
    return comps.back().id;
}

Layer newLayer(std::string name, AEGP_ObjectType type, bool three_d, Id source) {
    Layer l{.id = newId(), .name = std::move(name), .type = type, .three_d = three_d, .source = source};
    l.prop(Prop::scale).value = Vec3{100, 100, 100};
    return l;
}

Id Project::addLayer(Id comp_id, std::string name, AEGP_ObjectType type, bool three_d, Id source) {
    Comp* c = comp(comp_id);
    if (c == nullptr) {
        return 0;
    }
    Layer l = newLayer(std::move(name), type, three_d, source);
    const Id id = l.id;
    c->layers.push_back(std::move(l));
    return id;
}

void Project::select(Id comp_id, const std::vector<Id>& layers) {
    if (Comp* c = comp(comp_id)) {
        c->selection = layers;
    }
}

Comp* Project::comp(Id id) {
    // Projects hold a handful of compositions.
    for (Comp& c : comps) {
        ++comp_visits_;
        if (c.id == id) {
            return &c;
        }
    }
    return nullptr;
}

const Comp* Project::comp(Id id) const { return const_cast<Project*>(this)->comp(id); }

Footage* Project::findFootage(Id id) {
    if (id == 0) {
        return nullptr;
    }
    const std::size_t place = footage_index_.find(footage, id);
    return place < footage.size() ? &footage[place] : nullptr;
}

const Footage* Project::findFootage(Id id) const { return const_cast<Project*>(this)->findFootage(id); }

bool Project::isItem(Id id) const { return id != 0 && (comp(id) != nullptr || findFootage(id) != nullptr); }

LayerPlace Project::find(Id layer_id) {
    if (layer_id == 0) {
        return {};
    }
    for (Comp& c : comps) {
        ++comp_visits_;
        std::size_t index = 0;
        if (Layer* found = c.layers.find(layer_id, &index)) {
            return LayerPlace{&c, index, found};
        }
    }
    return {};
}

Layer* Project::layer(Id id) {
    if (id == 0) {
        return nullptr;
    }
    for (Comp& c : comps) {
        ++comp_visits_;
        if (Layer* found = c.layers.find(id)) {
            return found;
        }
    }
    return nullptr;
}

const Layer* Project::layer(Id id) const { return const_cast<Project*>(this)->layer(id); }

Comp* Project::compOf(Id layer_id) { return find(layer_id).comp; }

Comp* Project::activeComp() { return comp(active); }

Id Project::duplicate(Id layer_id) {
    LayerPlace place = find(layer_id);
    if (place.comp == nullptr) {
        return 0;
    }
    Layer copy = *place.layer();
    copy.id = newId();
    copy.copy_of = layer_id;
    copy.scene_number = 0;
    copy.copy_of_number = 0;
    const Id id = copy.id;
    auto& layers = place.comp->layers;
    layers.insert(layers.begin() + static_cast<std::ptrdiff_t>(place.index), std::move(copy));
    return id;
}

std::size_t Project::lookupVisits() const {
    std::size_t visits = comp_visits_ + footage_index_.visits();
    for (const Comp& c : comps) {
        visits += c.layers.visits();
    }
    return visits;
}

}  // namespace host
