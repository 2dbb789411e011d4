// Controls in a window: the platform control of each type, popups and their entries, fonts,
// frames behind everything, and a picture of a small dialog.
#include "toolkit_fixture.h"

namespace {

using Controls = ToolkitWindowTest;

TEST_F(Controls, EachTypeMakesItsPlatformControlFoundByItsId) {
    const std::pair<const char*, const char*> types[] = {
        {kADMFrameType, "grpb"},      {kADMPicturePushButtonType, "bevl"}, {kADMPictureStaticType, "icon"},
        {kADMPopupListType, "popb"},  {kADMPopupMenuType, "popb"},         {kADMTextCheckBoxType, "cbox"},
        {kADMTextEditType, "eutx"},   {kADMTextPushButtonType, "push"},    {kADMTextRadioButtonType, "rdio"},
        {kADMTextStaticType, "stxt"},
    };
    ADMInt32 id = 100;
    for (const auto& [type, kind] : types) {
        ASSERT_NE(nullptr, add(dialog, ++id, type)) << type;
        ControlRef c = find(id);
        ASSERT_NE(nullptr, c) << type;
        EXPECT_EQ(kind, platform::controlKindName(c)) << type;
        ControlID cid{};
        GetControlID(c, &cid);
        EXPECT_EQ(0x4441444Du, cid.signature);
        UInt32 command = 0;
        GetControlCommandID(c, &command);
        // Static text has no control of its own to send commands.
        EXPECT_EQ(std::string(kind) == "stxt" ? 0u : 0x4441444Du, command) << type;
    }
}

TEST_F(Controls, CheckBoxesAndEditFieldsTakeTheirFixedHeights) {
    add(dialog, 1, kADMTextCheckBoxType, {40, 20, 70, 200});
    add(dialog, 2, kADMTextEditType, {80, 20, 110, 90});
    Rect box{}, edit{};
    GetControlBounds(find(1), &box);
    GetControlBounds(find(2), &edit);
    EXPECT_EQ((Rect{40, 20, 53, 80}), box);
    EXPECT_EQ((Rect{80, 20, 93, 90}), edit);
}

TEST_F(Controls, FramesLieBehindEveryOtherControl) {
    add(dialog, 1, kADMTextCheckBoxType);
    add(dialog, 2, kADMTextStaticType);
    add(dialog, 3, kADMFrameType, {0, 0, 100, 200});
    add(dialog, 4, kADMTextPushButtonType);
    add(dialog, 5, kADMFrameType, {0, 0, 50, 50});
    std::vector<ControlRef> order = platform::subviews(platform::rootView(platform::windows().back()));
    EXPECT_EQ((std::vector<ControlRef>{find(3), find(5), find(1), find(2), find(4)}), order);
}

TEST_F(Controls, InAWindowTheTextIsTheControlsTitleAndStaticTextIsBestAsLargeAsIt) {
    ADMItemRef box = add(dialog, 1, kADMTextCheckBoxType);
    ADMItemRef button = add(dialog, 2, kADMTextPushButtonType);
    ADMItemRef text = add(dialog, 3, kADMTextStaticType);
    sADMItem->SetText(box, "Random Order");
    sADMItem->SetText(button, "Apply");
    sADMItem->SetText(text, "Radius");
    EXPECT_EQ("Random Order", platform::controlTitle(find(1)));
    EXPECT_EQ("Apply", platform::controlTitle(find(2)));
    EXPECT_EQ("Radius", platform::controlText(find(3)));
    EXPECT_EQ(3u, platform::subviews(platform::rootView(platform::windows().back())).size());  // no labels
    // The best size of static text is the size of its text.
    ADMItemRef sized = add(dialog, 6, kADMTextStaticType, {10, 10, 10, 10});
    sADMItem->SetText(sized, "Layers");
    CFStringRef measured = CFStringCreateWithCString(nullptr, "Layers", kCFStringEncodingMacRoman);
    Point extent{0, 0};
    GetThemeTextDimensions(measured, kThemeMiniSystemFont, kThemeStateActive, false, &extent, nullptr);
    CFRelease(measured);
    IASPoint best{};
    sADMItem->GetBestSize(sized, &best);
    EXPECT_GT(extent.h, 0);
    EXPECT_EQ(extent.h, best.h);
    EXPECT_EQ(extent.v, best.v);
}

TEST_F(Controls, PopupEntriesAreInsertedSelectedChosenAndRemovedInMenusOfTheirOwn) {
    ADMItemRef popup = add(dialog, 30, kADMPopupListType);
    ADMListRef list = sADMItem->GetList(popup);
    ASSERT_NE(nullptr, list);
    EXPECT_EQ(nullptr, sADMList->GetActiveEntry(list));  // no entries yet
    const char* names[] = {"Outward", "Inward", "Both"};
    for (ADMInt32 i = 0; i < 3; ++i) {
        sADMEntry->SetText(sADMList->InsertEntry(list, i), names[i]);
    }
    EXPECT_EQ(3, sADMList->NumberOfEntries(list));
    EXPECT_EQ((std::vector<std::string>{"Outward", "Inward", "Both"}), platform::popupItems(find(30)));
    EXPECT_EQ(3, GetControl32BitMaximum(find(30)));

    sADMEntry->Select(sADMList->IndexEntry(list, 2), true);
    EXPECT_EQ(3, GetControl32BitValue(find(30)));
    ADMEntryRef active = sADMList->GetActiveEntry(list);
    ASSERT_NE(nullptr, active);
    EXPECT_EQ(2, sADMEntry->GetIndex(active));

    sADMEntry->Select(sADMList->IndexEntry(list, 0), false);  // deselecting changes nothing
    EXPECT_EQ(3, GetControl32BitValue(find(30)));

    sADMList->RemoveEntry(list, 0);
    EXPECT_EQ((std::vector<std::string>{"Inward", "Both"}), platform::popupItems(find(30)));
    EXPECT_EQ(2, GetControl32BitMaximum(find(30)));
    EXPECT_EQ(2, GetControl32BitValue(find(30)));
    // Choosing an entry notifies.
    ADMItemRef menu = add(dialog, 31, kADMPopupMenuType);
    ADMListRef entries = sADMItem->GetList(menu);
    for (ADMInt32 i = 0; i < 3; ++i)
        sADMList->InsertEntry(entries, i);
    ASSERT_TRUE(platform::choosePopupItem(find(31), 3).ok());
    ASSERT_EQ(1u, recorder.notes.size());
    EXPECT_EQ(menu, recorder.notes[0].item);
    EXPECT_EQ(2, sADMEntry->GetIndex(sADMList->GetActiveEntry(entries)));
    // Each popup has a menu of its own.
    ADMListRef first = sADMItem->GetList(add(dialog, 1, kADMPopupListType));
    ADMListRef second = sADMItem->GetList(add(dialog, 2, kADMPopupListType));
    sADMList->InsertEntry(first, 0);
    EXPECT_EQ(1, sADMList->NumberOfEntries(first));
    EXPECT_EQ(0, sADMList->NumberOfEntries(second));
}

ControlFontStyleRec fontStyleOf(ControlRef c) {
    ControlFontStyleRec style{};
    GetControlData(c, 0, kControlFontStyleTag, sizeof style, &style, nullptr);
    return style;
}

TEST_F(Controls, FontsSetFaceFamilyAndFlagsOnTheTextOrFallBackToThePlatformFont) {
    ADMItemRef text = add(dialog, 3, kADMTextStaticType);
    sADMItem->SetFont(text, kADMBoldDialogFont);
    ControlFontStyleRec style = fontStyleOf(find(3));
    EXPECT_EQ(0x203, style.flags);
    EXPECT_EQ(1, style.style);
    EXPECT_EQ(kControlFontMiniSystemFont, style.font);

    sADMItem->SetFont(text, kADMItalicPaletteFont);
    EXPECT_EQ(2, fontStyleOf(find(3)).style);
    sADMItem->SetFont(text, kADMBoldItalicDialogFont);
    EXPECT_EQ(3, fontStyleOf(find(3)).style);

    sADMItem->SetFont(text, kADMDefaultFont);
    EXPECT_EQ(0x201, fontStyleOf(find(3)).flags);

    sADMItem->SetFont(text, kADMFixedWidthFont);
    style = fontStyleOf(find(3));
    EXPECT_EQ(0x205, style.flags);
    EXPECT_EQ(kFontIDCourier, style.font);
    EXPECT_EQ(-5, style.size);

    sADMItem->SetFont(text, kADMBoldItalicFixedWidthFont);
    EXPECT_EQ(0x207, fontStyleOf(find(3)).flags);
    ADMItemRef button = add(dialog, 4, kADMTextPushButtonType);
    EXPECT_EQ(0x1, fontStyleOf(find(4)).flags);
    sADMItem->SetFont(button, kADMBoldDialogFont);
    EXPECT_EQ(0, fontStyleOf(find(4)).flags);
}

TEST_F(Controls, ADialogDrawsItsVisibleTexts) {
    sADMDialog->SetText(dialog, "Orbisett");
    const IASRect place{0, 0, 200, 300};
    sADMDialog->SetLocalRect(dialog, &place);
    sADMItem->SetText(add(dialog, 1, kADMTextStaticType, {10, 10, 24, 80}), "Radius");
    ADMItemRef edit = add(dialog, 2, kADMTextEditType, {10, 90, 24, 150});
    sADMItem->SetMaxFloatValue(edit, 1000);
    sADMItem->SetFloatValue(edit, 12.5f);
    ADMItemRef box = add(dialog, 3, kADMTextCheckBoxType, {40, 10, 54, 150});
    sADMItem->SetText(box, "Random Order");
    sADMItem->SetBooleanValue(box, true);
    sADMItem->SetText(add(dialog, 4, kADMTextPushButtonType, {160, 200, 180, 280}), "Apply");
    ADMItemRef hidden = add(dialog, 5, kADMTextStaticType, {60, 10, 74, 80});
    sADMItem->SetText(hidden, "Sector");
    sADMItem->Show(hidden, false);

    const std::string svg = platform::windowToSvg(platform::windows().back());
    for (const char* visible : {">Orbisett<", ">Radius<", ">12.5<", ">Random Order<", ">Apply<"}) {
        EXPECT_NE(std::string::npos, svg.find(visible)) << visible;
    }
    EXPECT_EQ(std::string::npos, svg.find("Sector"));
    EXPECT_NE(std::string::npos, svg.find("<polyline"));  // the check mark
}

}  // namespace
