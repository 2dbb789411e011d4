// The tool over a table of runs: every placement, outward and inward, sectors of several halves,
// "Scale Layer to" and the text crop, with text and shape layers selected and numbers typed beyond
// their fields' limits. Whatever the run did, the summary, the table, --json-report and the
// preview's caption must tell the same story as the written scene: a layer counts as arranged
// exactly when the scene holds it on the surface reported.
#include "app_tool.h"

#include <cmath>
#include <regex>
#include <set>

namespace {

using nlohmann::json;

json layer(const char* name, const char* type, int width = 0, int height = 0) {
    json l = {{"name", name},
              {"type", type},
              {"three_d", true},
              {"position", {0, 0, 0}},
              {"scale", {100, 100, 100}},
              {"orientation", {0, 0, 0}},
              {"rotation", {0, 0, 0}},
              {"selected", true}};
    if (width > 0) {
        l["source"] = {{"width", width}, {"height", height}};
    }
    return l;
}

// The text layer comes first, so its extent sets the radius of "Radius Set by First".
json mixedScene() {
    json scene = apptest::cardScene(0);
    scene["layers"] = {layer("Title", "text"), layer("Wide", "av", 640, 360), layer("Tall", "av", 300, 500),
                       layer("Shape", "vector"), layer("Small", "av", 200, 150)};
    return scene;
}

// The surface as the preview draws it, exactly: centre, half-axes, top and bottom.
struct Drawn {
    bool known = false;
    double cx = 0, cy = 0, cz = 0, hx = 0, hz = 0, top = 0, bottom = 0;
};

Drawn drawnSurface(const std::string& svg) {
    const std::regex group(R"re(data-centre="(\S+) (\S+) (\S+)" data-half-x="(\S+)" data-half-z="(\S+)" )re"
                           R"re(data-top="(\S+)" data-bottom="(\S+)")re");
    std::smatch m;
    if (!std::regex_search(svg, m, group)) {
        return {};
    }
    return {true,
            std::stod(m[1]),
            std::stod(m[2]),
            std::stod(m[3]),
            std::stod(m[4]),
            std::stod(m[5]),
            std::stod(m[6]),
            std::stod(m[7])};
}

// Whether a written position lies on the surface: on the ellipse between top and bottom, or for a
// ring on its plane and within the ellipse (its panels are chords).
bool onSurface(const json& position, const Drawn& s, bool ring) {
    const double x = position[0], y = position[1], z = position[2];
    const double e = std::hypot((x - s.cx) / s.hx, (z - s.cz) / s.hz);
    const double slack = 1e-6 * std::max({1.0, s.hx, s.hz, s.bottom - s.top});
    if (ring) {
        return std::fabs(y - s.cy) <= slack && e <= 1 + 1e-6 && e >= 0.5;
    }
    return std::fabs(e - 1) <= 1e-6 && y >= s.top - slack && y <= s.bottom + slack;
}

class Agreement : public apptest::ToolTest {
protected:
    // One run, checked from every side. Returns the radius drawn, 0 when the size is not known.
    double check(const std::vector<std::string>& sets, const std::string& what) {
        std::vector<std::string> args{writeScene("s.json", mixedScene()),
                                      "--out",
                                      path("after.json"),
                                      "--json-report",
                                      path("report.json"),
                                      "--preview",
                                      path("p.svg")};
        for (const std::string& set : sets) {
            args.insert(args.end(), {"--set", set});
        }
        const apptest::ToolRun r = run(args);
        EXPECT_EQ(r.status, 0) << what << r.err;
        const json scene = json::parse(apptest::readFile(path("after.json")));
        const json report = json::parse(apptest::readFile(path("report.json")));
        const std::string svg = apptest::readFile(path("p.svg"));
        const Drawn drawn = drawnSurface(svg);
        const std::string surface = report["surface"]["text"];
        const bool ring = surface.rfind("Create Ring With Layers", 0) == 0;

        std::set<std::string> off;
        std::size_t on = 0;
        for (const json& l : scene["layers"]) {
            const bool placed = drawn.known && onSurface(l["position"], drawn, ring);
            on += placed ? 1 : 0;
            if (!placed) {
                off.insert(l["name"]);
            }
        }
        EXPECT_EQ(report["written"], 5) << what;
        EXPECT_EQ(report["arranged"], on) << what;
        std::set<std::string> not_reached;
        for (const json& l : report["not_reached"]) {
            not_reached.insert(l["name"]);
        }
        EXPECT_EQ(not_reached, off) << what;
        for (const std::string name : {"Title", "Wide", "Tall", "Shape", "Small"}) {
            const std::regex row("\\n\\d+ +" + name + " [^\\n]*not reached\\n");
            EXPECT_EQ(std::regex_search(r.out, row), off.count(name) != 0) << what << name;
        }
        const std::string arranged = std::to_string(on) + " of 5 layers";
        EXPECT_NE(r.out.find("  arranged:     " + arranged + " (5 selected layers, no copies made)"), std::string::npos)
            << what << r.out;
        EXPECT_NE(r.out.find("  surface:      " + surface + "\n"), std::string::npos) << what;
        EXPECT_NE(svg.find(arranged + " placed on the surface."), std::string::npos) << what;
        EXPECT_NE(svg.find(surface + "."), std::string::npos) << what;
        EXPECT_EQ(surface.find("size not known") == std::string::npos, drawn.known) << what << surface;
        // The written scene holds what the fields hold, so running it again repeats the run.
        for (const auto& [name, value] : scene["settings"].items()) {
            EXPECT_TRUE(value.is_number() ? std::isfinite(value.get<double>()) : value.is_boolean()) << what << name;
        }
        return drawn.known ? drawn.hx : 0;
    }
};

TEST_F(Agreement, SummaryTableReportAndCaptionAgreeWithTheWrittenSceneInEveryMode) {
    const std::vector<std::pair<const char*, std::vector<std::string>>> modes{
        {"given steps", {}},
        {"evenly", {"CHECK_DISTRIBUTE_EVENLY=on"}},
        {"equator", {"RADIO_EQUATOR_ONLY=on"}},
        {"ring", {"RADIO_EQUATOR_ONLY=on", "CHECK_CREATE_RING=on"}},
        {"radius", {"CHECK_RADIUS_BY_FIRST=on"}}};
    const std::vector<std::vector<std::string>> sectors{
        {},
        {"RADIO_SECTOR=on", "CHECK_SECTOR_FRONT=off", "CHECK_SECTOR_BACK=on", "CHECK_SECTOR_LEFT=on"},
        {"RADIO_SECTOR=on", "CHECK_SECTOR_FRONT=off"}};
    const std::vector<std::string> beyond{"EDIT_DIM_Z=1e400", "EDIT_SPHERE_CENTER_X=-1e400", "EDIT_DIM_Y=inf", ""};
    int row = 0;
    for (const auto& [mode, mode_sets] : modes) {
        for (const bool inward : {false, true}) {
            for (std::size_t sector = 0; sector < sectors.size(); ++sector) {
                for (const bool scaled : {false, true}) {
                    for (const bool crop : {true, false}) {
                        std::vector<std::string> sets = mode_sets;
                        sets.insert(sets.end(), sectors[sector].begin(), sectors[sector].end());
                        sets.push_back(inward ? "RADIO_INWARD=on" : "RADIO_OUTWARD=on");
                        sets.push_back(std::string("CHECK_SCALE_LAYER=") + (scaled ? "on" : "off"));
                        sets.push_back(std::string("CHECK_CROP_TEXT_LAYERS=") + (crop ? "on" : "off"));
                        if (!beyond[row % beyond.size()].empty()) {
                            sets.push_back(beyond[row % beyond.size()]);
                        }
                        ++row;
                        std::string what;
                        for (const std::string& s : sets) {
                            what += s + " ";
                        }
                        const double radius = check(sets, std::string(mode) + ": " + what);
                        // Four sides as wide as the first layer close the circle: the title takes
                        // the widest source's 640 with the crop, the composition's 1920 without; with
                        // "Scale Layer to" 200, a square (less what truncation takes).
                        if (std::string(mode) == "radius" && sector != 2) {
                            EXPECT_NEAR(radius, scaled ? 100 : crop ? 320 : 960, scaled ? 0.6 : 1e-9) << what;
                        }
                    }
                }
            }
        }
    }
}

}  // namespace
