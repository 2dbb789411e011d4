// Small bridges between the dialog manager's C strings and rectangles and the window system's.
#pragma once

#include "adm_types.h"
#include "platform/platform.h"

#include <cstddef>

namespace toolkit {

// A window-system string owned for the length of one scope.
class PlatformString {
public:
    PlatformString(const char* text, CFStringEncoding encoding)
        : ref_(CFStringCreateWithCString(kCFAllocatorDefault, text != nullptr ? text : "", encoding)) {}
    ~PlatformString() {
        if (ref_ != nullptr) {
            CFRelease(ref_);
        }
    }
    PlatformString(const PlatformString&) = delete;
    PlatformString& operator=(const PlatformString&) = delete;

    CFStringRef get() const { return ref_; }

private:
    CFStringRef ref_;
};

inline Rect toRect(const IASRect& r) { return Rect{r.top, r.left, r.bottom, r.right}; }
inline IASRect toIASRect(const Rect& r) { return IASRect{r.top, r.left, r.bottom, r.right}; }

// Moves r so that its top-left corner is offset by the top-left corner of origin.
inline IASRect offsetBy(const IASRect& r, const IASRect& origin) {
    return IASRect{static_cast<int16_t>(r.top + origin.top), static_cast<int16_t>(r.left + origin.left),
                   static_cast<int16_t>(r.bottom + origin.top), static_cast<int16_t>(r.right + origin.left)};
}

// Static text that wraps onto further lines instead of being cut.
inline void setMultiline(ControlRef c) {
    const Boolean multiline = true;
    SetControlData(c, kControlEntireControl, kControlStaticTextIsMultilineTag, sizeof multiline, &multiline);
}

// Copies a platform string into a zero-terminated buffer; false when it does not fit or converts.
bool copyPlatformString(CFStringRef string, char* buffer, std::size_t length, CFStringEncoding encoding);

}  // namespace toolkit
