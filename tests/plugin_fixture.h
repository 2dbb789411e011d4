// The built plug-in module loaded into the host stand-in, with a composition of mixed layers;
// tests act only as the host and a user would.
#pragma once

#include "controls/control_ids.h"
#include "host/host.h"
#include "platform/driver.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

inline constexpr const char* kMenuText = "Orbisett";
inline constexpr const char* kPanelName = "DE_Orbisett v1.3";

class PluginTest : public ::testing::Test {
protected:
    void SetUp() override {
        platform::reset();
        host_ = std::make_unique<host::Host>();
        host::Project& project = host_->project();
        comp_ = project.addComp("Main", 1920, 1080, A_Time{0, 30});
        const host::Id card = project.addFootage("Card", 400, 300);
        for (int i = 1; i <= 4; ++i) {
            cards_.push_back(project.addLayer(comp_, "Card " + std::to_string(i), AEGP_ObjectType_AV, true, card));
        }
        flat_ = project.addLayer(comp_, "Flat", AEGP_ObjectType_AV, false, card);
        camera_ = project.addLayer(comp_, "Camera", AEGP_ObjectType_CAMERA, true);
        light_ = project.addLayer(comp_, "Light", AEGP_ObjectType_LIGHT, true);
        title_ = project.addLayer(comp_, "Title", AEGP_ObjectType_TEXT, true);
        select(cards_);
    }

    void TearDown() override {
        if (host_->pluginLoaded()) {
            host_->unloadPlugin();
        }
        host_.reset();
        platform::reset();
    }

    void load(bool panels) {
        if (!panels) {
            host_->withholdSuite(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
        }
        ASSERT_EQ(A_Err_NONE, host_->loadPlugin(ORBISETT_MODULE_PATH)) << host_->loaderError();
    }

    void select(const std::vector<host::Id>& layers) { host_->project().select(comp_, layers); }

    const host::MenuItem* menu_item() const { return host_->findMenuItem(kMenuText); }

    // Chooses Window > Orbisett as a user would, whether or not the item is enabled right now.
    void command() { ASSERT_EQ(A_Err_NONE, host_->doCommand(menu_item()->command)); }

    WindowRef window() const { return platform::findWindowByTitle("Orbisett"); }
    ControlRef control(ADMInt32 id) const { return platform::findControlById(window(), id); }

    std::unique_ptr<host::Host> host_;
    host::Id comp_ = 0;
    std::vector<host::Id> cards_;
    host::Id flat_ = 0, camera_ = 0, light_ = 0, title_ = 0;
};
