// The preview's geometry: the layer turning convention, rectangles placed in the host frame,
// the camera, and the picture's painting order and face shading; the 3D page's data.
#include "app/drawing/layer_corners.h"
#include "app/drawing/layer_turn.h"
#include "app/drawing/preview_content.h"
#include "app/drawing/preview_frame.h"
#include "app/drawing/preview_picture.h"
#include "app/drawing/preview_view.h"
#include "app/drawing/svg_writer.h"
#include "app/page/html_page.h"
#include "app/page/page_columns.h"
#include "app/page/scene_data.h"
#include "dialog_settings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using app::Vec3;
using app::operator-;

constexpr double kTight = 1e-12;

void expectNear(const Vec3& actual, const Vec3& expected, double tolerance = kTight) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

TEST(LayerTurn, RightHandedXThenYThenZOrientationBeforeRotations) {
    expectNear(app::turnXYZ({0, 1, 0}, {90, 0, 0}), {0, 0, 1});
    expectNear(app::turnXYZ({0, 0, 1}, {0, 90, 0}), {1, 0, 0});
    expectNear(app::turnXYZ({1, 0, 0}, {0, 0, 90}), {0, 1, 0});
    expectNear(app::turnXYZ({1, 2, 3}, {0, 0, 0}), {1, 2, 3});
    // X first takes (0, 1, 0) to +Z, which Y then takes to +X; Y first would leave it on the axis.
    expectNear(app::turnXYZ({0, 1, 0}, {90, 90, 0}), {1, 0, 0});
    // X leaves (1, 0, 0) alone, Y takes it to -Z, Z leaves that; Z first would end at +Z.
    expectNear(app::turnXYZ({1, 0, 0}, {90, 90, 90}), {0, 0, -1});
    // Orientation X 90 tips the face normal to +Y (down); Rotation Z 90 then takes +Y to -X.
    expectNear(app::faceNormal({90, 0, 0}, {0, 0, 90}), {-1, 0, 0});
    // The other way round the Z turn acts on (0, 0, -1) first, which it leaves alone.
    expectNear(app::turnLayerPoint({0, 0, -1}, {0, 0, 90}, {90, 0, 0}), {0, 1, 0});
}

// The outward normal at angle phi around the cylinder, in the host frame.
Vec3 outward(double phi_degrees) {
    const double phi = phi_degrees * M_PI / 180.0;
    return {std::sin(phi), 0, -std::cos(phi)};
}

TEST(LayerTurn, OrientationNumbersOfTheCylinderFaceOutward) {
    // The numbers written for places on the front half, the sides and the back half; unturned, a
    // layer faces the viewer.
    expectNear(app::faceNormal({-0.0, -0.0, -0.0}, {}), outward(0));
    expectNear(app::faceNormal({-0.0, -45, -0.0}, {}), outward(45));
    expectNear(app::faceNormal({-0.0, -90, 0}, {}), outward(90));
    expectNear(app::faceNormal({-180, 135 - 180, -180}, {}), outward(135));
    expectNear(app::faceNormal({-180, 0, -180}, {}), outward(180));
    expectNear(app::faceNormal({-0.0, 90, 0}, {}), outward(270));
    expectNear(app::faceNormal({-0.0, 360 - 315, -0.0}, {}), outward(315));
    // Inward adds 180 to Y.
    expectNear(app::faceNormal({-0.0, 180, -0.0}, {}), outward(180));
}

TEST(PlacedRectangle, AnchorAtTheCentreScaledMovedAndTurned) {
    const app::PlacedLayer p = app::placeRectangle(400, 300, {960, 540, 0}, {50, 200, 100}, {}, {});
    expectNear(p.corners[0], {860, 240, 0});
    expectNear(p.corners[1], {1060, 240, 0});
    expectNear(p.corners[2], {1060, 840, 0});
    expectNear(p.corners[3], {860, 840, 0});
    expectNear(p.centre, {960, 540, 0});
    expectNear(p.normal, {0, 0, -1});
    const app::PlacedLayer turned = app::placeRectangle(200, 100, {0, 0, 500}, {100, 100, 100}, {0, -90, 0}, {});
    expectNear(turned.normal, {1, 0, 0});
    for (const Vec3& corner : turned.corners) {
        EXPECT_NEAR(corner.x, 0, kTight);
        EXPECT_NEAR(std::fabs(corner.z - 500), 100, kTight);
        EXPECT_NEAR(std::fabs(corner.y), 50, kTight);
    }
}

TEST(PlacedRectangle, NormalFromTheCornersMatchesTheTurnedFaceNormal) {
    const Vec3 orientations[] = {{10, 20, 30}, {-180, 33, -180}, {75, -120, 5}, {0, 270, 0}};
    const Vec3 rotations[] = {{0, 0, 0}, {5, -10, 15}, {90, 0, 0}, {0, 0, -45}};
    for (const Vec3& o : orientations) {
        for (const Vec3& r : rotations) {
            const app::PlacedLayer p = app::placeRectangle(320, 180, {1, 2, 3}, {100, 100, 100}, o, r);
            expectNear(p.normal, app::faceNormal(o, r), 1e-9);
        }
    }
}

TEST(PreviewCamera, ProjectsOntoThePlaneAtDistanceOneAndARaisedCameraLooksDownOnTheCentre) {
    const app::Camera camera = app::cameraLookingAt({0, 0, -10}, {0, 0, 0});
    const app::Projected q = app::project(camera, {1, 2, 0});
    EXPECT_NEAR(q.x, 0.1, kTight);
    EXPECT_NEAR(q.y, 0.2, kTight);
    EXPECT_NEAR(q.depth, 10, kTight);
    const app::Camera raised = app::raisedCamera({960, 540, 0}, 1000, 30);
    EXPECT_LT(raised.eye.y, 540);  // above: Y points down
    EXPECT_LT(raised.eye.z, 0);    // on the viewer's side
    EXPECT_NEAR(app::length(raised.eye - Vec3{960, 540, 0}), 2600, 1e-9);
    const app::Projected centre = app::project(raised, {960, 540, 0});
    EXPECT_NEAR(centre.x, 0, kTight);
    EXPECT_NEAR(centre.y, 0, kTight);
    // Seen from above, the cylinder's near rim lies lower in the picture than its far rim.
    EXPECT_GT(app::project(raised, {960, 540, -500}).y, app::project(raised, {960, 540, 500}).y);
    // Right stays right, up stays up.
    EXPECT_GT(app::project(raised, {1460, 540, 0}).x, 0);
    EXPECT_LT(app::project(raised, {960, 40, 0}).y, 0);
}

host::Project cardsProject() {
    host::Project project;
    const host::Id comp = project.addComp("Main", 1920, 1080);
    const host::Id footage = project.addFootage("card", 400, 300);
    const host::Id near = project.addLayer(comp, "Near", AEGP_ObjectType_AV, true, footage);
    const host::Id far = project.addLayer(comp, "Far", AEGP_ObjectType_AV, true, footage);
    const host::Id turned = project.addLayer(comp, "Turned", AEGP_ObjectType_AV, true, footage);
    project.addLayer(comp, "Camera", AEGP_ObjectType_CAMERA, true);
    project.addLayer(comp, "Flat", AEGP_ObjectType_AV, false, footage);
    project.layer(near)->prop(host::Prop::position).value = {960, 540, -400};
    project.layer(far)->prop(host::Prop::position).value = {960, 540, 400};
    project.layer(turned)->prop(host::Prop::position).value = {1400, 540, 0};
    project.layer(turned)->prop(host::Prop::orientation).value = {0, 180, 0};
    project.select(comp, {near, far, turned});
    return project;
}

host::Layer& layerNamed(host::Project& project, const std::string& name) {
    for (host::Layer& layer : project.comps.front().layers) {
        if (layer.name == name) {
            return layer;
        }
    }
    throw std::runtime_error("no layer " + name);
}

// The picture of a project as it stands, with no "Apply" step: framed on the selected layers
// and the dialog's box.
app::Preview picture(const host::Project& project, const nlohmann::json& settings = nlohmann::json::object()) {
    host::Host host;
    host.replaceProject(project);
    return app::drawPreview(host.project(), app::readRunOutcome(project, host, apptest::dialogReading(settings)));
}

std::size_t count(const std::string& text, const std::string& what) {
    std::size_t n = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
        ++n;
    }
    return n;
}

// The text of one layer's group.
std::string group(const std::string& svg, const std::string& name) {
    const std::size_t begin = svg.find("<g data-layer=\"" + name + "\"");
    return begin == std::string::npos ? std::string() : svg.substr(begin, svg.find("</g>", begin) - begin);
}

// The numbers of every points="..." list, in order.
std::vector<double> pointNumbers(const std::string& svg) {
    std::vector<double> numbers;
    const std::regex number("-?[0-9]+(\\.[0-9]+)?");
    const std::regex points("points=\"([^\"]*)\"");
    for (auto it = std::sregex_iterator(svg.begin(), svg.end(), points); it != std::sregex_iterator(); ++it) {
        const std::string list = (*it)[1];
        for (auto n = std::sregex_iterator(list.begin(), list.end(), number); n != std::sregex_iterator(); ++n) {
            numbers.push_back(std::stod(n->str()));
        }
    }
    return numbers;
}

// No attribute that holds numbers holds anything but finite ones.
void expectOnlyFiniteNumbers(const std::string& svg) {
    const std::regex numeric("(points|x|y|font-size|stroke-width|opacity|data-[a-z-]+)=\"[^\"]*(nan|inf)",
                             std::regex::icase);
    EXPECT_FALSE(std::regex_search(svg, numeric));
}

TEST(PreviewPicture, DrawsEvery3DSurfaceLayerOnceBackToFrontWithItsNameAndShadedBackFaces) {
    const std::string svg = picture(cardsProject()).svg;
    EXPECT_EQ(count(svg, "<polygon"), 3u);
    EXPECT_EQ(count(svg, "<title>Near</title>"), 1u);
    EXPECT_EQ(count(svg, "<title>Far</title>"), 1u);
    EXPECT_EQ(count(svg, ">Turned</text>"), 1u);
    EXPECT_EQ(count(svg, "Camera"), 0u);
    EXPECT_EQ(count(svg, "Flat"), 0u);
    EXPECT_LT(svg.find("data-layer=\"Far\""), svg.find("data-layer=\"Near\""));
    EXPECT_NE(group(svg, "Turned").find("data-face=\"back\""), std::string::npos);
    EXPECT_EQ(count(svg, "data-face=\"front\""), 2u);
    EXPECT_EQ(count(svg, "data-face=\"back\""), 1u);
}

TEST(PreviewPicture, OutlinesTheSurfaceWithItsExactNumbersAndItsCentreAgainstTheCompositionsFrame) {
    const std::string svg = picture(cardsProject(), {{"EDIT_DIM_X", 800.3}, {"EDIT_DIM_Y", 600}}).svg;
    EXPECT_NE(svg.find("data-surface=\"cylinder\" data-centre=\"960 540 0\" data-half-x=\"" +
                       app::exactNumber(static_cast<double>(800.3f * 0.5f)) +
                       "\" data-half-z=\"500\" data-top=\"240\" data-bottom=\"840\""),
              std::string::npos);
    // Top and bottom rims of 96 pieces and the axis in 8, all within the picture; one piece of the
    // axis is broken in two where the name of Far, behind it, stands.
    EXPECT_EQ(count(svg, "stroke=\"#8a94a3\" stroke-width=\"1.0\" opacity=\"0.70\""), 2u * 96 + 8 + 1);
    EXPECT_NE(svg.find("Given steps: ellipse 800.3 x 1000, centre (960, 540, 0), y from 240 to 840."),
              std::string::npos);
    const nlohmann::json centred = {{"CHECK_USE_COMP_CENTER", true}};
    const nlohmann::json corner = {{"CHECK_USE_COMP_CENTER", false}};
    const std::string a = picture(cardsProject(), centred).svg;
    const std::string b = picture(cardsProject(), corner).svg;
    // The composition's centre and the surface's centre are marked by crosses: one place when the
    // surface sits at the composition's centre, two places when it does not.
    const std::regex cross(
        "<polyline points=\"([-0-9.]+),([-0-9.]+) [-0-9.]+,([-0-9.]+)\" fill=\"none\" "
        "stroke=\"#(aab2bd|8a94a3)\" stroke-width=\"1.2\"");
    auto centres = [&](const std::string& svg) {
        std::set<std::pair<double, double>> at;
        for (auto it = std::sregex_iterator(svg.begin(), svg.end(), cross); it != std::sregex_iterator(); ++it) {
            if ((*it)[2] == (*it)[3]) {  // the horizontal stroke; its middle is the centre
                at.insert({std::stod((*it)[1]) + 6, std::stod((*it)[2])});
            }
        }
        return at;
    };
    EXPECT_EQ(centres(a).size(), 1u);
    EXPECT_EQ(centres(b).size(), 2u);
    EXPECT_NE(b.find("centre (0, 0, 0)"), std::string::npos);
}

TEST(PreviewPicture, FarLayersAreListedInsteadOfShrinkingThePicture) {
    host::Project project = cardsProject();
    const std::string alone = picture(project).svg;
    const host::Id far_away =
        project.addLayer(project.comps.front().id, "Far away", AEGP_ObjectType_AV, true, project.footage.front().id);
    project.layer(far_away)->prop(host::Prop::position).value = {5e6, 540, 0};
    const app::Preview with_far = picture(project);
    // The same picture of the rest, to the pixel; the far layer named, not drawn.
    EXPECT_EQ(pointNumbers(with_far.svg), pointNumbers(alone));
    EXPECT_EQ(with_far.outside, std::vector<std::string>{"Far away"});
    EXPECT_NE(with_far.svg.find("Outside the picture, not drawn: Far away."), std::string::npos);
    EXPECT_EQ(group(with_far.svg, "Far away"), "");

    // The framed layers and the surface fill the picture's width or its height between the margins.
    std::string framed;
    const std::regex shape("<polygon[^>]*>|<polyline[^>]*stroke=\"#8a94a3\" stroke-width=\"1.0\"[^>]*>");
    for (auto it = std::sregex_iterator(alone.begin(), alone.end(), shape); it != std::sregex_iterator(); ++it) {
        framed += it->str();
    }
    const std::vector<double> numbers = pointNumbers(framed);
    double left = 1e9, right = -1e9, top = 1e9, bottom = -1e9;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
        left = std::min(left, numbers[i]);
        right = std::max(right, numbers[i]);
        top = std::min(top, numbers[i + 1]);
        bottom = std::max(bottom, numbers[i + 1]);
    }
    EXPECT_GE(left, 29.9);
    EXPECT_LE(right, 1170.1);
    EXPECT_LE(bottom, 770.1);
    EXPECT_TRUE((left < 31 && right > 1169) || bottom > 769) << left << " " << right << " " << bottom;
    EXPECT_NEAR(0.5 * (left + right), 600, 1);
}

// The three cards after an "Apply" that put them on a cylinder of radius 500 around the
// composition's centre, and every other selected card not reached: kept where it stood.
app::Preview afterApply(const host::Project& project) {
    app::RunOutcome outcome;
    outcome.apply = app::ApplyState::applied;
    outcome.comp = project.comps.front().id;
    for (const host::Layer& layer : project.comps.front().layers) {
        if (layer.type == AEGP_ObjectType_AV && layer.three_d) {
            const bool card = layer.name == "Near" || layer.name == "Far" || layer.name == "Turned";
            outcome.taken.push_back(layer.id);
            outcome.written.push_back(layer.id);
            (card ? outcome.arranged : outcome.not_reached).push_back(layer.id);
        }
    }
    outcome.surface.known = true;
    outcome.surface.centre = {960, 540, 0};
    outcome.surface.half_x = outcome.surface.half_z = 500;
    outcome.surface.top = 40;
    outcome.surface.bottom = 1040;
    host::Host host;
    host.replaceProject(project);
    return app::drawPreview(host.project(), outcome);
}

TEST(PreviewPicture, FramedOnTheArrangedLayersNotOnLayersNotReachedFarAwayOrPiled) {
    host::Project project = cardsProject();
    const host::Id comp = project.comps.front().id, footage = project.footage.front().id;
    std::vector<host::Id> rest{project.addLayer(comp, "Far away", AEGP_ObjectType_AV, true, footage)};
    for (int i = 0; i < 300; ++i) {
        rest.push_back(project.addLayer(comp, "Piled", AEGP_ObjectType_AV, true, footage));
    }
    auto cards = [](const std::string& svg) {
        return pointNumbers(group(svg, "Near") + group(svg, "Far") + group(svg, "Turned"));
    };
    // First all not reached where the cards stand; then one far away and the others piled high
    // above the cylinder, within reach of the camera.
    for (const host::Id id : rest) {
        project.layer(id)->prop(host::Prop::position).value = {960, 540, 0};
    }
    const std::vector<double> among = cards(afterApply(project).svg);
    ASSERT_EQ(among.size(), 24u);
    project.layer(rest.front())->prop(host::Prop::position).value = {5e5, 540, 0};
    for (std::size_t i = 1; i < rest.size(); ++i) {
        project.layer(rest[i])->prop(host::Prop::position).value = {2500, -3000, 0};
    }
    const app::Preview apart = afterApply(project);
    // The arranged cards drawn the same, to the pixel; the far layer named, not drawn.
    EXPECT_EQ(cards(apart.svg), among);
    EXPECT_EQ(apart.outside.front(), "Far away");
    EXPECT_EQ(group(apart.svg, "Far away"), "");
}

TEST(PreviewPicture, LayersWithoutFiniteCornersAreLeftOutAndNamed) {
    host::Project project = cardsProject();
    layerNamed(project, "Near").prop(host::Prop::scale).value = {1e300, 1e300, 100};
    layerNamed(project, "Far").prop(host::Prop::position).value = {1e308, 0, 0};
    layerNamed(project, "Far").prop(host::Prop::orientation).value = {0, 1e300, 0};
    const app::Preview p = picture(project);
    EXPECT_EQ(p.left_out, (std::vector<std::string>{"Near", "Far"}));
    EXPECT_NE(p.svg.find("Left out, too large or not finite to draw: Near, Far."), std::string::npos);
    EXPECT_EQ(count(p.svg, "<polygon"), 1u);
    expectOnlyFiniteNumbers(p.svg);
}

TEST(PreviewPicture, LabelsOnlyWhereTheyFitOnTheFaceAndLayersWithoutASourceAsDashedOutlines) {
    host::Project project = cardsProject();
    layerNamed(project, "Turned").prop(host::Prop::orientation).value = {0, 90, 0};  // edge-on to the camera
    layerNamed(project, "Far").name = "A name far too long to fit on any card of this size";
    const std::string svg = picture(project).svg;
    EXPECT_EQ(group(svg, "Turned").find("<text"), std::string::npos);
    EXPECT_NE(group(svg, "Turned").find("<title>Turned</title>"), std::string::npos);
    const std::string far = group(svg, "A name far too long to fit on any card of this size");
    EXPECT_EQ(far.find("<text"), std::string::npos);
    EXPECT_NE(far.find("<title>"), std::string::npos);
    EXPECT_NE(group(svg, "Near").find(">Near</text>"), std::string::npos);
    // Scaled to nothing, a face is a point: every point of it is on its edge, yet it holds no name.
    layerNamed(project, "Near").prop(host::Prop::scale).value = {0, 0, 100};
    EXPECT_EQ(group(picture(project).svg, "Near").find("<text"), std::string::npos);
    // A layer without a source is a dashed outline.
    const host::Id title = project.addLayer(project.comps.front().id, "Title", AEGP_ObjectType_TEXT, true);
    project.layer(title)->prop(host::Prop::scale).value = {20, 20, 100};
    project.select(project.comps.front().id, {title});
    const std::string t = group(picture(project).svg, "Title");
    EXPECT_NE(t.find("fill=\"none\" stroke=\"#24496f\" stroke-width=\"1.2\" opacity=\"0.90\" stroke-dasharray=\"5 3\""),
              std::string::npos);
    EXPECT_NE(t.find(">Title</text>"), std::string::npos);
}

TEST(PreviewPicture, ANameANearerFaceCoversIsLeftOut) {
    // Far's name, half hidden, would read as another name; moved clear of it, it is drawn.
    host::Project project = cardsProject();
    layerNamed(project, "Near").prop(host::Prop::position).value = {1200, 300, -400};
    EXPECT_EQ(group(picture(project).svg, "Far").find("<text"), std::string::npos);
    layerNamed(project, "Near").prop(host::Prop::position).value = {1600, 300, -400};
    EXPECT_NE(group(picture(project).svg, "Far").find(">Far</text>"), std::string::npos);
    // A nearer outline without a fill around it hides nothing, but its name over Far's would.
    const host::Id title = project.addLayer(project.comps.front().id, "Title", AEGP_ObjectType_TEXT, true);
    project.layer(title)->prop(host::Prop::position).value = {960, 540, 300};
    const std::string svg = picture(project).svg;
    EXPECT_EQ(group(svg, "Far").find("<text"), std::string::npos);
    EXPECT_NE(group(svg, "Title").find(">Title</text>"), std::string::npos);
}

// Whether a segment and a box share a point: sampled finely enough for boxes of text.
bool meets(const app::Segment2& s, const app::Label& label) {
    for (int k = 0; k <= 1000; ++k) {
        const double t = k / 1000.0;
        const double x = s.first.x + t * (s.second.x - s.first.x), y = s.first.y + t * (s.second.y - s.first.y);
        if (x >= label.low.x && x <= label.high.x && y >= label.low.y && y <= label.high.y) {
            return true;
        }
    }
    return false;
}

TEST(PreviewPicture, GuideLinesLeaveAGapWhereANamePaintedBeforeThemStands) {
    // Far stands behind the cylinder's axis, which is painted after it and runs down its middle.
    const host::Project project = cardsProject();
    host::Host host;
    host.replaceProject(project);
    const app::RunOutcome outcome = app::readRunOutcome(project, host, apptest::dialogReading({}));
    const app::PreviewContent c = app::gatherPreview(host.project(), outcome);
    std::vector<const app::Label*> names;
    int crossed = 0;
    for (const app::PreviewItem& item : c.items) {
        if (item.layer != nullptr) {
            EXPECT_TRUE(item.label) << item.layer->name;
            names.push_back(item.label ? &*item.label : nullptr);
            continue;
        }
        const auto near = c.view->clipNear(item.a, item.b);
        const auto whole =
            near ? app::clipToArea((*c.view)(near->first), (*c.view)(near->second), c.area) : std::nullopt;
        for (const app::Label* name : names) {
            crossed += name != nullptr && whole && meets(*whole, *name) ? 1 : 0;
            for (const app::Segment2& piece : item.pieces) {
                EXPECT_FALSE(name != nullptr && meets(piece, *name));
            }
        }
    }
    EXPECT_GT(crossed, 0);
    // The centre's cross, painted last, is whole where no name stands, and gone under a name there.
    EXPECT_EQ(c.centre_cross.size(), 2u);
    host::Project middle = cardsProject();
    const host::Id id =
        middle.addLayer(middle.comps.front().id, "Middle", AEGP_ObjectType_AV, true, middle.footage.front().id);
    middle.layer(id)->prop(host::Prop::position).value = {960, 540, 0};
    host.replaceProject(middle);
    const app::PreviewContent covered =
        app::gatherPreview(host.project(), app::readRunOutcome(middle, host, apptest::dialogReading({})));
    EXPECT_EQ(covered.centre_cross.size(), 0u);
}

TEST(PreviewPicture, ThirtyThousandLayersStayLinearAndUnlabelled) {
    host::Project project;
    const host::Id comp = project.addComp("Big", 1920, 1080);
    const host::Id footage = project.addFootage("card", 100, 80);
    std::vector<host::Id> ids;
    constexpr int kLayers = 30000;
    for (int i = 0; i < kLayers; ++i) {
        const host::Id id = project.addLayer(comp, "Card " + std::to_string(i + 1), AEGP_ObjectType_AV, true, footage);
        const double phi = 2 * M_PI * (i % 300) / 300;
        host::Layer& layer = project.comps.front().layers.back();  // looked up by id it would take n steps
        layer.prop(host::Prop::position).value = {960 + 5000 * std::sin(phi), 540.0 - 100 * (i / 300),
                                                  -5000 * std::cos(phi)};
        layer.prop(host::Prop::orientation).value = {0, -phi * 180 / M_PI, 0};
        ids.push_back(id);
    }
    project.select(comp, ids);
    const app::Preview p = picture(project, {{"EDIT_DIM_X", 10000}, {"EDIT_DIM_Z", 10000}, {"EDIT_DIM_Y", 10000}});
    EXPECT_EQ(count(p.svg, "<polygon"), static_cast<std::size_t>(kLayers));
    // The caption's lines only: every card is too small to label.
    EXPECT_EQ(count(p.svg, "</text>"), count(p.svg, "text-anchor=\"start\""));
    EXPECT_LT(p.svg.size(), 300u * kLayers);
    // Outlines of full width would cover the crowded faces' fills; a few cards keep them.
    const std::regex outline("data-face=\"[a-z]+\"[^>]*stroke-width=\"([0-9.]+)\"");
    std::smatch width;
    ASSERT_TRUE(std::regex_search(p.svg, width, outline));
    EXPECT_LT(std::stod(width[1]), 0.5);
    const std::string few = picture(cardsProject()).svg;
    ASSERT_TRUE(std::regex_search(few, width, outline));
    EXPECT_EQ(width[1], "1.2");
}

TEST(PreviewScene, SettingsAndLayerSizesAsThePluginReadsThem) {
    // Edit values clamped to their fields' ranges; controls missing take their initial values.
    const app::DialogReading dialog = apptest::dialogReading({{"EDIT_DIM_X", 0}, {"EDIT_DIM_Y", 2e8}});
    EXPECT_EQ(dialog.number(EDIT_DIM_X), static_cast<double>(0.1f));
    EXPECT_EQ(dialog.number(EDIT_DIM_Y), 1e7);
    EXPECT_TRUE(dialog.on(RADIO_OUTWARD));
    // A layer without a source is drawn at the extent the layout gave it.
    host::Project project = cardsProject();
    host::Layer text;
    text.type = AEGP_ObjectType_TEXT;
    EXPECT_EQ(app::layerSize(project, text, {480, 270}), (std::array<double, 2>{480, 270}));
}

Vec3 corner(const std::vector<float>& corners, std::size_t layer, std::size_t i) {
    const std::size_t at = layer * app::kCornerNumbers + 3 * i;
    return {corners[at], corners[at + 1], corners[at + 2]};
}

TEST(PageData, CopiesStartWhereTheirOriginalsStoodLayersMoveAndNamesCannotEndTheScript) {
    host::Project before = cardsProject();
    before.comps.front().layers[0].scene_number = 1;
    host::Project after = before;
    const host::Id near = after.comps.front().layers[0].id;
    const host::Id copy = after.duplicate(near);
    after.layer(copy)->prop(host::Prop::position).value = {0, 0, 0};
    after.layer(near)->prop(host::Prop::position).value = {960, 540, -1000};

    app::RunOutcome outcome;
    outcome.copies = {{copy, near}};
    outcome.arranged = {near};
    const app::PageLayers layers = app::pageSceneData(before, after, outcome).layers;
    ASSERT_EQ(layers.size(), 4u);
    EXPECT_EQ(layers.numbers[0], 1u);
    EXPECT_EQ(layers.copy_of[0], 1u);
    EXPECT_EQ(layers.copy_of[1], 0u);
    // 400 x 300 around the position, unturned.
    expectNear(corner(layers.corners_before, 0, 0), {760, 390, -400});
    expectNear(corner(layers.corners_after, 0, 2), {200, 150, 0});
    expectNear(corner(layers.corners_before, 1, 0), {760, 390, -400});
    expectNear(corner(layers.corners_after, 1, 0), {760, 390, -1000});
    const auto position = [](const std::vector<double>& values, std::size_t layer) {
        return std::vector<double>(values.begin() + layer * app::kValueNumbers,
                                   values.begin() + layer * app::kValueNumbers + 3);
    };
    EXPECT_EQ(position(layers.values_before, 1), (std::vector<double>{960, 540, -400}));
    EXPECT_EQ(position(layers.values_after, 1), (std::vector<double>{960, 540, -1000}));
    EXPECT_EQ(layers.runs,
              (std::vector{app::LayerRun::moved, app::LayerRun::arranged, app::LayerRun::kept, app::LayerRun::kept}));
    // Names cannot end the page's script or title.
    before.comps.front().name = "A <b> & </title>";
    before.comps.front().layers[0].name = "</script><script>alert(1)</script><!--";
    std::ostringstream written;
    app::writeHtmlPage(written, app::pageSceneData(before, before, app::RunOutcome{}));
    const std::string page = written.str();
    EXPECT_EQ(count(page, "</script>"), 2u);  // the data's and the page script's own
    EXPECT_EQ(count(page, "<!--"), 0u);
    EXPECT_NE(page.find("<title>&quot;A &lt;b&gt; &amp; &lt;/title&gt;&quot; in 3D"), std::string::npos);
    const std::string open = R"(<script type="application/json" id="scene-data">)";
    const std::size_t from = page.find(open) + open.size();
    const nlohmann::json embedded = nlohmann::json::parse(page.substr(from, page.find("</script>", from) - from));
    EXPECT_EQ(embedded["layers"]["names"][0], "</script><script>alert(1)</script><!--");
    EXPECT_EQ(embedded["layers"]["count"], 3);
    EXPECT_EQ(embedded["palette"]["front"], "#a9cbef");
}

TEST(PageData, ColumnsAreTheirNumbersLittleEndianInBase64) {
    const auto written = [](auto values, std::string_view type) {
        std::ostringstream out;
        app::writeColumn(out, type, 1, values);
        return nlohmann::json::parse(out.str());
    };
    // Three bytes make four characters; one or two left over are padded.
    EXPECT_EQ(written(std::vector<std::uint8_t>{77, 97, 110}, "u8"),
              nlohmann::json({{"type", "u8"}, {"width", 1}, {"base64", "TWFu"}}));
    EXPECT_EQ(written(std::vector<std::uint8_t>{77, 97}, "u8")["base64"], "TWE=");
    EXPECT_EQ(written(std::vector<std::uint8_t>{77}, "u8")["base64"], "TQ==");
    EXPECT_EQ(written(std::vector<std::uint8_t>{}, "u8")["base64"], "");
    // 01 00 00 00 00 01 00 00; 1.0f is 00 00 80 3f; -2.0 is six zero bytes, 00 c0.
    EXPECT_EQ(written(std::vector<std::uint32_t>{1, 256}, "u32")["base64"], "AQAAAAABAAA=");
    EXPECT_EQ(written(std::vector<float>{1.0f}, "f32")["base64"], "AACAPw==");
    EXPECT_EQ(written(std::vector<double>{-2.0}, "f64")["base64"], "AAAAAAAAAMA=");
}

// Text and shape layers, drawn by the preview and the page at the extent the layout gave them
// (here a crop to 480 x 270), before and after the run, turned or not.
TEST(PageData, TextAndShapeLayersTakeTheExtentTheLayoutGaveThem) {
    host::Project project = cardsProject();
    host::Comp& comp = project.comps.front();
    const host::Id text = project.addLayer(comp.id, "Text", AEGP_ObjectType_TEXT, true);
    const host::Id shape = project.addLayer(comp.id, "Shape", AEGP_ObjectType_VECTOR, true);
    project.layer(shape)->prop(host::Prop::orientation).value = {0, 90, 30};
    project.layer(shape)->prop(host::Prop::scale).value = {50, 200, 100};
    app::RunOutcome outcome;
    outcome.sourceless = {480, 270};
    const auto side = [](const std::array<Vec3, 4>& c, int i, int j) { return app::length(c[j] - c[i]); };
    for (const app::PlacedLayer& placed : app::placeLayers(project, comp, outcome.sourceless)) {
        const double w = placed.id == text ? 480 : placed.id == shape ? 240 : 400;
        const double h = placed.id == text ? 270 : placed.id == shape ? 540 : 300;
        EXPECT_NEAR(side(placed.corners, 0, 1), w, kTight) << placed.name;
        EXPECT_NEAR(side(placed.corners, 0, 3), h, kTight) << placed.name;
        EXPECT_EQ(placed.has_source, placed.id != text && placed.id != shape);
    }
    const app::PageLayers layers = app::pageSceneData(project, project, outcome).layers;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        if (layers.sources[i] == 0) {
            for (const std::vector<float>* state : {&layers.corners_before, &layers.corners_after}) {
                const std::array<Vec3, 4> c{corner(*state, i, 0), corner(*state, i, 1), corner(*state, i, 2),
                                            corner(*state, i, 3)};
                EXPECT_NEAR(side(c, 0, 1), layers.names[i] == "Text" ? 480 : 240, 0.01) << layers.names[i];
                EXPECT_NEAR(side(c, 0, 3), layers.names[i] == "Text" ? 270 : 540, 0.01) << layers.names[i];
            }
        }
    }
}

// The page outlines the surface with the preview's pieces: with "Sector" only the admitted half,
// its two end edges and the axis; on a plain run both whole rims.
TEST(PageData, SurfaceOutlineIsThePreviewsPiecesOnlyOnTheHalvesASectorAdmits) {
    struct Case {
        nlohmann::json settings;
        std::size_t pieces;
        std::array<double, 4> x_z;  // lowest and highest x, lowest and highest z over all ends
    };
    const nlohmann::json front = {{"RADIO_SECTOR", true}};
    const nlohmann::json right = {{"RADIO_SECTOR", true}, {"CHECK_SECTOR_FRONT", false}, {"CHECK_SECTOR_RIGHT", true}};
    // Rims of 48 pieces and edges and axis of 8 each; whole rims of 96.
    for (const Case& c :
         {Case{front, 2 * 48 + 3 * 8, {460, 1460, -500, 0}}, Case{right, 2 * 48 + 3 * 8, {960, 1460, -500, 500}},
          Case{nlohmann::json::object(), 2 * 96 + 8, {460, 1460, -500, 500}}}) {
        const host::Project project = cardsProject();
        host::Host host;
        host.replaceProject(project);
        const app::RunOutcome outcome = app::readRunOutcome(project, host, apptest::dialogReading(c.settings));
        const nlohmann::json outline =
            app::pageSceneData(host.project(), host.project(), outcome).scene["surface"]["outline"];
        const auto pieces = app::outlinePieces(outcome.surface);
        ASSERT_EQ(outline.size(), c.pieces) << c.settings;
        ASSERT_EQ(pieces.size(), c.pieces);
        std::array<double, 4> x_z{1e9, -1e9, 1e9, -1e9};
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const std::vector<double> ends = outline[i];
            expectNear({ends[0], ends[1], ends[2]}, pieces[i].first, 5e-4);
            expectNear({ends[3], ends[4], ends[5]}, pieces[i].second, 5e-4);
            for (const std::size_t at : {0, 3}) {
                x_z = {std::min(x_z[0], ends[at]), std::max(x_z[1], ends[at]), std::min(x_z[2], ends[at + 2]),
                       std::max(x_z[3], ends[at + 2])};
            }
        }
        EXPECT_EQ(x_z, c.x_z) << c.settings;
    }
}

TEST(PageData, CameraTurnsLikeALayerAndTheDefaultStandsBackByTheZoom) {
    host::Project project = cardsProject();
    host::Comp& comp = project.comps.front();
    // The default camera sees the composition's width under 39.6 degrees.
    const double zoom = 960 / std::tan(19.8 * M_PI / 180);
    host::Layer& camera = comp.layers[3];
    camera.prop(host::Prop::position).value = {10, 20, -30};
    camera.prop(host::Prop::rotate_y).value = {90, 0, 0};
    const app::SceneCamera turned = app::sceneCamera(comp);
    EXPECT_EQ(turned.name, "Camera");
    expectNear(turned.position, {10, 20, -30});
    expectNear(turned.forward, {1, 0, 0});
    expectNear(turned.right, {0, 0, -1});
    expectNear(turned.down, {0, 1, 0});
    EXPECT_NEAR(turned.zoom, zoom, 1e-9);

    comp.layers.erase(comp.layers.begin() + 3);
    const app::SceneCamera standard = app::sceneCamera(comp);
    EXPECT_EQ(standard.name, "");
    expectNear(standard.position, {960, 540, -zoom}, 1e-9);
    expectNear(standard.forward, {0, 0, 1});
}

}  // namespace
