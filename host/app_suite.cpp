// "PF AE App Suite" 2: the host's interface colours.
#include "host/suite_call.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

struct NamedColor {
    PF_App_ColorType type;
    PF_App_Color color;
};

// A dark interface: greys for backgrounds and frames, light grey text.
constexpr NamedColor kColors[] = {
    {0, {0x0000, 0x0000, 0x0000}},  // none
    {1, {0x2f2f, 0x2f2f, 0x2f2f}},  // frame
    {kHostColorText, {0xc8c8, 0xc8c8, 0xc8c8}},
    {3, {0x7878, 0x7878, 0x7878}},  // disabled text
    {4, {0x3a3a, 0x3a3a, 0x3a3a}},  // field background
    {5, {0x2d2d, 0x8c8c, 0xebeb}},  // highlight
    {kHostColorPanelBackground, {0x2323, 0x2323, 0x2323}},
};

A_Err appGetColor(PF_App_ColorType color_type, PF_App_Color* app_color) {
    return hostCall("PF_AppGetColor", given(app_color), [&](State&) {
        for (const NamedColor& c : kColors) {
            if (c.type == color_type) {
                *app_color = c.color;
                return A_Err_NONE;
            }
        }
        return A_Err_PARAMETER;
    });
}

const PFAppSuite2 kSuite{appGetColor};

const ServedSuite kServed[] = {{kPFAppSuite, kPFAppSuiteVersion2, &kSuite}};

}  // namespace

std::span<const ServedSuite> appSuites() { return kServed; }

}  // namespace host::detail
