// The run of one layout or count of the cylinder assistant. Nothing can change the dialog's controls
// while it lasts, so they are read once; and only the layout adds footprints, so the index can
// follow them. Runs nest: the count of repeated layers runs inside a layout.
#pragma once

#include "cylinder/MainDlg.h"

class LayoutScope {
public:
    explicit LayoutScope(MainDlg& dlg) : dlg_(dlg) {
        if (dlg_.layout_depth++ == 0) {
            dlg_.settings_memo.open();
            dlg_.footprint_index.clear();
        }
    }

    ~LayoutScope() {
        if (--dlg_.layout_depth == 0) {
            dlg_.settings_memo.close();
            dlg_.footprint_index.clear();
        }
    }

    LayoutScope(const LayoutScope&) = delete;
    LayoutScope& operator=(const LayoutScope&) = delete;

private:
    MainDlg& dlg_;
};
