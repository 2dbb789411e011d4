#include "app/run/demo_scene.h"

#include <array>
#include <string>
#include <utility>

namespace app {

namespace {

constexpr int kCompWidth = 1920;
constexpr int kCompHeight = 1080;
constexpr int kCardCount = 24;

// Card sizes cycle through a few common formats, so the rows show mixed widths and heights.
constexpr std::array<std::pair<int, int>, 5> kCardSizes{{{400, 300}, {320, 320}, {480, 270}, {300, 400}, {360, 240}}};

nlohmann::json layer(const std::string& name, const char* type, bool three_d, nlohmann::json position, bool selected) {
    return {{"name", name},
            {"type", type},
            {"three_d", three_d},
            {"position", std::move(position)},
            {"scale", {100, 100, 100}},
            {"orientation", {0, 0, 0}},
            {"rotation", {0, 0, 0}},
            {"selected", selected}};
}

nlohmann::json card(int number) {
    const auto [width, height] = kCardSizes[static_cast<std::size_t>(number - 1) % kCardSizes.size()];
    // Before the run the cards lie flat in a grid in front of the camera.
    const int column = (number - 1) % 6;
    const int row = (number - 1) / 6;
    nlohmann::json card =
        layer("Card " + std::to_string(number), "av", true, {160 + column * 320, 140 + row * 260, 0}, true);
    card["source"] = {{"width", width}, {"height", height}};
    return card;
}

}  // namespace

nlohmann::json demoSceneJson() {
    nlohmann::json layers = nlohmann::json::array();
    nlohmann::json title = layer("Title", "text", true, {kCompWidth / 2, kCompHeight / 2, -200}, true);
    title["scale"] = {25, 25, 100};
    layers.push_back(std::move(title));
    for (int number = 1; number <= kCardCount; ++number) {
        layers.push_back(card(number));
    }
    layers.push_back(layer("Camera", "camera", true, {kCompWidth / 2, kCompHeight / 2, -2666.7}, false));
    nlohmann::json background = layer("Background", "av", false, {kCompWidth / 2, kCompHeight / 2, 0}, false);
    background["source"] = {{"width", kCompWidth}, {"height", kCompHeight}};
    layers.push_back(std::move(background));

    return {
        {"host", {{"panels", false}}},
        {"comp",
         {{"name", "Demo"}, {"width", kCompWidth}, {"height", kCompHeight}, {"time", {{"value", 0}, {"scale", 30}}}}},
        {"layers", std::move(layers)},
        // A wide cylinder, 40 degrees between cards and 450 pixels between rows: three rows.
        {"settings",
         {{"EDIT_DIM_X", 2000},
          {"EDIT_DIM_Y", 900},
          {"EDIT_DIM_Z", 2000},
          {"EDIT_MIN_LATITUDE", 450},
          {"EDIT_MIN_LONGITUDE", 40}}},
    };
}

host::Scene demoScene() { return host::parseScene(demoSceneJson().dump(), "the demo scene"); }

}  // namespace app
