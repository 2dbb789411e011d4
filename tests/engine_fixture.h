// The engine's test bench: a fresh host stand-in as the current host, the window system reset,
// and the test assistant opened as a floating window whose controls are clicked and typed into
// through the platform driver, as a user would.
#pragma once

#include "test_assistant.h"

#include "host/host.h"
#include "platform/driver.h"
#include "shell/global_suites.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

class EngineTest : public ::testing::Test {
protected:
    static constexpr AEGP_PluginID kPluginId = 7;

    void SetUp() override { start_host(); }
    void TearDown() override { stop_host(); }

    void start_host() {
        platform::reset();
        host_ = std::make_unique<host::Host>();
        sSPBasic = host_->basicSuite();
        comp_ = host_->project().addComp("Main", 1920, 1080, A_Time{15, 30});
    }

    void stop_host() {
        close_dialog();
        sSPBasic = nullptr;
        host_.reset();
        platform::reset();
    }

    host::Host& host() { return *host_; }
    host::Project& project() { return host_->project(); }
    host::Comp& comp() { return *project().comp(comp_); }

    // ---- Scene -------------------------------------------------------------------------
    host::Id add_av(const std::string& name, A_long width, A_long height, bool three_d = true) {
        const host::Id footage = project().addFootage(name + " source", width, height);
        return project().addLayer(comp_, name, AEGP_ObjectType_AV, three_d, footage);
    }
    host::Id add_layer(const std::string& name, AEGP_ObjectType type, bool three_d = true) {
        return project().addLayer(comp_, name, type, three_d);
    }
    void select(const std::vector<host::Id>& layers) { project().select(comp_, layers); }
    host::Layer& layer(host::Id id) { return *project().layer(id); }
    host::Property& prop(host::Id id, host::Prop which) { return layer(id).prop(which); }
    AEGP_LayerH handle(host::Id id) { return host_->layerHandle(id); }
    // 0-based place of a layer in the composition's layer order.
    A_long index_of(host::Id id) { return static_cast<A_long>(project().find(id).index); }

    // ---- Dialog ------------------------------------------------------------------------
    TestAssistant& open_dialog(std::set<ADMInt32> missing = {}) {
        dialog_ = std::make_unique<TestAssistant>(kPluginId, std::move(missing));
        dialog_->deleteOnDestroy = false;  // as the shell keeps its one dialog object
        dialog_->Create(nullptr, kTestAssistantName, 0, kADMFloatingDialogStyle, 0);
        EXPECT_NE(dialog_->dialog, nullptr);
        sADMDialog->Show(dialog_->dialog, true);
        return *dialog_;
    }

    // Destroys the window first, so that the assistant releases its host resources as it does
    // when its window goes, then the object.
    void close_dialog() {
        if (dialog_ && dialog_->dialog != nullptr) {
            sADMDialog->Destroy(dialog_->dialog);
        }
        dialog_.reset();
    }

    TestAssistant& dlg() { return *dialog_; }

    WindowRef window() { return platform::findWindowByTitle(kTestAssistantName); }
    ControlRef control(ADMInt32 id) { return platform::findControlById(window(), id); }

    void press(ADMInt32 id) {
        const platform::Outcome outcome = platform::click(control(id));
        EXPECT_TRUE(outcome.ok()) << platform::describeStatus(outcome.refused);
    }
    void press_apply() { press(kAssistantApplyId); }

    bool checked(ADMInt32 id) { return sADMItem->GetBooleanValue(dlg().get_item(id)) != 0; }
    bool enabled(ADMInt32 id) { return sADMItem->IsEnabled(dlg().get_item(id)) != 0; }
    void set_check(ADMInt32 id, bool on) {
        if (checked(id) != on) {
            press(id);
        }
        ASSERT_EQ(checked(id), on);
    }
    void type(ADMInt32 id, const std::string& text) {
        const platform::Outcome outcome = platform::typeText(control(id), text);
        EXPECT_TRUE(outcome.ok()) << platform::describeStatus(outcome.refused);
    }

    // What the shell does on idle: test the selection, tell the dialog, enable it accordingly.
    void refresh() {
        const bool arrangeable = dlg().isCurSelectionContains(kArrangeableLayersMask);
        dlg().OnHostHasChanged();
        dlg().Enable(arrangeable);
    }

    std::unique_ptr<host::Host> host_;
    host::Id comp_ = 0;
    std::unique_ptr<TestAssistant> dialog_;
};

inline host::Vec3 vec(double x, double y, double z) { return host::Vec3{x, y, z}; }
