// Reading the placement back from layer records: the layout-frame point behind a written position
// (cylinder centre at the origin), its angle around the cylinder, and a snapshot to compare runs.
#pragma once

#include "cylinder_fixture.h"
#include "math/constants.h"

#include <cmath>
#include <cstring>
#include <iterator>
#include <vector>

namespace layout_records {

using Vector = MainDlg::Vector;
using LayerInfo = AssistantDlg::LayerInfo;

// The host's frame has Y down and Z away from the viewer.
inline Vector layout_point(const LayerInfo& record) {
    const AEGP_ThreeDVal& v = record.position.val.three_d;
    return Vector(v.x, -v.y, -v.z);
}

// Angle around the cylinder in degrees, [0, 360), 0 at the front, 90 at the right.
inline double degrees_around(const Vector& p) {
    const double a = std::atan2(p.x, p.z) * 180 / math::Constant_PI;
    return a < -1e-9 ? a + 360 : (a < 0 ? 0 : a);
}

inline double radius_of(const Vector& p) { return std::hypot(p.x, p.z); }

// A position no layout writes, to tell untouched records from placed ones.
inline constexpr AEGP_ThreeDVal kSnapshotPosition{-1234.5, 678.25, -9.75};
inline constexpr AEGP_ThreeDVal kSnapshotOrientation{11, 22, 33};

inline void mark_snapshot(std::list<LayerInfo>& layers) {
    for (LayerInfo& record : layers) {
        record.position.val.three_d = kSnapshotPosition;
        record.orientation.val.three_d = kSnapshotOrientation;
    }
}

inline bool is_snapshot(const LayerInfo& record) {
    const AEGP_ThreeDVal& p = record.position.val.three_d;
    const AEGP_ThreeDVal& o = record.orientation.val.three_d;
    return p.x == kSnapshotPosition.x && p.y == kSnapshotPosition.y && p.z == kSnapshotPosition.z &&
           o.x == kSnapshotOrientation.x && o.y == kSnapshotOrientation.y && o.z == kSnapshotOrientation.z;
}

inline const LayerInfo& nth(const std::list<LayerInfo>& layers, std::size_t i) {
    return *std::next(layers.begin(), static_cast<std::ptrdiff_t>(i));
}

// Everything a layout may write, as raw bytes, so two runs can be compared bit for bit.
inline std::vector<unsigned char> bytes_of(const std::list<LayerInfo>& layers) {
    std::vector<unsigned char> out;
    auto append = [&out](const void* data, std::size_t n) {
        const auto* b = static_cast<const unsigned char*>(data);
        out.insert(out.end(), b, b + n);
    };
    for (const LayerInfo& record : layers) {
        append(&record.size, sizeof record.size);
        append(&record.scale.val.three_d, sizeof(AEGP_ThreeDVal));
        append(&record.position.val.three_d, sizeof(AEGP_ThreeDVal));
        append(&record.orientation.val.three_d, sizeof(AEGP_ThreeDVal));
        append(&record.clone, sizeof record.clone);
    }
    return out;
}

inline bool all_finite(const std::list<LayerInfo>& layers) {
    for (const LayerInfo& record : layers) {
        for (const AEGP_StreamValue* v : {&record.scale, &record.position, &record.orientation}) {
            const AEGP_ThreeDVal& t = v->val.three_d;
            if (!std::isfinite(t.x) || !std::isfinite(t.y) || !std::isfinite(t.z)) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace layout_records
