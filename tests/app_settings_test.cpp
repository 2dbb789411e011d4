// What --set and a scene's "settings" accept, and in which order the dialog gets them.
#include "app/app_error.h"
#include "app/control_settings.h"
#include "app/options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<app::ControlSetting> planOf(const std::vector<std::string>& assignments,
                                        const nlohmann::json& scene = nullptr)
{
    app::SettingsPlan plan;
    plan.addSceneSettings(scene, "scene.json");
    for (const std::string& a : assignments) {
        plan.addAssignment(a);
    }
    return plan.inDialogOrder();
}

std::string errorOf(const std::vector<std::string>& assignments, const nlohmann::json& scene = nullptr)
{
    try {
        planOf(assignments, scene);
    } catch (const app::AppError& e) {
        return e.what();
    }
    return "";
}

TEST(SetAssignments, EditsTakeNumbersAsTyped)
{
    const auto plan = planOf({"EDIT_DIM_X=1200", "EDIT_MIN_LONGITUDE=22.5", "EDIT_SPHERE_CENTER_Y=-1e3"});
    ASSERT_EQ(plan.size(), 3u);
    EXPECT_STREQ(plan[0].control->name, "EDIT_DIM_X");
    EXPECT_EQ(plan[0].text, "1200");
    EXPECT_STREQ(plan[1].control->name, "EDIT_SPHERE_CENTER_Y");
    EXPECT_EQ(plan[1].text, "-1e3");
    EXPECT_EQ(plan[2].text, "22.5");
}

TEST(SetAssignments, EditsRefuseWhatIsNotOneNumber)
{
    for (const char* bad : {"abc", "12mm", "", "inf", "nan", "+5", "1,5"}) {
        const std::string message = errorOf({std::string("EDIT_DIM_X=") + bad});
        EXPECT_NE(message.find("EDIT_DIM_X is an edit field and takes a number"), std::string::npos) << bad;
    }
}

TEST(SetAssignments, CheckBoxesTakeOnOrOff)
{
    const auto plan = planOf({"CHECK_DISTRIBUTE_EVENLY=on", "CHECK_CROP_TEXT_LAYERS=OFF", "CHECK_KEY_SCALE=true"});
    ASSERT_EQ(plan.size(), 3u);
    EXPECT_TRUE(plan[0].on);
    EXPECT_STREQ(plan[0].control->name, "CHECK_DISTRIBUTE_EVENLY");
    EXPECT_TRUE(plan[1].on);
    EXPECT_STREQ(plan[1].control->name, "CHECK_KEY_SCALE");
    EXPECT_FALSE(plan[2].on);
    EXPECT_NE(errorOf({"CHECK_KEY_SCALE=1200"}).find("CHECK_KEY_SCALE is a check box and takes on or off, not \"1200\""),
              std::string::npos);
}

TEST(SetAssignments, RadioOnWantsItsGroupMatesOff)
{
    const auto plan = planOf({"RADIO_INWARD=on"});
    ASSERT_EQ(plan.size(), 2u);
    EXPECT_STREQ(plan[0].control->name, "RADIO_OUTWARD");
    EXPECT_FALSE(plan[0].on);
    EXPECT_STREQ(plan[1].control->name, "RADIO_INWARD");
    EXPECT_TRUE(plan[1].on);
}

TEST(SetAssignments, RadioOffIsRefusedNamingTheOthers)
{
    EXPECT_NE(errorOf({"RADIO_OUTWARD=off"}).find("RADIO_OUTWARD is a radio button and cannot be turned off; turn on "
                                                  "another of its group instead (RADIO_INWARD)"),
              std::string::npos);
    EXPECT_NE(errorOf({"RADIO_SECTOR=off"}).find("(RADIO_WHOLE_CYLINDER, RADIO_EQUATOR_ONLY)"), std::string::npos);
}

TEST(SetAssignments, ControlsWithoutValuesAreRefused)
{
    EXPECT_NE(errorOf({"STATIC_DIM_X=1"}).find("STATIC_DIM_X is a static text and holds no value"), std::string::npos);
    EXPECT_NE(errorOf({"FRAME_ACTIVE_SURFACE=on"}).find("FRAME_ACTIVE_SURFACE is a frame and holds no value"),
              std::string::npos);
    EXPECT_NE(errorOf({"BUTTON_APPLY=on"}).find("BUTTON_APPLY is a push button and holds no value"), std::string::npos);
}

TEST(SetAssignments, UnknownNamesListTheValidOnes)
{
    const std::string message = errorOf({"EDIT_DIM_W=5"});
    EXPECT_NE(message.find("--set EDIT_DIM_W=5: unknown control \"EDIT_DIM_W\". Valid names: EDIT_DIM_X, EDIT_DIM_Y"),
              std::string::npos);
    EXPECT_NE(message.find("CHECK_CROP_TEXT_LAYERS"), std::string::npos);
    EXPECT_EQ(message.find("STATIC_DIM_X"), std::string::npos);
    EXPECT_NE(errorOf({"EDIT_DIM_X"}).find("expected NAME=VALUE"), std::string::npos);
}

TEST(SetAssignments, LaterAssignmentsWin)
{
    const auto plan = planOf({"EDIT_DIM_X=5", "EDIT_DIM_X=7"});
    ASSERT_EQ(plan.size(), 1u);
    EXPECT_EQ(plan[0].text, "7");
}

TEST(SceneSettings, ValuesAreTypedAsTheirJsonForm)
{
    const auto plan = planOf({}, {{"EDIT_DIM_X", 1600}, {"EDIT_DIM_Y", 0.1}, {"CHECK_RANDOM_ORDER", true},
                                  {"EDIT_DIM_Z", "900"}, {"CHECK_KEY_POSITION", "on"}});
    ASSERT_EQ(plan.size(), 5u);
    EXPECT_EQ(plan[0].text, "1600");
    EXPECT_EQ(plan[1].text, "0.1");
    EXPECT_EQ(plan[2].text, "900");
    EXPECT_TRUE(plan[3].on);
    EXPECT_TRUE(plan[4].on);
}

TEST(SceneSettings, RadiosMayBeListedOffBesideTheOneThatIsOn)
{
    const auto plan = planOf({}, {{"RADIO_OUTWARD", false}, {"RADIO_INWARD", true}});
    ASSERT_EQ(plan.size(), 2u);
    EXPECT_FALSE(plan[0].on);
    EXPECT_TRUE(plan[1].on);
}

TEST(SceneSettings, SetOverridesTheSceneAcrossARadioGroup)
{
    const auto plan = planOf({"RADIO_OUTWARD=on"}, {{"RADIO_OUTWARD", false}, {"RADIO_INWARD", true}});
    ASSERT_EQ(plan.size(), 2u);
    EXPECT_TRUE(plan[0].on);
    EXPECT_FALSE(plan[1].on);
}

TEST(SceneSettings, ErrorsNameTheFileAndTheSetting)
{
    EXPECT_NE(errorOf({}, {{"RADIO_OUTWARD", true}, {"RADIO_INWARD", true}})
                  .find("of the same radio group is on as well"),
              std::string::npos);
    EXPECT_NE(errorOf({}, {{"EDIT_DIM_X", true}}).find("scene.json: settings.EDIT_DIM_X: EDIT_DIM_X is an edit field"),
              std::string::npos);
    EXPECT_NE(errorOf({}, {{"NOPE", 1}}).find("scene.json: settings.NOPE: unknown control \"NOPE\""),
              std::string::npos);
    EXPECT_NE(errorOf({}, nlohmann::json::array()).find("scene.json: settings: expected an object"),
              std::string::npos);
    EXPECT_NE(errorOf({}, {{"EDIT_DIM_X", {1, 2}}}).find("expected a number, true or false, or a text"),
              std::string::npos);
}

TEST(ControlVocabulary, RadioGroupsRunOverConsecutiveIdentifiers)
{
    auto names = [](const char* name) {
        std::string out;
        for (const ControlSpec* c : app::radioGroup(*find_control(name))) {
            out += std::string(c->name) + " ";
        }
        return out;
    };
    EXPECT_EQ(names("RADIO_INWARD"), "RADIO_OUTWARD RADIO_INWARD ");
    EXPECT_EQ(names("RADIO_SECTOR"), "RADIO_WHOLE_CYLINDER RADIO_SECTOR RADIO_EQUATOR_ONLY ");
    EXPECT_EQ(names("RADIO_BEGIN_FRONT"), "RADIO_BEGIN_FRONT RADIO_BEGIN_BACK ");
    EXPECT_EQ(names("RADIO_BEGIN_RIGHT"), "RADIO_BEGIN_LEFT RADIO_BEGIN_RIGHT ");
}

TEST(ControlVocabulary, NumbersInShortestRoundTripForm)
{
    EXPECT_EQ(app::numberText(0.1), "0.1");
    EXPECT_EQ(app::numberText(1600), "1600");
    EXPECT_EQ(app::numberText(-2.5e-7), "-2.5e-07");
    EXPECT_EQ(std::stod(app::numberText(1.0 / 3.0)), 1.0 / 3.0);
}

app::Options parsed(std::vector<const char*> args, app::ParseExit& exit)
{
    args.insert(args.begin(), "orbisett-host");
    const auto options = app::parseOptions(static_cast<int>(args.size()), args.data(), "/default/module.so", exit);
    return options.value_or(app::Options{});
}

TEST(CommandLine, SetsKeepTheirOrderAndTheSceneStaysPositional)
{
    app::ParseExit exit;
    const app::Options o = parsed({"--set", "EDIT_DIM_X=1", "scene.json", "--set", "EDIT_DIM_Y=2", "--undo"}, exit);
    EXPECT_EQ(exit.status, 0);
    EXPECT_EQ(o.scene, "scene.json");
    EXPECT_EQ(o.sets, (std::vector<std::string>{"EDIT_DIM_X=1", "EDIT_DIM_Y=2"}));
    EXPECT_TRUE(o.undo);
    EXPECT_FALSE(o.no_apply);
    EXPECT_EQ(o.plugin, "/default/module.so");
}

TEST(CommandLine, EveryOutputAndTheModulePath)
{
    app::ParseExit exit;
    const app::Options o = parsed({"--out", "a.json", "--preview", "p.svg", "--dialog", "d.svg", "--plugin", "m.so",
                                   "--no-apply"},
                                  exit);
    EXPECT_FALSE(o.scene.has_value());
    EXPECT_EQ(o.out, "a.json");
    EXPECT_EQ(o.preview, "p.svg");
    EXPECT_EQ(o.dialog, "d.svg");
    EXPECT_EQ(o.plugin, "m.so");
    EXPECT_TRUE(o.no_apply);
}

TEST(CommandLine, WrongLinesExitWithTwoAndHelpWithZero)
{
    app::ParseExit wrong;
    parsed({"--bogus"}, wrong);
    EXPECT_EQ(wrong.status, 2);
    EXPECT_TRUE(wrong.to_error);
    EXPECT_NE(wrong.text.find("--bogus"), std::string::npos);

    app::ParseExit help;
    parsed({"--help"}, help);
    EXPECT_EQ(help.status, 0);
    EXPECT_FALSE(help.to_error);
    EXPECT_NE(help.text.find("--set NAME=VALUE"), std::string::npos);
}

}  // namespace
