// Making an item's platform control from its dialog-manager type name.
#include "toolkit/iADMDialog.h"
#include "toolkit/platform_text.h"

#include <cstring>
#include <iterator>

namespace {

constexpr MenuID kPopupMenuPlaceholder = -12345;
constexpr int16_t kToggleHeight = 13;
constexpr int16_t kCheckBoxWidth = 60;
constexpr int16_t kEditHeight = 13;

constexpr EventTypeSpec kItemEvents[] = {
    {kEventClassControl, kEventControlDraw},
    {kEventClassControl, kEventControlDispose},
    {kEventClassCommand, kEventCommandProcess},
};

void useSmallSize(ControlRef c) {
    const ControlSize size = kControlSizeSmall;
    SetControlData(c, kControlEntireControl, kControlSizeTag, sizeof size, &size);
}

Rect fromTopLeft(const IASRect& r, int16_t height, int16_t width) {
    return Rect{r.top, r.left, static_cast<int16_t>(r.top + height), static_cast<int16_t>(r.left + width)};
}

}  // namespace

bool iADMItem::Create(iADMDialog* owner, ADMInt32 item_id, const char* type, const IASRect& bounds,
                      ADMItemInitProc init_proc) {
    dialog = owner;
    id = item_id;
    rect = bounds;
    ControlFontStyleRec style{};
    setFontStyle(style);
    makeControl(type != nullptr ? type : "", style);
    if (control != nullptr || label != nullptr) {
        connectControl();
    }
    return init_proc == nullptr || init_proc(this) == 0;
}

void iADMItem::makeControl(const char* type, const ControlFontStyleRec& style) {
    const Rect bounds = toolkit::toRect(rect);
    const toolkit::PlatformString empty("", kCFStringEncodingMacRoman);
    if (std::strcmp(type, kADMFrameType) == 0) {
        makeFrame(style);
    } else if (std::strcmp(type, kADMPicturePushButtonType) == 0) {
        ControlButtonContentInfo content{};
        content.contentType = kControlNoContent;
        CreateBevelButtonControl(nullptr, &bounds, nullptr, kControlBevelButtonNormalBevel, kControlBehaviorPushbutton,
                                 &content, 0, 0, kControlBevelButtonMenuOnBottom, &control);
    } else if (std::strcmp(type, kADMPictureStaticType) == 0) {
        ControlButtonContentInfo content{};
        content.contentType = kControlNoContent;
        CreateIconControl(nullptr, &bounds, &content, true, &control);
    } else if (std::strcmp(type, kADMPopupListType) == 0 || std::strcmp(type, kADMPopupMenuType) == 0) {
        makePopup(style);
    } else if (std::strcmp(type, kADMTextCheckBoxType) == 0) {
        makeCheckBox(style);
    } else if (std::strcmp(type, kADMTextEditType) == 0) {
        makeEdit(style);
    } else if (std::strcmp(type, kADMTextPushButtonType) == 0) {
        if (CreatePushButtonControl(nullptr, &bounds, empty.get(), &control) == noErr) {
            useSmallSize(control);
            SetControlFontStyle(control, &style);
        }
    } else if (std::strcmp(type, kADMTextRadioButtonType) == 0) {
        makeRadio(style);
    } else if (std::strcmp(type, kADMTextStaticType) == 0) {
        makeStatic(style);
    }
    // Any other type name makes no control; the item stays an inert placeholder.
}

void iADMItem::makeFrame(const ControlFontStyleRec& style) {
    isFrame = true;
    const Rect bounds = toolkit::toRect(rect);
    const toolkit::PlatformString empty("", kCFStringEncodingMacRoman);
    if (CreateGroupBoxControl(nullptr, &bounds, empty.get(), true, &control) != noErr) {
        control = nullptr;
        return;
    }
    useSmallSize(control);
    SetControlFontStyle(control, &style);
    dialog->restackFramesBehind();
}

void iADMItem::makePopup(const ControlFontStyleRec& style) {
    MenuRef menu = nullptr;
    if (CreateNewMenu(dialog->nextMenuId++, kMenuAttrNone, &menu) != noErr) {
        return;
    }
    const Rect bounds = toolkit::toRect(rect);
    if (CreatePopupButtonControl(nullptr, &bounds, nullptr, kPopupMenuPlaceholder, false, -1, teFlushDefault, 0,
                                 &control) != noErr) {
        control = nullptr;
        DisposeMenu(menu);
        return;
    }
    SetControlData(control, kControlEntireControl, kControlPopupButtonOwnedMenuRefTag, sizeof menu, &menu);
    SetControl32BitMinimum(control, 1);
    SetControl32BitMaximum(control, 1);
    SetControl32BitValue(control, 1);
    useSmallSize(control);
    SetControlFontStyle(control, &style);
    list.popup = control;
    list.menu = menu;
}

void iADMItem::makeCheckBox(const ControlFontStyleRec& style) {
    const Rect bounds = fromTopLeft(rect, kToggleHeight, kCheckBoxWidth);
    const toolkit::PlatformString empty("", kCFStringEncodingMacRoman);
    if (CreateCheckBoxControl(nullptr, &bounds, empty.get(), 0, true, &control) != noErr) {
        control = nullptr;
        return;
    }
    useSmallSize(control);
    SetControlFontStyle(control, &style);
}

void iADMItem::makeEdit(const ControlFontStyleRec& style) {
    // Edit fields keep the platform's text colour: the host colour is meant for labels on its panels.
    ControlFontStyleRec plain = style;
    plain.flags = static_cast<SInt16>(plain.flags & ~kControlUseForeColorMask);
    plain.foreColor = RGBColor{0, 0, 0};
    const Rect bounds = fromTopLeft(rect, kEditHeight, static_cast<int16_t>(rect.right - rect.left));
    const toolkit::PlatformString empty("", kCFStringEncodingMacRoman);
    if (CreateEditUnicodeTextControl(nullptr, &bounds, empty.get(), false, &plain, &control) != noErr) {
        control = nullptr;
    }
}

void iADMItem::makeRadio(const ControlFontStyleRec& style) {
    isRadio = true;
    const Rect bounds = toolkit::toRect(rect);
    if (CreateRadioButtonControl(nullptr, &bounds, nullptr, getRadioDefault() ? 1 : 0, true, &control) != noErr) {
        control = nullptr;
        return;
    }
    useSmallSize(control);
    SetControlFontStyle(control, &style);
}

void iADMItem::makeStatic(const ControlFontStyleRec& style) {
    const Rect bounds = toolkit::toRect(rect);
    const toolkit::PlatformString empty("", kCFStringEncodingMacRoman);
    if (CreateStaticTextControl(nullptr, &bounds, empty.get(), &style, &label) != noErr) {
        label = nullptr;
        return;
    }
    toolkit::setMultiline(label);
}

void iADMItem::connectControl() {
    if (!isFrame) {  // a frame was placed by the restacking already
        if (label != nullptr) {
            HIViewAddSubview(dialog->rootView, label);
        }
        if (control != nullptr) {
            HIViewAddSubview(dialog->rootView, control);
        }
    }
    // Automation finds a control by its dialog-manager id through the platform's control id.
    const ControlID automation{iADMItem::kCommandId, id};
    SetControlID(control != nullptr ? control : label, &automation);
    if (control == nullptr) {
        return;
    }
    SetControlCommandID(control, iADMItem::kCommandId);
    InstallEventHandler(GetControlEventTarget(control), NewEventHandlerUPP(S_ItemEventHandler), std::size(kItemEvents),
                        kItemEvents, this, &handler);
}

void iADMItem::detachHandler() {
    if (handler != nullptr) {
        RemoveEventHandler(handler);
        handler = nullptr;
    }
}

void iADMDialog::restackFramesBehind() {
    for (iADMItem& item : items) {
        for (ControlRef view : {item.control, item.label}) {
            if (view != nullptr && HIViewGetSuperview(view) != nullptr) {
                HIViewRemoveFromSuperview(view);
            }
        }
    }
    auto isGroupBox = [](ControlRef c) {
        ControlKind kind{};
        return c != nullptr && GetControlKind(c, &kind) == noErr && kind.kind == kControlKindGroupBox;
    };
    for (iADMItem& item : items) {
        if (isGroupBox(item.control)) {
            HIViewAddSubview(rootView, item.control);
        }
    }
    for (iADMItem& item : items) {
        if (item.control != nullptr && !isGroupBox(item.control)) {
            HIViewAddSubview(rootView, item.control);
        }
        if (item.label != nullptr) {
            HIViewAddSubview(rootView, item.label);
        }
    }
}
