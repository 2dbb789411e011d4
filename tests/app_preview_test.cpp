// The preview's geometry: the layer turning convention, rectangles placed in the host frame,
// the camera, and the picture's painting order and face shading.
#include "app/layer_turn.h"
#include "app/preview_camera.h"
#include "app/preview_picture.h"
#include "app/preview_scene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using app::Vec3;
using app::operator-;

constexpr double kTight = 1e-12;

void expectNear(const Vec3& actual, const Vec3& expected, double tolerance = kTight)
{
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

TEST(LayerTurn, EachAxisTurnsRightHandedInTheHostFrame)
{
    expectNear(app::turnXYZ({0, 1, 0}, {90, 0, 0}), {0, 0, 1});
    expectNear(app::turnXYZ({0, 0, 1}, {0, 90, 0}), {1, 0, 0});
    expectNear(app::turnXYZ({1, 0, 0}, {0, 0, 90}), {0, 1, 0});
    expectNear(app::turnXYZ({1, 2, 3}, {0, 0, 0}), {1, 2, 3});
}

TEST(LayerTurn, XTurnsFirstThenYThenZ)
{
    // X first takes (0, 1, 0) to +Z, which Y then takes to +X; Y first would leave it on the axis.
    expectNear(app::turnXYZ({0, 1, 0}, {90, 90, 0}), {1, 0, 0});
    // X leaves (1, 0, 0) alone, Y takes it to -Z, Z leaves that; Z first would end at +Z.
    expectNear(app::turnXYZ({1, 0, 0}, {90, 90, 90}), {0, 0, -1});
}

TEST(LayerTurn, OrientationTurnsBeforeTheRotations)
{
    // Orientation X 90 tips the face normal to +Y (down); Rotation Z 90 then takes +Y to -X.
    expectNear(app::faceNormal({90, 0, 0}, {0, 0, 90}), {-1, 0, 0});
    // The other way round the Z turn acts on (0, 0, -1) first, which it leaves alone.
    expectNear(app::turnLayerPoint({0, 0, -1}, {0, 0, 90}, {90, 0, 0}), {0, 1, 0});
}

TEST(LayerTurn, UnturnedLayerFacesTheViewer)
{
    expectNear(app::faceNormal({0, 0, 0}, {0, 0, 0}), {0, 0, -1});
}

// The outward normal at angle phi around the cylinder, in the host frame.
Vec3 outward(double phi_degrees)
{
    const double phi = phi_degrees * M_PI / 180.0;
    return {std::sin(phi), 0, -std::cos(phi)};
}

TEST(LayerTurn, OrientationNumbersOfTheCylinderFaceOutward)
{
    // The numbers written for places on the front half, the sides and the back half.
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

TEST(PlacedRectangle, AnchorAtTheCentreScaledAndMoved)
{
    const app::PlacedLayer p = app::placeRectangle(400, 300, {960, 540, 0}, {50, 200, 100}, {}, {});
    expectNear(p.corners[0], {860, 240, 0});
    expectNear(p.corners[1], {1060, 240, 0});
    expectNear(p.corners[2], {1060, 840, 0});
    expectNear(p.corners[3], {860, 840, 0});
    expectNear(p.centre, {960, 540, 0});
    expectNear(p.normal, {0, 0, -1});
}

TEST(PlacedRectangle, TurnedLayerStandsAlongTheNormal)
{
    const app::PlacedLayer p = app::placeRectangle(200, 100, {0, 0, 500}, {100, 100, 100}, {0, -90, 0}, {});
    expectNear(p.normal, {1, 0, 0});
    for (const Vec3& corner : p.corners) {
        EXPECT_NEAR(corner.x, 0, kTight);
        EXPECT_NEAR(std::fabs(corner.z - 500), 100, kTight);
        EXPECT_NEAR(std::fabs(corner.y), 50, kTight);
    }
}

TEST(PlacedRectangle, NormalFromTheCornersMatchesTheTurnedFaceNormal)
{
    const Vec3 orientations[] = {{10, 20, 30}, {-180, 33, -180}, {75, -120, 5}, {0, 270, 0}};
    const Vec3 rotations[] = {{0, 0, 0}, {5, -10, 15}, {90, 0, 0}, {0, 0, -45}};
    for (const Vec3& o : orientations) {
        for (const Vec3& r : rotations) {
            const app::PlacedLayer p = app::placeRectangle(320, 180, {1, 2, 3}, {100, 100, 100}, o, r);
            expectNear(p.normal, app::faceNormal(o, r), 1e-9);
        }
    }
}

TEST(PreviewCamera, ProjectsOntoThePlaneAtDistanceOne)
{
    const app::Camera camera = app::cameraLookingAt({0, 0, -10}, {0, 0, 0});
    const app::Projected q = app::project(camera, {1, 2, 0});
    EXPECT_NEAR(q.x, 0.1, kTight);
    EXPECT_NEAR(q.y, 0.2, kTight);
    EXPECT_NEAR(q.depth, 10, kTight);
}

TEST(PreviewCamera, RaisedCameraLooksDownOnTheCentre)
{
    const app::Camera camera = app::raisedCamera({960, 540, 0}, 1000, 30);
    EXPECT_LT(camera.eye.y, 540);  // above: Y points down
    EXPECT_LT(camera.eye.z, 0);    // on the viewer's side
    EXPECT_NEAR(app::length(camera.eye - Vec3{960, 540, 0}), 2600, 1e-9);
    const app::Projected centre = app::project(camera, {960, 540, 0});
    EXPECT_NEAR(centre.x, 0, kTight);
    EXPECT_NEAR(centre.y, 0, kTight);
    // Seen from above, the cylinder's near rim lies lower in the picture than its far rim.
    EXPECT_GT(app::project(camera, {960, 540, -500}).y, app::project(camera, {960, 540, 500}).y);
    // Right stays right, up stays up.
    EXPECT_GT(app::project(camera, {1460, 540, 0}).x, 0);
    EXPECT_LT(app::project(camera, {960, 40, 0}).y, 0);
}

host::Project cardsProject()
{
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
    return project;
}

std::size_t count(const std::string& text, const std::string& what)
{
    std::size_t n = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
        ++n;
    }
    return n;
}

TEST(PreviewPicture, DrawsEvery3DSurfaceLayerOnceWithItsName)
{
    const std::string svg = app::previewSvg(cardsProject(), nlohmann::json::object());
    EXPECT_EQ(count(svg, "<polygon"), 3u);
    EXPECT_EQ(count(svg, "data-layer=\"Near\""), 1u);
    EXPECT_EQ(count(svg, "data-layer=\"Far\""), 1u);
    EXPECT_EQ(count(svg, ">Turned</text>"), 1u);
    EXPECT_EQ(count(svg, "Camera"), 0u);
    EXPECT_EQ(count(svg, "Flat"), 0u);
}

TEST(PreviewPicture, PaintsBackToFrontAndShadesBackFaces)
{
    const std::string svg = app::previewSvg(cardsProject(), nlohmann::json::object());
    EXPECT_LT(svg.find("data-layer=\"Far\""), svg.find("data-layer=\"Near\""));
    const std::size_t turned = svg.find("data-layer=\"Turned\"");
    ASSERT_NE(turned, std::string::npos);
    EXPECT_EQ(svg.find("data-face=\"back\"", turned), svg.find("data-face=", turned));
    EXPECT_EQ(count(svg, "data-face=\"front\""), 2u);
    EXPECT_EQ(count(svg, "data-face=\"back\""), 1u);
}

TEST(PreviewPicture, OutlinesTheCylinderOfTheSettings)
{
    const std::string svg = app::previewSvg(cardsProject(), {{"EDIT_DIM_X", 800}, {"EDIT_DIM_Y", 600}});
    // Top and bottom rings, 96 pieces each, and the caption names the cylinder.
    EXPECT_EQ(count(svg, "<polyline"), 192u);
    EXPECT_NE(svg.find("cylinder 800 x 600 x 1000"), std::string::npos);
}

TEST(PreviewScene, CylinderFromTheSettingsAsThePluginReadsThem)
{
    host::Comp comp;
    comp.width = 1920;
    comp.height = 1080;
    const app::CylinderShape defaults = app::cylinderFromSettings(nlohmann::json::object(), comp);
    expectNear(defaults.centre, {960, 540, 0});
    EXPECT_EQ(defaults.half_x, 500);
    EXPECT_EQ(defaults.half_z, 500);
    EXPECT_EQ(defaults.height, 2000);

    const app::CylinderShape moved = app::cylinderFromSettings(
        {{"EDIT_SPHERE_CENTER_X", 100}, {"EDIT_SPHERE_CENTER_Y", 200}, {"EDIT_SPHERE_CENTER_Z", 300},
         {"CHECK_USE_COMP_CENTER", false}, {"EDIT_DIM_X", 0}, {"EDIT_DIM_Y", 2e8}},
        comp);
    expectNear(moved.centre, {100, -200, -300});
    EXPECT_NEAR(moved.half_x, 0.05, 1e-8);  // clamped to the field's minimum, 0.1
    EXPECT_EQ(moved.height, 1e7);
}

TEST(PreviewScene, LayerSizeFromSourceOrComposition)
{
    host::Project project = cardsProject();
    const host::Comp& comp = project.comps.front();
    EXPECT_EQ(app::layerSize(project, comp, comp.layers[0]), (std::array<double, 2>{400, 300}));
    host::Layer text;
    text.type = AEGP_ObjectType_TEXT;
    EXPECT_EQ(app::layerSize(project, comp, text), (std::array<double, 2>{1920, 1080}));
}

}  // namespace
