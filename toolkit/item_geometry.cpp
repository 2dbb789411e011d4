// An item's state and geometry: visibility, enabling, bounds shared between control and label,
// and the best size.
#include "toolkit/iADMItem.h"
#include "toolkit/platform_text.h"

#include <algorithm>

namespace {

bool isEmpty(const Rect& r) { return r.bottom <= r.top || r.right <= r.left; }

Rect unite(const Rect& a, const Rect& b) {
    return Rect{std::min(a.top, b.top), std::min(a.left, b.left), std::max(a.bottom, b.bottom),
                std::max(a.right, b.right)};
}

bool isStaticText(ControlRef c) {
    ControlKind kind{};
    return GetControlKind(c, &kind) == noErr && kind.kind == kControlKindStaticText;
}

}  // namespace

void iADMItem::Show(bool show) {
    for (ControlRef view : {control, label}) {
        if (view == nullptr) {
            continue;
        }
        if (show) {
            ShowControl(view);
        } else {
            HideControl(view);
        }
    }
}

void iADMItem::Enable(bool enable) {
    for (ControlRef view : {control, label}) {
        if (view == nullptr) {
            continue;
        }
        if (enable) {
            EnableControl(view);
        } else {
            DisableControl(view);
        }
    }
}

bool iADMItem::IsEnabled() const { return control != nullptr && IsControlEnabled(control) != 0; }

void iADMItem::SetBoundsRect(const IASRect& r) {
    rect = r;
    if (control != nullptr && label != nullptr) {
        Rect box = toolkit::toRect(r);
        Rect text = toolkit::toRect(r);
        if (isFrame) {
            // The frame's title sits above its line, which starts below the title's middle.
            box.top = static_cast<int16_t>(r.top + labelOffsetY);
            text.left = static_cast<int16_t>(r.left + labelOffsetX);
            text.bottom = static_cast<int16_t>(r.top + labelOffsetY - 1);
        } else {
            // The box keeps its own width; the text starts right of it.
            box.right = static_cast<int16_t>(r.left + labelOffsetX - 1);
            text.left = static_cast<int16_t>(r.left + labelOffsetX);
            text.top = static_cast<int16_t>(r.top + labelOffsetY);
        }
        SetControlBounds(control, &box);
        SetControlBounds(label, &text);
        return;
    }
    const Rect whole = toolkit::toRect(r);
    if (control != nullptr) {
        SetControlBounds(control, &whole);
    } else if (label != nullptr) {
        SetControlBounds(label, &whole);
    }
}

void iADMItem::GetBoundsRect(IASRect& r) const {
    Rect bounds{};
    bool any = false;
    for (ControlRef view : {control, label}) {
        if (view == nullptr) {
            continue;
        }
        Rect own{};
        GetControlBounds(view, &own);
        bounds = any ? unite(bounds, own) : own;
        any = true;
    }
    r = toolkit::toIASRect(bounds);
}

void iADMItem::SetLocalRect(const IASRect& r) {
    IASRect current{};
    GetBoundsRect(current);
    SetBoundsRect(toolkit::offsetBy(r, current));
}

void iADMItem::GetBestSize(IASPoint& size) const {
    Rect best{};
    bool any = false;
    for (ControlRef view : {control, label}) {
        if (view == nullptr) {
            continue;
        }
        Rect own{};
        CalculateControlBounds(view, own);
        best = any ? unite(best, own) : own;
        any = true;
    }
    size.v = static_cast<int16_t>(best.bottom - best.top);
    size.h = static_cast<int16_t>(best.right - best.left);
}

void iADMItem::CalculateControlBounds(ControlRef c, Rect& out) {
    SInt16 baseline = 0;
    if (GetBestControlRect(c, &out, &baseline) == noErr && !isEmpty(out)) {
        return;
    }
    GetControlBounds(c, &out);
    if (!isStaticText(c)) {
        return;
    }
    // Static text is as large as its text in the dialogs' font, unwrapped.
    CFStringRef text = nullptr;
    if (GetControlData(c, kControlEntireControl, kControlStaticTextCFStringTag, sizeof text, &text, nullptr) != noErr) {
        return;
    }
    Point extent{0, 0};
    GetThemeTextDimensions(text, kThemeMiniSystemFont, kThemeStateActive, false, &extent, &baseline);
    CFRelease(text);
    out.right = static_cast<int16_t>(out.left + extent.h);
    out.bottom = static_cast<int16_t>(out.top + extent.v);
}
