// The abstract layer assistant: takes a snapshot of the selected 3D layers, orders it, lets the
// concrete assistant place the records, writes them back to the host (optionally as keyframes)
// and makes the planned copies, all as one undo step.
#pragma once

#include "dialog/BaseDlg.h"
#include "host_api.h"
#include "math/vector3d.h"

#include <list>
#include <set>
#include <string>

// Identifiers of the option controls every assistant reads.
enum AssistantControlId : ADMInt32 {
    kAssistantApplyId = 3,
    kAssistantReverseOrderId = 520,
    kAssistantRandomOrderId = 521,
    kAssistantUseCompCenterId = 522,
    kAssistantRepeatSequentiallyId = 523,
    kAssistantKeyPositionId = 524,
    kAssistantKeyOrientationId = 525,
    kAssistantKeyScaleId = 526,
    kAssistantRepeatLayersId = 528,
    kAssistantRepeatCountId = 529,
    kAssistantCropTextLayersId = 531,
};

// Object-type bits of the selection test: 3D AV (1), light (2), camera (4), 3D text (8), 3D shape (16).
constexpr unsigned int kArrangeableLayersMask = 0x19;

class AssistantDlg : public BaseDlg {
public:
    struct LayerInfo {
        A_long index;                  // layer index in its composition; the ordering key
        A_LPoint dims;                 // source size in pixels
        A_LPoint size;                 // displayed size in pixels; the layout may rewrite it
        AEGP_StreamValue scale;        // percent
        AEGP_StreamValue position;     // pixels
        AEGP_StreamValue orientation;  // Orientation plus X/Y/Z Rotation, degrees
        AEGP_LayerH layer;             // the copy's handle once a planned copy is made
        A_Time time;                   // the layer's current time: values are read and keys set here
        bool clone;                    // a planned copy of `layer`

        bool operator<(const LayerInfo& other) const { return index < other.index; }
    };

    explicit AssistantDlg(int plugin_id);
    ~AssistantDlg() override;

    ASErr Init() override;
    void Notify(IADMNotifier notifier) override;
    void Destroy() override;
    void Enable(unsigned char enable) override;

    virtual void constrain_layers();
    virtual A_Err apply_assistant();
    virtual void sort_layers();
    virtual bool is_reverse_order();
    virtual bool is_random_order();
    virtual bool is_repeat_seq();
    virtual bool is_key_pos();
    virtual bool is_key_orient();
    virtual bool is_key_scale();
    virtual A_Err get_layers_pos() = 0;
    virtual std::string get_name() const = 0;
    virtual A_Err apply_to_layers();
    virtual bool is_orient_changed();
    virtual math::TGeomVector3D<double> get_offset();
    virtual bool is_text_layer_use_comp_size();
    virtual void OnHostHasChanged();
    virtual bool isCurSelectionContains(unsigned int mask);

    // Snapshot of the host's selection.
    A_Err save_selection();
    bool snap_selection(std::set<AEGP_LayerH>* out);
    bool snap_comp(std::set<AEGP_LayerH>* out);
    A_Err collect_info(AEGP_LayerH layer, LayerInfo* out);
    A_Err get_layer_dimensions(AEGP_LayerH layer, int* width, int* height);
    A_Err get_layer_scale(AEGP_LayerH layer, AEGP_StreamValue* out);

    // Repeats by copying.
    bool clone_attr(std::list<LayerInfo>::iterator record);
    AEGP_LayerH clone(AEGP_LayerH layer);
    AEGP_LayerH clonePre65(AEGP_LayerH layer);
    void enable_repeat_layers();

protected:
    // Whether the dialog has the check box and it is checked; false without it.
    bool is_checked(ADMInt32 id) const;

    // The steps of "Apply" between the snapshot and the layout.
    A_Err build_layer_list(AEGP_SuiteHandler& suites, A_u_long item_count);
    void order_layers();
    void reverse_layers();
    void shuffle_layers();

    // One record written to its layer; the writes' own results are not looked at.
    void write_orientation(const LayerInfo& record);
    void write_position(const LayerInfo& record, const math::TGeomVector3D<double>& offset);
    void write_scale(const LayerInfo& record);

    AEGP_PluginID plugin_id;
    std::list<LayerInfo> layers;
    AEGP_CollectionH collection;  // owned
    AEGP_CompH comp;
    A_long comp_width;
    A_long comp_height;
    A_long max_width;
    A_long max_height;

private:
    void release_collection();
};
