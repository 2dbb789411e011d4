// The engine's test bench: a fresh host stand-in and window system, a 1920 × 1080 composition at
// 15/30 s, and the test assistant as a floating window whose controls are clicked and typed into
// through the platform driver, as a user would.
#pragma once

#include "test_assistant.h"

#include "host/host.h"
#include "platform/driver.h"
#include "shell/global_suites.h"

#include <gtest/gtest.h>

#include <memory>

class EngineTest : public ::testing::Test {
protected:
    void SetUp() override {
        platform::reset();
        host_ = std::make_unique<host::Host>();
        sSPBasic = host_->basicSuite();
        comp_ = project().addComp("Main", 1920, 1080, A_Time{15, 30});
    }
    void TearDown() override {
        // The window goes first, so the assistant releases its host resources as it would.
        if (dialog_ && dialog_->dialog != nullptr) {
            sADMDialog->Destroy(dialog_->dialog);
        }
        dialog_.reset();
        sSPBasic = nullptr;
        host_.reset();
        platform::reset();
    }

    host::Host& host() { return *host_; }
    host::Project& project() { return host_->project(); }
    host::Comp& comp() { return *project().comp(comp_); }
    host::Id add_av(const std::string& name, A_long width, A_long height, bool three_d = true) {
        return project().addLayer(comp_, name, AEGP_ObjectType_AV, three_d, project().addFootage(name, width, height));
    }
    host::Id add_layer(AEGP_ObjectType type, bool three_d = true) {
        return project().addLayer(comp_, "layer", type, three_d);
    }
    std::vector<host::Id> add_cards(int count) {
        std::vector<host::Id> cards;
        for (int i = 0; i < count; ++i) {
            cards.push_back(add_av("Card " + std::to_string(i + 1), 400, 300));
        }
        return cards;
    }
    void select(const std::vector<host::Id>& layers) { project().select(comp_, layers); }
    host::Layer& layer(host::Id id) { return *project().layer(id); }
    host::Property& prop(host::Id id, host::Prop which) { return layer(id).prop(which); }
    host::Vec3 position(host::Id id) { return prop(id, host::Prop::position).valueAt(comp().time); }

    TestAssistant& open_dialog(std::set<ADMInt32> missing = {}) {
        dialog_ = std::make_unique<TestAssistant>(7, std::move(missing));
        dialog_->deleteOnDestroy = false;  // as the shell keeps its one dialog object
        dialog_->Create(nullptr, kTestAssistantName, 0, kADMFloatingDialogStyle, 0);
        EXPECT_NE(dialog_->dialog, nullptr);
        sADMDialog->Show(dialog_->dialog, true);
        return *dialog_;
    }
    TestAssistant& dlg() { return *dialog_; }
    WindowRef window() { return platform::findWindowByTitle(kTestAssistantName); }
    ControlRef control(ADMInt32 id) { return platform::findControlById(window(), id); }

    void press(ADMInt32 id) { EXPECT_TRUE(platform::click(control(id)).ok()) << "control " << id; }
    void press_apply() { press(kAssistantApplyId); }
    bool checked(ADMInt32 id) { return sADMItem->GetBooleanValue(dlg().get_item(id)) != 0; }
    bool enabled(ADMInt32 id) { return sADMItem->IsEnabled(dlg().get_item(id)) != 0; }
    void set_check(ADMInt32 id, bool on) {
        if (checked(id) != on) {
            press(id);
        }
    }
    void repeat(const std::string& count) {
        set_check(kAssistantRepeatLayersId, true);
        EXPECT_TRUE(platform::typeText(control(kAssistantRepeatCountId), count).ok());
    }
    // What the shell does on idle: test the selection, tell the dialog, enable it accordingly.
    void refresh() {
        const bool arrangeable = dlg().isCurSelectionContains(kArrangeableLayersMask);
        dlg().OnHostHasChanged();
        dlg().Enable(arrangeable);
    }
    std::vector<host::Id> copies() {
        std::vector<host::Id> out;
        for (const host::Layer& l : comp().layers) {
            if (l.copy_of != 0) {
                out.push_back(l.id);
            }
        }
        return out;
    }

    std::unique_ptr<host::Host> host_;
    host::Id comp_ = 0;
    std::unique_ptr<TestAssistant> dialog_;
};

inline host::Vec3 vec(double x, double y, double z) { return host::Vec3{x, y, z}; }
