// Which platform window a dialog style makes.
#pragma once

#include "adm_types.h"
#include "platform/platform.h"

#include <optional>

namespace toolkit {

struct WindowKind {
    WindowClass windowClass;
    WindowAttributes attributes;
};

// Every window gets the standard handler and compositing on top of its style's own bits.
inline constexpr WindowAttributes kEveryWindowAttributes = 0x2080000;

// The window class and attribute bits (standard bits included) of a style; none outside 0 to 15.
std::optional<WindowKind> windowKindForStyle(ADMDialogStyle style);

}  // namespace toolkit
