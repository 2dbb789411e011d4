// The table printed after a run: what the run did to each layer, every column holding its own
// property, names that cannot break a row, numbers that stay short.
#include "app/report/display_text.h"
#include "app/report/layer_table.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

struct Fixture {
    host::Project project;
    host::Id comp = 0;
    host::Id card = 0;

    Fixture() {
        comp = project.addComp("Main", 1920, 1080);
        card = project.addLayer(comp, "Card", AEGP_ObjectType_AV, true, project.addFootage("card", 400, 300));
        project.layer(card)->scene_number = 1;
    }
};

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        out.push_back(line);
    }
    return out;
}

TEST(LayerChange, UnchangedMovedKeyedAndCopied) {
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

TEST(LayerTable, EveryColumnHoldsItsOwnProperty) {
    Fixture f;
    f.project.addLayer(f.comp, "Sky", AEGP_ObjectType_AV, false);
    host::Project after = f.project;
    host::Layer& card = *after.layer(f.card);
    using host::Prop;
    // Distinct values per property and axis, and 1, 2, 3 and 4 keys on Position, Orientation,
    // Scale and the rotations; the current time (0) sits on the first key of each.
    card.prop(Prop::position).insertKey({0, 1}, {1.25, -2.5, 3});
    card.prop(Prop::orientation).insertKey({0, 1}, {40, 50, 60});
    card.prop(Prop::orientation).insertKey({1, 1}, {0, 0, 0});
    card.prop(Prop::scale).value = {70, 80, 90};
    for (int t = 0; t < 3; ++t) {
        card.prop(Prop::scale).insertKey({t, 1}, {70, 80, 90});
    }
    card.prop(Prop::rotate_x).insertKey({0, 1}, {5, 0, 0});
    for (int t = 0; t < 3; ++t) {
        card.prop(Prop::rotate_z).insertKey({t, 1}, {6, 0, 0});
    }
    const std::vector<std::string> rows = lines(app::layerTable(f.project, after));
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0], "Composition \"Main\", 1920 x 1080, 2 layers");
    EXPECT_EQ(rows[1], "#  name  type   position        orientation       scale                keys P/O/S/R  run");
    EXPECT_EQ(rows[2], "1  Card  av     1.2, -2.5, 3.0  40.0, 50.0, 60.0   70.0,  80.0,  90.0  1/2/3/4       moved");
    EXPECT_EQ(rows[3], "2  Sky   av 2D  0.0,  0.0, 0.0   0.0,  0.0,  0.0  100.0, 100.0, 100.0  0/0/0/0");
}

TEST(LayerTable, NamesAndNumbersCannotBreakTheRowsAndLineUp) {
    Fixture f;
    for (const char* name : {"Åsa", "日本", "two\nlines", "bell\x07", "bad\xff", "e\xcc\x81"}) {
        f.project.addLayer(f.comp, name, AEGP_ObjectType_TEXT, true);
    }
    const std::vector<std::string> rows = lines(app::layerTable(f.project, f.project));
    ASSERT_EQ(rows.size(), 9u);
    EXPECT_NE(rows[5].find("two\\nlines"), std::string::npos);
    EXPECT_NE(rows[6].find("bell\\u{0007}"), std::string::npos);
    EXPECT_NE(rows[7].find("bad\\xFF"), std::string::npos);
    // The type column starts at the same terminal column in every row.
    const std::size_t column = app::displayWidth(rows[1].substr(0, rows[1].find("type")));
    for (std::size_t i = 2; i < rows.size(); ++i) {
        const std::size_t at = std::min(rows[i].find(" text"), rows[i].find(" av"));
        EXPECT_EQ(app::displayWidth(rows[i].substr(0, at + 1)), column) << rows[i];
    }
    EXPECT_EQ(app::displayWidth("日本"), 4u);
    EXPECT_EQ(app::displayWidth("e\xcc\x81"), 1u);
    EXPECT_EQ(app::escapedText("a\\b\t\xe2\x80\xae"), "a\\\\b\\t\\u{202E}");
    EXPECT_EQ(app::tableNumber(1e60), "1.00e+60");
    EXPECT_EQ(app::tableNumber(-1.7e308), "-1.70e+308");
    EXPECT_EQ(app::tableNumber(-9999999.94), "-9999999.9");
    EXPECT_EQ(app::tableNumber(-9999999.96), "-1.00e+07");
    EXPECT_EQ(app::tableNumber(123456789), "1.23e+08");
    EXPECT_EQ(app::tableNumber(-0.04), "0.0");
    EXPECT_EQ(app::tableNumber(1e-300), "0.0");
}

}  // namespace
