// --gltf files as bytes: the binary container's header, chunks and padding, every view and
// accessor inside the buffer, the JSON form holding the very same buffer as a data URI; names
// refused before anything runs, and layers whose values do not fit the file's numbers left out
// with a warning. (The files' meaning is checked by the validator and a loader: tests/gltf/.)
#include "app_tool.h"

#include <cstdint>
#include <string_view>

namespace {

using apptest::cardScene;
using nlohmann::json;

std::uint32_t word(const std::string& bytes, std::size_t at) {
    std::uint32_t v = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        v |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    }
    return v;
}

std::string unbase64(std::string_view text) {
    static const std::string kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    unsigned value = 0;
    int bits = 0;
    for (const char c : text) {
        if (c == '=') {
            break;
        }
        value = (value << 6) | static_cast<unsigned>(kDigits.find(c));
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            out += static_cast<char>((value >> bits) & 255);
        }
    }
    return out;
}

// Every view lies in the buffer and every accessor in its view, each starting on its component's
// size; positions and key times carry their bounds.
void expectInside(const json& doc, std::size_t buffer_length) {
    for (const json& view : doc["bufferViews"]) {
        EXPECT_LE(view.value("byteOffset", 0u) + view["byteLength"].get<std::size_t>(), buffer_length);
        EXPECT_EQ(view.value("byteOffset", 0u) % 4, 0u);
    }
    const std::map<std::string, std::size_t> widths{{"SCALAR", 1}, {"VEC3", 3}, {"VEC4", 4}};
    for (const json& a : doc["accessors"]) {
        const json& view = doc["bufferViews"][a["bufferView"].get<std::size_t>()];
        const std::size_t component = a["componentType"] == 5126 ? 4 : 2;
        const std::size_t element = component * widths.at(a["type"]);
        const std::size_t stride = view.value("byteStride", element);
        const std::size_t offset = a.value("byteOffset", 0u);
        EXPECT_EQ(offset % component, 0u) << a;
        EXPECT_LE(offset + (a["count"].get<std::size_t>() - 1) * stride + element,
                  view["byteLength"].get<std::size_t>())
            << a;
    }
    for (const json& mesh : doc["meshes"]) {
        for (const json& primitive : mesh["primitives"]) {
            EXPECT_TRUE(doc["accessors"][primitive["attributes"]["POSITION"].get<std::size_t>()].contains("min"));
        }
    }
}

class GltfFile : public apptest::ToolTest {};

TEST_F(GltfFile, BinaryContainerAndJsonFormHoldTheSameDocumentAndBuffer) {
    json scene = cardScene(3, 400, 300);
    scene["layers"][1]["name"] = "Caf\u00e9 \u2615 \"no. 2\"";
    const std::string file = writeScene("s.json", scene);
    ASSERT_EQ(run({file, "--gltf", path("a.glb")}).status, 0);
    ASSERT_EQ(run({file, "--gltf", path("a.GLTF")}).status, 0);
    const std::string glb = apptest::readFile(path("a.glb"));

    ASSERT_GE(glb.size(), 28u);
    EXPECT_EQ(glb.substr(0, 4), "glTF");
    EXPECT_EQ(word(glb, 4), 2u);
    EXPECT_EQ(word(glb, 8), glb.size());
    const std::size_t json_length = word(glb, 12);
    EXPECT_EQ(glb.substr(16, 4), "JSON");
    EXPECT_EQ(json_length % 4, 0u);
    const std::string text = glb.substr(20, json_length);
    const std::size_t end = text.find_last_not_of(' ') + 1;
    EXPECT_LE(json_length - end, 3u) << "the JSON chunk is padded with at most three spaces";
    const json doc = json::parse(text.substr(0, end));

    const std::size_t bin_at = 20 + json_length;
    ASSERT_LE(bin_at + 8, glb.size());
    const std::size_t bin_length = word(glb, bin_at);
    EXPECT_EQ(glb.substr(bin_at + 4, 4), std::string("BIN\0", 4));
    EXPECT_EQ(bin_length % 4, 0u);
    EXPECT_EQ(bin_at + 8 + bin_length, glb.size()) << "the buffer's chunk ends the file";
    const std::size_t byte_length = doc["buffers"][0]["byteLength"];
    EXPECT_LE(byte_length, bin_length);
    EXPECT_GT(byte_length + 4, bin_length);
    EXPECT_EQ(glb.find_first_not_of('\0', bin_at + 8 + byte_length), std::string::npos);
    EXPECT_FALSE(doc["buffers"][0].contains("uri"));
    expectInside(doc, byte_length);
    EXPECT_EQ(doc["nodes"][1]["name"], "Caf\u00e9 \u2615 \"no. 2\"");
    // Three cards of one size share one quad: one mesh for them, one each for the surface and the frame.
    EXPECT_EQ(doc["meshes"].size(), 3u);

    json text_doc = json::parse(apptest::readFile(path("a.GLTF")));
    const std::string uri = text_doc["buffers"][0]["uri"];
    const std::string prefix = "data:application/octet-stream;base64,";
    ASSERT_EQ(uri.rfind(prefix, 0), 0u);
    EXPECT_EQ(unbase64(std::string_view(uri).substr(prefix.size())), glb.substr(bin_at + 8, byte_length));
    text_doc["buffers"][0].erase("uri");
    EXPECT_EQ(text_doc, doc);
}

TEST_F(GltfFile, OtherEndingsAreRefusedAndLayersBeyondSinglePrecisionLeftOutWithAWarning) {
    const std::string file = writeScene("s.json", cardScene(2));
    const apptest::ToolRun refused = run({file, "--gltf", path("a.obj"), "--out", path("o.json")});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.err, "orbisett-host: --gltf " + path("a.obj") +
                               ": the file's name must end in .glb or .gltf, which choose its format\n");
    EXPECT_FALSE(std::filesystem::exists(path("o.json")));

    json scene = cardScene(3);
    scene["layers"][2]["selected"] = false;
    scene["layers"][2]["name"] = "Far";
    scene["layers"][2]["position"] = {1e300, 0, 0};
    const apptest::ToolRun r = run({writeScene("far.json", scene), "--gltf", path("far.gltf")});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("  --gltf leaves out \"Far\": its position or scale, before or after the run, is too large "
                         "for the file's single-precision numbers, or not a finite number\n"),
              std::string::npos)
        << r.out;
    const json doc = json::parse(apptest::readFile(path("far.gltf")));
    EXPECT_EQ(doc["nodes"][0]["name"], "Card 1");
    EXPECT_EQ(doc["nodes"][1]["name"], "Card 2");
    EXPECT_EQ(doc["nodes"][2]["name"], "Surface and composition frame");
    ASSERT_FALSE(doc["animations"][0]["channels"].empty());
    for (const json& channel : doc["animations"][0]["channels"]) {
        EXPECT_LT(channel["target"]["node"], 2) << "only the two cards move";
    }
}

}  // namespace
