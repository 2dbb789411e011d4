// Per-control settings: tagged data, font style, command id, control id, kind and title.
#include "platform/encodings.h"
#include "platform/internal.h"

#include <algorithm>
#include <cstring>

using namespace platform::detail;

namespace {

bool holdsText(const OpaqueControlRef& c) {
    return c.kind == kControlKindEditUnicodeText || c.kind == kControlKindEditText || c.kind == kControlKindStaticText;
}

// Text data in bytes of the system script; characters it lacks become question marks.
std::string textBytes(const std::u16string& chars) {
    std::string out;
    for (char16_t ch : chars) {
        auto one = encode(std::u16string(1, ch), kCFStringEncodingMacRoman);
        out += one ? *one : std::string("?");
    }
    return out;
}

template <typename T>
OSErr readValue(Size size, const void* data, T* out) {
    if (!data || size != static_cast<Size>(sizeof(T)))
        return errDataSizeMismatch;
    std::memcpy(out, data, sizeof(T));
    return noErr;
}

template <typename T>
OSErr writeValue(const T& value, Size bufferSize, void* buffer, Size* outActualSize) {
    if (outActualSize)
        *outActualSize = sizeof(T);
    if (!buffer)
        return noErr;
    if (bufferSize < static_cast<Size>(sizeof(T)))
        return errDataSizeMismatch;
    std::memcpy(buffer, &value, sizeof(T));
    return noErr;
}

OSErr setText(OpaqueControlRef& c, ResType tag, Size size, const void* data) {
    if (tag == kControlEditTextCFStringTag) {
        CFStringRef string = nullptr;
        if (OSErr err = readValue(size, data, &string))
            return err;
        c.text = charsOf(string);
        return noErr;
    }
    if (size < 0 || (size > 0 && !data))
        return paramErr;
    c.text = decode(std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(size)),
                    kCFStringEncodingMacRoman)
                 .value_or(std::u16string());
    return noErr;
}

OSErr getText(const OpaqueControlRef& c, ResType tag, Size bufferSize, void* buffer, Size* outActualSize) {
    if (tag == kControlEditTextCFStringTag) {
        if (outActualSize)
            *outActualSize = sizeof(CFStringRef);
        if (!buffer)
            return noErr;
        if (bufferSize < static_cast<Size>(sizeof(CFStringRef)))
            return errDataSizeMismatch;
        CFStringRef copy = makeString(c.text);  // the caller owns the copy
        std::memcpy(buffer, &copy, sizeof copy);
        return noErr;
    }
    std::string bytes = textBytes(c.text);
    if (outActualSize)
        *outActualSize = static_cast<Size>(bytes.size());
    if (buffer && bufferSize > 0) {
        std::memcpy(buffer, bytes.data(), std::min<std::size_t>(bytes.size(), bufferSize));
    }
    return noErr;
}

OSErr setMenu(OpaqueControlRef& c, ResType tag, Size size, const void* data) {
    MenuRef menu = nullptr;
    if (OSErr err = readValue(size, data, &menu))
        return err;
    if (menu && !liveMenu(menu))
        return paramErr;
    // The owned-menu tag hands the caller's reference over; the other one shares the menu.
    if (menu && tag == kControlPopupButtonMenuRefTag)
        RetainMenu(menu);
    if (c.menu)
        releaseMenu(c.menu);
    c.menu = menu;
    return noErr;
}

}  // namespace

extern "C" {

OSErr SetControlData(ControlRef inControl, ControlPartCode, ResType inTagName, Size inSize, const void* inData) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    switch (inTagName) {
        case kControlEditTextCFStringTag:
        case kControlEditTextTextTag:
            return holdsText(*c) ? setText(*c, inTagName, inSize, inData) : OSErr(errDataNotSupported);
        case kControlStaticTextIsMultilineTag: {
            if (c->kind != kControlKindStaticText)
                return errDataNotSupported;
            Boolean multiline = false;
            OSErr err = readValue(inSize, inData, &multiline);
            if (!err)
                c->multiline = multiline;
            return err;
        }
        case kControlPopupButtonOwnedMenuRefTag:
        case kControlPopupButtonMenuRefTag:
            return c->kind == kControlKindPopupButton ? setMenu(*c, inTagName, inSize, inData)
                                                      : OSErr(errDataNotSupported);
        case kControlSizeTag:
            return readValue(inSize, inData, &c->size);
        case kControlFontStyleTag:
            return readValue(inSize, inData, &c->fontStyle);
        default:
            return errDataNotSupported;
    }
}

OSErr GetControlData(ControlRef inControl, ControlPartCode, ResType inTagName, Size inBufferSize, void* inBuffer,
                     Size* outActualSize) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    switch (inTagName) {
        case kControlEditTextCFStringTag:
        case kControlEditTextTextTag:
            return holdsText(*c) ? getText(*c, inTagName, inBufferSize, inBuffer, outActualSize)
                                 : OSErr(errDataNotSupported);
        case kControlStaticTextIsMultilineTag:
            return c->kind == kControlKindStaticText
                       ? writeValue(Boolean(c->multiline), inBufferSize, inBuffer, outActualSize)
                       : OSErr(errDataNotSupported);
        case kControlPopupButtonOwnedMenuRefTag:
        case kControlPopupButtonMenuRefTag:
            return c->kind == kControlKindPopupButton ? writeValue(c->menu, inBufferSize, inBuffer, outActualSize)
                                                      : OSErr(errDataNotSupported);
        case kControlSizeTag:
            return writeValue(c->size, inBufferSize, inBuffer, outActualSize);
        case kControlFontStyleTag:
            return writeValue(c->fontStyle, inBufferSize, inBuffer, outActualSize);
        default:
            return errDataNotSupported;
    }
}

OSErr GetControlDataSize(ControlRef inControl, ControlPartCode inPart, ResType inTagName, Size* outMaxSize) {
    if (!outMaxSize)
        return paramErr;
    return GetControlData(inControl, inPart, inTagName, 0, nullptr, outMaxSize);
}

OSErr SetControlFontStyle(ControlRef inControl, const ControlFontStyleRec* inStyle) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    if (!inStyle)
        return paramErr;
    c->fontStyle = *inStyle;
    return noErr;
}

OSStatus SetControlCommandID(ControlRef inControl, UInt32 inCommandID) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    c->commandID = inCommandID;
    return noErr;
}

OSStatus GetControlCommandID(ControlRef inControl, UInt32* outCommandID) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    if (!outCommandID)
        return paramErr;
    *outCommandID = c->commandID;
    return noErr;
}

OSStatus SetControlID(ControlRef inControl, const ControlID* inID) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    if (!inID)
        return paramErr;
    c->controlID = *inID;
    return noErr;
}

OSStatus GetControlID(ControlRef inControl, ControlID* outID) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    if (!outID)
        return paramErr;
    *outID = c->controlID;
    return noErr;
}

OSStatus GetControlByID(WindowRef inWindow, const ControlID* inID, ControlRef* outControl) {
    auto window = liveWindow(inWindow);
    if (!window)
        return errInvalidWindowRef;
    if (!inID || !outControl)
        return paramErr;
    if (!window->root)
        return errUnknownControl;
    return HIViewFindByID(window->root, *inID, outControl);
}

OSStatus GetControlKind(ControlRef inControl, ControlKind* outControlKind) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    if (!outControlKind)
        return paramErr;
    *outControlKind = ControlKind{kControlKindSignatureApple, c->kind};
    return noErr;
}

OSStatus SetControlTitleWithCFString(ControlRef inControl, CFStringRef inString) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    c->title = charsOf(inString);
    return noErr;
}

OSStatus CopyControlTitleAsCFString(ControlRef inControl, CFStringRef* outString) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    if (!outString)
        return paramErr;
    *outString = makeString(c->title);
    return noErr;
}

}  // extern "C"
