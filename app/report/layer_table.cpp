#include "app/report/layer_table.h"

#include "app/report/display_text.h"
#include "host/scene_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <set>
#include <vector>

namespace app {

namespace {

constexpr std::size_t kNumberWidth = 10;

// A layer's type as scene files name it.
std::string_view typeName(AEGP_ObjectType type) {
    for (const auto& [name, t] : host::kLayerTypeNames) {
        if (t == type) {
            return name;
        }
    }
    return "other";
}

std::string keyCounts(const host::Layer& layer) {
    using host::Prop;
    const std::size_t rotation_keys = layer.prop(Prop::rotate_x).keys.size() + layer.prop(Prop::rotate_y).keys.size() +
                                      layer.prop(Prop::rotate_z).keys.size();
    return std::to_string(layer.prop(Prop::position).keys.size()) + "/" +
           std::to_string(layer.prop(Prop::orientation).keys.size()) + "/" +
           std::to_string(layer.prop(Prop::scale).keys.size()) + "/" + std::to_string(rotation_keys);
}

bool sameProperty(const host::Property& a, const host::Property& b) {
    if (!(a.value == b.value) || a.keys.size() != b.keys.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.keys.size(); ++i) {
        if (host::compareTimes(a.keys[i].time, b.keys[i].time) != 0 || !(a.keys[i].value == b.keys[i].value)) {
            return false;
        }
    }
    return true;
}

const host::Comp* shownComp(const host::Project& project) {
    for (const host::Comp& comp : project.comps) {
        if (comp.id == project.active) {
            return &comp;
        }
    }
    return project.comps.empty() ? nullptr : &project.comps.front();
}

using Triple = std::array<std::string, 3>;

Triple triple(const host::Vec3& v) { return {tableNumber(v.x), tableNumber(v.y), tableNumber(v.z)}; }

// The table's columns: text cells, or triples whose parts line up across the rows.
struct Row {
    std::vector<std::string> cells;
};

constexpr std::size_t kTripleColumns[] = {3, 4, 5};  // position, orientation, scale

std::string padded(const std::string& text, std::size_t width, bool right) {
    const std::size_t w = displayWidth(text);
    const std::string pad(width > w ? width - w : 0, ' ');
    return right ? pad + text : text + pad;
}

std::string formatRows(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.cells.size()));
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            widths[i] = std::max(widths[i], displayWidth(row.cells[i]));
        }
    }
    std::string out;
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            // The number column reads best right-aligned; triples are aligned inside already.
            line += i + 1 == row.cells.size() ? row.cells[i] : padded(row.cells[i], widths[i], i == 0) + "  ";
        }
        while (!line.empty() && line.back() == ' ') {
            line.pop_back();
        }
        out += line + "\n";
    }
    return out;
}

// Each triple's parts padded to the widest part in its place, so that commas line up.
void alignTriples(std::vector<Row>& rows, const std::vector<std::array<Triple, 3>>& triples) {
    for (std::size_t t = 0; t < 3; ++t) {
        std::array<std::size_t, 3> widths{};
        for (const auto& layer : triples) {
            for (std::size_t k = 0; k < 3; ++k) {
                widths[k] = std::max(widths[k], layer[t][k].size());
            }
        }
        for (std::size_t r = 0; r < triples.size(); ++r) {
            const Triple& parts = triples[r][t];
            rows[r + 1].cells[kTripleColumns[t]] = padded(parts[0], widths[0], true) + ", " +
                                                   padded(parts[1], widths[1], true) + ", " +
                                                   padded(parts[2], widths[2], true);
        }
    }
}

}  // namespace

std::string layerKind(const host::Layer& layer) {
    return std::string(typeName(layer.type)) + (layer.three_d ? "" : " 2D");
}

std::string tableNumber(double value) {
    if (!std::isfinite(value)) {
        return std::isnan(value) ? "nan" : (value > 0 ? "inf" : "-inf");
    }
    char buffer[400];
    // No "-0.0": a sign on zero is noise in a table.
    std::snprintf(buffer, sizeof buffer, "%.1f", value == 0.0 ? 0.0 : value);
    std::string text = buffer;
    if (text == "-0.0") {
        return "0.0";
    }
    if (text.size() > kNumberWidth) {
        std::snprintf(buffer, sizeof buffer, "%.2e", value);
        text = buffer;
    }
    return text;
}

std::string layerChange(const host::Project& before, const host::Layer& layer) {
    if (layer.copy_of != 0) {
        const host::Layer* original = before.layer(layer.copy_of);
        return original != nullptr && original->scene_number != 0 ? "copy of " + std::to_string(original->scene_number)
                                                                  : std::string("copy");
    }
    const host::Layer* old = before.layer(layer.id);
    if (old == nullptr) {
        return "new";
    }
    for (std::size_t i = 0; i < host::kPropCount; ++i) {
        if (!sameProperty(old->props[i], layer.props[i])) {
            return "moved";
        }
    }
    return "";
}

namespace {

// What the run did to a layer; a layer the layout did not reach is marked so even when its
// values came back unchanged.
std::string runColumn(const std::string& change, bool not_reached) {
    if (!not_reached) {
        return change;
    }
    return change.empty() ? "not reached" : change + ", not reached";
}

}  // namespace

std::string layerTable(const host::Project& before, const host::Project& after,
                       const std::vector<host::Id>& not_reached) {
    const std::set<host::Id> missed(not_reached.begin(), not_reached.end());
    const host::Comp* comp = shownComp(after);
    if (comp == nullptr) {
        return "No composition.\n";
    }
    std::vector<Row> rows{{{"#", "name", "type", "position", "orientation", "scale", "keys P/O/S/R", "run"}}};
    std::vector<std::array<Triple, 3>> triples;
    for (std::size_t i = 0; i < comp->layers.size(); ++i) {
        const host::Layer& layer = comp->layers[i];
        using host::Prop;
        rows.push_back({{std::to_string(i + 1), escapedText(layer.name), layerKind(layer), "", "", "", keyCounts(layer),
                         runColumn(layerChange(before, layer), missed.count(layer.id) != 0)}});
        triples.push_back({triple(layer.prop(Prop::position).valueAt(comp->time)),
                           triple(layer.prop(Prop::orientation).valueAt(comp->time)),
                           triple(layer.prop(Prop::scale).valueAt(comp->time))});
    }
    alignTriples(rows, triples);
    return "Composition \"" + escapedText(comp->name) + "\", " + std::to_string(comp->width) + " x " +
           std::to_string(comp->height) + ", " + std::to_string(comp->layers.size()) +
           (comp->layers.size() == 1 ? " layer\n" : " layers\n") + formatRows(rows);
}

}  // namespace app
