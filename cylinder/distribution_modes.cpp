// Choosing the distribution mode and the placement loops: even rows, given steps, the equator and
// the circle whose radius the first layers set.
#include "cylinder/MainDlg.h"

#include "controls/placement_rules.h"

#include "cylinder/cylinder_constants.h"
#include "cylinder/layout_scope.h"
#include "cylinder/step_walk.h"
#include "math/random.h"
#include "math/saturate.h"

#include <cmath>
#include <vector>

namespace {

// Upper bound of the count of repeated layers that fit.
constexpr int kMaxPlacements = 100000;
// Fixed seed, so the same settings and selection always give the same layout.
constexpr std::int32_t kLayoutSeed = 15021991;

using LayerInfo = AssistantDlg::LayerInfo;
using Vector = MainDlg::Vector;

// One placement: orientation from the normal, position, then the footprint later places avoid.
void place(MainDlg& dlg, LayerInfo& record, const Vector& p, const Vector& normal) {
    dlg.orient_layer(normal, &record.orientation);
    dlg.locate_layer(p, &record.position);
    dlg.add_volume(p, record.size);
}

}  // namespace

A_Err MainDlg::get_layers_pos() {
    if (layers.empty()) {
        return 0;
    }
    const LayoutScope scope(*this);
    if (get_bool(CHECK_SCALE_LAYER)) {
        resize_layers();
    }
    constrain_layers();
    math::SetRand(kLayoutSeed);
    clear_volumes();
    search = controls::StepSearch();

    const controls::ModeSwitches switches{get_bool(CHECK_DISTRIBUTE_EVENLY), get_bool(CHECK_RADIUS_BY_FIRST),
                                          get_bool(RADIO_EQUATOR_ONLY), get_bool(CHECK_CREATE_RING)};
    switch (controls::placementMode(switches)) {
        case controls::PlacementMode::radius_by_first:
            set_with_pre_computed_radius();
            break;
        case controls::PlacementMode::evenly:
            set_layers_evenly();
            break;
        case controls::PlacementMode::given_steps:
            set_layers_with_given_steps();
            break;
        case controls::PlacementMode::ring:
            create_equatorial_ring();
            break;
        case controls::PlacementMode::equator:
            set_layers_along_equator();
            break;
    }
    return 0;
}

void MainDlg::resize_layers() {
    const float target = get_float(EDIT_FORCE_CONFORM);
    for (LayerInfo& record : layers) {
        // A layer without extent cannot be brought to the target size.
        if (record.size.x == 0 || record.size.y == 0) {
            continue;
        }
        const float fx = target / static_cast<float>(record.size.x);
        const float fy = target / static_cast<float>(record.size.y);
        record.scale.val.three_d.x *= fx;
        record.scale.val.three_d.y *= fy;
        record.size.x = math::saturate<A_long>(fx * static_cast<float>(record.size.x));
        record.size.y = math::saturate<A_long>(fy * static_cast<float>(record.size.y));
    }
}

void MainDlg::add_new_layers(int n) {
    if (n < 0 || layers.size() <= static_cast<std::size_t>(n)) {
        return;
    }
    auto first_cut = layers.begin();
    std::advance(first_cut, n);
    layers.erase(first_cut, layers.end());
}

void MainDlg::set_layers_evenly() {
    if (layers.empty()) {
        return;
    }
    const int n = static_cast<int>(layers.size());
    const int rows = static_cast<int>(std::sqrt(static_cast<double>(n)));
    std::vector<int> counts(rows);
    const int base = n / rows;
    const int rem = n - rows * base;
    for (int i = 0; i < rows; ++i) {
        counts[i] = i < rem ? base + 1 : base;
    }
    const float dim_y = get_float(EDIT_DIM_Y);
    const float dz = rows > 1 ? dim_y / static_cast<float>(rows - 1) : 0.0f;

    auto record = layers.begin();
    for (int i = 0; i < rows && record != layers.end(); ++i) {
        const double h = static_cast<double>(dim_y) * -0.5 + i * static_cast<double>(dz);
        const double dphi = counts[i] > 1 ? math::Constant_2PI / counts[i] : 0.0;
        double phi0 = 0;
        double unused_h = 0;
        initial_angles(phi0, unused_h);
        for (int j = 0; j < counts[i] && record != layers.end(); ++j) {
            const Vector p = get_position(phi0 + j * dphi, h, 0);
            if (intersects(p, record->size, false)) {
                continue;
            }
            place(*this, *record, p, get_norm(p));
            ++record;
        }
    }
}

void MainDlg::set_layers_with_given_steps() {
    if (nowhere()) {
        return;
    }
    if (get_bool(CHECK_REPEAT_LAYERS) && enable_repeat_layers()) {
        add_new_layers(get_layers_number());
        // The placement has the same bound as the count: it takes the same steps for the layers kept.
        search = controls::StepSearch();
    }
    StepWalk walk(*this, search);
    bool first = true;
    for (LayerInfo& record : layers) {
        // The place just taken is never offered to the next layer: every later layer starts with a step.
        const bool placed_at_start = first && walk.is_free(record.size);
        first = false;
        if (!placed_at_start && !walk.advance(record.size)) {
            return;
        }
        place(*this, record, walk.place(), get_norm(walk.place()));
    }
}

int MainDlg::get_layers_number() {
    const LayoutScope scope(*this);
    std::vector<A_LPoint> sizes;
    sizes.reserve(layers.size());
    for (const LayerInfo& record : layers) {
        sizes.push_back(record.size);
    }
    if (sizes.empty()) {
        return 0;
    }
    search = controls::StepSearch();
    StepWalk walk(*this, search);
    math::SetRand(kLayoutSeed);
    clear_volumes();
    int q = 0;
    while (q < kMaxPlacements) {
        const A_LPoint& size = sizes[static_cast<std::size_t>(q) % sizes.size()];
        const bool placed_at_start = q == 0 && walk.is_free(size);
        if (!placed_at_start && !walk.advance(size)) {
            break;
        }
        add_volume(walk.place(), size);
        ++q;
    }
    math::SetRand(kLayoutSeed);
    clear_volumes();
    return q;
}

// The angle only grows here: the mode ends when a further step would complete the turn. A step that
// moves nothing, with the next one no larger, would test the same refused place forever; the step
// fields are never negative, so that ends the mode without losing any place a longer search finds.
// Steps too small to complete the turn in reasonable time end at the search's bound.
void MainDlg::set_layers_along_equator() {
    double phi0 = 0;
    double unused_h = 0;
    initial_angles(phi0, unused_h);
    double phi = phi0;
    double acc = 0;
    int k = 0;
    Vector p = get_position(phi0, 0, 0);
    bool first = true;
    for (LayerInfo& record : layers) {
        const bool placed_at_start = first && !intersects(p, record.size, false);
        first = false;
        if (!placed_at_start) {
            for (;;) {
                if (!search.take()) {
                    return;
                }
                const double d = get_phi_increment(k);
                const double acc_before = acc;
                const double phi_before = phi;
                acc += d;
                if (acc > controls::kRowWrap) {
                    return;
                }
                phi += d;
                ++k;
                p = get_position(phi, 0, 0);
                if (!intersects(p, record.size, false)) {
                    break;
                }
                if (phi == phi_before && acc == acc_before && get_phi_increment(k) <= d) {
                    return;
                }
            }
        }
        place(*this, record, p, get_norm(p));
    }
}

// In this mode layers are tested against each other only when a row changes, and then only by
// height; within a row only the sector decides. Whether a place lies in the sector depends on its
// angle alone, and every full row visits the same angles, so a layer that has walked one whole row
// from the start angle without a valid place will never find one: that ends the mode, as running up
// to the top would. Likewise a row change that climbs no higher while the layers below still block
// it can never get past them. Each row change takes from the search's bound as much as the row it
// leaves, so that the work of the steps around the rows is bounded too.
void MainDlg::set_with_pre_computed_radius() {
    const int n = get_int(EDIT_RADIUS_LAYERS);
    if (layers.empty() || n < 1) {
        return;
    }
    const double dphi = math::Constant_2PI / n;
    const double w = static_cast<double>(layers.front().size.x);
    const double radius = (0.5 * w) / std::tan(0.5 * dphi);
    const double top = static_cast<double>(get_float(EDIT_DIM_Y)) * 0.5;
    const std::int64_t row_work = static_cast<std::int64_t>(n) + 1;

    double phi0 = 0;
    double h = 0;
    initial_angles(phi0, h);
    double phi = phi0;
    double acc = 0;
    int m = 0;
    Vector p = get_position(phi0, h, radius);
    bool first = true;
    for (LayerInfo& record : layers) {
        const bool placed_at_start = first && is_pos_valid(p);
        first = false;
        bool walked_row = false;
        while (!placed_at_start) {
            phi += dphi;
            acc += dphi;
            if (acc > controls::kRowWrap) {
                if (walked_row) {
                    return;
                }
                for (;;) {
                    if (!search.take(row_work)) {
                        return;
                    }
                    const double dz = get_z_increment(m);
                    const double h_before = h;
                    h += dz;
                    p = get_position(phi0, h, radius);
                    ++m;
                    // Height steps are never negative: once past the top the mode is over anyway.
                    if (!intersects(p, record.size, true) || h > top) {
                        break;
                    }
                    if (h == h_before && get_z_increment(m) == dz) {
                        return;
                    }
                }
                if (h > top) {
                    return;
                }
                phi = phi0;
                acc = 0;
                walked_row = true;
            }
            p = get_position(phi, h, radius);
            if (is_pos_valid(p)) {
                break;
            }
        }
        Vector normal(p.x, 0, p.z);
        normal.Normalize();
        place(*this, record, p, normal);
    }
}
