#include "app/gltf/gltf_document.h"

#include "app/gltf/gltf_animation.h"
#include "app/gltf/gltf_buffer.h"
#include "app/gltf/gltf_json.h"
#include "app/gltf/gltf_looks.h"

#include "controls/settings_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace app {

namespace {

constexpr int kLines = 1;
constexpr int kLineLoop = 2;
constexpr int kTriangles = 4;

// The back face lies this far behind the front, in pixels. Renderers that draw both sides of every
// face, as path tracers do, then meet the front from in front and the back from behind; on one
// plane they would meet one of the two from both sides.
constexpr double kBackBehind = 0.1;

// The quad's corners in the layer's own frame, in the order of the host's corners: top left, top
// right, bottom right, bottom left as its visible face shows them; `behind` it, in pixels.
std::array<Vec3, 4> quadCorners(const LayerQuad& quad, double behind = 0) {
    const double hx = 0.5 * quad.width, hy = 0.5 * quad.height;
    return {gltfPoint({-hx, -hy, behind}), gltfPoint({hx, -hy, behind}), gltfPoint({hx, hy, behind}),
            gltfPoint({-hx, hy, behind})};
}

std::vector<float> floats(const std::vector<Vec3>& points) {
    std::vector<float> out;
    out.reserve(3 * points.size());
    for (const Vec3& p : points) {
        // Plus zero: -0 becomes 0, which reads the same and keeps the bounds plain.
        out.insert(out.end(),
                   {static_cast<float>(p.x) + 0.0f, static_cast<float>(p.y) + 0.0f, static_cast<float>(p.z) + 0.0f});
    }
    return out;
}

// Dashes along the quad's edges, as the page draws layers without a source: each edge in dashes
// of about a twentieth of the quad's longer side, a dash starting at every corner.
std::vector<Vec3> dashes(const std::array<Vec3, 4>& corners) {
    const double period = std::max(length(corners[1] - corners[0]), length(corners[3] - corners[0])) / 20.0;
    std::vector<Vec3> points;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec3 a = corners[i];
        const Vec3 edge = corners[(i + 1) % corners.size()] - a;
        const int count = std::max(1, static_cast<int>(std::lround(length(edge) / period)));
        for (int k = 0; k < count; ++k) {
            points.push_back(a + (static_cast<double>(k) / count) * edge);
            points.push_back(a + ((k + 0.55) / count) * edge);
        }
    }
    return points;
}

// What every mesh shares: the faces' normals and the two windings of a quad's triangles.
struct QuadParts {
    int front_normal = -1, back_normal = -1, front_indices = -1, back_indices = -1;
};

QuadParts quadParts(GltfBuffer& buffer) {
    const std::vector<float> front(12, 0.0f), back(12, 0.0f);
    std::vector<float> up = front, down = back;
    for (std::size_t i = 2; i < 12; i += 3) {
        up[i] = 1.0f;
        down[i] = -1.0f;
    }
    // Counter-clockwise seen from the side each faces: glTF's front faces.
    const std::array<std::uint16_t, 6> front_order{0, 2, 1, 0, 3, 2};
    const std::array<std::uint16_t, 6> back_order{0, 1, 2, 0, 2, 3};
    return {buffer.addFloats(BufferView::vertices, up, Element::vec3, false),
            buffer.addFloats(BufferView::vertices, down, Element::vec3, false), buffer.addIndices(front_order),
            buffer.addIndices(back_order)};
}

void primitive(JsonText& json, int position, int normal, int indices, int material, int mode) {
    json.beginObject();
    json.key("attributes");
    json.beginObject();
    member(json, "POSITION", position);
    if (normal >= 0) {
        member(json, "NORMAL", normal);
    }
    json.endObject();
    if (indices >= 0) {
        member(json, "indices", indices);
    }
    member(json, "material", material);
    member(json, "mode", mode);
    json.endObject();
}

void quadMesh(JsonText& json, const LayerQuad& quad, const QuadParts& parts, GltfBuffer& buffer, Materials& materials) {
    const std::array<Vec3, 4> corners = quadCorners(quad);
    const int position =
        buffer.addFloats(BufferView::vertices, floats({corners.begin(), corners.end()}), Element::vec3, true);
    const std::array<Vec3, 4> behind = quadCorners(quad, kBackBehind);
    const int back_position =
        buffer.addFloats(BufferView::vertices, floats({behind.begin(), behind.end()}), Element::vec3, true);
    json.beginObject();
    member(json, "name",
           std::to_string(std::lround(quad.width)) + " x " + std::to_string(std::lround(quad.height)) +
               (quad.copy ? ", copy" : "") + (quad.has_source ? "" : ", no source"));
    json.key("primitives");
    json.beginArray();
    primitive(json, position, parts.front_normal, parts.front_indices,
              materials.use(quad.copy ? Look::copy_front : Look::front), kTriangles);
    primitive(json, back_position, parts.back_normal, parts.back_indices,
              materials.use(quad.copy ? Look::copy_back : Look::back), kTriangles);
    const int outline_material = materials.use(quad.copy ? Look::copy_outline : Look::outline);
    if (quad.has_source) {
        primitive(json, position, -1, -1, outline_material, kLineLoop);
    } else {
        const int dashed = buffer.addFloats(BufferView::vertices, floats(dashes(corners)), Element::vec3, true);
        primitive(json, dashed, -1, -1, outline_material, kLines);
    }
    json.endArray();
    json.endObject();
}

void lineMesh(JsonText& json, const char* name, const std::vector<Vec3>& points, int mode, int material,
              GltfBuffer& buffer) {
    json.beginObject();
    member(json, "name", name);
    json.key("primitives");
    json.beginArray();
    primitive(json, buffer.addFloats(BufferView::vertices, floats(points), Element::vec3, true), -1, -1, material,
              mode);
    json.endArray();
    json.endObject();
}

void values(JsonText& json, const LayerValues& v) {
    member(json, "position", v.position);
    member(json, "orientation", v.orientation);
    member(json, "rotation", v.rotation);
    member(json, "scale", v.scale);
}

void transform(JsonText& json, const NodeTransform& t, bool with_scale) {
    member(json, "translation", t.translation);
    numbers(json, "rotation", {t.rotation.x, t.rotation.y, t.rotation.z, t.rotation.w});
    if (with_scale) {
        member(json, "scale", t.scale);
    }
}

void layerNode(JsonText& json, const GltfLayer& layer) {
    json.beginObject();
    member(json, "name", layer.name);
    member(json, "mesh", layer.quad);
    transform(json, layer.after, true);
    json.key("extras");
    json.beginObject();
    member(json, "number", layer.number);
    member(json, "type", layer.type);
    if (layer.copy_of != 0) {
        member(json, "copy_of", layer.copy_of);
    }
    values(json, layer.values);
    json.endObject();
    json.endObject();
}

std::string base64(const std::vector<unsigned char>& bytes) {
    static constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t n = std::min<std::size_t>(3, bytes.size() - i);
        const unsigned v = (bytes[i] << 16) | (n > 1 ? bytes[i + 1] << 8 : 0) | (n > 2 ? bytes[i + 2] : 0);
        for (std::size_t k = 0; k < 4; ++k) {
            out += k <= n ? kDigits[(v >> (18 - 6 * k)) & 63] : '=';
        }
    }
    return out;
}

void asset(JsonText& json, const GltfScene& scene) {
    json.key("asset");
    json.beginObject();
    member(json, "version", "2.0");
    member(json, "generator", std::string("orbisett-host ") + kProductVersion);
    json.key("extras");
    json.beginObject();
    member(json, "pixels_per_metre", kPixelsPerMetre);
    member(json, "frame",
           "glTF (x, y, z) = (X, -Y, -Z) / " + std::to_string(static_cast<int>(kPixelsPerMetre)) +
               " of the host's frame: X right, Y down, Z away from the viewer, in pixels");
    member(json, "animation",
           "Before \u2192 After: where the scene had each layer at 0 s, where the run put it at " +
               std::to_string(static_cast<int>(kAnimationSeconds)) + " s");
    if (scene.has_comp) {
        json.key("composition");
        json.beginObject();
        member(json, "name", scene.comp_name);
        member(json, "width", scene.comp_width);
        member(json, "height", scene.comp_height);
        json.endObject();
        member(json, "surface", scene.surface_description);
    }
    json.endObject();
    json.endObject();
}

// Node numbers: the layers first, in their order, then the group of lines and its members, then
// the camera.
struct NodeNumbers {
    std::int64_t guides = 0, surface = 0, comp_frame = 0, camera = 0;
};

NodeNumbers nodeNumbers(const GltfScene& scene) {
    NodeNumbers n;
    n.guides = std::ssize(scene.layers);
    n.surface = scene.surface.empty() ? n.guides : n.guides + 1;
    n.comp_frame = n.surface + 1;
    n.camera = n.comp_frame + 1;
    return n;
}

void scenes(JsonText& json, const GltfScene& scene, const NodeNumbers& n) {
    member(json, "scene", 0);
    json.key("scenes");
    json.beginArray();
    json.beginObject();
    member(json, "name", scene.has_comp ? scene.comp_name : std::string("No composition"));
    if (scene.has_comp) {
        json.key("nodes");
        json.beginArray();
        for (std::int64_t i = 0; i < n.guides; ++i) {
            json.value(i);
        }
        json.value(n.guides);
        json.value(n.camera);
        json.endArray();
    }
    json.endObject();
    json.endArray();
}

// Meshes: one for each kind of quad, then the surface's (when known) and the frame's lines.
void meshes(JsonText& json, const GltfScene& scene, GltfBuffer& buffer, Materials& materials) {
    json.key("meshes");
    json.beginArray();
    if (!scene.quads.empty()) {
        const QuadParts parts = quadParts(buffer);
        for (const LayerQuad& quad : scene.quads) {
            quadMesh(json, quad, parts, buffer, materials);
        }
    }
    if (!scene.surface.empty()) {
        lineMesh(json, "Surface", scene.surface, kLines, materials.use(Look::surface), buffer);
    }
    lineMesh(json, "Composition frame", scene.comp_frame, kLineLoop, materials.use(Look::comp_frame), buffer);
    json.endArray();
}

void nodes(JsonText& json, const GltfScene& scene, const NodeNumbers& n) {
    json.key("nodes");
    json.beginArray();
    for (const GltfLayer& layer : scene.layers) {
        layerNode(json, layer);
    }
    const std::size_t lines = scene.quads.size();
    json.beginObject();
    member(json, "name", "Surface and composition frame");
    json.key("children");
    json.beginArray();
    if (!scene.surface.empty()) {
        json.value(n.surface);
    }
    json.value(n.comp_frame);
    json.endArray();
    json.endObject();
    if (!scene.surface.empty()) {
        json.beginObject();
        member(json, "name", "Surface");
        member(json, "mesh", lines);
        json.endObject();
    }
    json.beginObject();
    member(json, "name", "Composition frame");
    member(json, "mesh", scene.surface.empty() ? lines : lines + 1);
    json.endObject();
    json.beginObject();
    member(json, "name", scene.camera.name);
    member(json, "camera", 0);
    transform(json, scene.camera.place, false);
    json.key("extras");
    json.beginObject();
    member(json, "zoom", scene.camera.zoom);
    json.endObject();
    json.endObject();
    json.endArray();
}

void cameras(JsonText& json, const GltfCamera& camera) {
    json.key("cameras");
    json.beginArray();
    json.beginObject();
    member(json, "name", camera.name);
    member(json, "type", "perspective");
    json.key("perspective");
    json.beginObject();
    member(json, "yfov", camera.yfov);
    member(json, "aspectRatio", camera.aspect_ratio);
    // A pixel: the host clips nothing in front of its camera.
    member(json, "znear", 1.0 / kPixelsPerMetre);
    json.endObject();
    json.endObject();
    json.endArray();
}

void buffers(JsonText& json, const std::vector<unsigned char>& bytes, GltfFormat format) {
    json.key("buffers");
    json.beginArray();
    json.beginObject();
    member(json, "byteLength", bytes.size());
    if (format == GltfFormat::text) {
        member(json, "uri", "data:application/octet-stream;base64," + base64(bytes));
    }
    json.endObject();
    json.endArray();
}

}  // namespace

std::vector<unsigned char> writeGltfJson(const GltfScene& scene, GltfFormat format, std::ostream& out) {
    JsonText json(&out, true);
    json.beginObject();
    asset(json, scene);
    const NodeNumbers n = nodeNumbers(scene);
    scenes(json, scene, n);
    std::vector<unsigned char> bytes;
    if (scene.has_comp) {
        GltfBuffer buffer;
        Materials materials;
        nodes(json, scene, n);
        meshes(json, scene, buffer, materials);
        json.key("materials");
        materials.write(json);
        json.key("extensionsUsed");
        json.beginArray();
        json.value("KHR_materials_unlit");
        json.endArray();
        cameras(json, scene.camera);
        // An animation needs a channel: none when no layer moved.
        if (const std::vector<AnimationChannel> channels = animationChannels(scene.layers, buffer); !channels.empty()) {
            json.key("animations");
            json.beginArray();
            writeAnimation(channels, addKeyTimes(buffer), json);
            json.endArray();
        }
        json.key("accessors");
        buffer.writeAccessors(json);
        json.key("bufferViews");
        buffer.writeViews(json);
        bytes = buffer.bytes();
        buffers(json, bytes, format);
    }
    json.endObject();
    json.finish();
    return bytes;
}

}  // namespace app
