// The cylinder assistant: its dialog, and the placement of layer records on an upright elliptic
// cylinder. Settings live only in the dialog's controls and are read by identifier when needed.
#pragma once

#include "common/adobe/AssistantDlg.h"
#include "controls/control_ids.h"
#include "controls/step_search.h"
#include "cylinder/SolidAngle.h"
#include "cylinder/footprint_index.h"
#include "cylinder/settings_memo.h"
#include "math/vector3d.h"

#include <string>
#include <vector>

class MainDlg : public AssistantDlg {
public:
    typedef math::TGeomVector3D<double> Vector;

    explicit MainDlg(int plugin_id);
    ~MainDlg() override;

    // Dialog.
    ASErr Init() override;
    void Notify(IADMNotifier notifier) override;
    void Enable(unsigned char enable) override;
    std::string get_name() const override;
    void enable_distance_group();
    void enable_hemisphere_group();
    void enable_force_conform();
    void enable_radius_group();
    // Whether repeating layers is allowed in the current settings.
    bool enable_repeat_layers();

    // Settings, read from the controls (0 / false without a window or control).
    float get_float(ADMInt32 id) const;
    int get_int(ADMInt32 id) const;
    bool get_bool(ADMInt32 id) const;

    // Cylinder coordinates and surface positions (radians; layout frame Y up, Z toward the viewer).
    Vector cyl_to_cart(const Vector& q) const;
    Vector cart_to_cyl(const Vector& p) const;
    void get_phi_z_dir(const Vector& p, Vector& phi_dir, Vector& z_dir) const;
    Vector get_position(double phi, double h, double radius) const;
    void initial_angles(double& phi, double& h) const;
    double get_phi_increment(int step) const;
    double get_z_increment(int row) const;
    Vector initial_pos_at_ring(const Vector& half_axes) const;
    void locate_layer(const Vector& p, AEGP_StreamValue* value) const;
    Vector get_norm(const Vector& p) const;

    // Orientation.
    void orient_layer(const Vector& n, AEGP_StreamValue* value) const;
    bool is_orient_changed() override;

    // Distribution modes.
    A_Err get_layers_pos() override;
    void set_layers_evenly();
    void set_layers_with_given_steps();
    void set_layers_along_equator();
    void set_with_pre_computed_radius();
    int get_layers_number();
    void add_new_layers(int n);
    void resize_layers();
    bool is_pos_valid(const Vector& p) const;
    bool nowhere() const;

    // Overlap avoidance.
    void add_volume(const Vector& p, const A_LPoint& size);
    bool intersects(const Vector& p, const A_LPoint& size, bool height_only) const;
    bool contains(const SolidAngle& band, const Vector& q, bool height_only) const;

    // Equatorial ring.
    void create_equatorial_ring();
    int intersect_ellipse(const Vector& o, const Vector& d, const Vector& axes, Vector& p1, Vector& p2) const;

protected:
    std::vector<SolidAngle> volumes;  // footprints of the layers placed in the current layout
    // The work of the last search for places: the layout's placement, or a count of the layers
    // that fit run on its own.
    controls::StepSearch search;

private:
    // Marks the run of one layout or count; while one runs, settings are read once and the
    // overlap test looks footprints up in the index.
    friend class LayoutScope;
    void clear_volumes();

    int layout_depth = 0;
    mutable SettingsMemo settings_memo;
    mutable FootprintIndex footprint_index;  // follows `volumes` while a layout runs
};
