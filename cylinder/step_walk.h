// The walk of the given-steps layout: angular steps around a row, rows from the bottom up. Shared by
// the placement itself and by the count of repeated layers that fit, so both agree place by place.
#pragma once

#include "controls/step_search.h"
#include "cylinder/MainDlg.h"

class StepWalk {
public:
    // Starts at the Begin side, at the bottom of the cylinder; every step is taken from `search`.
    StepWalk(const MainDlg& dlg, controls::StepSearch& search);

    // The place reached last (the start point before the first step).
    const MainDlg::Vector& place() const { return p_; }

    // Inside the active sector and clear of the layers placed so far.
    bool is_free(const A_LPoint& size) const;

    // Steps on until the place is free for a layer of this size. False when the walk is over: the
    // next row would pass the top, the steps can no longer reach a new place, or the search has
    // done all the work it may.
    bool advance(const A_LPoint& size);

private:
    const MainDlg& dlg_;
    controls::StepSearch& search_;
    double phi0_ = 0;  // start angle of every row
    double phi_ = 0;
    double h_ = 0;
    double acc_ = 0;  // angle travelled in the current row
    double top_ = 0;
    int k_ = 0;  // step number within the row
    int m_ = 0;  // row-change number
    MainDlg::Vector p_;
};
