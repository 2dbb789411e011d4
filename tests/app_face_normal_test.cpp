// The preview turns each layer by the orientation the plug-in wrote; the face it draws must look
// along the cylinder's normal at the layer's place: outward, or inward with "Inward".
#include "app_tool.h"

#include "app/preview_scene.h"
#include "host/scene_file.h"

#include <cmath>

namespace {

using apptest::cardScene;
using app::Vec3;
using app::operator*;

class FaceNormals : public apptest::ToolTest {
protected:
    // Eight layers 45 degrees apart: front, right, back, left and the places between.
    std::vector<app::PlacedLayer> arranged(const std::vector<std::string>& sets, nlohmann::json* settings)
    {
        std::vector<std::string> args{writeScene("s.json", cardScene(8)), "--set", "EDIT_DIM_Z=600"};
        args.insert(args.end(), sets.begin(), sets.end());
        const nlohmann::json after = runForScene(args);
        *settings = after["settings"];
        const host::Scene read = host::parseScene(after.dump(), "after.json");
        return app::placeLayers(read.project, read.project.comps.front());
    }

    // The ellipse's outward normal at a point, host frame: along (x / a², 0, z / b²).
    static Vec3 outwardAt(const Vec3& p, const app::CylinderShape& c)
    {
        const Vec3 d{p.x - c.centre.x, 0, p.z - c.centre.z};
        return app::normalized({d.x / (c.half_x * c.half_x), 0, d.z / (c.half_z * c.half_z)});
    }

    void expectFacing(const std::vector<std::string>& sets, double sense)
    {
        nlohmann::json settings;
        const std::vector<app::PlacedLayer> placed = arranged(sets, &settings);
        host::Comp comp;
        comp.width = 1920;
        comp.height = 1080;
        const app::CylinderShape cylinder = app::cylinderFromSettings(settings, comp);
        ASSERT_EQ(placed.size(), 8u);
        for (const app::PlacedLayer& layer : placed) {
            const Vec3 expected = sense * outwardAt(layer.centre, cylinder);
            EXPECT_NEAR(layer.normal.x, expected.x, 1e-9) << layer.name;
            EXPECT_NEAR(layer.normal.y, expected.y, 1e-9) << layer.name;
            EXPECT_NEAR(layer.normal.z, expected.z, 1e-9) << layer.name;
        }
        // The places really go round: front, right, back and left are all taken.
        EXPECT_LT(placed[0].centre.z, cylinder.centre.z - 299);
        EXPECT_GT(placed[2].centre.x, cylinder.centre.x + 499);
        EXPECT_GT(placed[4].centre.z, cylinder.centre.z + 299);
        EXPECT_LT(placed[6].centre.x, cylinder.centre.x - 499);
    }
};

TEST_F(FaceNormals, OutwardLayersFaceAwayFromTheAxis) { expectFacing({}, 1.0); }

TEST_F(FaceNormals, InwardLayersFaceTheAxis) { expectFacing({"--set", "RADIO_INWARD=on"}, -1.0); }

}  // namespace
