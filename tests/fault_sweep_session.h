// One fresh host with a small, varied composition and the built plug-in module: what every run
// of the fault sweep starts from. Acts only as the host and a user would.
#pragma once

#include "host/host.h"
#include "platform/driver.h"

#include <memory>
#include <string>

namespace sweep {

inline constexpr const char* kPanelName = "DE_Orbisett v1.3";

struct HostKind {
    bool panels = false;         // offers the workspace panel suite
    bool layer_suite_10 = true;  // offers "AEGP Layer Suite" 10 (else copies go through command 2080)
};

class SweepSession {
public:
    explicit SweepSession(HostKind kind) : kind_(kind) {
        platform::reset();
        host_ = std::make_unique<host::Host>();
        if (!kind.panels) {
            host_->withholdSuite(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
        }
        if (!kind.layer_suite_10) {
            host_->withholdSuite(kAEGPLayerSuite, kAEGPLayerSuiteVersion10);
        }
        buildProject(host_->project());
    }

    ~SweepSession() {
        if (host_->pluginLoaded()) {
            host_->clearFaults();
            host_->unloadPlugin();
        }
        host_.reset();
        platform::reset();
    }

    SweepSession(const SweepSession&) = delete;
    SweepSession& operator=(const SweepSession&) = delete;

    host::Host& host() { return *host_; }
    const HostKind& kind() const { return kind_; }

    A_Err load() { return host_->loadPlugin(ORBISETT_MODULE_PATH); }

    // Window > Orbisett chosen, without the menu update that comes before it.
    A_Err command() {
        const host::MenuItem* item = host_->findMenuItem("Orbisett");
        return item == nullptr ? A_Err_PARAMETER : host_->doCommand(item->command);
    }

    // The dialog's control, in its floating window or in the panel.
    ControlRef control(SInt32 id) const {
        if (kind_.panels) {
            ControlRef view = host_->panelView(kPanelName);
            return view == nullptr ? nullptr : platform::findControlById(view, id);
        }
        WindowRef window = platform::findWindowByTitle("Orbisett");
        return window == nullptr ? nullptr : platform::findControlById(window, id);
    }

    bool click(SInt32 id) {
        ControlRef c = control(id);
        return c != nullptr && platform::click(c).ok();
    }

    bool type(SInt32 id, const std::string& text) {
        ControlRef c = control(id);
        return c != nullptr && platform::typeText(c, text).ok();
    }

private:
    // Three footage cards (one animated, one turned), a 3D text layer, and what must be left
    // alone: a 2D layer and a camera. The selection is in neither layer nor file order.
    static void buildProject(host::Project& p) {
        const host::Id comp = p.addComp("Main", 1920, 1080, A_Time{15, 30});
        const host::Id card = p.addFootage("Card", 400, 300);
        const host::Id wide = p.addFootage("Wide", 800, 200);
        const host::Id card1 = p.addLayer(comp, "Card 1", AEGP_ObjectType_AV, true, card);
        const host::Id card2 = p.addLayer(comp, "Card 2", AEGP_ObjectType_AV, true, card);
        const host::Id card3 = p.addLayer(comp, "Card 3", AEGP_ObjectType_AV, true, wide);
        const host::Id title = p.addLayer(comp, "Title", AEGP_ObjectType_TEXT, true);
        const host::Id flat = p.addLayer(comp, "Flat", AEGP_ObjectType_AV, false, card);
        const host::Id camera = p.addLayer(comp, "Camera", AEGP_ObjectType_CAMERA, true);

        host::Property& moving = p.layer(card2)->prop(host::Prop::position);
        moving.insertKey(A_Time{0, 30}, host::Vec3{100, 200, 0});
        moving.insertKey(A_Time{30, 30}, host::Vec3{700, 200, -300});
        p.layer(card3)->prop(host::Prop::rotate_x).value.x = 20;
        p.layer(card3)->prop(host::Prop::orientation).value = host::Vec3{10, 0, 0};
        p.layer(title)->prop(host::Prop::position).value = host::Vec3{960, 540, 0};

        p.select(comp, {card3, card1, title, card2, flat, camera});
    }

    HostKind kind_;
    std::unique_ptr<host::Host> host_;
};

}  // namespace sweep
