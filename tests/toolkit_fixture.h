// A clean window system for every toolkit test, dialogs that record what the toolkit tells them,
// and a host app suite with known colours.
#pragma once

#include "adm_suites.h"
#include "platform_fixture.h"
#include "shell/global_suites.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

inline bool operator==(const IASRect& a, const IASRect& b) {
    return a.top == b.top && a.left == b.left && a.bottom == b.bottom && a.right == b.right;
}
inline std::ostream& operator<<(std::ostream& out, const IASRect& r) {
    return out << "{" << r.top << ", " << r.left << ", " << r.bottom << ", " << r.right << "}";
}

// What a dialog's procs saw.
struct Recorder {
    struct Note {
        ADMItemRef item;
        std::string type;
    };
    std::vector<Note> notes;
    int destroyed = 0;
    ADMInt32 notifyResult = 0;  // what the notify proc leaves in the notifier
    ASErr initResult = 0;       // what the init proc answers
    bool destroyAgainInDestroyProc = false;
};

class ToolkitTest : public ::testing::Test {
protected:
    // Host colours: 1000 the panel background, 2 the panel text.
    static A_Err appColor(PF_App_ColorType type, PF_App_Color* color) {
        *color = type == 1000 ? PF_App_Color{0x3333, 0x6666, 0x9999} : PF_App_Color{0xFFFF, 0x8000, 0x0000};
        return A_Err_NONE;
    }

    void SetUp() override {
        platform::reset();
        sPFAppSuite = nullptr;
    }
    void TearDown() override {
        sPFAppSuite = nullptr;
        platform::reset();
    }

    void useAppSuite() { sPFAppSuite = &appSuite; }

    static ASErr initProc(ADMDialogRef dialog) {
        sADMDialog->SetNotifyProc(dialog, notifyProc);
        sADMDialog->SetDestroyProc(dialog, destroyProc);
        return recorderOf(dialog).initResult;
    }
    static void notifyProc(ADMDialogRef dialog, ADMNotifierRef notifier) {
        Recorder& r = recorderOf(dialog);
        r.notes.push_back({notifier->item, notifier->type});
        notifier->result = r.notifyResult;
    }
    static void destroyProc(ADMDialogRef dialog) {
        Recorder& r = recorderOf(dialog);
        ++r.destroyed;
        if (r.destroyAgainInDestroyProc)
            sADMDialog->Destroy(dialog);
    }
    static Recorder& recorderOf(ADMDialogRef dialog) {
        return *static_cast<Recorder*>(sADMDialog->GetUserData(dialog));
    }

    ADMDialogRef makeWindowDialog(ADMDialogStyle style = kADMTabbedFloatingDialogStyle) {
        return sADMDialog->Create(nullptr, "Test", 0, style, initProc, &recorder, 0);
    }

    // A panel dialog in a fresh container view, as a host makes it.
    ADMDialogRef makePanelDialog() {
        panelView = platform::createPanelView(Rect{0, 0, 300, 400});
        return sADMDialog->CreatePanel(nullptr, "Panel", 0, initProc, &recorder, &panelSuite, panelHandle, panelView,
                                       &panelFunctions, &panelRefcon);
    }

    static ADMItemRef add(ADMDialogRef dialog, ADMInt32 id, const char* type, IASRect r = {10, 10, 30, 110}) {
        return sADMItem->Create(dialog, id, type, &r, nullptr, nullptr, 0);
    }

    // The platform control that carries an item's dialog-manager id, in the panel view or the
    // newest window.
    ControlRef find(ADMInt32 id) const {
        if (panelView != nullptr)
            return platform::findControlById(panelView, id);
        auto all = platform::windows();
        return all.empty() ? nullptr : platform::findControlById(all.back(), id);
    }

    static A_Err setTitle(AEGP_PanelH, const A_u_char* name) {
        lastPanelTitle = reinterpret_cast<const char*>(name);
        return A_Err_NONE;
    }

    Recorder recorder;
    PFAppSuite2 appSuite{appColor};
    AEGP_PanelSuite1 panelSuite{nullptr, nullptr, setTitle, nullptr, nullptr};
    AEGP_PanelH panelHandle = reinterpret_cast<AEGP_PanelH>(0x1234);
    AEGP_PanelFunctions1 panelFunctions{};
    AEGP_PanelRefcon panelRefcon = nullptr;
    ControlRef panelView = nullptr;
    static inline std::string lastPanelTitle;
};

// A shown window dialog for the test, destroyed after it.
class ToolkitWindowTest : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        dialog = makeWindowDialog();
        sADMDialog->Show(dialog, true);
    }
    void TearDown() override {
        sADMDialog->Destroy(dialog);
        ToolkitTest::TearDown();
    }
    ADMDialogRef dialog = nullptr;
};
