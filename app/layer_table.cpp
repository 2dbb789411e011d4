#include "app/layer_table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <vector>

namespace app {

namespace {

const char* typeName(AEGP_ObjectType type)
{
    switch (type) {
    case AEGP_ObjectType_AV: return "av";
    case AEGP_ObjectType_LIGHT: return "light";
    case AEGP_ObjectType_CAMERA: return "camera";
    case AEGP_ObjectType_TEXT: return "text";
    case AEGP_ObjectType_VECTOR: return "vector";
    default: return "other";
    }
}

std::string number(double value)
{
    char buffer[48];
    // No "-0.0": a sign on zero is noise in a table.
    std::snprintf(buffer, sizeof buffer, "%.1f", value == 0.0 ? 0.0 : value);
    std::string text = buffer;
    return text == "-0.0" ? "0.0" : text;
}

std::string triple(const host::Vec3& v)
{
    return number(v.x) + ", " + number(v.y) + ", " + number(v.z);
}

std::string keyCounts(const host::Layer& layer)
{
    using host::Prop;
    const std::size_t rotation_keys = layer.prop(Prop::rotate_x).keys.size() + layer.prop(Prop::rotate_y).keys.size() +
                                      layer.prop(Prop::rotate_z).keys.size();
    return std::to_string(layer.prop(Prop::position).keys.size()) + "/" +
           std::to_string(layer.prop(Prop::orientation).keys.size()) + "/" +
           std::to_string(layer.prop(Prop::scale).keys.size()) + "/" + std::to_string(rotation_keys);
}

bool sameProperty(const host::Property& a, const host::Property& b)
{
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

const host::Comp* shownComp(const host::Project& project)
{
    for (const host::Comp& comp : project.comps) {
        if (comp.id == project.active) {
            return &comp;
        }
    }
    return project.comps.empty() ? nullptr : &project.comps.front();
}

using Row = std::vector<std::string>;

std::string formatRows(const std::vector<Row>& rows)
{
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    std::string out;
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            // Numbers read best right-aligned, the rest left-aligned; the last column is not padded.
            const bool right = i == 0;
            const std::string pad(widths[i] - row[i].size(), ' ');
            const bool last = i + 1 == row.size();
            line += right ? pad + row[i] : (last ? row[i] : row[i] + pad);
            if (!last) {
                line += "  ";
            }
        }
        while (!line.empty() && line.back() == ' ') {
            line.pop_back();
        }
        out += line + "\n";
    }
    return out;
}

}  // namespace

std::string layerChange(const host::Project& before, const host::Layer& layer)
{
    if (layer.copy_of != 0) {
        const host::Layer* original = before.layer(layer.copy_of);
        return original != nullptr && original->scene_number != 0
                   ? "copy of " + std::to_string(original->scene_number)
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

std::string layerTable(const host::Project& before, const host::Project& after)
{
    const host::Comp* comp = shownComp(after);
    if (comp == nullptr) {
        return "No composition.\n";
    }
    std::vector<Row> rows{{"#", "name", "type", "position", "orientation", "scale", "keys P/O/S/R", "run"}};
    for (std::size_t i = 0; i < comp->layers.size(); ++i) {
        const host::Layer& layer = comp->layers[i];
        using host::Prop;
        rows.push_back({std::to_string(i + 1), layer.name,
                        std::string(typeName(layer.type)) + (layer.three_d ? "" : " 2D"),
                        triple(layer.prop(Prop::position).valueAt(comp->time)),
                        triple(layer.prop(Prop::orientation).valueAt(comp->time)),
                        triple(layer.prop(Prop::scale).valueAt(comp->time)), keyCounts(layer),
                        layerChange(before, layer)});
    }
    return "Composition \"" + comp->name + "\", " + std::to_string(comp->width) + " x " +
           std::to_string(comp->height) + ", " + std::to_string(comp->layers.size()) + " layers\n" +
           formatRows(rows);
}

std::string hostReports(const host::Host& host)
{
    std::string out;
    for (const host::Report& report : host.reports()) {
        out += "Report: " + report.text + "\n";
    }
    for (const host::EscapedException& escaped : host.escapedExceptions()) {
        out += "Exception stopped by the host in the " + escaped.hook + " hook: " + escaped.what + "\n";
    }
    return out;
}

}  // namespace app
