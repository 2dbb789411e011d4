#include "platform_fixture.h"

namespace {

using ControlTest = PlatformTest;

ControlFontStyleRec miniStyle() {
    ControlFontStyleRec style{};
    style.flags = kControlUseFontMask;
    style.font = kControlFontMiniSystemFont;
    return style;
}

TEST_F(ControlTest, ValueIsClampedToTheLimitsWhichRunFromZeroToOneForBoxesAndRadios) {
    Rect r{0, 0, 20, 100};
    ControlRef c = nullptr;
    ASSERT_EQ(noErr, CreatePushButtonControl(nullptr, &r, nullptr, &c));
    SetControl32BitMaximum(c, 10);
    SetControl32BitMinimum(c, 2);
    EXPECT_EQ(2, GetControl32BitValue(c));  // raised with the minimum
    SetControl32BitValue(c, 25);
    EXPECT_EQ(10, GetControl32BitValue(c));
    SetControl32BitValue(c, -3);
    EXPECT_EQ(2, GetControl32BitValue(c));
    SetControl32BitValue(c, 7);
    SetControl32BitMaximum(c, 5);
    EXPECT_EQ(5, GetControl32BitValue(c));  // lowered with the maximum
    DisposeControl(c);
    WindowRef w = makeWindow();
    ControlRef box = makeCheckBox(w, "Box", 5);
    EXPECT_EQ(0, GetControl32BitMinimum(box));
    EXPECT_EQ(1, GetControl32BitMaximum(box));
    EXPECT_EQ(1, GetControl32BitValue(box));
    r = Rect{0, 0, 13, 60};
    ControlRef radio = nullptr;
    ASSERT_EQ(noErr, CreateRadioButtonControl(w, &r, nullptr, 0, true, &radio));
    SetControl32BitValue(radio, 2);
    EXPECT_EQ(1, GetControl32BitValue(radio));
}

TEST_F(ControlTest, PopupMaximumDoesNotFollowItsMenuWhoseItemsInsertAfterAnIndex) {
    Rect r{0, 0, 20, 120};
    ControlRef popup = nullptr;
    ASSERT_EQ(noErr, CreatePopupButtonControl(nullptr, &r, nullptr, -12345, false, -1, teFlushLeft, 0, &popup));
    MenuRef menu = nullptr;
    ASSERT_EQ(noErr, CreateNewMenu(16000, kMenuAttrNone, &menu));
    ASSERT_EQ(noErr,
              SetControlData(popup, kControlEntireControl, kControlPopupButtonOwnedMenuRefTag, sizeof menu, &menu));
    Str one("One"), two("Two");
    InsertMenuItemTextWithCFString(menu, one, 0, kMenuItemAttrIgnoreMeta, 0);
    InsertMenuItemTextWithCFString(menu, two, 1, kMenuItemAttrIgnoreMeta, 0);
    EXPECT_EQ(2, CountMenuItems(menu));
    SetControl32BitMinimum(popup, 1);
    SetControl32BitMaximum(popup, 1);
    SetControl32BitValue(popup, 2);
    EXPECT_EQ(1, GetControl32BitValue(popup));
    SetControl32BitMaximum(popup, CountMenuItems(menu));
    SetControl32BitValue(popup, 2);
    EXPECT_EQ(2, GetControl32BitValue(popup));
    MenuRef read = nullptr;
    ASSERT_EQ(noErr, GetControlData(popup, 0, kControlPopupButtonOwnedMenuRefTag, sizeof read, &read, nullptr));
    EXPECT_EQ(menu, read);
    DisposeControl(popup);  // the popup owned the menu
    EXPECT_EQ(0u, platform::liveCounts().menus);
    // Menu items insert after an index and are deleted by position.
    ASSERT_EQ(noErr, CreateNewMenu(1, 0, &menu));
    Str a("a"), b("b"), c("c");
    InsertMenuItemTextWithCFString(menu, a, 0, 0, 0);
    InsertMenuItemTextWithCFString(menu, c, 1, 0, 0);
    InsertMenuItemTextWithCFString(menu, b, 1, 0, 0);  // between a and c
    CFStringRef text = nullptr;
    ASSERT_EQ(noErr, CopyMenuItemTextAsCFString(menu, 2, &text));
    char buffer[4];
    ASSERT_TRUE(CFStringGetCString(text, buffer, sizeof buffer, kCFStringEncodingASCII));
    CFRelease(text);
    EXPECT_STREQ("b", buffer);
    DeleteMenuItem(menu, 1);
    EXPECT_EQ(2, CountMenuItems(menu));
    EXPECT_EQ(paramErr, SetMenuItemTextWithCFString(menu, 3, a));
    DisposeMenu(menu);
    EXPECT_EQ(0u, platform::liveCounts().menus);
}

TEST_F(ControlTest, TextDataIsCopiedInAndOutAndTagsBelongToTheirKinds) {
    Rect r{0, 0, 13, 80};
    ControlRef edit = nullptr;
    ControlFontStyleRec style = miniStyle();
    ASSERT_EQ(noErr, CreateEditUnicodeTextControl(nullptr, &r, nullptr, false, &style, &edit));
    {
        Str text("12.5mm");
        CFStringRef ref = text;
        ASSERT_EQ(noErr, SetControlData(edit, kControlEditTextPart, kControlEditTextCFStringTag, sizeof ref, &ref));
    }
    CFStringRef out = nullptr;
    Size size = 0;
    ASSERT_EQ(noErr, GetControlData(edit, kControlEditTextPart, kControlEditTextCFStringTag, sizeof out, &out, &size));
    EXPECT_EQ(static_cast<Size>(sizeof out), size);
    EXPECT_EQ(6, CFStringGetLength(out));
    CFRelease(out);
    char bytes[16] = {};
    ASSERT_EQ(noErr, GetControlData(edit, 0, kControlEditTextTextTag, sizeof bytes, bytes, &size));
    EXPECT_EQ(6, size);
    EXPECT_STREQ("12.5mm", bytes);
    EXPECT_EQ(errDataSizeMismatch, SetControlData(edit, 0, kControlEditTextCFStringTag, 1, &out));
    EXPECT_EQ(0u, platform::liveCounts().strings);
    DisposeControl(edit);
    // Tags belong to their kinds.
    ControlRef label = nullptr;
    ASSERT_EQ(noErr, CreateStaticTextControl(nullptr, &r, nullptr, nullptr, &label));
    Boolean multiline = true;
    EXPECT_EQ(noErr, SetControlData(label, 0, kControlStaticTextIsMultilineTag, sizeof multiline, &multiline));
    Boolean read = false;
    EXPECT_EQ(noErr, GetControlData(label, 0, kControlStaticTextIsMultilineTag, sizeof read, &read, nullptr));
    EXPECT_TRUE(read);
    ControlRef button = nullptr;
    ASSERT_EQ(noErr, CreatePushButtonControl(nullptr, &r, nullptr, &button));
    EXPECT_EQ(errDataNotSupported,
              SetControlData(button, 0, kControlStaticTextIsMultilineTag, sizeof multiline, &multiline));
    ControlSize small = kControlSizeSmall;
    EXPECT_EQ(noErr, SetControlData(button, 0, kControlSizeTag, sizeof small, &small));
    Size needed = 0;
    EXPECT_EQ(noErr, GetControlDataSize(button, 0, kControlSizeTag, &needed));
    EXPECT_EQ(static_cast<Size>(sizeof(ControlSize)), needed);
    ControlKind kind{};
    ASSERT_EQ(noErr, GetControlKind(label, &kind));
    EXPECT_EQ(kControlKindSignatureApple, kind.signature);
    EXPECT_EQ(kControlKindStaticText, kind.kind);
    DisposeControl(label);
    DisposeControl(button);
}

TEST_F(ControlTest, IdsCommandsAndStateAreKeptAndStaleReferencesAreHarmless) {
    WindowRef w = makeWindow();
    ControlRef box = makeCheckBox(w, "Box", 0, 42);
    ControlID id{};
    ASSERT_EQ(noErr, GetControlID(box, &id));
    EXPECT_EQ(42, id.id);
    ControlRef found = nullptr;
    EXPECT_EQ(noErr, GetControlByID(w, &id, &found));
    EXPECT_EQ(box, found);
    SetControlCommandID(box, 0x4441444D);
    UInt32 command = 0;
    GetControlCommandID(box, &command);
    EXPECT_EQ(0x4441444Du, command);
    EXPECT_TRUE(IsControlVisible(box));
    EXPECT_TRUE(IsControlEnabled(box));
    HideControl(box);
    DisableControl(box);
    EXPECT_FALSE(IsControlVisible(box));
    EXPECT_FALSE(IsControlEnabled(box));
    // Stale references are harmless.
    DisposeWindow(w);
    SetControl32BitValue(box, 1);
    EXPECT_EQ(0, GetControl32BitValue(box));
    EXPECT_EQ(errUnknownControl, SetControlTitleWithCFString(box, nullptr));
    Rect r{};
    EXPECT_EQ(0, GetControlBounds(box, &r)->right);
}

TEST_F(ControlTest, ViewsKeepOneSuperviewAndOrderBackToFront) {
    Rect r{0, 0, 10, 10};
    ControlRef parent = platform::createPanelView(Rect{0, 0, 200, 300});
    ControlRef a = nullptr, b = nullptr;
    CreatePushButtonControl(nullptr, &r, nullptr, &a);
    CreatePushButtonControl(nullptr, &r, nullptr, &b);
    EXPECT_EQ(nullptr, GetControlOwner(a));
    ASSERT_EQ(noErr, HIViewAddSubview(parent, a));
    ASSERT_EQ(noErr, HIViewAddSubview(parent, b));
    EXPECT_EQ(paramErr, HIViewAddSubview(a, parent));  // no cycles
    EXPECT_EQ(paramErr, HIViewAddSubview(b, a));       // a already has a superview
    EXPECT_EQ(a, HIViewGetFirstSubview(parent));
    EXPECT_EQ(b, HIViewGetNextView(a));
    EXPECT_EQ(nullptr, HIViewGetNextView(b));
    ASSERT_EQ(noErr, HIViewAddSubview(parent, a));  // to the front again
    EXPECT_EQ((std::vector<ControlRef>{b, a}), platform::subviews(parent));
    ASSERT_EQ(noErr, HIViewRemoveFromSuperview(b));
    EXPECT_EQ(nullptr, HIViewGetSuperview(b));
    EXPECT_EQ(paramErr, HIViewRemoveFromSuperview(b));
    ASSERT_EQ(noErr, HIViewAddSubview(a, b));
    EXPECT_EQ(parent, HIViewGetSuperview(a));
    EXPECT_EQ(a, HIViewGetSuperview(b));
    DisposeControl(parent);
    EXPECT_EQ(0u, platform::liveCounts().controls);
}

TEST_F(ControlTest, ThemeTextDimensionsComeFromTheWidthTableOrThePortsFontAndFontsByPascalName) {
    Str apply("Apply");
    Point p{0, 0};
    SInt16 baseline = 0;
    ASSERT_EQ(noErr, GetThemeTextDimensions(apply, kThemeSmallSystemFont, kThemeStateActive, false, &p, &baseline));
    EXPECT_EQ(26, p.h);
    EXPECT_EQ(14, p.v);
    EXPECT_EQ(-3, baseline);
    Str twoLines("Hello\rWorld");
    p = Point{0, 0};
    ASSERT_EQ(noErr, GetThemeTextDimensions(twoLines, kThemeMiniSystemFont, kThemeStateActive, false, &p, nullptr));
    EXPECT_EQ(23, p.h);
    EXPECT_EQ(24, p.v);
    Str words("one two three");
    p = Point{0, 30};
    ASSERT_EQ(noErr, GetThemeTextDimensions(words, kThemeSmallSystemFont, kThemeStateActive, true, &p, nullptr));
    EXPECT_EQ(42, p.v);  // "one two" is 38 pixels wide: one word a line
    // The current port's font is the one last set with UseThemeFont.
    p = Point{0, 0};
    UseThemeFont(kThemeMiniSystemFont, smSystemScript);
    GetThemeTextDimensions(apply, kThemeCurrentPortFont, kThemeStateActive, false, &p, nullptr);
    EXPECT_EQ(22, p.h);
    EXPECT_EQ(12, p.v);
    const unsigned char courier[] =
        "\x07"
        "Courier";
    const unsigned char unknown[] =
        "\x05"
        "Nadir";
    EXPECT_EQ(kFontIDCourier, FMGetFontFamilyFromName(courier));
    EXPECT_EQ(kInvalidFontFamily, FMGetFontFamilyFromName(unknown));
}

TEST_F(ControlTest, BestRectsFollowTheTitle) {
    WindowRef w = makeWindow();
    ControlRef box = makeCheckBox(w, "Scale");
    Rect best{};
    SInt16 baseline = 0;
    ASSERT_EQ(noErr, GetBestControlRect(box, &best, &baseline));
    EXPECT_EQ((Rect{10, 10, 28, 55}), best) << "small: 14 + 4 + 27 wide, 18 high";
    ControlFontStyleRec style = miniStyle();
    SetControlFontStyle(box, &style);
    ASSERT_EQ(noErr, GetBestControlRect(box, &best, &baseline));
    EXPECT_EQ((Rect{10, 10, 25, 48}), best) << "mini: 12 + 3 + 23 wide, 15 high";

    Rect r{5, 6, 30, 200};
    Str apply("Apply");
    ControlRef push = nullptr;
    ASSERT_EQ(noErr, CreatePushButtonControl(w, &r, apply, &push));
    ASSERT_EQ(noErr, GetBestControlRect(push, &best, &baseline));
    EXPECT_EQ((Rect{5, 6, 25, 56}), best);

    ControlRef edit = nullptr;
    ASSERT_EQ(noErr, CreateEditUnicodeTextControl(w, &r, nullptr, false, nullptr, &edit));
    ASSERT_EQ(noErr, GetBestControlRect(edit, &best, &baseline));
    EXPECT_EQ(r, best);

    ControlRef label = nullptr;
    ASSERT_EQ(noErr, CreateStaticTextControl(w, &r, apply, nullptr, &label));
    ASSERT_EQ(noErr, GetBestControlRect(label, &best, &baseline));
    EXPECT_EQ((Rect{0, 0, 0, 0}), best);
}

}  // namespace
