// Dialogs inside host workspace panels: the panel functions, snap size, background, title,
// labels beside controls, and destruction by the host or by the plug-in.
#include "svg_reading.h"
#include "toolkit_fixture.h"

namespace {

using PanelDialogs = ToolkitTest;

TEST_F(PanelDialogs, CreationInAContainerFillsThePanelFunctionsAndTitle) {
    EXPECT_EQ(nullptr, sADMDialog->CreatePanel(nullptr, "Panel", 0, initProc, &recorder, &panelSuite, panelHandle,
                                               nullptr, &panelFunctions, &panelRefcon));
    EXPECT_EQ(0, recorder.destroyed);  // without a container the init proc never ran
    ADMDialogRef dialog = makePanelDialog();
    ASSERT_NE(nullptr, dialog);
    EXPECT_NE(nullptr, panelFunctions.GetSnapSizes);
    EXPECT_EQ(nullptr, panelFunctions.PopulateFlyout);
    EXPECT_EQ(nullptr, panelFunctions.DoFlyoutCommand);
    EXPECT_EQ(static_cast<void*>(dialog), static_cast<void*>(panelRefcon));
    EXPECT_FALSE(sADMDialog->IsVisible(dialog));
    EXPECT_FALSE(sADMDialog->IsEnabled(dialog));
    EXPECT_TRUE(platform::windows().empty());
    sADMDialog->SetText(dialog, "Orbisett");
    EXPECT_EQ("Orbisett", lastPanelTitle);
    sADMDialog->Destroy(dialog);
}

TEST_F(PanelDialogs, TheSnapSizeIsTheLastSizeGivenAndTheBackgroundTakesTheHostColour) {
    ADMDialogRef dialog = makePanelDialog();
    const IASRect placed{20, 30, 120, 280};
    sADMDialog->SetBoundsRect(dialog, &placed);
    A_LPoint size{};
    A_long count = 0;
    EXPECT_EQ(A_Err_NONE, panelFunctions.GetSnapSizes(panelRefcon, &size, &count));
    EXPECT_EQ(1, count);
    EXPECT_EQ(250, size.x);
    EXPECT_EQ(100, size.y);

    const IASRect local{0, 0, 180, 320};
    sADMDialog->SetLocalRect(dialog, &local);
    IASRect bounds{};
    sADMDialog->GetBoundsRect(dialog, &bounds);
    EXPECT_EQ((IASRect{20, 30, 200, 350}), bounds);
    panelFunctions.GetSnapSizes(panelRefcon, &size, &count);
    EXPECT_EQ(320, size.x);
    EXPECT_EQ(180, size.y);

    A_LPoint untouched{-1, -1};
    A_long untouchedCount = -1;
    EXPECT_EQ(A_Err_NONE, panelFunctions.GetSnapSizes(nullptr, &untouched, &untouchedCount));
    EXPECT_EQ(-1, untouched.x);
    EXPECT_EQ(-1, untouchedCount);
    sADMDialog->Destroy(dialog);
    // The background takes the host's colour.
    dialog = makePanelDialog();
    platform::DrawRecord plain = platform::drawView(panelView);
    EXPECT_EQ(noErr, plain.status);
    EXPECT_TRUE(plain.fills.empty());  // without the host's app suite there is no colour to paint

    useAppSuite();
    platform::DrawRecord painted = platform::drawView(panelView);
    EXPECT_EQ(noErr, painted.status);
    ASSERT_EQ(1u, painted.fills.size());
    EXPECT_DOUBLE_EQ(0x3333 / 65535.0, painted.fills[0].red);
    EXPECT_DOUBLE_EQ(0x6666 / 65535.0, painted.fills[0].green);
    EXPECT_DOUBLE_EQ(0x9999 / 65535.0, painted.fills[0].blue);
    EXPECT_DOUBLE_EQ(1.0, painted.fills[0].alpha);
    EXPECT_DOUBLE_EQ(400.0, painted.fills[0].rect.size.width);
    EXPECT_DOUBLE_EQ(300.0, painted.fills[0].rect.size.height);
    sADMDialog->Destroy(dialog);
}

TEST_F(PanelDialogs, DisposingTheContainerOrTheDialogDestroysItOnce) {
    ADMDialogRef dialog = makePanelDialog();
    add(dialog, 1, kADMTextCheckBoxType);
    add(dialog, 2, kADMPopupMenuType);
    platform::disposePanelView(panelView);
    EXPECT_EQ(1, recorder.destroyed);
    EXPECT_EQ(0u, platform::liveCounts().handlers);
    EXPECT_EQ(0u, platform::liveCounts().menus);
    // After the dialog's own destruction the container no longer reaches it.
    recorder = Recorder{};
    dialog = makePanelDialog();
    add(dialog, 1, kADMTextCheckBoxType);
    ControlRef box = find(1);
    sADMDialog->Destroy(dialog);
    EXPECT_EQ(1, recorder.destroyed);
    EXPECT_EQ(0u, platform::liveCounts().handlers);

    // The host still shows its view with the controls left in it.
    EXPECT_EQ(eventNotHandledErr, platform::drawView(panelView).status);
    ASSERT_TRUE(platform::click(box).ok());
    EXPECT_TRUE(recorder.notes.empty());
    platform::disposePanelView(panelView);
    EXPECT_EQ(1, recorder.destroyed);
}

class PanelLabels : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        dialog = makePanelDialog();
    }
    void TearDown() override {
        sADMDialog->Destroy(dialog);
        ToolkitTest::TearDown();
    }
    // The static texts in the panel view, back to front.
    std::vector<ControlRef> labels() const {
        std::vector<ControlRef> found;
        for (ControlRef view : platform::subviews(panelView)) {
            if (platform::controlKindName(view) == "stxt")
                found.push_back(view);
        }
        return found;
    }
    static Rect boundsOf(ControlRef c) {
        Rect r{};
        GetControlBounds(c, &r);
        return r;
    }

    // A frame with a title, a check box, an edit field and a bold version line, as the cylinder
    // dialog makes them; returns the picture of the dialog.
    static std::string drawSample(ADMDialogRef dialog, ControlRef panel) {
        sADMItem->SetText(add(dialog, 1, kADMFrameType, {293, 5, 329, 380}), "Insert Keys");
        sADMItem->SetText(add(dialog, 2, kADMTextCheckBoxType, {308, 40, 323, 170}), "Position");
        sADMItem->SetText(add(dialog, 3, kADMTextEditType, {36, 40, 54, 115}), "2000");
        ADMItemRef version = add(dialog, 4, kADMTextStaticType, {362, 8, 374, 200});
        sADMItem->SetText(version, "Orbisett v1.3.2");
        sADMItem->SetFont(version, kADMBoldDialogFont);
        return panel != nullptr ? platform::viewToSvg(panel) : platform::windowToSvg(platform::windows().back());
    }

    ADMDialogRef dialog = nullptr;
};

TEST_F(PanelLabels, ACheckBoxGetsALabelRightOfItsBoxAndAnEmptyTextNone) {
    ADMItemRef box = add(dialog, 5, kADMTextCheckBoxType, {40, 20, 56, 140});
    sADMItem->SetText(box, "Outward");
    ASSERT_EQ(1u, labels().size());
    ControlRef label = labels()[0];
    EXPECT_EQ("Outward", platform::controlText(label));
    EXPECT_EQ("", platform::controlTitle(find(5)));
    EXPECT_EQ((Rect{42, 39, 56, 140}), boundsOf(label));
    EXPECT_EQ((Rect{40, 20, 56, 38}), boundsOf(find(5)));

    sADMItem->SetText(box, "Inward");
    ASSERT_EQ(1u, labels().size());
    EXPECT_EQ("Inward", platform::controlText(labels()[0]));
    char text[32];
    ASSERT_TRUE(sADMItem->GetText(box, text, sizeof text));
    EXPECT_STREQ("Inward", text);
    // An empty text makes no label.
    sADMItem->SetText(add(dialog, 7, kADMTextRadioButtonType), "");
    EXPECT_EQ(1u, labels().size());
}

TEST_F(PanelLabels, AFrameLabelSitsAboveItsLine) {
    ADMItemRef frame = add(dialog, 6, kADMFrameType, {10, 10, 110, 210});
    sADMItem->SetText(frame, "Centre");
    ASSERT_EQ(1u, labels().size());
    EXPECT_EQ((Rect{10, 19, 22, 210}), boundsOf(labels()[0]));
    EXPECT_EQ((Rect{23, 10, 110, 210}), boundsOf(find(6)));
    IASRect whole{};
    sADMItem->GetBoundsRect(frame, &whole);
    EXPECT_EQ((IASRect{10, 10, 110, 210}), whole);
}

TEST_F(PanelLabels, ShowAndEnableReachControlAndLabelWhoseTextTakesTheHostColour) {
    useAppSuite();
    ADMItemRef box = add(dialog, 5, kADMTextCheckBoxType);
    add(dialog, 8, kADMTextEditType);
    sADMItem->SetText(box, "Scale");
    // Label text takes the host's colour; edit fields keep the platform's.
    ControlFontStyleRec style{};
    GetControlData(labels()[0], 0, kControlFontStyleTag, sizeof style, &style, nullptr);
    EXPECT_EQ(0x209, style.flags);
    EXPECT_EQ(kControlFontMiniSystemFont, style.font);
    EXPECT_EQ(0xFFFF, style.foreColor.red);
    EXPECT_EQ(0x8000, style.foreColor.green);
    GetControlData(find(8), 0, kControlFontStyleTag, sizeof style, &style, nullptr);
    EXPECT_EQ(0x201, style.flags);
    sADMItem->Show(box, false);
    sADMItem->Enable(box, false);
    EXPECT_FALSE(IsControlVisible(find(5)));
    EXPECT_FALSE(IsControlVisible(labels()[0]));
    EXPECT_FALSE(IsControlEnabled(labels()[0]));
    EXPECT_FALSE(sADMItem->IsEnabled(box));
    sADMItem->Show(box, true);
    sADMItem->Enable(box, true);
    EXPECT_TRUE(IsControlVisible(labels()[0]));
    EXPECT_TRUE(sADMItem->IsEnabled(box));
}

TEST_F(PanelLabels, PanelAndWindowPicturesPlaceTextsAlikeInTheirOwnColours) {
    using namespace svg_reading;
    useAppSuite();
    const std::string panel = drawSample(dialog, panelView);
    ADMDialogRef window = makeWindowDialog();
    const std::string framed = drawSample(window, nullptr);
    const double titleBar = 22;

    for (const char* text : {"Insert Keys", "Position", "2000", "Orbisett v1.3.2"}) {
        EXPECT_EQ(textOf(panel, text).y(), textOf(framed, text).y() - titleBar) << text;
    }
    EXPECT_EQ(number(textOf(panel, "Insert Keys").element, "x"), number(textOf(framed, "Insert Keys").element, "x"));
    ASSERT_EQ(1u, frames(panel).size());
    ASSERT_EQ(1u, frames(framed).size());
    EXPECT_EQ(frames(panel)[0].y, frames(framed)[0].y - titleBar);
    EXPECT_EQ(frames(panel)[0].height, frames(framed)[0].height);

    // Panel texts take the host's colour; fields and windows keep the platform's.
    for (const char* text : {"Insert Keys", "Position", "Orbisett v1.3.2"}) {
        EXPECT_EQ("#ff8000", textOf(panel, text).fill()) << text;
        EXPECT_EQ("#000000", textOf(framed, text).fill()) << text;
    }
    EXPECT_EQ("#000000", textOf(panel, "2000").fill());
    EXPECT_EQ("bold", attribute(textOf(panel, "Orbisett v1.3.2").element, "font-weight"));
    EXPECT_EQ("bold", attribute(textOf(framed, "Orbisett v1.3.2").element, "font-weight"));
    sADMDialog->Destroy(window);
}

}  // namespace
