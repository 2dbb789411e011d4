// A cylinder dialog in a floating window of the window-system stand-in, on a host stand-in with one
// composition: the layout runs exactly as in the plug-in, on records filled directly.
#pragma once

#include "cylinder/MainDlg.h"
#include "host/host.h"

#include <list>
#include <memory>

namespace bench {

// Opens the assistant's record list and footprint list to the benchmarks.
class BenchDialog : public MainDlg {
public:
    using AssistantDlg::layers;
    using MainDlg::MainDlg;
    using MainDlg::volumes;
};

using LayerInfo = AssistantDlg::LayerInfo;

class CylinderStand {
public:
    CylinderStand();
    ~CylinderStand();

    BenchDialog& dlg() { return *dlg_; }
    std::list<LayerInfo>& layers() { return dlg_->layers; }

    // Settings, written straight into the dialog's items.
    void set_float(ADMInt32 id, float value);
    void set_bool(ADMInt32 id, bool value);

    // Replaces the records by n records of the given size at 100 % scale.
    void set_records(int n, A_long width, A_long height);
    // Replaces the records by n records of mixed sizes, from 30 x 20 to 110 x 90 pixels.
    void set_mixed_records(int n);

private:
    std::unique_ptr<host::Host> host_;
    std::unique_ptr<BenchDialog> dlg_;
};

// How many records a layout has placed: the others still hold the marker position they were made
// with.
int placed_count(const std::list<LayerInfo>& layers);

}  // namespace bench
