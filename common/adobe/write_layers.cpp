// Writing the computed records to their layers, making the planned copies on the way.
#include "common/adobe/AssistantDlg.h"

#include "common/adobe/StreamValue.h"

namespace {

// Each property through its own stream, opened just before and closed just after its write.
void write_property(int plugin_id, const AssistantDlg::LayerInfo& record, AEGP_LayerStream which,
                    const AEGP_StreamValue& value, bool as_key) {
    StreamValue stream(plugin_id, record.layer, which);
    if (as_key) {
        stream.insert_key(record.time, AEGP_LTimeMode_CompTime, nullptr);
    }
    stream.set_value(value);
}

}  // namespace

void AssistantDlg::write_orientation(const LayerInfo& record) {
    // The rotations are folded into the orientation, so they go to zero, never as keys.
    const AEGP_StreamValue zero{};
    for (AEGP_LayerStream rotation :
         {AEGP_LayerStream_ROTATE_X, AEGP_LayerStream_ROTATE_Y, AEGP_LayerStream_ROTATION}) {
        write_property(plugin_id, record, rotation, zero, false);
    }
    write_property(plugin_id, record, AEGP_LayerStream_ORIENTATION, record.orientation, is_key_orient());
}

void AssistantDlg::write_position(const LayerInfo& record, const math::TGeomVector3D<double>& offset) {
    AEGP_StreamValue position = record.position;
    position.val.three_d.x += offset.x;
    position.val.three_d.y += offset.y;
    position.val.three_d.z += offset.z;
    write_property(plugin_id, record, AEGP_LayerStream_POSITION, position, is_key_pos());
}

void AssistantDlg::write_scale(const LayerInfo& record) {
    write_property(plugin_id, record, AEGP_LayerStream_SCALE, record.scale, is_key_scale());
}

A_Err AssistantDlg::apply_to_layers() {
    const bool orient = is_orient_changed();
    const math::TGeomVector3D<double> offset = get_offset();
    for (auto record = layers.begin(); record != layers.end(); ++record) {
        if (record->clone && !clone_attr(record)) {
            continue;  // the host would not make this copy; the others still go in
        }
        if (orient) {
            write_orientation(*record);
        }
        write_position(*record, offset);
        write_scale(*record);
    }
    return A_Err_NONE;
}
