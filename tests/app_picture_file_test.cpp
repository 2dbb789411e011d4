// Pictures as files: PNG rendered from our SVG and decoded back, names with other endings refused
// before anything runs, and no picture of any scenario holding a number that is not finite.
#include "app_tool.h"

#include "app/drawing/hidden_shapes.h"
#include "app/drawing/picture_file.h"
#include "app/drawing/png_painter.h"

#include <cairo.h>

#include <cmath>
#include <regex>

namespace {

using apptest::cardScene;
using nlohmann::json;

struct Decoded {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels;  // 0xAARRGGBB
    std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

Decoded decodePng(const std::string& png) {
    struct Reader {
        const std::string* bytes;
        std::size_t at = 0;
    } reader{&png};
    auto read = [](void* closure, unsigned char* data, unsigned int length) {
        Reader& r = *static_cast<Reader*>(closure);
        if (r.at + length > r.bytes->size()) {
            return CAIRO_STATUS_READ_ERROR;
        }
        std::copy_n(r.bytes->data() + r.at, length, data);
        r.at += length;
        return CAIRO_STATUS_SUCCESS;
    };
    cairo_surface_t* surface = cairo_image_surface_create_from_png_stream(read, &reader);
    Decoded d;
    if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) {
        d.width = cairo_image_surface_get_width(surface);
        d.height = cairo_image_surface_get_height(surface);
        const int stride = cairo_image_surface_get_stride(surface);
        const unsigned char* data = cairo_image_surface_get_data(surface);
        for (int y = 0; y < d.height; ++y) {
            const auto* row = reinterpret_cast<const std::uint32_t*>(data + y * stride);
            d.pixels.insert(d.pixels.end(), row, row + d.width);
        }
    }
    cairo_surface_destroy(surface);
    return d;
}

TEST(PictureFile, PngIsTheSvgRenderedAtItsSizeAndTheEndingChoosesTheFormat) {
    const std::string svg =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"30\">"
        "<rect width=\"40\" height=\"30\" fill=\"#f6f7f9\"/>"
        "<rect x=\"10\" y=\"5\" width=\"20\" height=\"10\" fill=\"#a9cbef\"/></svg>";
    const std::string png = app::pictureBytes(svg, app::PictureFormat::png);
    EXPECT_EQ(png.substr(1, 3), "PNG");
    const Decoded d = decodePng(png);
    ASSERT_EQ(d.width, 40);
    ASSERT_EQ(d.height, 30);
    EXPECT_EQ(d.at(0, 0), 0xFFF6F7F9u);
    EXPECT_EQ(d.at(15, 8), 0xFFA9CBEFu);
    EXPECT_EQ(d.at(35, 25), 0xFFF6F7F9u);
    EXPECT_EQ(app::pictureBytes(svg, app::PictureFormat::svg), svg);
    EXPECT_THROW(app::renderPng("<svg"), std::exception);
    EXPECT_EQ(app::pictureFormat("a/p.svg"), app::PictureFormat::svg);
    EXPECT_EQ(app::pictureFormat("P.PNG"), app::PictureFormat::png);
    EXPECT_FALSE(app::pictureFormat("p.png.txt"));
    EXPECT_FALSE(app::pictureFormat("png"));
}

TEST(PictureFile, PngPaintedFromShapesSkipsOnlyWhatLaterOpaqueFillsCoverPixelForPixel) {
    app::Drawing d(40, 30, "#f6f7f9");
    auto square = [](double x0, double y0, double x1, double y1) {
        return std::vector<app::Point2>{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
    };
    const app::Style red{"#ff0000", "#000000", 1, 1, ""}, blue{"#0000ff", "none", 1, 1, ""};
    d.polygon(square(10, 10, 20, 20), red);  // under the blue square, outline and all
    d.polygon(square(3, 10, 12, 20), red);   // peeks out on the left
    d.polygon(square(26, 4, 32, 8), red);    // under the see-through square
    d.polygon(square(24, 2, 34, 10), {"#00ff00", "none", 1, 0.5, ""});
    d.polygon(square(8, 8, 22, 22), blue);
    const std::vector<bool> hidden = app::hiddenShapes(d);
    EXPECT_EQ(hidden, (std::vector<bool>{true, false, false, false, false}));
    const Decoded png = decodePng(app::paintPng(d));
    ASSERT_EQ(png.width, 40);
    EXPECT_EQ(png.at(15, 15), 0xFF0000FFu);
    EXPECT_EQ(png.at(5, 15), 0xFFFF0000u);
    EXPECT_EQ(png.at(1, 1), 0xFFF6F7F9u);
    // Half of the green over the red below it: red 255 x (1 - 0.5), to the rounding.
    EXPECT_NEAR(png.at(29, 6) >> 16 & 0xFF, 127.5, 1);
}

class PictureFiles : public apptest::ToolTest {};

TEST_F(PictureFiles, ToolWritesPngsOfThePicturesSizeAndRefusesOtherEndings) {
    ASSERT_EQ(run({"--preview", path("p.png"), "--dialog", path("d.png")}).status, 0);
    ASSERT_EQ(run({"--dialog", path("d.svg")}).status, 0);
    const Decoded preview = decodePng(apptest::readFile(path("p.png")));
    ASSERT_EQ(preview.width, 1200);
    ASSERT_EQ(preview.height, 800);
    EXPECT_EQ(preview.at(2, 2), 0xFFF6F7F9u);
    // Front faces are drawn: many pixels have their colour, #a9cbef.
    const auto front = std::count_if(preview.pixels.begin(), preview.pixels.end(), [](std::uint32_t p) {
        const int r = (p >> 16) & 0xFF, g = (p >> 8) & 0xFF, b = p & 0xFF;
        return std::abs(r - 169) <= 1 && std::abs(g - 203) <= 1 && std::abs(b - 239) <= 1;
    });
    EXPECT_GT(front, 10000);

    std::smatch size;
    const std::string dialog_svg = apptest::readFile(path("d.svg"));
    ASSERT_TRUE(std::regex_search(dialog_svg, size, std::regex("width=\"([0-9]+)\" height=\"([0-9]+)\"")));
    const Decoded dialog = decodePng(apptest::readFile(path("d.png")));
    EXPECT_EQ(dialog.width, std::stoi(size[1]));
    EXPECT_EQ(dialog.height, std::stoi(size[2]));
    // Other endings are refused before anything is written.
    const apptest::ToolRun jpg = run({"--out", path("o.json"), "--preview", path("p.jpg")});
    EXPECT_EQ(jpg.status, 2);
    EXPECT_EQ(jpg.err, "orbisett-host: --preview " + path("p.jpg") +
                           ": the picture's file name must end in .svg or .png, which choose its format\n");
    EXPECT_FALSE(std::filesystem::exists(path("o.json")));
    EXPECT_FALSE(std::filesystem::exists(path("p.jpg")));
}

TEST_F(PictureFiles, NoPictureHoldsANumberThatIsNotFinite) {
    json wild = cardScene(6);
    wild["layers"][0]["scale"] = {1e300, 1e300, 100};
    wild["layers"][1]["position"] = {1e308, -1e308, 1e308};
    wild["layers"][2]["orientation"] = {1e300, 0, 0};
    wild["layers"][3]["scale"] = {0, 0, 0};
    wild["layers"][4]["scale"] = {-100, 100, 100};
    wild["layers"].push_back({{"name", "Words"},
                              {"type", "text"},
                              {"three_d", true},
                              {"selected", true},
                              {"position", {0, 0, 0}},
                              {"scale", {100, 100, 100}}});
    const std::string wild_scene = writeScene("wild.json", wild);
    const std::string cards = writeScene("cards.json", cardScene(9));
    const std::vector<std::vector<std::string>> scenarios{
        {},
        {cards},
        {cards, "--set", "CHECK_DISTRIBUTE_EVENLY=on"},
        {cards, "--set", "RADIO_EQUATOR_ONLY=on"},
        {cards, "--set", "RADIO_EQUATOR_ONLY=on", "--set", "CHECK_CREATE_RING=on", "--set", "RADIO_BEGIN_BACK=on"},
        {cards, "--set", "CHECK_RADIUS_BY_FIRST=on", "--set", "EDIT_RADIUS_LAYERS=5"},
        {cards, "--set", "CHECK_REPEAT_LAYERS=on", "--set", "EDIT_REPEAT_COUNT=3"},
        {cards, "--set", "RADIO_SECTOR=on", "--set", "CHECK_SECTOR_FRONT=off", "--set", "CHECK_RADIUS_BY_FIRST=on"},
        {cards, "--set", "EDIT_DIM_X=10000000", "--set", "EDIT_SPHERE_CENTER_X=-10000000", "--set", "EDIT_DIM_Z=0.1"},
        {cards, "--no-apply"},
        {cards, "--undo", "--set", "CHECK_RADIUS_BY_FIRST=on"},
        {wild_scene},
        {wild_scene, "--set", "RADIO_EQUATOR_ONLY=on", "--set", "CHECK_CREATE_RING=on"},
        {wild_scene, "--set", "CHECK_RADIUS_BY_FIRST=on"},
    };
    const std::regex numeric("(points|x|y|font-size|stroke-width|opacity|data-[a-z-]+)=\"[^\"]*(nan|inf)",
                             std::regex::icase);
    for (std::vector<std::string> args : scenarios) {
        args.insert(args.end(), {"--preview", path("p.svg")});
        const apptest::ToolRun r = run(args);
        ASSERT_EQ(r.status, 0) << args.front() << r.err;
        const std::string svg = apptest::readFile(path("p.svg"));
        EXPECT_FALSE(std::regex_search(svg, numeric)) << testing::PrintToString(args);
        EXPECT_NE(svg.find("<polygon"), std::string::npos) << testing::PrintToString(args);
    }
}

}  // namespace
