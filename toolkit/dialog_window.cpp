// What a dialog shows: visibility, title, bounds, and its controls in creation order.
#include "toolkit/iADMDialog.h"
#include "toolkit/platform_text.h"

void iADMDialog::Show(bool show) {
    if (window == nullptr) {
        return;  // the host shows and hides its panels
    }
    if (show) {
        ShowWindow(window);
    } else {
        HideWindow(window);
    }
}

bool iADMDialog::IsVisible() const { return window != nullptr && IsWindowVisible(window) != 0; }

bool iADMDialog::IsEnabled() const { return window != nullptr && IsWindowActive(window) != 0; }

void iADMDialog::SetText(const char* text) {
    if (window != nullptr) {
        toolkit::PlatformString title(text, kCFStringEncodingMacRoman);
        SetWindowTitleWithCFString(window, title.get());
    } else if (panel != nullptr && panelSuite != nullptr && panelSuite->AEGP_SetTitle != nullptr) {
        panelSuite->AEGP_SetTitle(panel, reinterpret_cast<const A_u_char*>(text));
    }
}

void iADMDialog::SetBoundsRect(const IASRect& r) {
    if (window != nullptr) {
        const Rect bounds = toolkit::toRect(r);
        SetWindowBounds(window, kWindowContentRgn, &bounds);
    } else {
        panelBounds = r;
    }
}

void iADMDialog::GetBoundsRect(IASRect& r) const {
    if (window != nullptr) {
        Rect bounds{};
        GetWindowBounds(window, kWindowContentRgn, &bounds);
        r = toolkit::toIASRect(bounds);
    } else {
        r = panelBounds;
    }
}

void iADMDialog::SetLocalRect(const IASRect& r) {
    IASRect current{};
    GetBoundsRect(current);
    SetBoundsRect(toolkit::offsetBy(r, current));
}

iADMItem* iADMDialog::GetItem(ADMInt32 item_id) {
    for (iADMItem& item : items) {
        if (item.id == item_id) {
            return &item;
        }
    }
    return nullptr;
}

iADMItem* iADMDialog::GetNextItem(const iADMItem* item) {
    for (std::size_t i = 0; i + 1 < items.size(); ++i) {
        if (&items[i] == item) {
            return &items[i + 1];
        }
    }
    return nullptr;
}

iADMItem* iADMDialog::GetFirstItem() { return items.empty() ? nullptr : &items.front(); }

iADMItem* iADMDialog::AddItem() {
    if (items.size() >= kMaxItems) {
        return nullptr;  // a larger array would move the items that references point at
    }
    return &items.emplace_back();
}

void iADMDialog::notify(ADMNotifierRef notifier) {
    if (notifyProc != nullptr) {
        notifyProc(this, notifier);
    }
}
