// An item's text: titles, text data, labels beside controls in panels, and fonts.
#include "shell/global_suites.h"
#include "toolkit/iADMDialog.h"
#include "toolkit/platform_text.h"

namespace {

constexpr PF_App_ColorType kPanelTextColor = 2;
constexpr SInt16 kMetaFontFlags = kControlUseFontMask | kControlAddToMetaFontMask;  // 0x201

// Label placement beside a frame's line, and right of a check box or radio button.
constexpr int16_t kFrameLabelOffsetY = 13;
constexpr int16_t kFrameLabelOffsetX = 9;
constexpr int16_t kButtonLabelOffsetY = 2;
constexpr int16_t kButtonLabelOffsetX = 19;

OSType kindOf(ControlRef c) {
    ControlKind kind{};
    return GetControlKind(c, &kind) == noErr ? kind.kind : 0;
}

bool holdsTextData(OSType kind) {
    return kind == kControlKindEditText || kind == kControlKindEditUnicodeText || kind == kControlKindStaticText;
}

bool takesLabelInPanel(OSType kind) {
    return kind == kControlKindCheckBox || kind == kControlKindGroupBox || kind == kControlKindRadioButton;
}

Style faceOf(ADMFont font) {
    switch (font) {
        case kADMItalicDialogFont:
        case kADMItalicPaletteFont:
        case kADMItalicFixedWidthFont:
            return 2;
        case kADMBoldDialogFont:
        case kADMBoldPaletteFont:
        case kADMBoldFixedWidthFont:
            return 1;
        case kADMBoldItalicDialogFont:
        case kADMBoldItalicPaletteFont:
        case kADMBoldItalicFixedWidthFont:
            return 3;
        default:
            return 0;
    }
}

bool isFixedWidth(ADMFont font) { return font >= kADMFixedWidthFont && font <= kADMBoldItalicFixedWidthFont; }

}  // namespace

void iADMItem::setFontStyle(ControlFontStyleRec& style) const {
    style = ControlFontStyleRec{};
    style.flags = kControlUseFontMask;
    style.font = kControlFontMiniSystemFont;
    // On the host's panels the text takes the host's colour, so it reads on the host's background.
    if (dialog != nullptr && dialog->isPanel() && sPFAppSuite != nullptr && sPFAppSuite->PF_AppGetColor != nullptr) {
        PF_App_Color color{0, 0, 0};
        sPFAppSuite->PF_AppGetColor(kPanelTextColor, &color);
        style.foreColor = RGBColor{color.red, color.green, color.blue};
        style.flags = static_cast<SInt16>(style.flags | kControlUseForeColorMask | kControlAddToMetaFontMask);
    }
}

void iADMItem::SetText(const char* text) {
    ControlRef target = label != nullptr ? label : control;
    if (target == nullptr) {
        return;
    }
    toolkit::PlatformString string(text, kCFStringEncodingMacRoman);
    const OSType kind = kindOf(target);
    if (takesLabelInPanel(kind) && dialog->isPanel()) {
        // Panels draw button titles in the platform's colour; a label can take the host's.
        if (text != nullptr && text[0] != '\0') {
            makeLabel(string.get());
        }
    } else if (holdsTextData(kind)) {
        CFStringRef data = string.get();
        SetControlData(target, kControlEntireControl, kControlEditTextCFStringTag, sizeof data, &data);
    } else {
        SetControlTitleWithCFString(target, string.get());
    }
}

bool iADMItem::GetTextValue(char* buffer, ADMInt32 length) const {
    ControlRef source = label != nullptr ? label : control;
    if (source == nullptr || buffer == nullptr || length <= 0) {
        return false;
    }
    CFStringRef text = nullptr;
    if (holdsTextData(kindOf(source))) {
        if (GetControlData(source, kControlEntireControl, kControlEditTextCFStringTag, sizeof text, &text, nullptr) !=
            noErr) {
            return false;
        }
    } else if (CopyControlTitleAsCFString(source, &text) != noErr) {
        return false;
    }
    const bool copied =
        toolkit::copyPlatformString(text, buffer, static_cast<std::size_t>(length), kCFStringEncodingMacRoman);
    CFRelease(text);
    return copied;
}

void iADMItem::makeLabel(CFStringRef text) {
    ControlFontStyleRec style{};
    setFontStyle(style);
    if (control != nullptr) {
        labelOffsetY = isFrame ? kFrameLabelOffsetY : kButtonLabelOffsetY;
        labelOffsetX = isFrame ? kFrameLabelOffsetX : kButtonLabelOffsetX;
    }
    const Rect bounds = toolkit::toRect(rect);
    if (CreateStaticTextControl(nullptr, &bounds, text, &style, &label) == noErr && label != nullptr) {
        toolkit::setMultiline(label);
        HIViewAddSubview(dialog->rootView, label);
    } else {
        label = nullptr;
    }
    SetBoundsRect(rect);
}

void iADMItem::SetFont(ADMFont font) {
    ControlFontStyleRec style{};
    setFontStyle(style);
    style.flags = static_cast<SInt16>(style.flags | kMetaFontFlags);
    const Style face = faceOf(font);
    if (face != 0) {
        style.style = face;
        style.flags = static_cast<SInt16>(style.flags | kControlUseFaceMask);
    }
    if (isFixedWidth(font)) {
        static const unsigned char kCourier[] =
            "\x07"
            "Courier";
        style.font = FMGetFontFamilyFromName(kCourier);
        style.size = kControlFontMiniSystemFont;
        style.flags = static_cast<SInt16>(style.flags | kControlUseSizeMask);
    } else {
        style.font = kControlFontMiniSystemFont;
    }
    if (label != nullptr) {
        SetControlFontStyle(label, &style);
    }
    if (control != nullptr) {
        const ControlFontStyleRec platform_default{};
        SetControlFontStyle(control, &platform_default);
    }
}
