// The built tool's runs as a whole: undo, the written scene read back, standard input and output,
// the dialog picture, the edit field's length limit, the list of controls.
#include "app_tool.h"

namespace {

using apptest::cardScene;
using nlohmann::json;

class Runs : public apptest::ToolTest {};

TEST_F(Runs, UndoRestoresTheSceneAsItWasReadCopiesGoneAndAWrittenSceneRunsAgainToTheSame) {
    const std::string scene = writeScene("s.json", cardScene(5));
    const json before = runForScene({scene, "--no-apply"});
    // The copies a run made go with its undo too.
    const apptest::ToolRun undone = run(
        {scene, "--set", "RADIO_INWARD=on", "--set", "CHECK_REPEAT_LAYERS=on", "--undo", "--out", path("undone.json")});
    ASSERT_EQ(undone.status, 0) << undone.err;

    const json after = json::parse(apptest::readFile(path("undone.json")));
    EXPECT_EQ(after["layers"], before["layers"]);
    ASSERT_EQ(after["undo_groups"].size(), 1u);
    EXPECT_EQ(after["undo_groups"][0]["name"], "Orbisett");
    EXPECT_EQ(after["undo_groups"][0]["undone"], true);
    // Nothing in the table is marked as changed.
    EXPECT_EQ(undone.out.find("moved"), std::string::npos);
    // A written scene runs again to the same scene.
    json set = cardScene(6, 300, 200);
    set["settings"] = {{"EDIT_DIM_X", 1600}, {"RADIO_INWARD", true}, {"CHECK_KEY_POSITION", true}};
    const std::string first = writeScene("s.json", set);
    ASSERT_EQ(run({first, "--set", "EDIT_MIN_LONGITUDE=30.5", "--out", path("one.json")}).status, 0);
    const apptest::ToolRun again = run({path("one.json"), "--out", path("two.json")});
    ASSERT_EQ(again.status, 0) << again.err;
    EXPECT_EQ(apptest::readFile(path("two.json")), apptest::readFile(path("one.json")));

    // The settings record every control that holds a value, as the dialog held it.
    const json written = json::parse(apptest::readFile(path("one.json")))["settings"];
    EXPECT_EQ(written.size(), 42u);
    EXPECT_EQ(written["EDIT_DIM_X"], 1600);
    EXPECT_EQ(written["EDIT_MIN_LONGITUDE"], 30.5);
    EXPECT_EQ(written["RADIO_INWARD"], true);
    EXPECT_EQ(written["RADIO_OUTWARD"], false);
    EXPECT_EQ(written["EDIT_DIM_Y"], 2000);
    EXPECT_EQ(written["CHECK_USE_COMP_CENTER"], true);
}

TEST_F(Runs, StandardInputAndOutputAndEditFieldsOfAtMost127Characters) {
    const std::string scene = cardScene(3).dump();
    const apptest::ToolRun piped = run({"-", "--set", "RADIO_INWARD=on", "--out", "-"}, scene);
    ASSERT_EQ(piped.status, 0) << piped.err;
    // The scene alone on standard output, as it is written to a file; the table and the summary
    // go to standard error.
    const apptest::ToolRun filed =
        run({writeScene("s.json", cardScene(3)), "--set", "RADIO_INWARD=on", "--out", path("after.json")});
    EXPECT_EQ(piped.out, apptest::readFile(path("after.json")));
    EXPECT_NE(filed.out.find("Summary\n"), std::string::npos);
    EXPECT_EQ(piped.err, filed.out);
    // 127 characters are typed and read; at 128 the field would read nothing and keep its number.
    const std::string one = writeScene("s.json", cardScene(1));
    const json fits = runForScene({one, "--set", "EDIT_DIM_X=" + std::string(123, '0') + "1500"});
    EXPECT_EQ(fits["settings"]["EDIT_DIM_X"], 1500);
    const apptest::ToolRun longer = run({one, "--set", "EDIT_DIM_X=" + std::string(124, '0') + "1500"});
    EXPECT_EQ(longer.status, 2);
    EXPECT_EQ(longer.err, "orbisett-host: --set EDIT_DIM_X=" + std::string(124, '0') +
                              "1500: EDIT_DIM_X is an edit field, which reads only the first 127 characters of a "
                              "number; this one has 128\n");
}

TEST_F(Runs, ListOfControls) {
    const apptest::ToolRun r = run({"--list-controls"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 44);  // a heading, 42 controls, a closing note
    EXPECT_EQ(r.out.rfind("name                       kind          value", 0), 0u) << r.out;
    const std::size_t first = r.out.find('\n') + 1;
    EXPECT_EQ(r.out.substr(first, r.out.find('\n', first) - first),
              "EDIT_DIM_X                 edit field    0.1 to 1e+07, initially 1000          shown   "
              "cylinder width along X, \"Bounding Box\" X");
    EXPECT_NE(r.out.find("\nEDIT_REPEAT_COUNT          edit field    whole number 1 to 10000, initially 1  shown"),
              std::string::npos);
    EXPECT_NE(r.out.find("\nRADIO_SECTOR               radio button  on, initially off                     hidden"),
              std::string::npos);
}

class DialogPicture : public apptest::ToolTest {};

TEST_F(DialogPicture, TheWindowOrThePanelAsTheRunLeftIt) {
    for (const bool panels : {false, true}) {
        const apptest::ToolRun r =
            run({writeScene("s.json", cardScene(2, 200, 150, panels)), "--set", "CHECK_RANDOM_ORDER=on", "--set",
                 "CHECK_DONT_INTERSECT=on", "--dialog", path("d.svg")});
        ASSERT_EQ(r.status, 0) << r.err;
        const std::string svg = apptest::readFile(path("d.svg"));
        // A window has its title drawn; a panel has none. Hidden controls set by force stay hidden.
        EXPECT_EQ(svg.find(">Orbisett</text>") != std::string::npos, !panels);
        EXPECT_EQ(svg.find("Don't Intersect"), std::string::npos);
        // The check box set on is drawn checked.
        const std::size_t random = svg.find("data-id=\"521\"");
        ASSERT_NE(random, std::string::npos);
        EXPECT_LT(svg.find("data-value=\"1\"", random), svg.find("</g>", random));
    }
}

}  // namespace
