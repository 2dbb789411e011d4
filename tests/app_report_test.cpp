// The summary after the table and its warnings, as the built tool prints them and writes them
// with --json-report: one run per warning, with the setting that causes it and the exact line.
#include "app_tool.h"

namespace {

using apptest::cardScene;
using nlohmann::json;

class Report : public apptest::ToolTest {
protected:
    // The warning lines of a run, as printed; checks that the JSON report lists the same.
    std::vector<std::string> warnings(const json& scene, const std::vector<std::string>& sets,
                                      const std::vector<std::string>& more = {}) {
        std::vector<std::string> args{writeScene("s.json", scene), "--json-report", path("report.json")};
        args.insert(args.end(), more.begin(), more.end());
        for (const std::string& s : sets) {
            args.push_back("--set");
            args.push_back(s);
        }
        const apptest::ToolRun r = run(args);
        EXPECT_EQ(r.status, 0) << r.err;
        std::vector<std::string> printed;
        const std::size_t section = r.out.find("\nWarnings\n");
        std::istringstream lines(section == std::string::npos ? "" : r.out.substr(section + 10));
        for (std::string line; std::getline(lines, line);) {
            printed.push_back(line.substr(2));
        }
        std::vector<std::string> reported;
        const json report = json::parse(apptest::readFile(path("report.json")));
        for (const json& w : report["warnings"]) {
            reported.push_back(w["text"]);
        }
        EXPECT_EQ(printed, reported);
        return printed;
    }

    using Lines = std::vector<std::string>;
};

TEST_F(Report, ValuesTheFieldReadsOtherwiseAndSettingsTheDialogGreysOut) {
    EXPECT_EQ(warnings(cardScene(2), {"EDIT_DIM_X=-100"}), Lines{"EDIT_DIM_X: typed -100, the field reads 0.1"});
    EXPECT_EQ(warnings(cardScene(2), {"CHECK_REPEAT_LAYERS=on", "EDIT_REPEAT_COUNT=2.5"}),
              Lines{"EDIT_REPEAT_COUNT: typed 2.5, the field reads 2"});
    EXPECT_EQ(warnings(cardScene(2), {"EDIT_MIN_LONGITUDE=+400"}),
              Lines{"EDIT_MIN_LONGITUDE: typed +400, the field reads 360"});
    EXPECT_EQ(warnings(cardScene(2), {"CHECK_REPEAT_LAYERS=on", "EDIT_REPEAT_COUNT=1000000000"}),
              (Lines{"EDIT_REPEAT_COUNT: typed 1000000000, the field reads 10000",
                     "EDIT_REPEAT_COUNT: 10000 repeats of 2 layers ask for 20000 copies; 326 were made (the repeats "
                     "were cut to what fits)"}));
    // Steps so small that the search for a free place would outlast the layout's bound on work.
    EXPECT_EQ(warnings(cardScene(2), {"EDIT_MIN_LONGITUDE=1e-30", "CHECK_DONT_INTERSECT=on"}),
              Lines{"the layout stopped looking for places after 600000 steps, before its rows were used up: the layer "
                    "not reached might fit with larger steps (EDIT_MIN_LONGITUDE, EDIT_MIN_LATITUDE and their "
                    "increments)"});
    // Held in single precision like the field, 0.1 is read as typed.
    EXPECT_EQ(warnings(cardScene(2), {"EDIT_DIM_Y=0.1", "EDIT_DIM_X= 1e3 "}), Lines{});
    EXPECT_EQ(warnings(cardScene(2), {"CHECK_CREATE_RING=on"}),
              Lines{"CHECK_CREATE_RING: set on, but the dialog greys it out: it acts only with RADIO_EQUATOR_ONLY on "
                    "and CHECK_RADIUS_BY_FIRST off (or overruled by CHECK_DISTRIBUTE_EVENLY)"});
    EXPECT_EQ(warnings(cardScene(2), {"CHECK_SECTOR_RIGHT=on"}),
              Lines{"CHECK_SECTOR_RIGHT: set on, but the dialog greys it out: the sector boxes act only with "
                    "RADIO_SECTOR on"});
    EXPECT_EQ(warnings(cardScene(2), {"EDIT_REPEAT_COUNT=3"}),
              Lines{"EDIT_REPEAT_COUNT: set 3, but the dialog greys it out: it acts only with CHECK_REPEAT_LAYERS on"});
    EXPECT_EQ(warnings(cardScene(2), {"EDIT_MAX_LATITUDE=80", "RADIO_BEGIN_LEFT=on"}),
              (Lines{"EDIT_MAX_LATITUDE: set 80, but it never acts: the layout does not read this field; the dialog "
                     "only keeps it",
                     "RADIO_BEGIN_LEFT: set on, but it never acts: RADIO_BEGIN_FRONT or RADIO_BEGIN_BACK, a radio "
                     "group of their own, is always on, and the layout asks them first"}));
    // Where they act, and at their initial values, the same controls give no warning.
    EXPECT_EQ(warnings(cardScene(2), {"RADIO_EQUATOR_ONLY=on", "CHECK_CREATE_RING=on", "EDIT_REPEAT_COUNT=1",
                                      "CHECK_SECTOR_FRONT=on", "EDIT_MAX_LATITUDE=50"}),
              Lines{});
}

TEST_F(Report, RepeatsTheHostMadeOtherwiseOrCutAndLayersThePreviewCannotDraw) {
    const Lines sequentially{
        "CHECK_REPEAT_SEQUENTIALLY: on, but the host made the copies with AEGP_DuplicateLayer (AEGP Layer Suite/10), "
        "which puts each copy above its original; it acts only on a host without that suite, where copies come from "
        "the Duplicate command"};
    const std::vector<std::string> repeat{"CHECK_REPEAT_LAYERS=on", "CHECK_REPEAT_SEQUENTIALLY=on"};
    EXPECT_EQ(warnings(cardScene(2), repeat), sequentially);
    json older = cardScene(2);
    older["host"]["withhold"] = {"AEGP Layer Suite/10"};
    EXPECT_EQ(warnings(older, repeat), Lines{});
    json scene = cardScene(2);
    scene["layers"][1]["scale"] = {1e300, 1e300, 100};
    EXPECT_EQ(warnings(scene, {}, {"--preview", path("p.svg")}),
              Lines{"--preview leaves out \"Card 2\": its corners are too large or not finite numbers, so it cannot be "
                    "drawn"});
    EXPECT_EQ(warnings(scene, {}, {"--html", path("p.html")}),
              Lines{"--html leaves out \"Card 2\": its corners, before or after the run, are too large or not finite "
                    "numbers, so it cannot be drawn"});
    EXPECT_EQ(warnings(scene, {}), Lines{});  // without a picture nothing is left out
}

// The ring's last panel is sized to close it; the summary, the report and the caption say how far,
// from the scale the run wrote. 400/100/100 was worked out apart from this code: 300.58 %.
TEST_F(Report, ARingThatDidNotCloseEvenlySaysHowItsLastPanelWasSized) {
    const auto ring = [this](const std::vector<int>& widths) {
        json scene = cardScene(static_cast<int>(widths.size()));
        for (std::size_t i = 0; i < widths.size(); ++i) {
            scene["layers"][i]["source"]["width"] = widths[i];
        }
        return run({writeScene("s.json", scene), "--set", "RADIO_EQUATOR_ONLY=on", "--set", "CHECK_CREATE_RING=on",
                    "--json-report", path("report.json"), "--preview", path("p.svg"), "--out", path("after.json")});
    };
    const std::string wider = "the last layer, \"Card 3\", was stretched to 300.6 % of its width to close it";
    const apptest::ToolRun uneven = ring({400, 100, 100});
    ASSERT_EQ(uneven.status, 0) << uneven.err;
    EXPECT_NE(uneven.out.find("                the ring did not close evenly: " + wider + "\n"), std::string::npos)
        << uneven.out;
    EXPECT_EQ(json::parse(apptest::readFile(path("report.json")))["surface"]["notes"].back(),
              "the ring did not close evenly: " + wider);
    EXPECT_NE(apptest::readFile(path("p.svg")).find("stretched to 300.6 %"), std::string::npos);

    // One panel too wide: the last is made narrower, by as much as the scale the run wrote says.
    const apptest::ToolRun narrower = ring({100, 100, 100, 100, 130});
    EXPECT_NE(narrower.out.find("\"Card 5\", was narrowed to 96.6 % of its width"), std::string::npos) << narrower.out;
    EXPECT_NEAR(json::parse(apptest::readFile(path("after.json")))["layers"][4]["scale"][0].get<double>(), 96.6, 0.05);
    // Even widths close to within rounding: the last panel keeps its width, and nothing is said.
    const apptest::ToolRun even = ring({100, 100, 100, 100});
    EXPECT_EQ(even.out.find("did not close evenly"), std::string::npos) << even.out;
}

TEST_F(Report, SummaryNamesTheLayersTheLayoutDidNotReachOrWhyNothingWasArranged) {
    // Four places a row, three rows: the thirteenth layer finds none.
    const apptest::ToolRun r =
        run({writeScene("s.json", cardScene(13)), "--set", "EDIT_MIN_LONGITUDE=90", "--set", "EDIT_MIN_LATITUDE=50",
             "--set", "EDIT_DIM_Y=100", "--json-report", path("report.json")});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("13  Card 13  av    1920.0, 1080.0,    0.0     0.0,   0.0,    0.0  100.0, 100.0, 100.0  "
                         "0/0/0/0       moved, not reached\n"),
              std::string::npos)
        << r.out;
    const std::size_t summary = r.out.find("Summary\n");
    ASSERT_NE(summary, std::string::npos);
    EXPECT_EQ(r.out.substr(summary),
              "Summary\n"
              "  arranged:     12 of 13 layers (13 selected layers, no copies made)\n"
              "  not reached:  1: #13 \"Card 13\" (it kept its place, plus the offset (960.0, 540.0, 0.0) added "
              "to every position written)\n"
              "  surface:      Given steps: circle of radius 500, centre (960, 540, 0), y from 490 to 590\n"
              "  undo:         1 group: \"Orbisett\"\n");
    const json report = json::parse(apptest::readFile(path("report.json")));
    EXPECT_EQ(report["not_reached"], json::parse(R"([{"layer": 13, "name": "Card 13"}])"));
    EXPECT_EQ(report["arranged"], 12);
    EXPECT_EQ(report["status"], 0);
    // Two rows of three places: the repeat cut keeps the first six of the list and leaves the
    // seventh selected layer unwritten, which is the layout's choice, not a failure.
    // A host without the duplication call reads the same: a cut that short makes no copies.
    json older = cardScene(7);
    older["host"]["withhold"] = {"AEGP Layer Suite/10"};
    for (const json& shortened : {cardScene(7), older}) {
        const apptest::ToolRun cut =
            run({writeScene("s.json", shortened), "--set", "EDIT_MIN_LONGITUDE=120", "--set", "EDIT_DIM_Y=50", "--set",
                 "CHECK_REPEAT_LAYERS=on", "--preview", path("p.svg")});
        EXPECT_NE(apptest::readFile(path("p.svg")).find("Not written by the run, exactly as they were: Card 7."),
                  std::string::npos);
        EXPECT_EQ(cut.status, 0) << cut.err;
        EXPECT_NE(cut.out.find("  arranged:     6 of 6 layers (7 selected layers, no copies made)\n"
                               "  not reached:  none\n"
                               "  left out:     1: #7 \"Card 7\" (it was not written: the repeats were cut to the "
                               "places that fit, and the cut took it from the list too)\n"),
                  std::string::npos)
            << cut.out;
    }
    const std::string scene = writeScene("s.json", cardScene(3));
    EXPECT_NE(run({scene, "--no-apply"})
                  .out.find("  arranged:     nothing: \"Apply\" was not pressed (3 selected layers, no copies made)\n"),
              std::string::npos);
    // Selected layers the command does not take are named with their types.
    json with_others = cardScene(2);
    with_others["layers"][0]["type"] = "camera";
    with_others["layers"][0].erase("source");
    with_others["layers"][1]["three_d"] = false;
    with_others["layers"].push_back(cardScene(1)["layers"][0]);
    const apptest::ToolRun others = run({writeScene("o.json", with_others), "--json-report", path("report.json")});
    ASSERT_EQ(others.status, 0) << others.err;
    EXPECT_NE(others.out.find("  arranged:     1 of 1 layer (1 selected layer, no copies made)\n"
                              "  not reached:  none\n"
                              "  not taken:    2: #1 \"Card 1\" (camera), #2 \"Card 2\" (av 2D) (selected, but the "
                              "command did not take them)\n"),
              std::string::npos)
        << others.out;
    EXPECT_EQ(json::parse(apptest::readFile(path("report.json")))["not_taken"],
              json::parse(R"([{"layer": 1, "name": "Card 1", "type": "camera"},
                              {"layer": 2, "name": "Card 2", "type": "av 2D"}])"));
    // A sector with no box ticked keeps every turn, also where the placement ignores the sector.
    const apptest::ToolRun unturned = run(
        {scene, "--set", "RADIO_SECTOR=on", "--set", "CHECK_DISTRIBUTE_EVENLY=on", "--set", "CHECK_SECTOR_FRONT=off"});
    EXPECT_NE(unturned.out.find("  arranged:     3 of 3 layers (3 selected layers, no copies made)\n"),
              std::string::npos);
    EXPECT_NE(unturned.out.find("                the layers were placed but not turned: with RADIO_SECTOR on and no "
                                "sector box ticked, \"Apply\" leaves Orientation and the rotations as they were\n"),
              std::string::npos)
        << unturned.out;
    // Steps of 0, or too small to move a layer, pile the layers on the first place: in front, at the
    // bottom of the 2000-high box.
    for (const char* step : {"EDIT_MIN_LONGITUDE=0", "EDIT_MIN_LONGITUDE=1e-30"}) {
        EXPECT_EQ(warnings(cardScene(3), {step, "EDIT_MIN_LATITUDE=0"}),
                  Lines{"3 arranged layers share their place with another, \"Card 1\", \"Card 2\", \"Card 3\" at "
                        "(960.0, 1540.0, -500.0): a step of 0, or one too small to move a layer, between places "
                        "(EDIT_MIN_LONGITUDE, EDIT_MIN_LATITUDE and their increments) puts layers on one spot"})
            << step;
    }
    EXPECT_EQ(warnings(cardScene(3), {}, {"--no-apply", "--undo"}),
              Lines{"--undo: nothing to take back, \"Apply\" was not pressed (--no-apply)"});
    const apptest::ToolRun undone = run({scene, "--undo", "--set", "CHECK_REPEAT_LAYERS=on"});
    EXPECT_NE(undone.out.find("  arranged:     nothing left: the step was undone (it had 3 selected layers, 3 copies "
                              "made)\n"),
              std::string::npos);
    EXPECT_NE(undone.out.find("  undo:         1 group: \"Orbisett\" (undone)\n"), std::string::npos);
    const apptest::ToolRun quiet = run({scene, "--quiet", "--set", "EDIT_DIM_X=-1"});
    EXPECT_EQ(quiet.status, 0);
    EXPECT_EQ(quiet.out + quiet.err, "");
}

}  // namespace
