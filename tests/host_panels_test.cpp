// Workspace panels: created through the window system on the first toggle, then hidden and
// shown; disposed with a dispose event to the view; titles, snap sizes and host colours.
#include "host_fixture.h"
#include "platform/driver.h"

namespace {

const A_u_char* text(const char* s) { return reinterpret_cast<const A_u_char*>(s); }

struct Created {
    int calls = 0;
    ControlRef view = nullptr;
    AEGP_PanelH panel = nullptr;
    int disposes = 0;
    int draws = 0;
};
Created g_created;

A_Err snapSizes(AEGP_PanelRefcon refcon, A_LPoint* sizes, A_long* count) {
    if (refcon != reinterpret_cast<AEGP_PanelRefcon>(&g_created)) {
        return A_Err_PARAMETER;
    }
    sizes[0] = A_LPoint{320, 240};
    *count = 1;
    return A_Err_NONE;
}

OSStatus onViewEvent(EventHandlerCallRef, EventRef event, void*) {
    if (GetEventKind(event) == kEventControlDraw) {
        ++g_created.draws;
        return noErr;
    }
    ++g_created.disposes;
    return eventNotHandledErr;
}

A_Err createPanel(AEGP_GlobalRefcon, AEGP_CreatePanelRefcon, AEGP_PlatformViewRef container, AEGP_PanelH panel,
                  AEGP_PanelFunctions1* functions, AEGP_PanelRefcon* refcon) {
    ++g_created.calls;
    g_created.view = container;
    g_created.panel = panel;
    functions->GetSnapSizes = snapSizes;
    *refcon = reinterpret_cast<AEGP_PanelRefcon>(&g_created);
    const EventTypeSpec events[] = {{kEventClassControl, kEventControlDispose},
                                    {kEventClassControl, kEventControlDraw}};
    InstallEventHandler(GetControlEventTarget(container), NewEventHandlerUPP(onViewEvent), 2, events, nullptr, nullptr);
    const void* table = nullptr;
    host::Host::current()->basicSuite()->AcquireSuite(kAEGPWorkspacePanelSuite, 1, &table);
    static_cast<const AEGP_PanelSuite1*>(table)->AEGP_SetTitle(panel, text("Orbisett"));
    host::Host::current()->basicSuite()->ReleaseSuite(kAEGPWorkspacePanelSuite, 1);
    return A_Err_NONE;
}

class HostPanels : public HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        g_created = Created{};
        ps = suite<AEGP_PanelSuite1>(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
        ASSERT_EQ(A_Err_NONE, ps->AEGP_RegisterCreatePanelHook(1, text("DE_Orbisett v1.3"), createPanel, nullptr, 1));
    }
    const AEGP_PanelSuite1* ps = nullptr;
};

TEST_F(HostPanels, FirstToggleCreatesTheViewAndCallsTheHookThenTogglesHideAndShow) {
    EXPECT_FALSE(h.panelCreated("DE_Orbisett v1.3"));
    ASSERT_EQ(A_Err_NONE, ps->AEGP_ToggleVisibility(text("DE_Orbisett v1.3")));
    EXPECT_EQ(1, g_created.calls);
    ASSERT_NE(nullptr, g_created.view);
    EXPECT_NE(nullptr, g_created.panel);
    EXPECT_EQ(g_created.view, h.panelView("DE_Orbisett v1.3"));
    EXPECT_TRUE(platform::isLiveControl(g_created.view));
    EXPECT_EQ(nullptr, platform::windowOf(g_created.view));
    EXPECT_TRUE(platform::isEffectivelyVisible(g_created.view));
    EXPECT_TRUE(h.panelShown("DE_Orbisett v1.3"));
    EXPECT_EQ("Orbisett", h.panelTitle("DE_Orbisett v1.3"));
    A_Boolean shown = 0, front = 0;
    ASSERT_EQ(A_Err_NONE, ps->AEGP_IsShown(text("DE_Orbisett v1.3"), &shown, &front));
    EXPECT_EQ(1, shown);
    EXPECT_EQ(1, front);
    // Later toggles hide and show it without creating it again.
    ps->AEGP_ToggleVisibility(text("DE_Orbisett v1.3"));
    EXPECT_FALSE(h.panelShown("DE_Orbisett v1.3"));
    EXPECT_FALSE(platform::isEffectivelyVisible(g_created.view));
    ps->AEGP_ToggleVisibility(text("DE_Orbisett v1.3"));
    EXPECT_TRUE(h.panelShown("DE_Orbisett v1.3"));
    EXPECT_TRUE(platform::isEffectivelyVisible(g_created.view));
    EXPECT_EQ(1, g_created.calls);
}

TEST_F(HostPanels, DrawingReachesTheViewsHandlersAndSnapSizesThePluginsFunctionsOnceCreated) {
    EXPECT_EQ(eventNotHandledErr, h.drawPanel("DE_Orbisett v1.3").status);
    EXPECT_TRUE(h.panelSnapSizes("DE_Orbisett v1.3").empty());
    h.togglePanel("DE_Orbisett v1.3");
    EXPECT_TRUE(h.panelPaintsBackground("DE_Orbisett v1.3"));
    EXPECT_EQ(noErr, h.drawPanel("DE_Orbisett v1.3").status);
    EXPECT_EQ(1, g_created.draws);
    const std::vector<A_LPoint> sizes = h.panelSnapSizes("DE_Orbisett v1.3");
    ASSERT_EQ(1u, sizes.size());
    EXPECT_EQ(320, sizes[0].x);
    EXPECT_EQ(240, sizes[0].y);
}

TEST_F(HostPanels, DisposingSendsTheDisposeEventTheNextToggleCreatesAgainAndUnknownPanelsAreRefused) {
    h.togglePanel("DE_Orbisett v1.3");
    ControlRef first = g_created.view;
    AEGP_PanelH first_panel = g_created.panel;
    ASSERT_TRUE(h.disposePanel("DE_Orbisett v1.3"));
    EXPECT_EQ(1, g_created.disposes);
    EXPECT_FALSE(platform::isLiveControl(first));
    EXPECT_FALSE(h.panelCreated("DE_Orbisett v1.3"));
    EXPECT_EQ(A_Err_PARAMETER, ps->AEGP_SetTitle(first_panel, text("stale")));
    EXPECT_FALSE(h.disposePanel("DE_Orbisett v1.3"));
    h.togglePanel("DE_Orbisett v1.3");
    EXPECT_EQ(2, g_created.calls);
    EXPECT_NE(first_panel, g_created.panel);
    EXPECT_TRUE(h.panelShown("DE_Orbisett v1.3"));
    EXPECT_EQ(A_Err_PARAMETER, ps->AEGP_ToggleVisibility(text("nobody")));
    EXPECT_EQ(A_Err_PARAMETER, ps->AEGP_RegisterCreatePanelHook(1, text("DE_Orbisett v1.3"), createPanel, nullptr, 1));
    A_Boolean shown = 7, front = 7;
    EXPECT_EQ(A_Err_PARAMETER, ps->AEGP_IsShown(text("nobody"), &shown, &front));
    EXPECT_EQ(7, shown);
    ASSERT_EQ(A_Err_NONE, ps->AEGP_UnRegisterCreatePanelHook(text("DE_Orbisett v1.3")));
    EXPECT_TRUE(h.panelNames().empty());
}

using HostAppColors = HostFixture;

TEST_F(HostAppColors, PanelBackgroundAndTextColours) {
    auto* app = suite<PFAppSuite2>(kPFAppSuite, kPFAppSuiteVersion2);
    PF_App_Color bg{}, fg{};
    ASSERT_EQ(A_Err_NONE, app->PF_AppGetColor(host::kHostColorPanelBackground, &bg));
    ASSERT_EQ(A_Err_NONE, app->PF_AppGetColor(host::kHostColorText, &fg));
    EXPECT_EQ(bg.red, bg.green);
    EXPECT_EQ(bg.green, bg.blue);
    EXPECT_GT(fg.red, bg.red);  // light text on a dark panel
    PF_App_Color untouched{1, 2, 3};
    EXPECT_EQ(A_Err_PARAMETER, app->PF_AppGetColor(123456, &untouched));
    EXPECT_EQ(1, untouched.red);
}

}  // namespace
