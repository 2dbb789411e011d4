#include "cylinder/step_walk.h"

StepWalk::StepWalk(const MainDlg& dlg, controls::StepSearch& search) : dlg_(dlg), search_(search) {
    dlg_.initial_angles(phi0_, h_);
    phi_ = phi0_;
    top_ = static_cast<double>(dlg_.get_float(EDIT_DIM_Y)) * 0.5;
    p_ = dlg_.get_position(phi0_, h_, 0);
}

bool StepWalk::is_free(const A_LPoint& size) const {
    return dlg_.is_pos_valid(p_) && !dlg_.intersects(p_, size, false);
}

// Without a bound of their own, zero steps would search forever for a layer that fits nowhere.
// The walk ends only where every later step would test a place already refused in this search:
// - an angular step that moved neither the angle nor the travelled angle, with the next step no
//   larger: the step fields are never negative, so the steps stay that size and the row never fills;
// - a row change that left the height as it was, with the next height step the same, after this
//   layer has already walked a whole row from the start angle: every later row repeats that row.
// A layout that would end by itself is therefore never cut short by these. Steps far too small to
// type reasonably could still take billions of steps to reach the top: the search's bound ends them.
bool StepWalk::advance(const A_LPoint& size) {
    bool walked_row = false;
    for (;;) {
        if (!search_.take()) {
            return false;
        }
        const double d = dlg_.get_phi_increment(k_);
        const double phi_before = phi_;
        const double acc_before = acc_;
        phi_ += d;
        acc_ += d;
        ++k_;
        bool stalled = false;
        if (acc_ > controls::kRowWrap) {
            const double dz = dlg_.get_z_increment(m_);
            const double h_before = h_;
            h_ += dz;
            ++m_;
            if (h_ > top_) {
                return false;
            }
            stalled = walked_row && h_ == h_before && dlg_.get_z_increment(m_) == dz;
            phi_ = phi0_;
            acc_ = 0;
            k_ = 0;
            walked_row = true;
        } else {
            stalled = phi_ == phi_before && acc_ == acc_before && dlg_.get_phi_increment(k_) <= d;
        }
        p_ = dlg_.get_position(phi_, h_, 0);
        if (is_free(size)) {
            return true;
        }
        if (stalled) {
            return false;
        }
    }
}
