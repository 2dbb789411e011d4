#include "toolkit/window_styles.h"

#include <array>

namespace toolkit {

namespace {

constexpr WindowAttributes kCloseCollapse = kWindowCloseBoxAttribute | kWindowCollapseBoxAttribute;  // 9

// Indexed by style.
constexpr std::array<WindowKind, 16> kKinds = {{
    {kMovableModalWindowClass, 0},                                       // 0 modal
    {kAlertWindowClass, 0},                                              // 1 alert
    {kFloatingWindowClass, kCloseCollapse},                              // 2 floating
    {kFloatingWindowClass, kCloseCollapse},                              // 3 tabbed floating
    {kFloatingWindowClass, kCloseCollapse | kWindowResizableAttribute},  // 4 resizing floating
    {kFloatingWindowClass, kCloseCollapse | kWindowResizableAttribute},  // 5 tabbed resizing floating
    {kFloatingWindowClass, kCloseCollapse | (1u << 9)},                  // 6 popup
    {kFloatingWindowClass, kWindowCollapseBoxAttribute},                 // 7 floating without close box
    {kAlertWindowClass, 0},                                              // 8 system alert
    {kMovableModalWindowClass, 0},                                       // 9 popup modal
    {kDocumentWindowClass, kWindowCloseBoxAttribute | kWindowFullZoomAttribute | kWindowCollapseBoxAttribute |
                               kWindowResizableAttribute},                               // 10 window
    {kFloatingWindowClass, kCloseCollapse | kWindowSideTitlebarAttribute},               // 11 side title
    {kFloatingWindowClass, kWindowCollapseBoxAttribute | kWindowSideTitlebarAttribute},  // 12 side title, no close
    {kFloatingWindowClass, kCloseCollapse | (1u << 9)},                                  // 13 popup floating
    {kFloatingWindowClass, kCloseCollapse},                                              // 14 tabbed hierarchy floating
    {kFloatingWindowClass, kCloseCollapse | kWindowResizableAttribute},                  // 15 tabbed resizing hierarchy
}};

}  // namespace

std::optional<WindowKind> windowKindForStyle(ADMDialogStyle style) {
    const auto at = static_cast<int32_t>(style);
    if (at < 0 || at >= static_cast<int32_t>(kKinds.size())) {
        return std::nullopt;
    }
    WindowKind kind = kKinds[static_cast<std::size_t>(at)];
    kind.attributes |= kEveryWindowAttributes;
    return kind;
}

}  // namespace toolkit
