#include "bench/cylinder_stand.h"

#include "controls/settings_table.h"
#include "platform/driver.h"
#include "shell/global_suites.h"

#include <stdexcept>

namespace bench {

namespace {

constexpr AEGP_PluginID kPluginId = 7;

// A position no layout writes.
constexpr AEGP_ThreeDVal kUnplaced{-1234.5, 678.25, -9.75};

LayerInfo record(A_long index, A_long width, A_long height) {
    LayerInfo info{};
    info.index = index;
    info.dims = A_LPoint{width, height};
    info.size = A_LPoint{width, height};
    info.scale.val.three_d = AEGP_ThreeDVal{100, 100, 100};
    info.position.val.three_d = kUnplaced;
    return info;
}

}  // namespace

CylinderStand::CylinderStand() {
    platform::reset();
    host_ = std::make_unique<host::Host>();
    host_->project().addComp("Main", 1920, 1080);
    sSPBasic = host_->basicSuite();
    dlg_ = std::make_unique<BenchDialog>(kPluginId);
    dlg_->deleteOnDestroy = false;
    if (dlg_->Create(nullptr, kProductName, 0, kADMFloatingDialogStyle, 0) == nullptr) {
        throw std::runtime_error("the cylinder dialog could not be created");
    }
}

CylinderStand::~CylinderStand() {
    dlg_.reset();
    sSPBasic = nullptr;
    host_.reset();
    platform::reset();
}

void CylinderStand::set_float(ADMInt32 id, float value) { sADMItem->SetFloatValue(dlg_->get_item(id), value); }

void CylinderStand::set_bool(ADMInt32 id, bool value) { sADMItem->SetBooleanValue(dlg_->get_item(id), value); }

void CylinderStand::set_records(int n, A_long width, A_long height) {
    dlg_->layers.clear();
    for (int i = 0; i < n; ++i) {
        dlg_->layers.push_back(record(i + 1, width, height));
    }
}

void CylinderStand::set_mixed_records(int n) {
    dlg_->layers.clear();
    for (int i = 0; i < n; ++i) {
        // Co-prime strides spread the sizes without a visible period.
        dlg_->layers.push_back(record(i + 1, 30 + (i * 37) % 81, 20 + (i * 53) % 71));
    }
}

int placed_count(const std::list<LayerInfo>& layers) {
    int n = 0;
    for (const LayerInfo& r : layers) {
        const AEGP_ThreeDVal& p = r.position.val.three_d;
        n += p.x != kUnplaced.x || p.y != kUnplaced.y || p.z != kUnplaced.z ? 1 : 0;
    }
    return n;
}

}  // namespace bench
