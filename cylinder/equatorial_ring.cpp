// A closed ring of panels at mid-height: the layers laid edge to edge around an ellipse with the
// proportions of the box, sized so that they just close; the last layer is stretched to close it.
#include "cylinder/MainDlg.h"

#include "cylinder/cylinder_constants.h"
#include "math/matrix3d.h"
#include "math/saturate.h"

#include <cmath>
#include <vector>

namespace {

using Vector = MainDlg::Vector;
using Matrix = math::TMatrix3D<double>;

// Outer passes that adjust the ring's size to the layers' total width, and passes that turn each
// panel toward the tangent of the ellipse.
constexpr int kSizePasses = 5;
constexpr int kTangentPasses = 5;
// Below this the chord's midpoint is too near the centre to give a direction.
constexpr double kMinMidpoint = 0.01;

Vector normalized(Vector v) {
    v.Normalize();
    return v;
}

struct Ring {
    std::vector<double> widths;
    std::vector<Vector> centres;
    std::vector<Vector> normals;
    std::vector<Vector> directions;

    Vector near_edge(std::size_t i) const { return centres[i] - 0.5 * widths[i] * directions[i]; }
    Vector far_edge(std::size_t i) const { return centres[i] + 0.5 * widths[i] * directions[i]; }
};

}  // namespace

int MainDlg::intersect_ellipse(const Vector& o, const Vector& d, const Vector& axes, Vector& p1, Vector& p2) const {
    const double ax2 = axes.x * axes.x;
    const double ay2 = axes.y * axes.y;
    const double az2 = axes.z * axes.z;
    const double a = d.x * d.x / ax2 + d.y * d.y / ay2 + d.z * d.z / az2;
    const double b = (d.x * o.x / ax2 + d.y * o.y / ay2 + d.z * o.z / az2) / a;
    const double k = (o.x * o.x / ax2 + o.y * o.y / ay2 + o.z * o.z / az2 - 1) / a;
    const double disc = b * b - k;
    // A line without direction, or a flat ellipsoid, gives no number here: it misses like a line
    // that passes by, and the points stay as they were.
    if (!(disc >= 0)) {
        return 0;
    }
    const double s = std::sqrt(disc);
    p1 = o + (-b - s) * d;
    p2 = o + (s - b) * d;
    return 2;
}

void MainDlg::create_equatorial_ring() {
    const std::size_t n = layers.size();
    if (n <= 2) {
        return;
    }
    Ring ring;
    ring.widths.reserve(n);
    double sum = 0;
    for (const LayerInfo& record : layers) {
        ring.widths.push_back(static_cast<double>(record.size.x));
        sum += ring.widths.back();
    }
    const double hx = static_cast<double>(get_float(EDIT_DIM_X)) * 0.5;
    const double hy = static_cast<double>(get_float(EDIT_DIM_Y)) * 0.5;
    const double hz = static_cast<double>(get_float(EDIT_DIM_Z)) * 0.5;
    // Without a total width the ring has no size at all.
    if (hx < EPS || hy < EPS || hz < EPS || sum == 0) {
        return;
    }
    const double aspect = hz / hx;
    const double rb = hy;
    const Matrix turn = Matrix::BuildRotate(Vector(0, 1, 0), math::Constant_Half_PI);
    const Matrix unturn = turn.Inversed();
    const double perimeter_per_ra = (1.5 * (1 + aspect) - std::sqrt(aspect)) * math::Constant_PI;

    ring.centres.assign(n, Vector());
    ring.normals.assign(n, Vector());
    ring.directions.assign(n, Vector());
    // A line that misses the ellipse keeps the crossing points of the line before.
    Vector p1;
    Vector p2;
    Vector q1;
    Vector q2;
    double target = sum;
    for (int pass = 0; pass < kSizePasses; ++pass) {
        // Where closing a gap overshoots, the target goes below zero: the half-axes turn negative
        // with it, and the ring is built from the opposite side.
        const double ra = target / perimeter_per_ra;
        const double rc = ra * aspect;
        const Vector axes(ra, rb, rc);
        ring.centres[0] = initial_pos_at_ring(axes);
        ring.normals[0] = normalized(ring.centres[0]);
        ring.directions[0] = turn * ring.normals[0];
        for (std::size_t i = 1; i < n; ++i) {
            const Vector e = ring.far_edge(i - 1);
            Vector dir = normalized(-e);
            for (int refine = 0; refine < kTangentPasses; ++refine) {
                intersect_ellipse(e, dir, axes, p1, p2);
                Vector mid = (p1 + p2) * 0.5;
                if (mid.Length() < kMinMidpoint) {
                    mid = unturn * (p2 - p1);
                }
                mid.Normalize();
                intersect_ellipse(Vector(), mid, axes, q1, q2);
                dir = normalized(q2 - e);
                ring.directions[i] = dir;
                ring.centres[i] = e + 0.5 * ring.widths[i] * dir;
                ring.normals[i] = unturn * dir;
            }
        }
        const Vector f = ring.near_edge(0);
        const Vector g = ring.far_edge(n - 1);
        const double gap = (f - g).Length();
        if (cart_to_cyl(f).y > cart_to_cyl(g).y) {
            target -= gap;
        } else {
            target += gap;
        }
    }

    // Close the ring exactly with the last panel, from the edge of the one before to the first.
    const Vector f = ring.near_edge(0);
    const Vector g = ring.far_edge(n - 2);
    const double closing = (f - g).Length();
    // Layers without width before the last can bring both edges together: the last panel then
    // keeps the direction of the passes, and its width, scaled by 0, closes nothing.
    if (closing > 0) {
        ring.directions[n - 1] = (f - g) / closing;
    }
    ring.centres[n - 1] = 0.5 * (f + g);
    ring.normals[n - 1] = unturn * ring.directions[n - 1];

    std::size_t i = 0;
    for (LayerInfo& record : layers) {
        if (i == n - 1 && record.size.x != 0) {
            const double factor = closing / static_cast<double>(record.size.x);
            record.size.x = math::saturate<A_long>(factor * static_cast<double>(record.size.x));
            record.scale.val.three_d.x *= factor;
        }
        orient_layer(ring.normals[i], &record.orientation);
        locate_layer(ring.centres[i], &record.position);
        ++i;
    }
}
