// What --set and a scene's "settings" accept, in which order the dialog gets them, and what the
// command line takes.
#include "app/run/app_error.h"
#include "app/run/control_settings.h"
#include "app/run/options.h"
#include "controls/control_notes.h"
#include "controls/field_reading.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<app::ControlSetting> planOf(const std::vector<std::string>& assignments,
                                        const nlohmann::json& scene = nullptr) {
    app::SettingsPlan plan;
    plan.addSceneSettings(scene, "scene.json");
    for (const std::string& a : assignments) {
        plan.addAssignment(a);
    }
    return plan.inDialogOrder();
}

std::string errorOf(const std::vector<std::string>& assignments, const nlohmann::json& scene = nullptr) {
    try {
        planOf(assignments, scene);
    } catch (const app::AppError& e) {
        return e.what();
    }
    return "";
}

std::string names(const std::vector<app::ControlSetting>& plan) {
    std::string out;
    for (const app::ControlSetting& s : plan) {
        out += std::string(s.control->name) + "=" + app::shownValue(s) + " ";
    }
    return out;
}

TEST(SetAssignments, NumbersAreTakenAsAnEditFieldReadsThemAndAnythingElseRefusedSayingWhy) {
    const auto plan = planOf({"EDIT_DIM_X=+30", "EDIT_DIM_Y= 12 ", "EDIT_MIN_LONGITUDE=22.5",
                              "EDIT_SPHERE_CENTER_Y=-1e3", "EDIT_DIM_X=+31"});
    EXPECT_EQ(names(plan), "EDIT_DIM_X=+31 EDIT_DIM_Y= 12  EDIT_SPHERE_CENTER_Y=-1e3 EDIT_MIN_LONGITUDE=22.5 ");
    EXPECT_EQ(plan[0].where, "--set EDIT_DIM_X=+31");
    for (const char* bad : {"abc", "", "nan", "-"}) {
        EXPECT_EQ(errorOf({std::string("EDIT_DIM_X=") + bad}),
                  std::string("--set EDIT_DIM_X=") + bad + ": EDIT_DIM_X is an edit field and takes a number, not \"" +
                      bad + "\"")
            << bad;
    }
    EXPECT_EQ(errorOf({"EDIT_DIM_X=12mm"}),
              "--set EDIT_DIM_X=12mm: EDIT_DIM_X is an edit field and takes a number "
              "alone, and the field would ignore \"mm\" after \"12\"");
    EXPECT_NE(errorOf({"EDIT_DIM_X=1,5"}).find("would ignore \",5\" after \"1\""), std::string::npos);
}

// The field's own reading, shared by the plug-in's fields and the tool: text it does not read
// leaves the field with the number it held (nothing), whole-number fields truncate and clamp.
TEST(FieldReading, TextWithoutANumberOrLongerThanTheFieldReadsGivesNothing) {
    const ControlSpec& dim_x = *find_control(EDIT_DIM_X);
    const ControlSpec& repeats = *find_control(EDIT_REPEAT_COUNT);
    for (const ControlSpec* field : {&dim_x, &repeats}) {
        EXPECT_EQ(controls::fieldReading(*field, "abc"), std::nullopt);
        EXPECT_EQ(controls::fieldReading(*field, "7" + std::string(127, ' ')), std::nullopt);
        EXPECT_EQ(controls::fieldReading(*field, "7" + std::string(126, ' ')), 7.0);
    }
    EXPECT_EQ(controls::fieldReading(repeats, "2.9"), 2.0);
    EXPECT_EQ(controls::fieldReading(repeats, "-5"), 1.0);
    EXPECT_EQ(controls::fieldReading(dim_x, "0.05"), static_cast<double>(0.1f));
    EXPECT_EQ(control_note(0), nullptr);  // a control without a note reads as a fraction
}

TEST(SetAssignments, SwitchesRadiosAndUnknownNames) {
    EXPECT_EQ(names(planOf({"CHECK_DISTRIBUTE_EVENLY=on", "CHECK_CROP_TEXT_LAYERS=OFF", "CHECK_KEY_SCALE=true",
                            "RADIO_INWARD=on"})),
              "CHECK_DISTRIBUTE_EVENLY=on RADIO_OUTWARD=off RADIO_INWARD=on CHECK_KEY_SCALE=on "
              "CHECK_CROP_TEXT_LAYERS=off ");
    EXPECT_EQ(errorOf({"CHECK_KEY_SCALE=1200"}),
              "--set CHECK_KEY_SCALE=1200: CHECK_KEY_SCALE is a check box and takes on or off, not \"1200\"");
    EXPECT_NE(errorOf({"RADIO_SECTOR=off"})
                  .find("RADIO_SECTOR is a radio button and cannot be turned off; turn on "
                        "another of its group instead (RADIO_WHOLE_CYLINDER, RADIO_EQUATOR_ONLY)"),
              std::string::npos);
    EXPECT_NE(errorOf({"STATIC_DIM_X=1"}).find("STATIC_DIM_X is a static text and holds no value"), std::string::npos);
    EXPECT_NE(errorOf({"BUTTON_APPLY=on"}).find("BUTTON_APPLY is a push button and holds no value"), std::string::npos);
    const std::string message = errorOf({"EDIT_DIM_W=5"});
    EXPECT_EQ(
        message.rfind("--set EDIT_DIM_W=5: unknown control \"EDIT_DIM_W\". Valid names: EDIT_DIM_X, EDIT_DIM_Y", 0),
        0u);
    EXPECT_NE(message.find("CHECK_CROP_TEXT_LAYERS"), std::string::npos);
    EXPECT_EQ(message.find("STATIC_DIM_X"), std::string::npos);
    EXPECT_EQ(errorOf({"EDIT_DIM_X"}), "--set EDIT_DIM_X: expected NAME=VALUE");
}

TEST(SceneSettings, JsonValuesRadiosListedOffSetWinningAndErrorsNamingTheFile) {
    EXPECT_EQ(names(planOf({}, {{"EDIT_DIM_X", 1600},
                                {"EDIT_DIM_Y", 0.1},
                                {"CHECK_RANDOM_ORDER", true},
                                {"EDIT_DIM_Z", "900"},
                                {"CHECK_KEY_POSITION", "on"}})),
              "EDIT_DIM_X=1600 EDIT_DIM_Y=0.1 EDIT_DIM_Z=900 CHECK_RANDOM_ORDER=on CHECK_KEY_POSITION=on ");
    EXPECT_EQ(names(planOf({"RADIO_OUTWARD=on"}, {{"RADIO_OUTWARD", false}, {"RADIO_INWARD", true}})),
              "RADIO_OUTWARD=on RADIO_INWARD=off ");
    // "Begin at" Left and Right start off together: both off is their state, not a contradiction.
    EXPECT_EQ(names(planOf({}, {{"RADIO_BEGIN_LEFT", false}, {"RADIO_BEGIN_RIGHT", false}})),
              "RADIO_BEGIN_RIGHT=off RADIO_BEGIN_LEFT=off ");
    EXPECT_EQ(errorOf({}, {{"RADIO_OUTWARD", false}}),
              "scene.json: settings.RADIO_OUTWARD: RADIO_OUTWARD is off, but no other radio of its group "
              "(RADIO_INWARD) is on, and a radio button goes off only when another one is turned on");
    EXPECT_EQ(errorOf({}, {{"RADIO_OUTWARD", true}, {"RADIO_INWARD", true}}),
              "scene.json: settings.RADIO_OUTWARD: RADIO_INWARD of the same radio group is on as well");
    EXPECT_EQ(errorOf({}, {{"EDIT_DIM_X", true}}),
              "scene.json: settings.EDIT_DIM_X: EDIT_DIM_X is an edit field and takes a number, not \"on\"");
    EXPECT_NE(errorOf({}, {{"NOPE", 1}}).find("scene.json: settings.NOPE: unknown control \"NOPE\""),
              std::string::npos);
    EXPECT_EQ(errorOf({}, nlohmann::json::array()),
              "scene.json: settings: expected an object of control names and values");
    EXPECT_NE(errorOf({}, {{"EDIT_DIM_X", {1, 2}}}).find("expected a number, true or false, or a text"),
              std::string::npos);
}

TEST(ControlVocabulary, RadioGroupsRunOverConsecutiveIdentifiers) {
    auto group = [](const char* name) {
        std::string out;
        for (const ControlSpec* c : app::radioGroup(*find_control(name))) {
            out += std::string(c->name) + " ";
        }
        return out;
    };
    // The other groups are named by the messages of SetAssignments and SceneSettings.
    EXPECT_EQ(group("RADIO_BEGIN_FRONT"), "RADIO_BEGIN_FRONT RADIO_BEGIN_BACK ");
    EXPECT_EQ(app::numberText(-2.5e-7), "-2.5e-07");
    EXPECT_EQ(std::stod(app::numberText(1.0 / 3.0)), 1.0 / 3.0);
}

struct Parsed {
    app::Options options;
    app::ParseExit exit;
};

Parsed parsed(std::vector<const char*> args) {
    args.insert(args.begin(), "orbisett-host");
    Parsed p;
    p.options = app::parseOptions(static_cast<int>(args.size()), args.data(), "/default/module.so", p.exit)
                    .value_or(app::Options{});
    return p;
}

TEST(CommandLine, EveryOptionLandsInItsPlaceHelpAndVersion) {
    const Parsed p = parsed({"--set", "EDIT_DIM_X=1", "-", "--set", "EDIT_DIM_Y=2", "--undo", "--out", "-", "--preview",
                             "p.png", "--dialog", "d.svg", "--json-report", "r.json", "--quiet", "--no-apply"});
    EXPECT_EQ(p.exit.status, 0);
    EXPECT_EQ(p.options.scene, "-");
    EXPECT_EQ(p.options.sets, (std::vector<std::string>{"EDIT_DIM_X=1", "EDIT_DIM_Y=2"}));
    EXPECT_TRUE(p.options.undo && p.options.no_apply && p.options.quiet);
    EXPECT_EQ(p.options.out + p.options.preview + p.options.dialog + p.options.json_report, "-p.pngd.svgr.json");
    EXPECT_EQ(p.options.plugin, "/default/module.so");
    EXPECT_EQ(parsed({"--plugin", "m.so"}).options.plugin, "m.so");
    const Parsed help = parsed({"--help"});
    EXPECT_EQ(help.exit.status, 0);
    EXPECT_FALSE(help.exit.to_error);
    const std::string& text = help.exit.text;
    const std::size_t examples = text.find("Examples:");
    ASSERT_NE(examples, std::string::npos) << text;
    std::size_t runs = 0;
    for (std::size_t at = text.find("\n  orbisett-host", examples); at != std::string::npos;
         at = text.find("\n  orbisett-host", at + 1)) {
        ++runs;
    }
    EXPECT_EQ(runs, 3u);
    for (const char* option : {"--set NAME=VALUE", "--json-report", "--quiet", "--list-controls", "--version"}) {
        EXPECT_NE(text.find(option), std::string::npos) << option;
    }
    const Parsed version = parsed({"--version"});
    EXPECT_EQ(version.exit.status, 0);
    EXPECT_EQ(version.exit.text, "orbisett-host 1.3.2\n");
}

TEST(CommandLine, WrongLinesSayWhatIsWrong) {
    const std::pair<std::vector<const char*>, const char*> cases[] = {
        {{"--out", "a.json", "--out", "b.json"}, "--out is given 2 times (a.json, b.json); give it once"},
        {{"--set", "EDIT_DIM_X=1", "EDIT_DIM_Y=2"},
         "EDIT_DIM_Y=2: each setting needs its own --set (--set EDIT_DIM_Y=2); without it, it is taken as the scene "
         "file"},
        {{"s.json", "CHECK_KEY_SCALE=on"},
         "CHECK_KEY_SCALE=on: each setting needs its own --set (--set CHECK_KEY_SCALE=on)"},
        {{"a.json", "b.json"}, "b.json: a second scene; give one scene file at most"},
        {{"--bogus"}, "--bogus: unknown option (see --help)"},
        {{"--json-report", "-"}, "--json-report -: only --out writes to standard output"},
        {{"--out", "x.json", "--json-report", "x.json"}, "--out and --json-report name the same file x.json"},
    };
    for (const auto& [args, message] : cases) {
        const Parsed p = parsed(args);
        EXPECT_EQ(p.exit.status, 2) << message;
        EXPECT_TRUE(p.exit.to_error);
        EXPECT_EQ(p.exit.text, std::string("orbisett-host: ") + message + "\n");
    }
}

}  // namespace
