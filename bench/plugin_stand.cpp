#include "bench/plugin_stand.h"

#include "controls/control_ids.h"
#include "platform/driver.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace bench {

namespace {

constexpr const char* kMenuText = "Orbisett";

// Where the layers stand before any "Apply".
constexpr host::Vec3 kStart{12.5, 34.5, 56.5};

void require(bool ok, const std::string& what) {
    if (!ok) {
        throw std::runtime_error(what);
    }
}

}  // namespace

PluginStand::PluginStand(int layers, bool keys) {
    platform::reset();
    host_ = std::make_unique<host::Host>();
    host::Project& project = host_->project();
    comp_ = project.addComp("Main", 1920, 1080, A_Time{0, 30});
    const host::Id card = project.addFootage("Card", 400, 300);
    std::vector<host::Id> selection;
    for (int i = 1; i <= layers; ++i) {
        const host::Id layer = project.addLayer(comp_, "Card " + std::to_string(i), AEGP_ObjectType_AV, true, card);
        project.layer(layer)->prop(host::Prop::position).value = kStart;
        selection.push_back(layer);
    }
    project.select(comp_, selection);

    // Without panels the dialog is a floating window.
    host_->withholdSuite(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
    require(host_->loadPlugin(ORBISETT_MODULE_PATH) == A_Err_NONE, "the module did not load: " + host_->loaderError());
    require(host_->chooseMenuItem(kMenuText) == A_Err_NONE, "the menu command failed");
    host_->idle();
    window_ = platform::findWindowByTitle(kMenuText);
    require(window_ != nullptr, "the dialog did not open");
    click(CHECK_DISTRIBUTE_EVENLY);
    if (keys) {
        click(CHECK_KEY_POSITION);
        click(CHECK_KEY_ORIENTATION);
        click(CHECK_KEY_SCALE);
    }
}

PluginStand::~PluginStand() {
    if (host_->pluginLoaded()) {
        host_->unloadPlugin();
    }
    host_.reset();
    platform::reset();
}

void PluginStand::click(int control_id) {
    require(platform::click(platform::findControlById(window_, control_id)).ok(),
            "control " + std::to_string(control_id) + " could not be clicked");
}

void PluginStand::apply() { click(BUTTON_APPLY); }

void PluginStand::undo() { require(host_->undo(), "nothing to undo"); }

HostCounts PluginStand::counts() const {
    HostCounts c;
    c.calls = host_->totalCalls();
    c.acquisitions = host_->acquireCount();
    return c;
}

int PluginStand::moved_layers() const {
    int n = 0;
    const host::Comp& comp = *host_->project().comp(comp_);
    for (const host::Layer& layer : comp.layers) {
        // With keys the value a user sees is the one at the current time.
        n += layer.prop(host::Prop::position).valueAt(comp.time) == kStart ? 0 : 1;
    }
    return n;
}

}  // namespace bench
