// A cylinder dialog in a floating window of the window-system stand-in, on a host stand-in with
// one 1920 x 1080 composition, plus helpers to set controls by identifier and to fill the layer
// records directly.
#pragma once

#include "controls/settings_table.h"
#include "cylinder/MainDlg.h"
#include "host/host.h"
#include "platform/driver.h"
#include "shell/global_suites.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

// Opens the assistant's protected state to the tests.
class CylinderDialog : public MainDlg {
public:
    using AssistantDlg::layers;
    using MainDlg::MainDlg;
    using MainDlg::search;
    using MainDlg::volumes;
};

class CylinderTest : public ::testing::Test {
protected:
    static constexpr AEGP_PluginID kPluginId = 7;

    void SetUp() override {
        platform::reset();
        host_ = std::make_unique<host::Host>();
        comp_id_ = host_->project().addComp("Main", 1920, 1080);
        sSPBasic = host_->basicSuite();
        dlg_ = std::make_unique<CylinderDialog>(kPluginId);
        // The shell keeps its one dialog object alive across windows; so do the tests.
        dlg_->deleteOnDestroy = false;
        ASSERT_NE(nullptr, dlg_->Create(nullptr, kProductName, 0, kADMFloatingDialogStyle, 0));
        window_ = platform::findWindowByTitle(kProductName);
        ASSERT_NE(nullptr, window_);
    }

    void TearDown() override {
        dlg_.reset();
        sSPBasic = nullptr;
        host_.reset();
        platform::reset();
    }

    MainDlg& dlg() { return *dlg_; }
    CylinderDialog& state() { return *dlg_; }

    // The platform control behind a dialog item, found as a user's automation would.
    ControlRef control(ADMInt32 id) const { return platform::findControlById(window_, id); }

    // Settings, written straight into the items (no notification runs).
    void set_float(ADMInt32 id, float value) { sADMItem->SetFloatValue(dlg_->get_item(id), value); }
    void set_int(ADMInt32 id, int value) { set_float(id, static_cast<float>(value)); }
    void set_bool(ADMInt32 id, bool value) { sADMItem->SetBooleanValue(dlg_->get_item(id), value); }

    // The Begin radios form two groups (243/244 and 247/248); this sets exactly one side.
    void begin_at(ADMInt32 side) {
        for (ADMInt32 id : {RADIO_BEGIN_FRONT, RADIO_BEGIN_BACK, RADIO_BEGIN_LEFT, RADIO_BEGIN_RIGHT}) {
            set_bool(id, id == side);
        }
    }

    // One of the three surface radios; with Sector, exactly the boxes given.
    void surface(ADMInt32 id) {
        for (ADMInt32 r : {RADIO_WHOLE_CYLINDER, RADIO_SECTOR, RADIO_EQUATOR_ONLY}) {
            set_bool(r, r == id);
        }
    }
    void sectors(const std::vector<ADMInt32>& boxes) {
        surface(RADIO_SECTOR);
        for (ADMInt32 id : {CHECK_SECTOR_FRONT, CHECK_SECTOR_RIGHT, CHECK_SECTOR_BACK, CHECK_SECTOR_LEFT}) {
            set_bool(id, std::find(boxes.begin(), boxes.end(), id) != boxes.end());
        }
    }

    // A 3D footage layer of that source size and Scale, added to the composition and selected.
    host::Layer& add_selected_card(A_long width, A_long height, host::Vec3 scale) {
        host::Project& project = host_->project();
        const host::Id id =
            project.addLayer(comp_id_, "Card", AEGP_ObjectType_AV, true, project.addFootage("Card", width, height));
        project.select(comp_id_, {id});
        host::Layer& layer = *project.layer(id);
        layer.prop(host::Prop::scale).value = scale;
        return layer;
    }

    // A user's click on a control (also hidden or disabled ones), so that Notify runs.
    platform::Outcome click(ADMInt32 id) { return platform::click(control(id), platform::Force::yes); }

    // Replaces the layer records by zero-filled records of the given sizes at 100 % scale, with
    // indices 1, 2, ...
    void set_layer_sizes(std::initializer_list<std::pair<A_long, A_long>> sizes) {
        dlg_->layers.clear();
        A_long index = 1;
        for (const auto& [width, height] : sizes) {
            dlg_->layers.push_back(record(index++, width, height));
        }
    }

    // n records of that size.
    void set_layer_count(int n, A_long width = 100, A_long height = 100) {
        set_layer_sizes({});
        for (int i = 0; i < n; ++i) {
            dlg_->layers.push_back(record(i + 1, width, height));
        }
    }

    static AssistantDlg::LayerInfo record(A_long index, A_long width, A_long height) {
        AssistantDlg::LayerInfo info{};
        info.index = index;
        info.dims = A_LPoint{width, height};
        info.size = A_LPoint{width, height};
        info.scale.val.three_d = AEGP_ThreeDVal{100, 100, 100};
        return info;
    }

    std::unique_ptr<host::Host> host_;
    host::Id comp_id_ = 0;
    std::unique_ptr<CylinderDialog> dlg_;
    WindowRef window_ = nullptr;
};
