// The report table: what a run did to each layer, and how the rows read.
#include "app/layer_table.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

struct Fixture {
    host::Project project;
    host::Id comp = 0;
    host::Id card = 0;
    host::Id camera = 0;

    Fixture()
    {
        comp = project.addComp("Main", 1920, 1080);
        const host::Id footage = project.addFootage("card", 400, 300);
        card = project.addLayer(comp, "Card", AEGP_ObjectType_AV, true, footage);
        camera = project.addLayer(comp, "Camera", AEGP_ObjectType_CAMERA, true);
        project.layer(card)->scene_number = 1;
        project.layer(camera)->scene_number = 2;
    }
};

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        out.push_back(line);
    }
    return out;
}

TEST(LayerChange, UnchangedMovedAndCopied)
{
    Fixture f;
    host::Project after = f.project;
    EXPECT_EQ(app::layerChange(f.project, *after.layer(f.card)), "");

    after.layer(f.card)->prop(host::Prop::orientation).value.y = -45;
    EXPECT_EQ(app::layerChange(f.project, *after.layer(f.card)), "moved");

    host::Project keyed = f.project;
    keyed.layer(f.card)->prop(host::Prop::position).insertKey({0, 30}, {0, 0, 0});
    EXPECT_EQ(app::layerChange(f.project, *keyed.layer(f.card)), "moved");

    const host::Id copy = after.duplicate(f.card);
    after.layer(copy)->copy_of = f.card;
    EXPECT_EQ(app::layerChange(f.project, *after.layer(copy)), "copy of 1");
}

TEST(LayerTable, OneRowPerLayerInLayerOrder)
{
    Fixture f;
    host::Project after = f.project;
    after.layer(f.card)->prop(host::Prop::position).value = {960, 1540, -500.04};
    after.layer(f.card)->prop(host::Prop::orientation).value = {-0.0, -45, -0.0};
    after.layer(f.card)->prop(host::Prop::position).insertKey({0, 1}, {960, 1540, -500.04});
    const std::vector<std::string> rows = lines(app::layerTable(f.project, after));
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0], "Composition \"Main\", 1920 x 1080, 2 layers");
    EXPECT_EQ(rows[1].substr(0, 9), "#  name  ");
    EXPECT_NE(rows[2].find("1  Card    av      960.0, 1540.0, -500.0  0.0, -45.0, 0.0"), std::string::npos);
    EXPECT_NE(rows[2].find("100.0, 100.0, 100.0  1/0/0/0       moved"), std::string::npos);
    EXPECT_NE(rows[3].find("2  Camera  camera  0.0, 0.0, 0.0"), std::string::npos);
    EXPECT_EQ(rows[3].substr(rows[3].size() - 7), "0/0/0/0");
}

TEST(LayerTable, MarksTwoDimensionalLayers)
{
    Fixture f;
    f.project.addLayer(f.comp, "Backdrop", AEGP_ObjectType_AV, false);
    const std::vector<std::string> rows = lines(app::layerTable(f.project, f.project));
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_NE(rows[4].find("3  Backdrop  av 2D"), std::string::npos);
}

}  // namespace
